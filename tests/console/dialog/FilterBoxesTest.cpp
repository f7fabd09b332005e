// The lists for mark, label, state and project.
#include "tests/console/dialog/ConsoleFixture.h"
#include "toolkit/controls/ColorTxtComboBox.h"

#include <QAbstractItemView>
#include <QPushButton>
#include <QRadioButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FilterBoxesTest : public ConsoleFixture {
protected:
    FilterBoxesTest() {
        host.pics.usedBimMarks = {1, 2};
        host.pics.usedPdfMarks = {3};
        host.questions.usedMarks = {2, 3};
        host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}, {u"l2"_s, u"渗漏"_s}};
        host.pics.pdfLabels = {{u"l3"_s, u"返工"_s}};
    }
};

TEST_F(FilterBoxesTest, MarksAreFetchedByTheFirstDropDownAndNotAgain) {
    Open(kModeBim);
    DropDown(*C().markCombo);
    EXPECT_THAT(Log().Lines(),
                ElementsAre("GetUsedBimMarks()", "GetMarkInfo(mark=1)", "GetMarkInfo(mark=2)"));
    EXPECT_THAT(Entries(*C().markCombo), ElementsAre("全部标识", "质量", "安全"));
    EXPECT_EQ(C().markCombo->Entries()[2].color, 0x00FFFF);
    EXPECT_EQ(C().markCombo->currentIndex(), 0);
    CloseList(*C().markCombo);
    Log().Clear();
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(FilterBoxesTest, DroppingAListDownSearchesNothing) {
    Open(kModeBim);
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    DropDown(*C().labelCombo);
    CloseList(*C().labelCombo);
    EXPECT_EQ(Searches(), 0);
}

TEST_F(FilterBoxesTest, EachKindFetchesItsOwnMarks) {
    Open(kModePdf);
    DropDown(*C().markCombo);
    EXPECT_THAT(Entries(*C().markCombo), ElementsAre("全部标识", "进度"));
    Open(kModeIssue);
    DropDown(*C().markCombo);
    EXPECT_EQ(Log().LinesOf({"GetUsedMarks"}).front(), "GetUsedMarks(kind=9)");
    EXPECT_THAT(Entries(*C().markCombo), ElementsAre("全部标识", "安全", "进度"));
}

TEST_F(FilterBoxesTest, AChosenMarkSearches) {
    Open(kModeBim);
    Choose(*C().markCombo, 2);
    EXPECT_EQ(C().markCombo->currentText(), u"安全"_s);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().markId, 2);
    Choose(*C().markCombo, 0);
    EXPECT_EQ(Searches(), 2);
    EXPECT_EQ(BimFilter().markId, 0);
}

TEST_F(FilterBoxesTest, MarksThatCannotBeFetchedLeaveTheFirstEntryAndAMessage) {
    Open(kModeBim);
    host.script.FailAlways("GetUsedBimMarks");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    DropDown(*C().markCombo);
    EXPECT_THAT(Entries(*C().markCombo), ElementsAre("全部标识"));
    EXPECT_EQ(Log().CountOf("GetMarkInfo"), 0);
    CloseList(*C().markCombo);
    // Not asked again, so no second message.
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    EXPECT_EQ(Log().CountOf("GetUsedBimMarks"), 1);
}

TEST_F(FilterBoxesTest, AMarkThatCannotBeReadLeavesTheBoxEmptyAndAMessage) {
    Open(kModeBim);
    host.pics.usedBimMarks = {1, 99, 2};
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    DropDown(*C().markCombo);
    EXPECT_EQ(C().markCombo->count(), 0);
    EXPECT_EQ(C().markCombo->currentIndex(), -1);
    EXPECT_THAT(Log().LinesOf({"GetMarkInfo"}),
                ElementsAre("GetMarkInfo(mark=1)", "GetMarkInfo(mark=99)"));
    // Not asked again, so no second message.
    CloseList(*C().markCombo);
    DropDown(*C().markCombo);
    EXPECT_EQ(C().markCombo->count(), 0);
    EXPECT_EQ(Log().CountOf("GetUsedBimMarks"), 1);
    EXPECT_EQ(Log().CountOf("GetMarkInfo"), 2);
    Click(C().searchButton);
    EXPECT_EQ(BimFilter().markId, 0);
}

TEST_F(FilterBoxesTest, AMessageOfTheMarksStandsAtTheDialog) {
    Open(kModeBim);
    host.script.FailNext("GetUsedBimMarks");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    EXPECT_THAT(prompts.Parents(), ElementsAre(Console().Id()));
}

