// The editor as it opens: what it shows, what it asks, rights and failures.
#include "tests/editors/dialog/EditorFixture.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::Click;
using support::Entries;
using testing::ElementsAre;
using testing::IsEmpty;

class OpeningTest : public EditorFixture {};

TEST_F(OpeningTest, AsksForLabelsRightsAndMarksInThisOrderAndForNoPlaces) {
    Open();
    EXPECT_THAT(Log().Lines(), ElementsAre("GetLabels(kind=2)", "HasRight(right=5)",
                                           "HasRight(right=38)", "GetMarkTable()"));
}

TEST_F(OpeningTest, MakingTheObjectCallsNoService) {
    const CBimPicEditDlg fromRow(Photo());
    const CBimPicEditDlg fromDetail((KX_DATA::BimPicDetail()));
    EXPECT_THAT(Log().Lines(), IsEmpty());
    EXPECT_FALSE(fromRow.HasWindow());
    EXPECT_FALSE(fromDetail.HasWindow());
}

TEST_F(OpeningTest, ShowsEverythingOfTheRow) {
    Open();
    EXPECT_EQ(Window()->windowTitle(), u"编辑照片-照片1.jpg"_s);
    EXPECT_EQ(Name().text(), u"照片1"_s);
    EXPECT_EQ(Find<QLabel>("extensionText").text(), u".jpg"_s);
    EXPECT_EQ(Description().toPlainText(), u"描述1"_s);
    EXPECT_THAT(Entries(Status()), ElementsAre("显示", "隐藏"));
    EXPECT_EQ(Status().currentIndex(), 0);
    EXPECT_THAT(Entries(Mark()), ElementsAre("质量", "安全", "进度"));
    EXPECT_EQ(Mark().currentText(), u"安全"_s);
    EXPECT_THAT(Entries(Floor()), ElementsAre("1"));
    EXPECT_THAT(Entries(AxisX()), ElementsAre("A"));
    EXPECT_THAT(Entries(AxisY()), ElementsAre("1"));
    EXPECT_EQ(Floor().currentIndex(), 0);
    EXPECT_EQ(AxisX().currentIndex(), 0);
    EXPECT_EQ(AxisY().currentIndex(), 0);
    EXPECT_FALSE(AddLabel().isEnabled());
    EXPECT_EQ(NewLabel().text(), QString());
}

