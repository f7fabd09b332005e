// Real threads end the transfers on which the interface thread waits.
#include "host/app/TransferWait.h"

#include "host/ui/ExProgress.h"
#include "host/ui/ProgressWindow.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <functional>
#include <thread>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

/// A window with a button and a field, which counts what gets through to it.
class Desk final : public QWidget {
public:
    Desk() {
        auto* all = new QVBoxLayout(this);
        button = new QPushButton(u"下载"_s, this);
        button->setShortcut(Qt::CTRL | Qt::Key_D);
        field = new QLineEdit(this);
        all->addWidget(button);
        all->addWidget(field);
        connect(button, &QPushButton::clicked, this, [this] { ++clicks; });
        show();
        activateWindow();
    }

    QPushButton* button = nullptr;
    QLineEdit* field = nullptr;
    int clicks = 0;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        QWidget::paintEvent(event);
    }
};

class WaitingForATransfer : public testing::Test {
protected:
    [[nodiscard]] static QWidget* ProgressOnScreen() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"progressWindow"_s && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static bool IsWaitCursor() {
        return QApplication::overrideCursor() != nullptr &&
               QApplication::overrideCursor()->shape() == Qt::WaitCursor;
    }
    /// Runs `during` from the event loop inside the wait; the transfer ends when it answers true.
    void WaitWith(const TransferWait::Times& times, const std::function<bool()>& during) {
        TransferWait wait(progress, times);
        QTimer clock;
        std::jthread end;
        QObject::connect(&clock, &QTimer::timeout, [&] {
            if (!during()) {
                return;
            }
            clock.stop();
            end = std::jthread([this] { transfer.Finish(); });
        });
        clock.start(1);
        wait.Wait(transfer);
    }

    ExProgress progress;
    site::RunningTransfer transfer;
    Desk desk;
};

TEST_F(WaitingForATransfer, AQuickOneShowsNothingAndRunsNoEvent) {
    bool ran = false;
    QTimer::singleShot(0, &desk, [&] { ran = true; });
    TransferWait wait(progress, {10'000, 20'000});
    const std::jthread end([this] { transfer.Finish(); });
    wait.Wait(transfer);
    EXPECT_FALSE(ran);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WaitingForATransfer, AfterAWhileTheWaitCursorShowsAndGoesWithTheEnd) {
    bool waitCursor = false;
    bool window = false;
    WaitWith({0, 1'000'000}, [&] {
        waitCursor = IsWaitCursor();
        window = ProgressOnScreen() != nullptr;
        return true;
    });
    EXPECT_TRUE(waitCursor);
    EXPECT_FALSE(window);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WaitingForATransfer, AfterHalfASecondAWindowCountsTheBytes) {
    transfer.NoteTotal(4LL * 1024 * 1024);
    transfer.NoteBytes(1024LL * 1024);
    QString count;
    QElapsedTimer since;
    since.start();
    qint64 shownAfter = 0;
    WaitWith({}, [&] {
        const QWidget* window = ProgressOnScreen();
        if (window == nullptr) {
            return false;
        }
        shownAfter = since.elapsed();
        count = window->findChild<QLabel*>(u"progressCount"_s)->text();
        return !count.isEmpty();
    });
    EXPECT_EQ(count, u"1.0 MB / 4.0 MB"_s);
    EXPECT_GE(shownAfter, 450);
    EXPECT_EQ(ProgressOnScreen(), nullptr);
}

TEST_F(WaitingForATransfer, ABatchShowsTheBytesInTheWindowThatItHas) {
    progress.Create(toolkit::kNoWindow, u"ZVKX"_s);
    progress.Show();
    progress.SetRange(3);
    progress.Window()->Begin(0);
    transfer.NoteTotal(2048);
    transfer.NoteBytes(1024);
    QString detail;
    WaitWith({0, 0}, [&] {
        detail = progress.Window()->findChild<QLabel*>(u"progressDetail"_s)->text();
        return progress.Window()->isVisible() && !detail.isEmpty();
    });
    EXPECT_EQ(detail, u"1.0 kB / 2.0 kB"_s);
    EXPECT_TRUE(progress.Window()->isModal()) << "the batch goes on";
}

