#include "host/ui/ExProgress.h"
#include "host/ui/ProgressStrip.h"
#include "host/ui/ProgressWindow.h"

#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <QApplication>
#include <QEventLoop>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(ProgressWindow, ComesUpOnlyWhenTheWorkTakesItsTime) {
    ProgressWindow window(nullptr, u"导入"_s, ProgressWindow::Cancel::Possible);
    window.Begin(1'000'000);
    window.Report(1, 10);
    EXPECT_FALSE(window.isVisible());
    window.End();
    window.Begin(0);
    window.Report(3, 10);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.findChild<QLabel*>(u"progressCount"_s)->text(), u"3 / 10"_s);
    window.End();
    EXPECT_FALSE(window.isVisible());
}

TEST(ProgressWindow, ComesUpByItselfWhileTheWorkIsSilent) {
    ProgressWindow window(nullptr, u"导入"_s, ProgressWindow::Cancel::Possible);
    window.Begin(1);
    EXPECT_TRUE(support::WaitFor([&] { return window.isVisible(); }));
}

TEST(ProgressWindow, CancelsOnceByButtonOrEscape) {
    ProgressWindow window(nullptr, u"导入"_s, ProgressWindow::Cancel::Possible);
    int cancelled = 0;
    QObject::connect(&window, &ProgressWindow::Cancelled, [&] { ++cancelled; });
    window.Begin(0);
    window.Report(1, 2);
    QTest::keyClick(&window, Qt::Key_Escape);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
    EXPECT_TRUE(window.IsCancelled());
    EXPECT_TRUE(window.isVisible());
}

TEST(ProgressWindow, WithoutAWayToCancelEscapeDoesNothing) {
    ProgressWindow window(nullptr, u"下载"_s, ProgressWindow::Cancel::Impossible);
    window.Begin(0);
    window.Report(1, 2);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.IsCancelled());
    EXPECT_TRUE(window.isVisible());
}

TEST(ExProgress, ShowsTitleAndCountFromCreateToClose) {
    ExProgress progress;
    progress.SetPos(3);
    progress.Show();
    EXPECT_EQ(progress.Window(), nullptr);
    progress.Create(toolkit::kNoWindow, u"下载照片"_s);
    progress.SetTitle(u"正在下载"_s);
    progress.SetRange(4);
    progress.Show();
    progress.SetPos(2);
    ASSERT_NE(progress.Window(), nullptr);
    EXPECT_EQ(progress.Window()->windowTitle(), u"下载照片"_s);
    EXPECT_EQ(progress.Window()->findChild<QLabel*>(u"progressText"_s)->text(), u"正在下载"_s);
    EXPECT_EQ(progress.Window()->findChild<QProgressBar*>(u"progressBar"_s)->value(), 2);
    {
        const ExProgress::Hold hold(progress);
        EXPECT_TRUE(support::WaitFor([&] { return progress.Window()->isVisible(); }));
    }
    progress.Close();
    EXPECT_EQ(progress.Window(), nullptr);
    progress.Close();
}

/// A progress service whose window has come up.
class LeftProgress : public testing::Test {
protected:
    LeftProgress() {
        progress.Create(toolkit::kNoWindow, u"ZVKX"_s);
        progress.SetTitle(u"正在下载Vesk照片..."_s);
        progress.Show();
        progress.SetRange(5);
    }
    void ComeUp() {
        progress.Window()->Begin(0);
        progress.SetPos(2);
        ASSERT_TRUE(progress.Window()->isVisible());
    }
    [[nodiscard]] QPushButton* Button() {
        return progress.Window()->findChild<QPushButton*>(u"progressCancel"_s);
    }

    ExProgress progress;
};

TEST_F(LeftProgress, WorkThatEndsWithoutClosingLeavesAWindowThatCanBeClosed) {
    ComeUp();
    EXPECT_TRUE(progress.Window()->isModal());
    EXPECT_FALSE(Button()->isVisible());
    ASSERT_TRUE(support::WaitFor([this] { return !progress.Window()->isModal(); }));
    EXPECT_TRUE(progress.Window()->isVisible()) << "it stays open";
    EXPECT_EQ(progress.Window()->findChild<QLabel*>(u"progressCount"_s)->text(), u"2 / 5"_s);
    EXPECT_EQ(Button()->text(), u"关闭"_s);
    QTest::mouseClick(Button(), Qt::LeftButton);
    EXPECT_FALSE(progress.Window()->isVisible());
}

TEST_F(LeftProgress, WorkThatWasCancelledSaysSoAndItsWindowCanBeClosed) {
    progress.Window()->SetCancel(ProgressWindow::Cancel::Possible);
    ComeUp();
    QTest::mouseClick(Button(), Qt::LeftButton);
    ASSERT_TRUE(progress.Window()->IsCancelled());
    ASSERT_TRUE(support::WaitFor([this] { return !progress.Window()->isModal(); }));
    EXPECT_TRUE(
        progress.Window()->findChild<QLabel*>(u"progressText"_s)->text().startsWith(u"已取消"_s));
    ASSERT_TRUE(Button()->isEnabled());
    QTest::mouseClick(Button(), Qt::LeftButton);
    EXPECT_FALSE(progress.Window()->isVisible());
}

