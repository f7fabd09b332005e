#include "toolkit/windows/PopupWindow.h"

#include "tests/support/Toasts.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/PopupPlaces.h"

#include <QDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using support::RunPendingEvents;
using support::ToastsInSight;
using support::WaitFor;

namespace {

constexpr QSize kSize{200, 150};

/// Counts what it is asked to do.
class SmallDialog final : public CBCGPPopupDlg {
public:
    explicit SmallDialog(int& initialised) : m_initialised(initialised) {}
    void OnInitDialog() override { ++m_initialised; }
    [[nodiscard]] QSize PreferredSize() const override { return kSize; }

protected:
    QWidget* MakeWindow(QWidget* parent) override {
        auto* widget = new QWidget(parent);
        widget->setFixedSize(kSize);
        return widget;
    }

private:
    int& m_initialised;
};

class Toast : public testing::Test {
protected:
    ~Toast() override {
        CBCGPPopupWindow::CloseAll();
        RunPendingEvents();
    }

    void Make(int autoCloseMs, toolkit::WindowId owner = toolkit::kNoWindow) {
        auto* popup = new CBCGPPopupWindow;
        popup->SetAutoCloseTime(autoCloseMs);
        popup->EnableSmallCaption(false);
        popup->SetAnimationType(CBCGPPopupWindow::kFade);
        popup->SetAnimationSpeed(1);
        popup->SetWindowText(u"提醒 <b>%1</b>"_s.arg(made++));
        popup->CreatePopup(owner, [this] { return std::make_unique<SmallDialog>(initialised); });
    }
    [[nodiscard]] static int Capacity() {
        return toolkit::PopupCapacity(QGuiApplication::primaryScreen()->availableGeometry(),
                                      ToastsInSight().front()->size());
    }

    int made = 0;
    int initialised = 0;
};

} // namespace

TEST(PopupPlaces, FillColumnsFromTheLowerRightCorner) {
    const QRect screen(100, 50, 500, 400);
    EXPECT_EQ(toolkit::PopupCapacity(screen, kSize), 4);
    EXPECT_EQ(toolkit::PopupPlace(screen, kSize, 0), QRect(392, 292, 200, 150));
    EXPECT_EQ(toolkit::PopupPlace(screen, kSize, 1), QRect(392, 134, 200, 150));
    EXPECT_EQ(toolkit::PopupPlace(screen, kSize, 2), QRect(184, 292, 200, 150));
    for (int one = 0; one < 4; ++one) {
        EXPECT_TRUE(screen.contains(toolkit::PopupPlace(screen, kSize, one)));
        for (int other = 0; other < one; ++other) {
            EXPECT_FALSE(toolkit::PopupPlace(screen, kSize, one)
                             .intersects(toolkit::PopupPlace(screen, kSize, other)));
        }
    }
}

TEST(PopupPlaces, AScreenThatIsTooSmallHasRoomForOne) {
    EXPECT_EQ(toolkit::PopupCapacity(QRect(0, 0, 50, 50), kSize), 1);
}