TEST_F(FilterBoxesTest, LabelsAreFetchedByTheFirstDropDownAndNotAgain) {
    Open(kModeBim);
    DropDown(*C().labelCombo);
    EXPECT_THAT(Log().Lines(), ElementsAre("GetBimLabels()"));
    EXPECT_THAT(Entries(*C().labelCombo), ElementsAre("全部标签", "裂缝", "渗漏"));
    EXPECT_EQ(C().labelCombo->currentIndex(), 0);
    CloseList(*C().labelCombo);
    DropDown(*C().labelCombo);
    CloseList(*C().labelCombo);
    EXPECT_EQ(Log().CountOf("GetBimLabels"), 1);
}

TEST_F(FilterBoxesTest, AChosenLabelSearchesByItsId) {
    Open(kModeBim);
    Choose(*C().labelCombo, 2);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().labelId, u"l2"_s);
    Choose(*C().labelCombo, 0);
    EXPECT_EQ(BimFilter().labelId, QString());
}

TEST_F(FilterBoxesTest, DrawingPhotosHaveTheirOwnLabels) {
    Open(kModePdf);
    Choose(*C().labelCombo, 1);
    EXPECT_EQ(Log().CountOf("GetPdfLabels"), 1);
    EXPECT_EQ(Log().CountOf("GetBimLabels"), 0);
    EXPECT_EQ(PdfFilter().labelId, u"l3"_s);
}

TEST_F(FilterBoxesTest, LabelsThatCannotBeFetchedLeaveTheFirstEntryAndAMessage) {
    Open(kModeBim);
    host.script.FailNext("GetBimLabels");
    prompts.ExpectMessage(u"获取照片标签失败！"_s);
    DropDown(*C().labelCombo);
    EXPECT_THAT(Entries(*C().labelCombo), ElementsAre("全部标签"));
    CloseList(*C().labelCombo);
    DropDown(*C().labelCombo);
    CloseList(*C().labelCombo);
    EXPECT_EQ(Log().CountOf("GetBimLabels"), 1);
}

TEST_F(FilterBoxesTest, BoxesAreFetchedAgainAfterTheKindChanged) {
    Open(kModeBim);
    Choose(*C().markCombo, 1);
    Choose(*C().labelCombo, 1);
    Click(C().pdfRadio);
    EXPECT_EQ(C().markCombo->currentIndex(), 0);
    EXPECT_EQ(C().labelCombo->currentIndex(), 0);
    EXPECT_EQ(PdfFilter().markId, 0);
    EXPECT_EQ(PdfFilter().labelId, QString());
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    DropDown(*C().labelCombo);
    CloseList(*C().labelCombo);
    EXPECT_EQ(Log().CountOf("GetUsedPdfMarks"), 1);
    EXPECT_THAT(Entries(*C().labelCombo), ElementsAre("全部标签", "返工"));
    Click(C().bimRadio);
    DropDown(*C().markCombo);
    EXPECT_EQ(Log().CountOf("GetUsedBimMarks"), 2);
}

TEST_F(FilterBoxesTest, AChosenStateSearchesByItsName) {
    Open(kModeBim);
    Choose(*C().statusCombo, 2);
    EXPECT_EQ(Searches(), 1);
    EXPECT_EQ(BimFilter().status, u"整改中"_s);
}

TEST_F(FilterBoxesTest, AllStatesGoToTheServiceUnderTheirOwnName) {
    Open(kModeBim);
    Choose(*C().statusCombo, 1);
    Choose(*C().statusCombo, 0);
    EXPECT_EQ(C().statusCombo->currentText(), u"全部状态"_s);
    EXPECT_EQ(BimFilter().status, u"全部"_s);
}

TEST_F(FilterBoxesTest, AChosenProjectSearchesAndNamesItselfInTheTooltip) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}});
    Open(kModeBim);
    EXPECT_THAT(BimFilter().projectIds, ElementsAre(1, 2));
    Choose(*C().projectCombo, 2);
    EXPECT_EQ(Searches(), 1);
    EXPECT_THAT(BimFilter().projectIds, ElementsAre(2));
    EXPECT_EQ(C().projectCombo->toolTip(), u"乙"_s);
}

