// The issue editor: opening, saving, closing.
#include "base/Status.h"
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"
#include "tests/support/HalfTyped.h"
#include "tests/support/Hands.h"
#include "tests/support/WaitFor.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class IssueEditorTest : public IssueFixture {
protected:
    [[nodiscard]] const KX_DATA::IssueUpdate& Saved() const { return host.questions.lastUpdate; }
    void Save() { Press("okButton"); }
};

} // namespace

TEST_F(IssueEditorTest, OpensOnWhatTheIssueHolds) {
    EXPECT_TRUE(Edit());
    ASSERT_TRUE(Editor().HasWindow());
    EXPECT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Editor().Widget()->windowTitle(), u"编辑问题-梁底裂缝");
    EXPECT_EQ(Box<QLineEdit>("subjectEdit").text(), u"梁底裂缝");
    EXPECT_EQ(Box<QPlainTextEdit>("descriptionEdit").toPlainText(), u"缝宽0.3");
    EXPECT_EQ(Box<QComboBox>("markCombo").currentText(), host.marks.marks.at(1).name);
    EXPECT_THAT(support::Entries(Box<QComboBox>("statusCombo")), ElementsAre("显示", "隐藏"));
    EXPECT_EQ(Box<QComboBox>("statusCombo").currentIndex(), 0);
    EXPECT_EQ(Box<QLabel>("componentText").text(), u"3层 框架梁 KL-5");
    EXPECT_TRUE(Box<QLabel>("componentText").toolTip().contains(u"3层 框架梁 KL-5"_s));
}

TEST_F(IssueEditorTest, EveryOpeningPutsTheKeysIntoTheSubject) {
    ASSERT_TRUE(Edit());
    Box<QPushButton>("cancelButton").setFocus();
    ASSERT_TRUE(Edit(u"q2"_s));
    EXPECT_EQ(Editor().Widget()->focusWidget(), &Box<QLineEdit>("subjectEdit"));
}

TEST_F(IssueEditorTest, AnIssueThatCannotBeReadOpensNothing) {
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_TRUE(Edit());
    EXPECT_FALSE(Editor().HasWindow());
}

TEST_F(IssueEditorTest, ASecondIssueThatCannotBeReadLeavesTheFirst) {
    ASSERT_TRUE(Edit());
    host.script.FailNext("GetIssueDetail");
    prompts.ExpectMessage(u"获取问题详细信息失败!"_s);
    EXPECT_FALSE(Editor().OpenQuestion(1, u"q2"_s, mainWindow.Id()));
    EXPECT_EQ(Editor().Question().questionId, u"q1");
}

TEST_F(IssueEditorTest, MarksThatCannotBeReadAreToldByTheCatalogueAndOpenNothing) {
    host.script.FailNext("GetMarkTable");
    prompts.ExpectMessage(ZelvorNRQ_KXVeskPicture::GetStatusMessage(
        ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus::MarksFailed));
    EXPECT_FALSE(Editor().OpenQuestion(1, u"q1"_s, mainWindow.Id()));
    EXPECT_FALSE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorTest, TheSubjectTakesFiftyCharactersAndBlanksAreOne) {
    ASSERT_TRUE(Edit());
    auto& subject = Box<QLineEdit>("subjectEdit");
    support::TypeOver(subject, QString(60, u'a'));
    EXPECT_EQ(subject.text().size(), 50);
    support::TypeOver(subject, u"   "_s);
    Save();
    EXPECT_EQ(Saved().questionName, u"   ");
    EXPECT_FALSE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorTest, AnEmptySubjectIsRefusedAtItsBox) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Box<QLineEdit>("subjectEdit"), {});
    Save();
    EXPECT_EQ(support::BalloonAt(&Box<QLineEdit>("subjectEdit")), "问题名称不能为空");
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
    EXPECT_TRUE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorTest, ALongerTextThanCanBeTypedStaysWhole) {
    Row().theme = QString(70, u'题');
    Row().description = QString(300, u'述');
    ASSERT_TRUE(Edit());
    Save();
    EXPECT_EQ(Saved().questionName, Row().theme);
    EXPECT_EQ(Saved().description, Row().description);
}

TEST_F(IssueEditorTest, ADescriptionTakesTwoHundredAndFiftyFiveCharactersInEveryIssue) {
    ASSERT_TRUE(Edit());
    ASSERT_TRUE(Edit(u"q2"_s));
    auto& box = Box<QPlainTextEdit>("descriptionEdit");
    box.selectAll();
    QTest::keyClicks(&box, QString(260, u'a'));
    EXPECT_EQ(box.toPlainText().size(), 255);
}

