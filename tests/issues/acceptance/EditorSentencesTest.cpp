// The issue editor's promises: limits, saving, stepping aside.
#include "console/VeskPicMngDlg.h"
#include "console/VeskPicMngGrid.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class EditorSentencesTest : public IssueFixture {
protected:
    EditorSentencesTest() {
        KX_DATA::PickedComponent component;
        component.id = 9;
        component.floor = u"2"_s;
        component.text1 = u"t1"_s;
        component.text2 = u"t2"_s;
        component.text3 = u"t3"_s;
        component.text4 = u"t4"_s;
        component.componentName = u"KZ-1"_s;
        component.componentHandle = u"H99"_s;
        host.view.picked = {component};
        host.reportData.components = {{u"H99"_s, u"框架柱"_s}};
    }
    static void Finish(qint32 result = 1) {
        CViewBimPicObs observer;
        observer.OpenIssueEdit(result);
    }
    /// As a window manager does when the window in front goes.
    void TurnToClient() {
        mainWindow.Widget()->show();
        mainWindow.Widget()->activateWindow();
    }
    static void Commit(QWidget& box, const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&box, &event);
    }
    static void Paste(QWidget& box, const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    }
    [[nodiscard]] static QLineEdit& Subject() { return Box<QLineEdit>("subjectEdit"); }
    [[nodiscard]] static QPlainTextEdit& Description() {
        return Box<QPlainTextEdit>("descriptionEdit");
    }
    [[nodiscard]] static QString Component() { return Box<QLabel>("componentText").text(); }
    [[nodiscard]] const KX_DATA::IssueUpdate& Saved() const { return host.questions.lastUpdate; }
    static void Save() { Press("okButton"); }
    [[nodiscard]] static bool IsOpen() { return Editor().Widget()->isVisible(); }
};

} // namespace

TEST_F(EditorSentencesTest, AnInputMethodTypesNoMoreThanFiftyIntoTheSubject) {
    ASSERT_TRUE(Edit());
    Subject().clear();
    Commit(Subject(), QString(60, u'梁'));
    EXPECT_EQ(Subject().text(), QString(50, u'梁'));
    Commit(Subject(), u"柱"_s);
    EXPECT_EQ(Subject().text().size(), 50);
}

TEST_F(EditorSentencesTest, PastedTextsAreCutAtTheirLimits) {
    ASSERT_TRUE(Edit());
    Subject().clear();
    Paste(Subject(), QString(51, u'a'));
    EXPECT_EQ(Subject().text().size(), 50);
    Description().clear();
    Paste(Description(), QString(256, u'a'));
    EXPECT_EQ(Description().toPlainText().size(), 255);
    Commit(Description(), u"梁"_s);
    EXPECT_EQ(Description().toPlainText(), QString(255, u'a'));
}

TEST_F(EditorSentencesTest, AfterAnIssueWithLongerTextsTheLimitsAreTheOldOnes) {
    Row().theme = QString(70, u'题');
    Row().description = QString(300, u'述');
    ASSERT_TRUE(Edit());
    ASSERT_TRUE(Edit(u"q2"_s));
    Subject().clear();
    Commit(Subject(), QString(60, u'a'));
    EXPECT_EQ(Subject().text().size(), 50);
    Description().clear();
    Commit(Description(), QString(300, u'a'));
    EXPECT_EQ(Description().toPlainText().size(), 255);
}

TEST_F(EditorSentencesTest, TheLimitsAreReachedAndNotPassed) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Subject(), QString(50, u'a'));
    Save();
    EXPECT_EQ(Saved().questionName, QString(50, u'a'));
}

TEST_F(EditorSentencesTest, OpensWithTheIssueThenTheViewThenTheMarks) {
    ASSERT_TRUE(Edit());
    EXPECT_THAT(Log().LinesOf({"GetIssueDetail", "GetView", "GetMarkTable"}),
                ElementsAre("GetIssueDetail(ppid=1,id=q1)", testing::StartsWith("GetView"),
                            testing::StartsWith("GetMarkTable")));
    std::vector<std::string> names;
    for (const auto& [id, mark] : host.marks.marks) {
        names.push_back(mark.name.toStdString());
    }
    EXPECT_EQ(support::Entries(Box<QComboBox>("markCombo")), names);
}

TEST_F(EditorSentencesTest, TheSubjectIsSavedWithItsBlanks) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Subject(), u"  a  "_s);
    Save();
    EXPECT_EQ(Saved().questionName, u"  a  ");
}

TEST_F(EditorSentencesTest, LineBreaksOfTheDescriptionAreSavedAsTheyCame) {
    Row().description = u"一\n二\n"_s;
    ASSERT_TRUE(Edit());
    Save();
    EXPECT_EQ(Saved().description, u"一\n二\n");
    EXPECT_EQ(Saved().text1, QString());
}

