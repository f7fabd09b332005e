// Balloons: where they stand and what ends them.
#include "toolkit/windows/BalloonTip.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using toolkit::BalloonTip;

namespace {

struct Balloon : ::testing::Test {
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<QPushButton> button = new QPushButton(u"删除"_s, window.get());

    void SetUp() override {
        window->setGeometry(100, 100, 400, 300);
        button->setGeometry(40, 100, 60, 24);
        window->show();
        window->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(window.get()));
    }
    void TearDown() override {
        if (BalloonTip* open = BalloonTip::Current()) {
            open->Dismiss();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Shown, and the events in progress are done.
    QPointer<BalloonTip> Show(const QString& text = u"至少要选中一项！"_s) const {
        QPointer<BalloonTip> balloon = BalloonTip::ShowAt(button, text);
        QCoreApplication::processEvents();
        return balloon;
    }
};

TEST_F(Balloon, StandsBelowItsControlAndSaysItsText) {
    const auto balloon = Show();
    ASSERT_EQ(BalloonTip::Current(), balloon);
    EXPECT_TRUE(balloon->isVisible());
    EXPECT_EQ(balloon->objectName(), u"balloonTip"_s);
    EXPECT_EQ(balloon->Text(), u"至少要选中一项！"_s);
    EXPECT_EQ(balloon->accessibleName(), u"至少要选中一项！"_s);
    EXPECT_EQ(balloon->Control(), button);
    const QRect control(button->mapToGlobal(QPoint(0, 0)), button->size());
    EXPECT_NEAR(balloon->geometry().top(), control.bottom(), 2);
    EXPECT_LE(balloon->geometry().left(), control.center().x());
    EXPECT_GE(balloon->geometry().right(), control.center().x());
}

TEST_F(Balloon, TakesNoKeyboard) {
    auto* edit = new QLineEdit(window.get());
    edit->show();
    edit->setFocus();
    Show();
    EXPECT_TRUE(edit->hasFocus());
}

TEST_F(Balloon, NewOneTakesThePlaceOfTheOld) {
    const auto first = Show();
    const auto second = Show(u"二"_s);
    EXPECT_EQ(BalloonTip::Current(), second);
    EXPECT_TRUE(!first || !first->isVisible());
}

TEST_F(Balloon, GoesAfterFiveSeconds) {
    const auto balloon = Show();
    auto* timer = balloon->findChild<QTimer*>(u"balloonTimer"_s);
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->interval(), 5000);
    timer->start(0);
    EXPECT_TRUE(QTest::qWaitFor([] { return BalloonTip::Current() == nullptr; }));
}

TEST_F(Balloon, GoesAtAClickOnItOrAnywhere) {
    QTest::mouseClick(Show().data(), Qt::LeftButton);
    EXPECT_EQ(BalloonTip::Current(), nullptr);
    Show();
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, QPoint(300, 250));
    EXPECT_EQ(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, GoesAtAKey) {
    Show();
    QTest::keyClick(window.get(), Qt::Key_A);
    EXPECT_EQ(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, OutlivesTheKeyThatBroughtIt) {
    auto* edit = new QLineEdit(window.get());
    edit->show();
    QObject::connect(edit, &QLineEdit::returnPressed, window.get(),
                     [this] { BalloonTip::ShowAt(button, u"x"_s); });
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_NE(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, GoesWithItsControl) {
    Show();
    button->hide();
    EXPECT_EQ(BalloonTip::Current(), nullptr);
    button->show();
    Show();
    delete button;
    EXPECT_EQ(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, GoesWithItsWindow) {
    Show();
    window->hide();
    EXPECT_EQ(BalloonTip::Current(), nullptr);
    window->show();
    const auto balloon = Show();
    window.reset();
    EXPECT_EQ(BalloonTip::Current(), nullptr);
    EXPECT_TRUE(balloon.isNull());
}

TEST_F(Balloon, GoesWhenItsWindowMovesOrLosesTheForeground) {
    Show();
    window->move(150, 150);
    EXPECT_TRUE(QTest::qWaitFor([] { return BalloonTip::Current() == nullptr; }));
    Show();
    QEvent deactivate(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(window.get(), &deactivate);
    EXPECT_EQ(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, LongTextWrapsAndNothingLeavesTheScreen) {
    const QRect screen = window->screen()->availableGeometry();
    const QString text(200, u'长');
    const QPoint corners[] = {{0, 0},
                              {screen.right() - 60, 0},
                              {0, screen.bottom() - 24},
                              {screen.right() - 60, screen.bottom() - 24}};
    for (const QPoint& corner : corners) {
        window->setGeometry(QRect(corner, QSize(60, 24)));
        button->setGeometry(0, 0, 60, 24);
        QCoreApplication::processEvents();
        const auto balloon = Show(text);
        ASSERT_FALSE(balloon.isNull());
        EXPECT_TRUE(screen.contains(balloon->geometry()))
            << balloon->x() << "," << balloon->y() << " at " << corner.x() << "," << corner.y();
        EXPECT_LE(balloon->width(), 320 + 24);
        EXPECT_GT(balloon->height(), 100);
    }
}

TEST_F(Balloon, TextIsPlain) {
    const auto plain = Show(u"xxxxxxxxx"_s);
    const int width = plain->width();
    const auto tagged = Show(u"<b>xx</b>"_s);
    EXPECT_GT(tagged->width(), width / 2);
    EXPECT_EQ(tagged->Text(), u"<b>xx</b>"_s);
}

TEST_F(Balloon, NeedsAControl) {
    Show();
    EXPECT_EQ(BalloonTip::ShowAt(nullptr, u"x"_s), nullptr);
    EXPECT_EQ(BalloonTip::Current(), nullptr);
}

TEST_F(Balloon, PointsAtTheMiddleOfASmallControlAndNearTheStartOfAWideOne) {
    const int left = button->mapToGlobal(QPoint(0, 0)).x();
    EXPECT_EQ(Show()->x(), left + 30 - 24);
    button->resize(80, 24);
    EXPECT_EQ(Show()->x(), left + 40 - 24);
    button->resize(300, 24);
    EXPECT_EQ(Show()->x(), left + 40 - 24);
}

TEST_F(Balloon, StandsBelowAsLongAsItFitsThereToThePixel) {
    const int height = Show()->height();
    const int screenBottom = window->screen()->availableGeometry().bottom();
    const auto topWithRoom = [&](int room) {
        const int bottom = button->mapToGlobal(QPoint(0, 23)).y();
        window->move(window->x(), window->y() + screenBottom - room - bottom);
        QCoreApplication::processEvents();
        return Show()->y() - button->mapToGlobal(QPoint(0, 0)).y();
    };
    EXPECT_EQ(topWithRoom(height), 23 - 1);
    EXPECT_EQ(topWithRoom(height - 1), -height + 2);
}

TEST_F(Balloon, AtAnEdgeOfTheScreenItEndsWithIt) {
    const QRect screen = window->screen()->availableGeometry();
    window->setGeometry(screen.right() - 60, 100, 400, 300);
    button->setGeometry(0, 100, 60, 24);
    EXPECT_EQ(Show()->geometry().right(), screen.right());
    window->setGeometry(screen.left() - 30, 100, 400, 300);
    EXPECT_EQ(Show()->geometry().left(), screen.left());
}

} // namespace