TEST_F(IssueEditorTest, AComponentOfALongNameLeavesTheWindowAsWideAsItIs) {
    ASSERT_TRUE(Edit());
    const QSize before = Editor().Widget()->size();
    Row().compName = QString(100'000, u'梁');
    ASSERT_TRUE(Edit());
    support::RunPendingEvents();
    ASSERT_GT(Box<QLabel>("componentText").text().size(), 100000);
    EXPECT_EQ(Editor().Widget()->size(), before);
    EXPECT_LE(Box<QLabel>("componentText").width(), before.width());
}

TEST_F(IssueEditorTest, EverythingThatWasChangedIsSaved) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Box<QLineEdit>("subjectEdit"), u"new"_s);
    auto& box = Box<QPlainTextEdit>("descriptionEdit");
    box.selectAll();
    QTest::keyClicks(&box, u"text"_s);
    support::Choose(Box<QComboBox>("markCombo"), 2);
    support::Choose(Box<QComboBox>("statusCombo"), 1);
    Save();
    EXPECT_EQ(Saved().questionId, u"q1");
    EXPECT_EQ(Saved().questionName, u"new");
    EXPECT_EQ(Saved().description, u"text");
    EXPECT_EQ(Saved().markId, std::next(host.marks.marks.begin(), 2)->first);
    EXPECT_EQ(Saved().status, 1);
    EXPECT_EQ(Saved().componentHandle, u"H77");
    EXPECT_EQ(Saved().floor, u"3");
}

TEST_F(IssueEditorTest, ASaveWithoutANewComponentMakesNoCodeAndSendsTheOldOne) {
    ASSERT_TRUE(Edit());
    Save();
    EXPECT_EQ(Log().CountOf("CreateQRCode") + Log().CountOf("GetProjectMajor"), 0);
    EXPECT_EQ(Saved().qrCode, u"code-q1");
    EXPECT_THAT(Log().LinesOf({"UpdateIssue", "RefreshTNMarks"}),
                ElementsAre("UpdateIssue(ppid=1,id=q1)", "RefreshTNMarks()"));
}

TEST_F(IssueEditorTest, WithNoMarkSelectedTheIssueKeepsItsOwn) {
    Row().markId = 999;
    ASSERT_TRUE(Edit());
    EXPECT_EQ(Box<QComboBox>("markCombo").currentIndex(), -1);
    Save();
    EXPECT_EQ(Saved().markId, 999);
}

TEST_F(IssueEditorTest, AStatusThatIsNoneSelectsNone) {
    Row().status = 11;
    ASSERT_TRUE(Edit());
    EXPECT_EQ(Box<QComboBox>("statusCombo").currentIndex(), -1);
    Save();
    EXPECT_EQ(Saved().status, -1);
}

TEST_F(IssueEditorTest, ARefusedSaveIsToldAndTheDialogStaysWithWhatWasTyped) {
    ASSERT_TRUE(Edit());
    support::TypeOver(Box<QLineEdit>("subjectEdit"), u"typed"_s);
    host.script.FailNext("UpdateIssue");
    prompts.ExpectMessage(u"修改问题信息失败!"_s);
    Save();
    EXPECT_TRUE(Editor().Widget()->isVisible());
    EXPECT_EQ(Box<QLineEdit>("subjectEdit").text(), u"typed");
    EXPECT_EQ(Log().CountOf("RefreshTNMarks"), 0);
}

TEST_F(IssueEditorTest, WithoutAnOwnerNeitherCancelNorTheWindowsButtonClosesIt) {
    ASSERT_TRUE(Edit());
    Press("cancelButton");
    EXPECT_TRUE(Editor().Widget()->isVisible());
    Editor().Widget()->close();
    EXPECT_TRUE(Editor().Widget()->isVisible());
    Save();
    EXPECT_FALSE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorTest, WithAnOwnerCancelClosesItWithoutSaving) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    support::TypeOver(Box<QLineEdit>("subjectEdit"), u"typed"_s);
    Press("cancelButton");
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_TRUE(Editor().HasWindow());
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
}

TEST_F(IssueEditorTest, TheOwnerOfAnEarlierOpeningStays) {
    ASSERT_TRUE(Open());
    Editor().ownerView = Page().Widget();
    ASSERT_TRUE(Edit(u"q2"_s));
    EXPECT_EQ(Editor().ownerView->data(), Page().Widget());
    Press("cancelButton");
    EXPECT_FALSE(Editor().Widget()->isVisible());
}

TEST_F(IssueEditorTest, OpeningASecondIssueWhileTheFirstIsEditedCancelsTheFirst) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    support::TypeOver(Box<QLineEdit>("subjectEdit"), u"typed"_s);
    Facade().LocateIssue(1, u"q2"_s);
    EXPECT_FALSE(Editor().Widget()->isVisible());
    EXPECT_EQ(Log().CountOf("UpdateIssue"), 0);
    support::Click(Page().EditButton());
    EXPECT_EQ(Editor().Question().questionId, u"q2");
    EXPECT_EQ(Box<QLineEdit>("subjectEdit").text(), u"梁底裂缝");
}

TEST_F(IssueEditorTest, AnIssueDeletedByAnotherClientIsToldAtTheSave) {
    ASSERT_TRUE(Open());
    support::Click(Page().EditButton());
    host.questions.issues.erase(host.questions.issues.begin());
    host.script.FailNext("UpdateIssue");
    prompts.ExpectMessage(u"修改问题信息失败!"_s);
    Save();
    Wrap().Refresh();
    EXPECT_EQ(TextOf(Page(), "nameText"), u"问题名称：梁底裂缝");
}

TEST_F(IssueEditorTest, TabComesByEveryControl) {
    ASSERT_TRUE(Edit());
    support::Click(&Box<QLineEdit>("subjectEdit"));
    EXPECT_THAT(support::TabOrder(&Box<QLineEdit>("subjectEdit")),
                ElementsAre("subjectEdit", "markCombo", "statusCombo", "changeButton",
                            "descriptionEdit", "okButton", "cancelButton"));
}