TEST_F(EditorSentencesTest, ItIsHiddenBeforeAnybodyIsTold) {
    ASSERT_TRUE(Edit());
    bool isOpen = true;
    host.script.During("RefreshTNMarks", [&] { isOpen = IsOpen(); });
    Save();
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 1);
    EXPECT_FALSE(isOpen);
}

TEST_F(EditorSentencesTest, WithNobodyToTellItSavesAllTheSame) {
    ASSERT_TRUE(Edit());
    Editor().refreshTarget = nullptr;
    Save();
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 1);
    EXPECT_FALSE(IsOpen());
}

TEST_F(EditorSentencesTest, SavedItOpensAgainForTheNextIssue) {
    ASSERT_TRUE(Edit());
    const toolkit::WindowId window = Editor().Id();
    Save();
    ASSERT_FALSE(IsOpen());
    TurnToClient();
    Row(u"q2"_s).theme = u"漏水"_s;
    ASSERT_TRUE(Edit(u"q2"_s));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Editor().Id(), window);
    EXPECT_EQ(Subject().text(), u"漏水");
    Save();
    EXPECT_EQ(Saved().questionId, u"q2");
}

TEST_F(EditorSentencesTest, EveryTradeReachesTheCode) {
    const std::vector<std::pair<qint32, QString>> words{
        {1, u"土建"_s}, {2, u"钢筋"_s}, {3, u"安装"_s}, {4, u"Revit"_s}, {5, {}}, {0, {}}};
    for (const auto& [major, word] : words) {
        TurnToClient();
        host.project.major = major;
        ASSERT_TRUE(Edit());
        Press("changeButton");
        Finish();
        Save();
        EXPECT_EQ(host.qrCodes.lastQuery.majorWord, word) << major;
    }
}

TEST_F(EditorSentencesTest, TheCodeIsMadeOfWhatWasPickedAndTheCurrentProject) {
    Row().ppid = 2;
    const qint32 ppid = 2;
    ASSERT_TRUE(Facade().EditIssue(&ppid, u"q1"_s));
    Press("changeButton");
    Finish();
    Save();
    const KX_DATA::QRCodeQuery& query = host.qrCodes.lastQuery;
    EXPECT_EQ(query.text1, u"t1");
    EXPECT_EQ(query.text2, u"t2");
    EXPECT_EQ(query.text3, u"t3");
    EXPECT_EQ(query.componentName, u"KZ-1");
    EXPECT_EQ(query.floor, u"2");
    EXPECT_EQ(query.componentHandle, u"H99");
    EXPECT_EQ(query.componentSubName, u"框架柱");
    EXPECT_EQ(query.ppid, 1);
    EXPECT_THAT(Log().LinesOf({"UpdateIssue"}), ElementsAre("UpdateIssue(ppid=2,id=q1)"));
}

TEST_F(EditorSentencesTest, OnlyOneMeansConfirmed) {
    for (const qint32 result : {0, 2, -1}) {
        ASSERT_TRUE(Edit());
        Press("changeButton");
        Log().Clear();
        Finish(result);
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(Editor().IsComponentChanged()) << result;
        EXPECT_EQ(Log().CountOf("GetPickedComponents"), 0);
        EXPECT_EQ(Log().CountOf("RestoreViewState"), 1);
    }
}

TEST_F(EditorSentencesTest, ACancelledSecondPickKeepsTheFirst) {
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Finish(1);
    Press("changeButton");
    Finish(0);
    EXPECT_EQ(Component(), u"2层 框架柱 KZ-1");
    Save();
    EXPECT_EQ(Saved().componentHandle, u"H99");
    EXPECT_EQ(Log().CountOf("CreateQRCode"), 1);
}

TEST_F(EditorSentencesTest, ARefusedPickAfterAGoodOneKeepsTheGoodOne) {
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Finish();
    host.view.picked.push_back(host.view.picked.front());
    Press("changeButton");
    prompts.ExpectMessage(u"只能选择一个构件！"_s);
    Finish();
    EXPECT_EQ(Component(), u"2层 框架柱 KZ-1");
    EXPECT_TRUE(Editor().IsComponentChanged());
}

TEST_F(EditorSentencesTest, AFailedCodeOrSaveCanBeTriedAgain) {
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Finish();
    host.script.FailNext("CreateQRCode");
    prompts.ExpectMessage(u"生成二维码失败!"_s);
    Save();
    host.script.FailNext("UpdateIssue");
    prompts.ExpectMessage(u"修改问题信息失败!"_s);
    Save();
    EXPECT_TRUE(IsOpen());
    Save();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Log().CountOf("CreateQRCode"), 3);
    EXPECT_EQ(Saved().componentHandle, u"H99");
}

