// A report keeps the client from the user, and nobody is left with a client that doesn't answer.
#include "report/ReportFlow.h"

#include "tests/support/RecordingMainWindow.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/WaitFor.h"

#include <QWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A viewer's window and nothing else.
class Viewer final : public toolkit::WindowObject {
public:
    Viewer() { Create(toolkit::kNoWindow); }
    ~Viewer() override { Destroy(); }

    report::ReportFlow flow{*this};
    int looks = 0;

protected:
    QWidget* MakeWindow(QWidget* parent) override { return new QWidget(parent, Qt::Window); }
    void OnDestroyed() override { flow.End(); }
    void OnTimer(int timerId) override {
        ++looks;
        flow.OnTimer(timerId);
    }
};

class ReportFlowTest : public testing::Test {
protected:
    [[nodiscard]] bool ClientAnswers() { return mainWindow.Widget()->isEnabled(); }

    support::ScriptedHost host;
    support::RecordingMainWindow mainWindow{host.script};
    Viewer viewer;
};

} // namespace

TEST_F(ReportFlowTest, TheClientIsBlockedBeforeTheReportIsAskedForAndUntilItsWindowHasGone) {
    QWidget window;
    window.setWindowTitle(u"输出报告"_s);
    bool blocked = false;
    viewer.flow.Run([&] {
        blocked = !ClientAnswers();
        window.show();
    });
    EXPECT_TRUE(blocked);
    EXPECT_TRUE(viewer.flow.OnTimer(report::kReportTimer));
    EXPECT_FALSE(ClientAnswers()) << "it is still open";
    window.hide();
    EXPECT_TRUE(viewer.flow.OnTimer(report::kReportTimer));
    EXPECT_TRUE(ClientAnswers());
    EXPECT_FALSE(viewer.flow.BlocksClient());
}

TEST_F(ReportFlowTest, AReportThatShowsNothingUnblocksTheClientAtTheFirstLook) {
    viewer.flow.Run([] {});
    EXPECT_FALSE(ClientAnswers());
    EXPECT_TRUE(viewer.Widget()->isEnabled());
    viewer.flow.OnTimer(report::kReportTimer);
    EXPECT_TRUE(ClientAnswers());
}

TEST_F(ReportFlowTest, ItLooksEachSecondUntilTheWindowHasGone) {
    QWidget window;
    window.setWindowTitle(u"输出报告"_s);
    window.show();
    viewer.looks = 0;
    viewer.flow.Run([] {});
    EXPECT_TRUE(support::WaitFor([this] { return viewer.looks == 2; }));
    EXPECT_FALSE(ClientAnswers());
    window.hide();
    EXPECT_TRUE(support::WaitFor([this] { return ClientAnswers(); }));
    EXPECT_EQ(viewer.looks, 3);
}

TEST_F(ReportFlowTest, AWindowOfAnotherTitleOrOneInsideAnotherIsNoReport) {
    QWidget other;
    other.setWindowTitle(u"输出报告 "_s);
    other.show();
    QWidget inside(&other);
    inside.setWindowTitle(u"输出报告"_s);
    inside.show();
    viewer.flow.Run([] {});
    viewer.flow.OnTimer(report::kReportTimer);
    EXPECT_TRUE(ClientAnswers());
}

TEST_F(ReportFlowTest, TheWindowOfTheReportStaysUsable) {
    QWidget window;
    window.setWindowTitle(u"输出报告"_s);
    window.show();
    viewer.flow.Run([] {});
    EXPECT_TRUE(window.isEnabled());
    EXPECT_FALSE(ClientAnswers());
}

TEST_F(ReportFlowTest, OtherTimersAreNotItsOwn) {
    viewer.flow.Run([] {});
    EXPECT_FALSE(viewer.flow.OnTimer(2));
    EXPECT_FALSE(ClientAnswers());
    viewer.flow.End();
    EXPECT_TRUE(ClientAnswers());
}

TEST_F(ReportFlowTest, AWindowThatGoesBlocksNobody) {
    viewer.flow.Run([] {});
    viewer.Destroy();
    EXPECT_TRUE(ClientAnswers());
}

TEST_F(ReportFlowTest, AWindowThatIsClosedWhileTheReportIsAskedForBlocksNobody) {
    viewer.flow.Run([&] { viewer.Destroy(); });
    EXPECT_TRUE(ClientAnswers());
    EXPECT_FALSE(viewer.flow.BlocksClient());
}
