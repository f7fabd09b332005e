// Issues end to end: their window, their QR codes, and a component that is picked for one.
#include "tests/roads/PickRoad.h"

#include "hands/Hands.h"
#include "host/qr/QrImage.h"
#include "host/qr/QrRead.h"
#include "host/ui/MainWindow.h"
#include "host/ui/marks/MarkPage.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "services/IKXView.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "site/IssueCode.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QString kFilter = u"二维码图片 (*.png *.jpg *.jpeg *.bmp *.gif);;所有文件 (*)"_s;

/// With an issue of column KZ-1 on floor "1", shown by a flag of the plan.
class IssueRoad : public PickRoad {
protected:
    void Furnish() override {
        PickRoad::Furnish();
        site::SiteWriter writer(support::FolderOf(session));
        issue = Raise(writer, site.firstProject);
        elsewhere = Raise(writer, site.secondProject);
    }
    void SetUp() override {
        PickRoad::SetUp();
        ASSERT_TRUE(WaitFor([this] { return IssueFlag(Plan(), 1).count == 1; }));
    }
    static QString Raise(site::SiteWriter& writer, qint32 ppid) {
        site::NewIssue raised;
        raised.ppid = ppid;
        raised.theme = u"柱脚裂缝"_s;
        raised.floor = u"1"_s;
        raised.componentName = u"KZ-1"_s;
        raised.componentSubName = u"框架柱"_s;
        raised.componentHandle = u"c1"_s;
        raised.markId = 1;
        raised.creator = u"张伟"_s;
        raised.createTime = 1'700'000'000;
        return writer.FileIssue(raised);
    }
    [[nodiscard]] static QWidget* Info() { return tour::FindWindow(u"issueWindow"_s); }
    [[nodiscard]] static QWidget* Editor() { return tour::FindWindow(u"TNPicEditDlg"_s); }
    [[nodiscard]] static QWidget* IssueViewer() { return tour::FindWindow(u"TNPicViewWrap"_s); }
    [[nodiscard]] static QString Notice() {
        return tour::ReadText(tour::FindIn(Info(), u"issueNotice"_s));
    }
    [[nodiscard]] static QStringList Deeds() {
        const auto* table = qobject_cast<QTableView*>(tour::FindIn(Info(), u"issueHistory"_s));
        QStringList deeds;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            deeds << table->model()->index(row, 2).data().toString();
        }
        return deeds;
    }
    void OpenInfo() {
        ChooseOfIssueFlag(Plan(), 1, u"问题信息…"_s);
        ASSERT_NE(Info(), nullptr);
    }
    /// Saves the code from the window.
    [[nodiscard]] QString SavedCode() {
        support::AnsweredPrompts prompts;
        const QString path = folder.Path(u"code.png"_s);
        prompts.ExpectSaveFile(u"柱脚裂缝.png"_s, path);
        ClickOn(*Info(), u"issueSaveCode"_s);
        return path;
    }
    [[nodiscard]] QString CodeFile(const QString& text) const {
        const QString path = folder.Path(u"given.png"_s);
        EXPECT_TRUE(host::QrImageOf(text, 6).save(path));
        return path;
    }
    /// Chooses a file after Ctrl+O; a message must come where one is expected.
    void OpenCode(const QString& path, const QString& message = {}) {
        support::AnsweredPrompts prompts;
        prompts.ExpectOpenFiles(kFilter, {path});
        if (!message.isEmpty()) {
            prompts.ExpectMessage(message);
        }
        EXPECT_TRUE(Press(Qt::Key_O));
        EXPECT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
    }
    [[nodiscard]] KX_DATA::QuestionDetail Detail() const {
        KX_DATA::QuestionDetail detail;
        EXPECT_TRUE(session.Site().Issues().Detail(site.firstProject, issue, detail));
        return detail;
    }

    QString issue;
    QString elsewhere;
};