TEST_F(LeftProgress, WorkThatFailsBeforeTheWindowComesUpLeavesNone) {
    // Due at the next report, had nobody let go of it.
    progress.Window()->Begin(0);
    progress.Window()->LetGo();
    progress.Window()->Report(3, 5);
    support::RunPendingEvents();
    EXPECT_FALSE(progress.Window()->isVisible());
}

TEST_F(LeftProgress, AQuestionOfTheWorkItselfLeavesTheWindowAsItIs) {
    ComeUp();
    QMessageBox question(QMessageBox::Question, u"问题"_s, u"是否打开？"_s, QMessageBox::Yes);
    bool wasModal = false;
    QTimer::singleShot(20, &question, [&] {
        wasModal = progress.Window()->isModal();
        question.accept();
    });
    question.exec();
    EXPECT_TRUE(wasModal);
    progress.Close();
    EXPECT_EQ(progress.Window(), nullptr);
}

TEST_F(LeftProgress, TheNextWorkBlocksAgain) {
    ComeUp();
    ASSERT_TRUE(support::WaitFor([this] { return !progress.Window()->isModal(); }));
    progress.Create(toolkit::kNoWindow, u"ZVKX"_s);
    progress.Show();
    EXPECT_TRUE(progress.Window()->isModal());
    EXPECT_FALSE(progress.Window()->isVisible());
}

TEST(BytesText, CountsInUnitsThatSuitTheSize) {
    EXPECT_EQ(BytesText(0, 0), u"0 B"_s);
    EXPECT_EQ(BytesText(1536, 2LL * 1024 * 1024), u"1.5 kB / 2.0 MB"_s);
}

TEST(ProgressStripTest, ShowsTheTextOfTheMomentUntilItIsClosed) {
    host::ProgressStrip strip;
    strip.SetShowInfo(u"正在上传照片(1/3)"_s);
    EXPECT_EQ(strip.Window(), nullptr) << "nothing before it is shown";
    strip.ShowProgressBar(u"正在上传照片(1/3)"_s, 0);
    ASSERT_NE(strip.Window(), nullptr);
    EXPECT_FALSE(strip.Window()->isVisible()) << "it may be over in no time";
    support::RunPendingEvents();
    EXPECT_TRUE(strip.Window()->isVisible());
    strip.SetShowInfo(u"正在上传照片(2/3)"_s);
    EXPECT_EQ(strip.Window()->findChild<QLabel*>(u"progressStripText"_s)->text(),
              u"正在上传照片(2/3)"_s);
    strip.CloseProgressBar();
    strip.CloseProgressBar();
    EXPECT_EQ(strip.Window(), nullptr);
}

TEST(ProgressStripTest, WorkThatEndsAtOnceBringsUpNoWindow) {
    host::ProgressStrip strip;
    strip.ShowProgressBar(u"富文本信息加载中......"_s, 0);
    const QPointer<QWidget> window = strip.Window();
    strip.CloseProgressBar();
    EXPECT_FALSE(window->isVisible());
    support::RunPendingEvents();
    EXPECT_TRUE(window.isNull());
}

TEST(ProgressStripTest, NoneComesUpBehindABoxThatTheWorkBroughtUp) {
    host::ProgressStrip strip;
    strip.ShowProgressBar(u"附件下载中......"_s, 0);
    strip.CloseProgressBar();
    bool isSeen = false;
    QEventLoop box;
    QTimer::singleShot(50, &box, [&] {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            isSeen = isSeen || (window->objectName() == u"progressStrip" && window->isVisible());
        }
        box.quit();
    });
    box.exec();
    EXPECT_FALSE(isSeen);
}

TEST(ProgressStripTest, CoversNoButtonsInTheCornersAndLetsClicksThrough) {
    host::ProgressStrip strip;
    strip.ShowProgressBar(u"正在上传照片(1/3)"_s, 0);
    const QWidget* window = strip.Window();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowTransparentForInput));
    const QRect free = window->screen()->availableGeometry();
    EXPECT_NEAR(window->geometry().center().x(), free.center().x(), 1);
    EXPECT_LT(window->geometry().bottom(), free.bottom());
    strip.CloseProgressBar();
}

TEST(ProgressStripTest, BlocksNothingAndTakesNoKeyboard) {
    host::ProgressStrip strip;
    strip.ShowProgressBar(u"正在上传照片(1/3)"_s, 0);
    EXPECT_EQ(strip.Window()->windowModality(), Qt::NonModal);
    EXPECT_TRUE(strip.Window()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(strip.Window()->screen()->availableGeometry().contains(strip.Window()->geometry()));
}

} // namespace
} // namespace host
