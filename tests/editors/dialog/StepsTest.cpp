// Steps of the editor that were begun and not carried on: lists only looked at, an opening that
// failed on its way, a text that was pasted.
#include "tests/editors/dialog/EditorFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::Choose;
using support::CloseList;
using support::DropDown;
using support::Entries;
using testing::ElementsAre;
using testing::IsEmpty;

class StepsTest : public EditorFixture {};

TEST_F(StepsTest, AYAxisThatWasOnlyLookedAtSendsTheKeyOfItsList) {
    Open(PhotoAt(u"1"_s, u"A"_s, u"2"_s));
    DropDown(AxisY());
    CloseList(AxisY());
    EXPECT_EQ(AxisY().currentText(), u"2"_s);
    ASSERT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N2"_s);
}

TEST_F(StepsTest, AYAxisThatIsGoneSelectsTheFirstOfItsList) {
    Open(PhotoAt(u"1"_s, u"A"_s, u"77"_s));
    DropDown(AxisY());
    CloseList(AxisY());
    EXPECT_EQ(AxisY().currentText(), u"1"_s);
    ASSERT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N1"_s);
}

TEST_F(StepsTest, AnXAxisThatWasOnlyLookedAtKeepsTheKey) {
    Open(PhotoAt(u"1"_s, u"B"_s, u"2"_s));
    DropDown(AxisX());
    CloseList(AxisX());
    DropDown(Floor());
    CloseList(Floor());
    ASSERT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
    EXPECT_EQ(Log().CountOf("GetFloorAxesY"), 0);
}

TEST_F(StepsTest, TheCascadeAsksWithEmptyNamesBehindAFloorWithoutXAxes) {
    Open();
    host.pics.axesX.clear();
    host.pics.axesY.clear();
    Log().Clear();
    Choose(Floor(), 1);
    EXPECT_THAT(Log().LinesOf({"GetFloorAxesX", "GetFloorAxesY"}),
                ElementsAre("GetFloorAxesX(ppid=1,floor=2)", "GetFloorAxesY(ppid=1,floor=2,x=)"));
    ExpectRefused(AxisY(), "请设置正确的Y轴信息后重试！");
}

TEST_F(StepsTest, AFailedLabelListLeavesEverythingBehindItUndone) {
    host.script.FailNext("GetLabels");
    prompts.ExpectMessage(u"获取标签出错！"_s);
    Open();
    EXPECT_THAT(Log().LinesOf({"HasRight", "GetMarkTable"}), IsEmpty());
    EXPECT_THAT(Entries(Status()), IsEmpty());
    EXPECT_THAT(Entries(Mark()), IsEmpty());
    EXPECT_THAT(Entries(Floor()), IsEmpty());
    EXPECT_EQ(Name().text(), u"照片1"_s);
    EXPECT_EQ(Tree().topLevelItemCount(), 1);
    EXPECT_EQ(Root().childCount(), 0);
    ExpectRefused(Status(), "请选择照片状态！");
}

TEST_F(StepsTest, AFailedMarkTableLeavesThePositionEmpty) {
    host.script.FailNext("GetMarkTable");
    prompts.ExpectMessage(u"获取照片标识失败！"_s);
    Open();
    EXPECT_EQ(Status().currentIndex(), 0);
    EXPECT_THAT(Entries(Floor()), IsEmpty());
    EXPECT_THAT(Entries(AxisX()), IsEmpty());
    EXPECT_THAT(Entries(AxisY()), IsEmpty());
}

TEST_F(StepsTest, APastedTextLosesEveryBlankAndTheButtonFollows) {
    Open();
    NewLabel().setText(u" a b  c "_s);
    EXPECT_EQ(NewLabel().text(), u"abc"_s);
    EXPECT_TRUE(AddLabel().isEnabled());
    NewLabel().setText(u"   "_s);
    EXPECT_EQ(NewLabel().text(), QString());
    EXPECT_FALSE(AddLabel().isEnabled());
}

} // namespace