TEST_F(IssueRoad, ByTheConsoleItsComponentIsPickedAnewAndItsCodeMade) {
    ASSERT_TRUE(Press(Qt::Key_3));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 3; }));
    const auto row = int(ConsoleColumnTexts(u"问题主题"_s).indexOf(u"柱脚裂缝"_s));
    ASSERT_GE(row, 0);
    ClickRowIcon(row, u"编辑"_s);
    ASSERT_TRUE(WaitFor([] { return Editor() != nullptr; }));
    ClickOn(*Editor(), u"changeButton"_s);
    ASSERT_TRUE(IsPicking());
    EXPECT_EQ(Editor(), nullptr);
    ClickComponent(u"c3"_s);
    ClickOn(*client->Window(), u"pickDone"_s);
    ASSERT_TRUE(WaitFor([] { return Editor() != nullptr; }));
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"componentText"_s)), u"1层 框架柱 KZ-3"_s);
    EXPECT_TRUE(Detail().qrCode.isEmpty()) << "before OK nothing is saved";
    ClickOn(*Editor(), u"okButton"_s);
    EXPECT_TRUE(WaitFor([] { return Editor() == nullptr; }));

    const KX_DATA::QuestionDetail saved = Detail();
    EXPECT_EQ(saved.componentHandle, u"c3"_s);
    EXPECT_EQ(saved.componentName, u"KZ-3"_s);
    EXPECT_TRUE(saved.qrCode.startsWith(u"kxissue:1:%1:"_s.arg(site.firstProject)));
    const auto found = session.Site().Issues().FindByQrCode({site.firstProject}, saved.qrCode);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->questionId, issue);
}

TEST_F(IssueRoad, ACancelledPickChangesNothingAtTheIssue) {
    ASSERT_TRUE(Press(Qt::Key_3));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 3; }));
    ClickRowIcon(int(ConsoleColumnTexts(u"问题主题"_s).indexOf(u"柱脚裂缝"_s)), u"编辑"_s);
    ASSERT_TRUE(WaitFor([] { return Editor() != nullptr; }));
    ClickOn(*Editor(), u"changeButton"_s);
    ASSERT_TRUE(IsPicking());
    ClickComponent(u"c3"_s);
    PressOnPicks(Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([] { return Editor() != nullptr; }));
    EXPECT_EQ(tour::ReadText(tour::FindIn(Editor(), u"componentText"_s)), u"1层 框架柱 KZ-1"_s);
    ClickOn(*Editor(), u"okButton"_s);
    EXPECT_TRUE(WaitFor([] { return Editor() == nullptr; }));
    EXPECT_EQ(Detail().componentHandle, u"c1"_s);
    EXPECT_TRUE(Detail().qrCode.isEmpty());
}

TEST_F(IssueRoad, TheMenuOfAFlagOpensTheWindowOnceAndItHasNoModality) {
    OpenInfo();
    EXPECT_EQ(Info()->windowTitle(), u"问题信息 - 柱脚裂缝"_s);
    EXPECT_FALSE(Info()->isModal());
    EXPECT_EQ(Deeds(), QStringList{u"提出问题"_s});
    const QWidget* first = Info();
    OpenInfo();
    EXPECT_EQ(Info(), first);
    EXPECT_EQ(OpenWindows().count(u"issueWindow"_s), 1);
}

TEST_F(IssueRoad, TheSavedCodeOpensTheIssueInTheViewer) {
    OpenInfo();
    const QString path = SavedCode();
    EXPECT_EQ(host::ReadQrFile(path).text, site::IssueCode(site.firstProject, issue));
    EXPECT_TRUE(WaitFor([] { return hands::CloseWindow(Info()); }));
    EXPECT_EQ(IssueViewer(), nullptr);
    OpenCode(path);
    ASSERT_TRUE(WaitFor([] { return IssueViewer() != nullptr; }));
    EXPECT_TRUE(IssueViewer()->windowTitle().contains(u"柱脚裂缝"_s))
        << IssueViewer()->windowTitle().toStdString();
}

TEST_F(IssueRoad, TheButtonOfTheWindowOpensTheViewer) {
    OpenInfo();
    ClickOn(*Info(), u"issueView"_s);
    EXPECT_TRUE(WaitFor([] { return IssueViewer() != nullptr; }));
}

