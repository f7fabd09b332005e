// The component of an issue, picked anew in the host's view.
#include "console/VeskPicMngDlg.h"
#include "console/VeskPicMngGrid.h"
#include "frame/HostObservers.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/Hands.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

KX_DATA::PickedComponent Column() {
    KX_DATA::PickedComponent component;
    component.id = 9;
    component.floor = u"2"_s;
    component.text1 = u"t1"_s;
    component.text2 = u"t2"_s;
    component.text3 = u"t3"_s;
    component.componentName = u"KZ-1"_s;
    component.componentHandle = u"H99"_s;
    return component;
}

class IssueEditorPickTest : public IssueFixture {
protected:
    IssueEditorPickTest() {
        host.view.picked = {Column()};
        host.reportData.components = {{u"H99"_s, u"框架柱"_s}};
        host.project.major = 1;
    }
    /// As the host's view does when the person has finished.
    static void Finish(qint32 result = 1) {
        CViewBimPicObs observer;
        observer.OpenIssueEdit(result);
    }
    void PickFrom(const QString& questionId = u"q1"_s) {
        ASSERT_TRUE(Edit(questionId));
        Press("changeButton");
    }
    [[nodiscard]] QString Component() const { return Box<QLabel>("componentText").text(); }
    [[nodiscard]] const KX_DATA::IssueUpdate& Saved() const { return host.questions.lastUpdate; }
};

} // namespace

TEST_F(IssueEditorPickTest, SteppingAsideHandsTheScreenToTheView) {
    ASSERT_TRUE(Edit());
    Log().Clear();
    Press("changeButton");
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_THAT(
        Log().LinesOf({"SaveViewState", "GetViewTool", "OnIssueEditVisible", "BeginComponentPick"}),
        ElementsAre("SaveViewState()", "GetViewTool()", "OnIssueEditVisible(visible=0)",
                    "BeginComponentPick()"));
}

TEST_F(IssueEditorPickTest, AConfirmedPickShowsTheNewComponent) {
    PickFrom();
    Finish();
    EXPECT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Component(), u"2层 框架柱 KZ-1");
    EXPECT_TRUE(Box<QLabel>("componentText").toolTip().contains(u"2层 框架柱 KZ-1"_s));
    EXPECT_TRUE(Editor().IsComponentChanged());
    EXPECT_THAT(Log().LinesOf({"GetComponentInfo"}),
                ElementsAre("GetComponentInfo(floor=2,handle=H99)"));
}

TEST_F(IssueEditorPickTest, AComponentOfWhichNothingIsKnownHasNoSubName) {
    host.script.FailNext("GetComponentInfo");
    PickFrom();
    Finish();
    EXPECT_EQ(Component(), u"2层 KZ-1");
    host.reportData.components.clear();
    Press("changeButton");
    Finish();
    EXPECT_EQ(Component(), u"2层 KZ-1");
}

TEST_F(IssueEditorPickTest, ACancelledPickKeepsTheComponentAndTheViewIsRestoredAllTheSame) {
    PickFrom();
    Log().Clear();
    Finish(0);
    EXPECT_EQ(Component(), u"3层 框架梁 KL-5");
    EXPECT_FALSE(Editor().IsComponentChanged());
    EXPECT_THAT(Log().LinesOf({"SetViewTool", "RestoreViewState", "GetPickedComponents"}),
                ElementsAre("RestoreViewState(state=[1])"));
}

TEST_F(IssueEditorPickTest, TwoComponentsAreRefusedAndOKSavesNoNewCode) {
    host.view.picked.push_back(Column());
    PickFrom();
    prompts.ExpectMessage(u"只能选择一个构件！"_s);
    Finish();
    EXPECT_EQ(Component(), u"3层 框架梁 KL-5");
    Press("okButton");
    EXPECT_EQ(Log().CountOf("CreateQRCode"), 0);
    EXPECT_EQ(Saved().componentHandle, u"H77");
}

TEST_F(IssueEditorPickTest, NoComponentIsRefused) {
    host.view.picked.clear();
    PickFrom();
    prompts.ExpectMessage(u"请选择一个构件！"_s);
    Finish();
    EXPECT_EQ(Component(), u"3层 框架梁 KL-5");
}