TEST_F(Toast, StandsInTheCornerUnderItsCaptionAndLeavesTheKeyboardAlone) {
    Make(0);
    ASSERT_EQ(ToastsInSight().size(), 1U);
    QWidget* toast = ToastsInSight().front();
    EXPECT_EQ(QRect(toast->pos(), toast->size()),
              toolkit::PopupPlace(QGuiApplication::primaryScreen()->availableGeometry(),
                                  toast->size(), 0));
    EXPECT_EQ(toast->windowTitle(), u"提醒 <b>0</b>"_s);
    EXPECT_EQ(toast->findChild<QLabel*>(u"captionText"_s)->textFormat(), Qt::PlainText);
    // The platform of the tests activates whatever is shown; others ask these two.
    EXPECT_TRUE(toast->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(toast->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(toast->windowFlags().testFlag(Qt::Tool));
    EXPECT_TRUE(WaitFor([&] { return toast->windowOpacity() >= 1.0; })) << "fades in";
}

TEST_F(Toast, ClosesByItselfWhenItsTimeIsOver) {
    Make(30);
    EXPECT_EQ(CBCGPPopupWindow::CountShown(), 1);
    EXPECT_TRUE(WaitFor([] { return CBCGPPopupWindow::CountShown() == 0; }));
    EXPECT_TRUE(ToastsInSight().empty());
}

TEST_F(Toast, WhatHasNoRoomIsMadeAtOnceAndWaitsForTheFirstPlace) {
    Make(0);
    const int capacity = Capacity();
    for (int count = 1; count < capacity + 2; ++count) {
        Make(0);
    }
    EXPECT_EQ(initialised, capacity + 2);
    EXPECT_EQ(int(ToastsInSight().size()), capacity);
    EXPECT_EQ(CBCGPPopupWindow::CountWaiting(), 2);
    QWidget* first = ToastsInSight().front();
    const QRect place = first->geometry();
    first->close();
    ASSERT_TRUE(WaitFor([] { return CBCGPPopupWindow::CountWaiting() == 1; }));
    EXPECT_EQ(int(ToastsInSight().size()), capacity);
    bool isTaken = false;
    for (const QWidget* toast : ToastsInSight()) {
        isTaken = isTaken || (toast->geometry() == place &&
                              toast->windowTitle() == u"提醒 <b>%1</b>"_s.arg(capacity));
    }
    EXPECT_TRUE(isTaken) << "by the one that waited longest";
}

TEST_F(Toast, WhoWaitsPastItsTimeIsNeverShown) {
    Make(0);
    const int capacity = Capacity();
    for (int count = 1; count < capacity; ++count) {
        Make(0);
    }
    Make(1);
    EXPECT_EQ(CBCGPPopupWindow::CountWaiting(), 1);
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(WaitFor([&] { return timer.elapsed() > 5; }));
    ToastsInSight().front()->close();
    ASSERT_TRUE(WaitFor([] { return CBCGPPopupWindow::CountWaiting() == 0; }));
    EXPECT_EQ(int(ToastsInSight().size()), capacity - 1);
}

TEST_F(Toast, ClosesByItsButtonWhileADialogWaitsForAnAnswer) {
    // By the window, as the platform does: what is blocked gets nothing.
    const auto close = [](QWidget* toast) {
        const auto* button = toast->findChild<QWidget*>(u"captionClose"_s);
        QTest::mouseClick(toast->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(toast, button->rect().center()));
    };
    Make(0);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    Make(0);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 2; }));
    RunPendingEvents();
    close(ToastsInSight()[0]);
    EXPECT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    QMessageBox box(&dialog);
    box.setModal(true);
    box.show();
    RunPendingEvents();
    box.hide();
    RunPendingEvents();
    close(ToastsInSight()[0]);
    EXPECT_TRUE(WaitFor([] { return ToastsInSight().empty(); }));
    Make(0);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().size() == 1; }));
    dialog.hide();
    RunPendingEvents();
    EXPECT_EQ(ToastsInSight().size(), 1U) << "it doesn't go with the dialog";
    close(ToastsInSight()[0]);
    EXPECT_TRUE(WaitFor([] { return ToastsInSight().empty(); }));
}

TEST_F(Toast, DiesWithItsOwner) {
    auto owner = std::make_unique<QWidget>();
    owner->show();
    const toolkit::WindowId id =
        toolkit::RegisterWindow(owner.get(), [](const toolkit::WindowEvent&) { return 0; });
    Make(0, id);
    const int capacity = Capacity();
    for (int count = 1; count < capacity + 1; ++count) {
        Make(0, id);
    }
    owner.reset();
    EXPECT_TRUE(ToastsInSight().empty());
    EXPECT_TRUE(WaitFor([] { return CBCGPPopupWindow::CountWaiting() == 0; }));
    EXPECT_EQ(CBCGPPopupWindow::CountShown(), 0);
}

TEST_F(Toast, AThousandAtOnceMakeNoMoreWindowsThanHaveRoom) {
    for (int count = 0; count < 1000; ++count) {
        Make(0);
    }
    EXPECT_EQ(initialised, 1000);
    EXPECT_EQ(int(ToastsInSight().size()), Capacity());
    EXPECT_EQ(CBCGPPopupWindow::CountWaiting(), 1000 - Capacity());
    CBCGPPopupWindow::CloseAll();
    EXPECT_EQ(CBCGPPopupWindow::CountWaiting(), 0);
    EXPECT_TRUE(ToastsInSight().empty());
}