TEST_F(IssueRoad, WhatAnotherClientChangesIsReadAnew) {
    OpenInfo();
    host::HostSession other;
    ASSERT_FALSE(other.Open(folder.Path(u"data"_s)));
    KX_DATA::IssueUpdate update;
    update.questionId = issue;
    update.questionName = u"柱脚裂缝（加宽）"_s;
    update.markId = 1;
    ASSERT_EQ(other.Site().Issues().Update(site.firstProject, update, {u"李娜"_s, 1'700'000'100}),
              site::Saved::Yes);
    EXPECT_TRUE(WaitFor([] { return Deeds().size() == 2; }));
    EXPECT_EQ(Info()->windowTitle(), u"问题信息 - 柱脚裂缝（加宽）"_s);
    EXPECT_EQ(Deeds().front(), u"名称：“柱脚裂缝” → “柱脚裂缝（加宽）”"_s);
}

TEST_F(IssueRoad, AnIssueThatAnotherClientDeletesIsToldToBeGone) {
    OpenInfo();
    host::HostSession other;
    ASSERT_FALSE(other.Open(folder.Path(u"data"_s)));
    ASSERT_EQ(other.Site().Bin().DeleteIssues({site.firstProject}, {issue}, {u"李娜"_s, 1}), 1);
    EXPECT_TRUE(WaitFor([] { return Notice().startsWith(u"该问题已被删除"_s); }));
    EXPECT_FALSE(Info()->findChild<QPushButton*>(u"issueSaveCode"_s)->isEnabled());
}

TEST_F(IssueRoad, AnotherProjectClosesTheWindowAndTheEndOfTheClientToo) {
    OpenInfo();
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    EXPECT_NE(Info(), nullptr) << "its project is one of the workset's";
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(WaitFor([] { return Info() == nullptr; }));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    Plan().SetFloor(host::FindFloor(Plan().Model(), u"1"_s));
    ASSERT_TRUE(WaitFor([this] { return IssueFlag(Plan(), 1).count == 1; }));
    OpenInfo();
    client->Stop();
    EXPECT_EQ(Info(), nullptr);
}

TEST_F(IssueRoad, ACancelledFileDialogDoesNothing) {
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(kFilter, {});
    EXPECT_TRUE(Press(Qt::Key_O));
    EXPECT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
}

TEST_F(IssueRoad, FilesWithoutACodeOfOursSayWhatIsWrong) {
    QImage empty(200, 200, QImage::Format_RGB32);
    empty.fill(Qt::white);
    ASSERT_TRUE(empty.save(folder.Path(u"white.png"_s)));
    OpenCode(folder.Path(u"white.png"_s),
             u"图片中没有找到二维码，请让二维码完整、清晰地出现在图片中。"_s);
    QFile text(folder.Path(u"text.png"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture at all");
    text.close();
    OpenCode(text.fileName(), u"“text.png”不是能读取的图片，请选择二维码的图片。"_s);
    OpenCode(folder.Path(u"nowhere.png"_s), u"“nowhere.png”已不存在，请选择二维码的图片。"_s);
    OpenCode(CodeFile(u"https://example.org"_s),
             u"这不是问题的二维码，内容是：https://example.org"_s);
    OpenCode(CodeFile(site::IssueCode(site.firstProject, u"nobody"_s)),
             u"没有找到这个二维码的问题，它可能已被删除，或二维码已更换。"_s);
    EXPECT_EQ(IssueViewer(), nullptr);
}

TEST_F(IssueRoad, AHugeFileIsRefusedWithoutBeingRead) {
    QFile file(folder.Path(u"huge.png"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(3LL * 1024 * 1024 * 1024)); // takes no room: it has no content
    OpenCode(file.fileName(), u"“huge.png”超过 2 GB，请选择二维码的图片。"_s);
}

TEST_F(IssueRoad, AnIssueOfAProjectThatIsNotOpenNamesTheProject) {
    const QString path = CodeFile(site::IssueCode(site.secondProject, elsewhere));
    OpenCode(path, u"该问题属于工程“二期工程”，请先打开这个工程再试。"_s);
    ASSERT_TRUE(ChooseProject(u"工作集：总包"_s));
    ASSERT_TRUE(WaitFor([this] { return View().LocateIssue(elsewhere); }));
    OpenCode(path);
    EXPECT_TRUE(WaitFor([] { return IssueViewer() != nullptr; }));
}

TEST_F(IssueRoad, WithoutIssueMarksOnThePlanTheModuleSaysSo) {
    client->Window()->Marks().Page(host::MarkKind::Issues).ShownAction()->trigger();
    OpenCode(CodeFile(site::IssueCode(site.firstProject, issue)), u"请先开启TN问题显示再定位！"_s);
    EXPECT_EQ(IssueViewer(), nullptr);
}

TEST_F(IssueRoad, DuringAPickNoIssueIsOpenedAndThePickGoesOn) {
    View().BeginComponentPick();
    ASSERT_TRUE(IsPicking());
    OpenCode(CodeFile(site::IssueCode(site.firstProject, issue)),
             u"正在平面图上选择构件，请先完成或取消选择。"_s);
    EXPECT_TRUE(Picks().isVisible());
    EXPECT_EQ(IssueViewer(), nullptr);
}

} // namespace
} // namespace roads