TEST_F(IssueEditorPickTest, ASaveWithANewComponentMakesItsCodeFirst) {
    host.qrCodes.code = u"new-code"_s;
    PickFrom();
    Finish();
    Log().Clear();
    Press("okButton");
    const auto lines =
        Log().LinesOf({"GetProjectMajor", "CreateQRCode", "UpdateIssue", "RefreshTNMarks"});
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "GetProjectMajor()");
    EXPECT_TRUE(lines[1].starts_with("CreateQRCode")) << lines[1];
    EXPECT_EQ(lines[2], "UpdateIssue(ppid=1,id=q1)");
    EXPECT_EQ(lines[3], "RefreshTNMarks()");
    EXPECT_EQ(host.qrCodes.lastQuery.majorWord, u"土建");
    EXPECT_EQ(host.qrCodes.lastQuery.componentSubName, u"框架柱");
    EXPECT_EQ(host.qrCodes.lastQuery.ppid, 1);
    EXPECT_EQ(Saved().componentHandle, u"H99");
    EXPECT_EQ(Saved().floor, u"2");
    EXPECT_EQ(Saved().qrCode, u"new-code");
}

TEST_F(IssueEditorPickTest, ACodeThatCannotBeMadeStopsTheSave) {
    PickFrom();
    Finish();
    host.script.FailNext("CreateQRCode");
    prompts.ExpectMessage(u"生成二维码失败!"_s);
    Press("okButton");
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
    EXPECT_TRUE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorPickTest, AnEmptyCodeKeepsTheOldOne) {
    host.qrCodes.code.clear();
    PickFrom();
    Finish();
    Press("okButton");
    EXPECT_EQ(Saved().qrCode, u"code-q1");
    EXPECT_EQ(Saved().componentHandle, u"H99");
}

TEST_F(IssueEditorPickTest, TheNextOpeningForgetsThePick) {
    PickFrom();
    Finish();
    ASSERT_TRUE(Edit(u"q2"_s));
    Press("okButton");
    EXPECT_EQ(Log().CountOf("CreateQRCode"), 0);
    EXPECT_EQ(Saved().componentHandle, u"H77");
}

TEST_F(IssueEditorPickTest, WhatWasPickedForOneIssueIsNoComponentOfAnotherOpenedMeanwhile) {
    PickFrom();
    ASSERT_TRUE(Edit(u"q2"_s));
    const QString before = Component();
    Finish();
    EXPECT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Component(), before);
    Press("okButton");
    EXPECT_EQ(Log().CountOf("CreateQRCode"), 0);
    EXPECT_EQ(Saved().questionId, u"q2");
    EXPECT_EQ(Saved().componentHandle, u"H77");
}

TEST_F(IssueEditorPickTest, TheViewIsSavedByTheFirstPickOnlyAndRestoredAfterEach) {
    host.view.tool = 5;
    PickFrom();
    Finish(0);
    host.view.tool = 7;
    Press("changeButton");
    Finish(0);
    EXPECT_EQ(Log().CountOf("SaveViewState"), 1);
    EXPECT_EQ(Log().CountOf("RestoreViewState"), 2);
    EXPECT_THAT(Log().LinesOf({"SetViewTool"}),
                ElementsAre("SetViewTool(tool=5)", "SetViewTool(tool=5)"));
}

TEST_F(IssueEditorPickTest, WithoutAViewTheEditorComesBackAllTheSame) {
    host.script.FailAlways("GetView");
    PickFrom();
    EXPECT_EQ(Log().CountOf("BeginComponentPick"), 0);
    prompts.ExpectMessage(u"请选择一个构件！"_s);
    Finish();
    EXPECT_TRUE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorPickTest, FromTheConsoleTheConsoleIsHiddenDuringThePickAndComesBack) {
    Facade().ShowPicMng(3);
    auto& grid = *Console().Grid();
    ASSERT_GT(grid.GetRowCount(), 0);
    EXPECT_FALSE(grid.Manager()->EditRow(*grid.GetRow(0)));
    ASSERT_TRUE(Editor().Widget()->isVisible());
    Press("changeButton");
    EXPECT_FALSE(Console().Widget()->isVisible());
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_TRUE(mainWindow.Widget()->isVisible());
    Finish();
    EXPECT_TRUE(Console().Widget()->isVisible());
    EXPECT_TRUE(Editor().Widget()->isVisible());
    Log().Clear();
    Press("okButton");
    EXPECT_EQ(Log().CountOf("QueryIssues"), 1) << "the grid fetched its page again";
}

TEST_F(IssueEditorPickTest, FromTheViewerTheViewerIsHiddenDuringThePickAndComesBack) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    Press("changeButton");
    EXPECT_FALSE(Wrap().Widget()->isVisible());
    Finish(0);
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_TRUE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorPickTest, AConsoleThatEndedDuringThePickStaysAway) {
    Facade().ShowPicMng(3);
    auto& grid = *Console().Grid();
    EXPECT_FALSE(grid.Manager()->EditRow(*grid.GetRow(0)));
    Press("changeButton");
    Console().CloseConsole();
    Finish();
    EXPECT_TRUE(Editor().Widget()->isVisible());
    Press("okButton");
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 1);
    EXPECT_FALSE(Editor().Widget()->isVisible());
}