TEST_F(WaitingForATransfer, NothingThatAPersonDoesGetsThrough) {
    desk.field->setFocus();
    int round = 0;
    WaitWith({0, 0}, [&] {
        QTest::mouseClick(desk.button, Qt::LeftButton);
        QTest::keyClick(desk.field, Qt::Key_A);
        QTest::keyClick(&desk, Qt::Key_D, Qt::ControlModifier);
        return ++round > 20 && ProgressOnScreen() != nullptr;
    });
    support::RunPendingEvents();
    EXPECT_EQ(desk.clicks, 0);
    EXPECT_EQ(desk.field->text(), QString());
    QTest::mouseClick(desk.button, Qt::LeftButton);
    EXPECT_EQ(desk.clicks, 1) << "afterwards all is as before";
    EXPECT_FALSE(transfer.IsCancelled());
}

/// Ends only when it is told to, as a server that has gone silent.
class WaitingForASilentTransfer : public WaitingForATransfer {
protected:
    /// Waits with `act` done once to the window, as soon as it is on the screen.
    void WaitAnd(const std::function<void(QWidget&)>& act) {
        const std::stop_callback end(transfer.StopToken(), [this] { transfer.Finish(); });
        TransferWait wait(progress, {0, 0});
        bool acted = false;
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, [&] {
            if (QWidget* window = ProgressOnScreen(); window != nullptr && !acted) {
                acted = true;
                act(*window);
            }
        });
        clock.start(1);
        wait.Wait(transfer);
        EXPECT_TRUE(transfer.IsCancelled());
        EXPECT_EQ(ProgressOnScreen() != nullptr, progress.Window() != nullptr);
    }
    static QPushButton* CancelOf(const QWidget& window) {
        return window.findChild<QPushButton*>(u"progressCancel"_s);
    }
};

TEST_F(WaitingForASilentTransfer, ItsWindowHasAButtonThatEndsIt) {
    WaitAnd([](QWidget& window) {
        ASSERT_TRUE(CancelOf(window)->isVisible());
        QTest::mouseClick(CancelOf(window), Qt::LeftButton);
    });
}

TEST_F(WaitingForASilentTransfer, EscapeAndTheCloseButtonEndItToo) {
    WaitAnd([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
}

TEST_F(WaitingForASilentTransfer, AskedToCloseByTheWindowManagerItEndsToo) {
    WaitAnd([](QWidget& window) {
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close);
        qApp->notify(window.windowHandle(), &close);
    });
}

TEST_F(WaitingForASilentTransfer, AProgramThatIsToldToQuitEndsIt) {
    // What a quit comes to once all windows have agreed: every loop ends.
    WaitAnd([](QWidget&) { QCoreApplication::exit(); });
    // Loops behind it end at once, other tests' too, until the program's own has run.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
}

TEST_F(WaitingForASilentTransfer, InABatchTheOthersAreCancelledWithIt) {
    progress.Create(toolkit::kNoWindow, u"ZVKX"_s);
    progress.Show();
    progress.Window()->Begin(0);
    WaitAnd([](QWidget& window) { QTest::mouseClick(CancelOf(window), Qt::LeftButton); });
    EXPECT_FALSE(CancelOf(*progress.Window())->isVisible()) << "the rest can't be cancelled";
    site::RunningTransfer second;
    const std::stop_callback end(second.StopToken(), [&] { second.Finish(); });
    TransferWait(progress, {0, 0}).Wait(second);
    EXPECT_TRUE(second.IsCancelled());
}

TEST_F(WaitingForATransfer, TheCloseButtonOfAWindowIsDeadMeanwhile) {
    WaitWith({0, 1'000'000}, [&] {
        // As a window manager asks.
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close);
        qApp->notify(desk.windowHandle(), &close);
        return true;
    });
    support::RunPendingEvents();
    EXPECT_TRUE(desk.isVisible());
}

TEST_F(WaitingForATransfer, WindowsGoOnPainting) {
    int rounds = 0;
    const int before = desk.paints;
    WaitWith({0, 1'000'000}, [&] {
        desk.update();
        return desk.paints > before + 2 || ++rounds > 1000;
    });
    EXPECT_GT(desk.paints, before + 2);
}

TEST_F(WaitingForATransfer, AProgramThatIsToldToQuitStillWaitsForTheEnd) {
    bool ended = false;
    TransferWait wait(progress, {0, 0});
    std::jthread end;
    QTimer::singleShot(5, &desk, [&] {
        QCoreApplication::quit();
        end = std::jthread([&] {
            ended = true;
            transfer.Finish();
        });
    });
    wait.Wait(transfer);
    EXPECT_TRUE(ended);
    EXPECT_TRUE(transfer.IsDone());
}

} // namespace
} // namespace host