TEST_F(OpeningTest, ShowsEverythingOfADetail) {
    KX_DATA::BimPicDetail detail;
    detail.picId = 4;
    detail.ppid = 1;
    detail.fileName = u"IMG_4.PNG"_s;
    detail.floor = u"-1"_s;
    detail.axisX = u"C"_s;
    detail.axisY = u"7"_s;
    detail.positionKey = u"K4"_s;
    detail.markId = 3;
    detail.description = u"两行\n文字"_s;
    detail.labels = {{u"l2"_s, u"空鼓"_s}};
    Open(detail);
    EXPECT_EQ(Window()->windowTitle(), u"编辑照片-IMG_4.PNG"_s);
    EXPECT_EQ(Name().text(), u"IMG_4"_s);
    EXPECT_EQ(Description().toPlainText(), u"两行\n文字"_s);
    EXPECT_EQ(Mark().currentText(), u"进度"_s);
    EXPECT_THAT(Entries(Floor()), ElementsAre("-1"));
    EXPECT_THAT(Labels(), ElementsAre("  裂缝", "x 空鼓", "  渗漏", "  返工"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().picId, 4);
    EXPECT_EQ(Sent().positionKey, u"K4"_s);
    EXPECT_EQ(Sent().fileName, u"IMG_4.PNG"_s);
}

TEST_F(OpeningTest, LabelsStandInTheDeliveredOrderUnderAnOpenRoot) {
    Open();
    EXPECT_EQ(Tree().topLevelItemCount(), 1);
    EXPECT_EQ(Root().text(0), u"全部标签"_s);
    EXPECT_TRUE(Root().isExpanded());
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
    EXPECT_EQ(CTreeCtrl3StateBase::Get3StateCheck(Root()), CTreeCtrl3StateBase::kMixed);
}

TEST_F(OpeningTest, LabelsAreComparedExactly) {
    host.docs.labels = {{u"l1"_s, u"crack"_s}, {u"l2"_s, u"Crack"_s}, {u"l3"_s, u"Crack "_s}};
    KX_DATA::BimPicRow row = Photo();
    row.labelNames = {u"Crack"_s, u"nowhere"_s};
    Open(row);
    EXPECT_THAT(Labels(), ElementsAre("  crack", "x Crack", "  Crack "));
}

TEST_F(OpeningTest, AnEmptyLabelListGivesATreeWithTheRootAlone) {
    host.docs.labels.clear();
    Open();
    EXPECT_EQ(Root().text(0), u"全部标签"_s);
    EXPECT_EQ(Root().childCount(), 0);
    EXPECT_TRUE(Save());
    EXPECT_TRUE(Sent().labelIds.empty());
}

TEST_F(OpeningTest, WithoutTheRightToAddLabelsTheWholeRowForThemIsHidden) {
    host.auth.rights = {21, 38};
    Open();
    EXPECT_FALSE(Find<QLabel>("newLabelCaption").isVisible());
    EXPECT_FALSE(NewLabel().isVisible());
    EXPECT_FALSE(AddLabel().isVisible());
    EXPECT_TRUE(Status().isVisible());
    // The tree works all the same.
    ClickBox(*Root().child(1));
    EXPECT_TRUE(Save());
    EXPECT_THAT(Sent().labelIds, ElementsAre(u"l1"_s, u"l2"_s, u"l3"_s));
}

TEST_F(OpeningTest, WithoutTheRightToShowAndHideTheStatusIsHiddenAndSentUnchanged) {
    host.auth.rights = {5, 21};
    KX_DATA::BimPicRow row = Photo();
    row.status = KX_DATA::kStatusHidden;
    Open(row);
    EXPECT_FALSE(Find<QLabel>("statusCaption").isVisible());
    EXPECT_FALSE(Status().isVisible());
    EXPECT_TRUE(NewLabel().isVisible());
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().status, KX_DATA::kStatusHidden);
}

TEST_F(OpeningTest, WithAllRightsEverythingIsThere) {
    Open();
    for (const char* name : {"statusCaption", "statusCombo", "newLabelCaption", "newLabelEdit",
                             "addLabelButton", "markCombo", "labelTree", "descriptionEdit"}) {
        EXPECT_TRUE(Find<QWidget>(name).isVisible()) << name;
    }
}

TEST_F(OpeningTest, AStatusLeftByTheConsoleSelectsNothingAndSavingAsksForOne) {
    KX_DATA::BimPicRow row = Photo();
    row.status = 11;
    Open(row);
    EXPECT_EQ(Status().currentIndex(), -1);
    ExpectRefused(Status(), "请选择照片状态！");
    support::Choose(Status(), 1);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().status, KX_DATA::kStatusHidden);
}

TEST_F(OpeningTest, AMarkThatTheTableLacksSelectsNothingAndIsKept) {
    KX_DATA::BimPicRow row = Photo();
    row.markId = 77;
    Open(row);
    EXPECT_EQ(Mark().currentIndex(), -1);
    EXPECT_THAT(Entries(Mark()), ElementsAre("质量", "安全", "进度"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Editor().Fields().markIndex, -1);
    EXPECT_EQ(Sent().markId, 77);
}

TEST_F(OpeningTest, OfTwoMarksWithOneNameTheFirstIsSelected) {
    host.marks.marks = {{1, {u"质量"_s, 0xFF}}, {2, {u"质量"_s, 0xFF00}}, {3, {u"进度"_s, 0}}};
    Open();
    EXPECT_EQ(Mark().currentIndex(), 0);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().markId, 1);
}

