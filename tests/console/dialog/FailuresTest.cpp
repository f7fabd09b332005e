// Every operation that the console uses, failing: it opens, works on, and works again afterwards.
#include "frame/KXVeskPictureImpl.h"
#include "tests/console/dialog/ConsoleFixture.h"
#include "tests/support/WaitFor.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

/// An operation and the kind in whose console it fails.
struct Failure {
    const char* operation;
    ConsoleMode mode;
};

std::ostream& operator<<(std::ostream& out, const Failure& failure) {
    return out << failure.operation << " in kind " << failure.mode;
}

std::vector<Failure> Failures() {
    std::vector<Failure> failures;
    for (const ConsoleMode mode : {kModeBim, kModePdf, kModeIssue}) {
        for (const char* operation :
             {"IsWorksetMode", "GetWorksetProjects", "GetProjectName", "GetRecent", "SaveRecent",
              "GetStateNames", "GetCurrentProject", "GetProjectRecord", "GetMarkTable",
              "HasRight"}) {
            failures.push_back({operation, mode});
        }
    }
    for (const char* operation : {"QueryBimPics", "GetUsedBimMarks", "GetBimLabels", "GetMarkInfo",
                                  "SetBimPicsShown", "DeleteBimPics", "GetView", "LocatePicture"}) {
        failures.push_back({operation, kModeBim});
    }
    for (const char* operation : {"QueryPdfPics", "GetUsedPdfMarks", "GetPdfLabels", "GetMarkInfo",
                                  "SetPdfPicsShown", "DeletePdfPics", "GetCurrentDrawing"}) {
        failures.push_back({operation, kModePdf});
    }
    for (const char* operation : {"QueryIssues", "GetUsedMarks", "GetMarkInfo", "SetIssuesShown",
                                  "DeleteIssues", "GetView", "LocateIssue"}) {
        failures.push_back({operation, kModeIssue});
    }
    return failures;
}

/// Answers every question with yes and lets every message pass.
class PassingPrompts final : public toolkit::IPrompts {
public:
    PassingPrompts() : m_before(toolkit::SetPrompts(this)) {}
    ~PassingPrompts() override { toolkit::SetPrompts(m_before); }

    void ShowMessage(toolkit::WindowId, const QString&) override {}
    bool AskOkCancel(toolkit::WindowId, const QString&) override { return true; }
    bool AskYesNo(toolkit::WindowId, const QString&) override { return true; }
    QString AskFolder(toolkit::WindowId, const QString&) override { return {}; }
    QString AskSaveFile(const toolkit::SaveFileRequest&) override { return {}; }
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest&) override { return {}; }
    void OpenFolder(const QString&) override {}
    void RevealFile(const QString&) override {}

private:
    toolkit::IPrompts* m_before;
};

class FailuresTest : public ConsoleFixture, public testing::WithParamInterface<Failure> {
protected:
    FailuresTest() {
        host.pics.usedBimMarks = {1, 2};
        host.pics.usedPdfMarks = {3};
        host.questions.usedMarks = {2};
        host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}};
        host.pics.pdfLabels = {{u"l3"_s, u"返工"_s}};
        host.project.drawing = {500, u"一层平面"_s};
    }
    void ClickIfShown(QWidget* control) {
        if (control->isVisible() && control->isEnabled()) {
            QTest::mouseClick(control, Qt::LeftButton);
        }
    }
    /// What a person may do in a minute.
    void Work() {
        Choose(*C().statusCombo);
        Choose(*C().markCombo);
        Choose(*C().labelCombo);
        Choose(*C().projectCombo);
        ClickIfShown(C().noDateLimit);
        TypeKeyword(u"abc"_s);
        ClickIfShown(C().searchButton);
        if (Grid().GetRowCount() > 0) {
            CheckRows({0});
            const QPoint place = View().visualRect(View().model()->index(0, 3)).center();
            QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, place);
            Console().ShowRestored(); // out of the way for a viewer
        }
        ClickIfShown(C().hideButton);
        ClickIfShown(C().deleteButton);
        Key(Qt::Key_F5);
        support::RunPendingEvents();
    }
    static void Choose(QComboBox& box) {
        if (!box.isVisible()) {
            return;
        }
        DropDown(box);
        if (box.view()->isVisible()) {
            QTest::keyClick(box.view(), Qt::Key_Return);
        }
    }

    PassingPrompts passing;
};

std::string NameOf(const testing::TestParamInfo<Failure>& info) {
    return std::string(info.param.operation) + "InKind" + std::to_string(info.param.mode);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, FailuresTest, testing::ValuesIn(Failures()), NameOf);

TEST_P(FailuresTest, TheConsoleOpensAndWorksOn) {
    host.script.FailAlways(GetParam().operation);
    FillService(host, GetParam().mode, 3);
    Facade().ShowPicMng(GetParam().mode);
    Settle();
    ASSERT_TRUE(Window()->isVisible());
    Work();
    EXPECT_TRUE(C().searchButton->isEnabled());
    EXPECT_NE(C().statusPane->text(), u"正在搜索..."_s);
    Console().CloseConsole();
    EXPECT_FALSE(Console().HasWindow());
    EXPECT_GT(Log().CountOf(GetParam().operation), 0) << "the operation wasn't used at all";
}

TEST_P(FailuresTest, AnOpenConsoleWorksOnAndShowsItsRowsAgainAfterwards) {
    Open(GetParam().mode, 3);
    host.script.FailAlways(GetParam().operation);
    Work();
    host.script.Succeed(GetParam().operation);
    FillService(host, GetParam().mode, 4);
    C().searchButton->click();
    EXPECT_EQ(Grid().GetRowCount(), 4);
    EXPECT_EQ(Grid().totalCount, 4);
}

} // namespace