TEST_F(FilterBoxesTest, ProjectsOfTheSameNameAreSearchedTogether) {
    host.OpenWorkset({{1, u"甲"_s}, {2, u"乙"_s}, {3, u"甲"_s}});
    Open(kModeIssue);
    EXPECT_THAT(Entries(*C().projectCombo), ElementsAre("工作集", "甲", "乙", "甲"));
    Choose(*C().projectCombo, 3);
    EXPECT_THAT(IssueFilter().projectIds, ElementsAre(1, 3));
}

TEST_F(FilterBoxesTest, TheNameOfTheWorksetStandsForAllProjectsEvenWithoutAWorkset) {
    host.global.projects = {{1, u"工作集"_s}};
    Open(kModePdf);
    EXPECT_THAT(Entries(*C().projectCombo), ElementsAre("工作集"));
    EXPECT_THAT(PdfFilter().projectIds, ElementsAre(1, 1));
}

TEST_F(FilterBoxesTest, WithoutAnyProjectTheSearchMatchesNone) {
    host.script.FailAlways("GetWorksetProjects");
    Open(kModeBim);
    EXPECT_EQ(C().projectCombo->count(), 0);
    EXPECT_THAT(BimFilter().projectIds, IsEmpty());
    host.script.Succeed("GetWorksetProjects");
    Click(C().searchButton);
    EXPECT_THAT(BimFilter().projectIds, IsEmpty());
}

TEST_F(FilterBoxesTest, ChangesByCodeSearchNothing) {
    Open(kModeBim);
    C().statusCombo->setCurrentIndex(1);
    C().projectCombo->setCurrentIndex(0);
    EXPECT_EQ(Searches(), 0);
}

TEST_F(FilterBoxesTest, TheEntryAlreadyChosenSearchesNothing) {
    Open(kModeBim);
    Choose(*C().markCombo, 0);
    Choose(*C().labelCombo, 0);
    Choose(*C().statusCombo, 0);
    Choose(*C().projectCombo, 0);
    EXPECT_EQ(Searches(), 0);
    Choose(*C().markCombo, 1);
    Choose(*C().markCombo, 1);
    EXPECT_EQ(Searches(), 1);
}

TEST_F(FilterBoxesTest, TheLabelsOfIssuesAreEmptiedAndNotAsked) {
    Open(kModeIssue);
    ASSERT_EQ(C().labelCombo->count(), 1);
    emit C().labelCombo->dropDown();
    EXPECT_EQ(C().labelCombo->count(), 0);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(FilterBoxesTest, AnEntryThatStandsForNothingMeansAll) {
    Open(kModeBim);
    Choose(*C().markCombo, 1);
    Choose(*C().labelCombo, 1);
    ASSERT_NE(BimFilter().markId, 0);
    ASSERT_NE(BimFilter().labelId, QString());
    for (QComboBox* box :
         {static_cast<QComboBox*>(C().markCombo), static_cast<QComboBox*>(C().labelCombo)}) {
        box->addItem(u"?"_s);
        Choose(*box, box->count() - 1);
    }
    EXPECT_EQ(BimFilter().markId, 0);
    EXPECT_EQ(BimFilter().labelId, QString());
}

TEST_F(FilterBoxesTest, AChosenMarkAndLabelAreForgottenByAnotherKind) {
    host.pics.usedBimMarks = {1, 2};
    host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}};
    Open(kModeBim);
    Choose(*C().markCombo, 2);
    Choose(*C().labelCombo, 1);
    ASSERT_EQ(BimFilter().markId, 2);
    ASSERT_EQ(BimFilter().labelId, u"l1"_s);
    Click(C().pdfRadio);
    EXPECT_EQ(PdfFilter().markId, 0);
    EXPECT_EQ(PdfFilter().labelId, QString());
    EXPECT_EQ(C().markCombo->currentIndex(), 0);
    EXPECT_EQ(C().labelCombo->currentIndex(), 0);
    Click(C().bimRadio);
    EXPECT_EQ(BimFilter().markId, 0);
    EXPECT_EQ(BimFilter().labelId, QString());
}

TEST_F(FilterBoxesTest, AnEntryThatStandsForNothingMeansAllEvenBehindAKindWithMoreMarks) {
    host.pics.usedBimMarks = {1, 2, 3};
    Open(kModeBim);
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    Click(C().pdfRadio);
    DropDown(*C().markCombo);
    CloseList(*C().markCombo);
    ASSERT_EQ(C().markCombo->count(), 2);
    C().markCombo->addItem(u"?"_s);
    Choose(*C().markCombo, 2);
    EXPECT_EQ(PdfFilter().markId, 0);
}

} // namespace