TEST_F(OpeningTest, MarksCarryTheirColoursAndIdsInAscendingOrder) {
    Open();
    EXPECT_EQ(Mark().Entries()[1].color, 0x00FFFF);
    EXPECT_THAT(Editor().Fields().markIds, ElementsAre(1, 2, 3));
}

TEST_F(OpeningTest, LabelsThatCannotBeReadAreToldAndTheDialogStaysOpenWithWhatItHas) {
    host.script.FailNext("GetLabels");
    prompts.ExpectMessage(u"获取标签出错！"_s);
    Open();
    EXPECT_THAT(prompts.Parents(), ElementsAre(Editor().Id()));
    EXPECT_EQ(Root().text(0), u"全部标签"_s);
    EXPECT_EQ(Root().childCount(), 0);
    EXPECT_EQ(Name().text(), u"照片1"_s);
    // The steps behind it are not carried out.
    EXPECT_THAT(Log().LinesOf({"HasRight", "GetMarkTable"}), IsEmpty());
    EXPECT_EQ(Status().count(), 0);
    EXPECT_EQ(Floor().count(), 0);
    EXPECT_FALSE(Save());
    EXPECT_EQ(Saves(), 0) << "the photo would lose its labels";
}

TEST_F(OpeningTest, MarksThatCannotBeReadAreToldAndTheDialogStaysOpenWithWhatItHas) {
    host.script.FailNext("GetMarkTable");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    Open();
    EXPECT_THAT(Labels(), ElementsAre("x 裂缝", "  空鼓", "x 渗漏", "  返工"));
    EXPECT_EQ(Status().currentIndex(), 0);
    EXPECT_EQ(Mark().count(), 0);
    EXPECT_EQ(Floor().count(), 0);
    ExpectRefused(AxisY(), "请设置正确的Y轴信息后重试！");
}

TEST_F(OpeningTest, AFaultIsToldOnTheDialogThatCanBeSeen) {
    host.script.FailNext("GetLabels");
    prompts.ExpectMessage(u"获取标签出错！"_s);
    bool seen = false;
    prompts.Meanwhile([&] { seen = Window()->isVisible(); });
    Open();
    EXPECT_TRUE(seen);
}

TEST_F(OpeningTest, TheBoxesTakeNoMoreThanTheirLimits) {
    Open();
    support::TypeOver(Name(), QString(260, u'n'));
    EXPECT_EQ(Name().text().size(), 250);
    support::TypeOver(NewLabel(), QString(130, u'b'));
    EXPECT_EQ(NewLabel().text().size(), 127);
    Description().selectAll();
    QTest::keyClicks(&Description(), QString(260, u'd'));
    EXPECT_EQ(Description().toPlainText().size(), 255);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().fileName, QString(250, u'n') + u".jpg"_s);
    EXPECT_EQ(Sent().description, QString(255, u'd'));
}

TEST_F(OpeningTest, TextsThatAreLongerAlreadyAreNotCut) {
    KX_DATA::BimPicRow row = Photo();
    row.fileName = QString(300, u'n') + u".jpg"_s;
    row.description = QString(400, u'd');
    Open(row);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().fileName, row.fileName);
    EXPECT_EQ(Sent().description, row.description);
}

TEST_F(OpeningTest, AnUntouchedDescriptionIsSentAsItCame) {
    KX_DATA::BimPicRow row = Photo();
    row.description = u"一\r\n二\u00A0三\u2028四"_s;
    Open(row);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().description, row.description);
}

TEST_F(OpeningTest, TheKeyboardIsInTheNameBox) {
    Open();
    EXPECT_EQ(support::FocusedName(), "picNameEdit");
}

TEST_F(OpeningTest, NothingIsAskedAgainWhileItIsOpen) {
    Open();
    Log().Clear();
    support::RunPendingEvents();
    Click(&Description());
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

} // namespace