TEST_F(EditorSentencesTest, TheMessagesOfAPickComeBeforeTheViewIsRestored) {
    host.view.picked.clear();
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Log().Clear();
    prompts.ExpectMessage(u"请选择一个构件！"_s);
    Finish();
    EXPECT_THAT(Log().LinesOf({"GetPickedComponents", "ShowMessage", "RestoreViewState"}),
                ElementsAre("GetPickedComponents()", "ShowMessage(请选择一个构件！)",
                            "RestoreViewState(state=[1])"));
}

TEST_F(EditorSentencesTest, AComponentWithoutAStoreyIsTaken) {
    host.view.picked.front().floor.clear();
    host.reportData.components.clear();
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Finish();
    EXPECT_EQ(Component(), u"层 KZ-1");
    Save();
    EXPECT_EQ(Saved().floor, QString());
    EXPECT_EQ(Saved().componentHandle, u"H99");
}

TEST_F(EditorSentencesTest, SteppingAsideLeavesTheMainWindowInSightEvenIfItWasHidden) {
    ASSERT_TRUE(Edit());
    mainWindow.Widget()->hide();
    Press("changeButton");
    EXPECT_TRUE(mainWindow.Widget()->isVisible());
    EXPECT_FALSE(IsOpen());
}

TEST_F(EditorSentencesTest, WithAToolTheToolComesBackBeforeTheState) {
    host.view.tool = 5;
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Log().Clear();
    Finish(0);
    EXPECT_THAT(Log().LinesOf({"SetViewTool", "RestoreViewState"}),
                ElementsAre("SetViewTool(tool=5)", "RestoreViewState(state=[1])"));
}

TEST_F(EditorSentencesTest, WithoutAPickBeforeNothingIsRestored) {
    ASSERT_TRUE(Edit());
    Finish(0);
    EXPECT_EQ(Log().CountOf("RestoreViewState"), 0);
}

TEST_F(EditorSentencesTest, ClosingWithoutAnOwnerDoesNothingAtAll) {
    ASSERT_TRUE(Edit());
    Press("changeButton");
    Log().Clear();
    Editor().CloseEditor();
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Log().Lines().empty());
    Finish(0);
    EXPECT_TRUE(IsOpen());
    Editor().CloseEditor();
    EXPECT_TRUE(IsOpen());
}

TEST_F(EditorSentencesTest, AnOwnerThatIsGoneStillLetsItBeCancelled) {
    Facade().ShowPicMng(3);
    auto& grid = *Console().Grid();
    EXPECT_FALSE(grid.Manager()->EditRow(*grid.GetRow(0)));
    Console().CloseConsole();
    ASSERT_TRUE(IsOpen());
    Press("cancelButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(Console().HasWindow());
}

TEST_F(EditorSentencesTest, CancelledWhilePickingItsWindowsComeBackAndItIsGone) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    Press("changeButton");
    ASSERT_FALSE(Wrap().Widget()->isVisible());
    Editor().CloseEditor();
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
}

TEST_F(EditorSentencesTest, EscapeLeavesItOpenWithWhatWasTyped) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Subject(), u"typed"_s);
    QTest::keyClick(&Subject(), Qt::Key_Escape);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Subject().text(), u"typed");
}

TEST_F(EditorSentencesTest, AnIssueThatCannotBeReadKeepsTheOneBeforeButNotItsProject) {
    ASSERT_TRUE(Edit());
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Editor().OpenQuestion(7, u"q2"_s, mainWindow.Id()));
    Save();
    EXPECT_THAT(Log().LinesOf({"UpdateIssue"}), ElementsAre("UpdateIssue(ppid=7,id=q1)"));
}

TEST_F(EditorSentencesTest, ItsCaptions) {
    ASSERT_TRUE(Edit());
    EXPECT_EQ(Box<QAbstractButton>("changeButton").text(), u"更改");
    EXPECT_EQ(Box<QAbstractButton>("okButton").text(), u"确定");
    EXPECT_EQ(Box<QAbstractButton>("cancelButton").text(), u"取消");
    QStringList texts;
    for (const QLabel* label : Editor().Widget()->findChildren<QLabel*>()) {
        texts.push_back(label->text());
    }
    EXPECT_TRUE(texts.contains(u"问题标识："_s)) << texts.join(u'|').toStdString();
    EXPECT_TRUE(texts.contains(u"问题状态："_s));
    EXPECT_TRUE(texts.contains(u"问题构件："_s));
}
