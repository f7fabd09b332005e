// The picker alone: three boxes in a bare window.
#include "editors/PositionPicker.h"
#include "tests/console/ModuleFixture.h"
#include "tests/support/Hands.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QHBoxLayout>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::Choose;
using support::CloseList;
using support::DropDown;
using support::Entries;
using testing::ElementsAre;
using testing::IsEmpty;

class PositionPickerTest : public ModuleFixture {
protected:
    PositionPickerTest() {
        host.pics.floors = {u"1"_s, u"2"_s};
        host.pics.axesX = {u"A"_s, u"B"_s};
        host.pics.axesY = {{u"1"_s, u"N1"_s}, {u"2"_s, u"N2"_s}};
        place.floorName = u"2"_s;
        place.axisXName = u"B"_s;
        place.axisYName = u"2"_s;
        place.positionKeys = {u"own"_s};
        dialog.Create(toolkit::kNoWindow);
        auto* layout = new QHBoxLayout(dialog.Widget());
        for (DropCombo** box : {&boxes.floor, &boxes.axisX, &boxes.axisY}) {
            *box = new DropCombo;
            layout->addWidget(*box);
        }
        picker.emplace(dialog, boxes, 9, place);
        picker->Show();
        dialog.ShowRestored();
        Log().Clear();
    }
    ~PositionPickerTest() override { dialog.Destroy(); }
    void Look(DropCombo* box) {
        DropDown(*box);
        CloseList(*box);
    }
    [[nodiscard]] std::string Shown() {
        return (boxes.floor->currentText() + u'|' + boxes.axisX->currentText() + u'|' +
                boxes.axisY->currentText())
            .toStdString();
    }

    CPopTipDlg dialog;
    PositionPicker::Boxes boxes;
    ZelvorNRQ_KXVeskPicture::PicPlace place;
    std::optional<PositionPicker> picker;
};

TEST_F(PositionPickerTest, AtFirstItShowsThePlaceAndHasFetchedNothing) {
    EXPECT_EQ(Shown(), "2|B|2");
    EXPECT_THAT(Entries(*boxes.floor), ElementsAre("2"));
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(PositionPickerTest, EachListIsFetchedAtItsFirstDropDownAlone) {
    for (int i = 0; i < 2; ++i) {
        Look(boxes.floor);
        Look(boxes.axisX);
        Look(boxes.axisY);
    }
    EXPECT_EQ(Log().CountOf("GetProjectFloors"), 1);
    EXPECT_EQ(Log().CountOf("GetFloorAxesX"), 1);
    EXPECT_EQ(Log().CountOf("GetFloorAxesY"), 1);
    EXPECT_EQ(Shown(), "2|B|2") << "looking changes nothing";
    EXPECT_THAT(place.positionKeys, ElementsAre(u"N1"_s, u"N2"_s));
    EXPECT_TRUE(place.keysFetched);
}

TEST_F(PositionPickerTest, AChosenFloorFetchesBothAxesAndTakesTheirFirst) {
    Look(boxes.floor);
    Choose(*boxes.floor, 0);
    EXPECT_EQ(Shown(), "1|A|1");
    EXPECT_EQ(place.floorName, u"1"_s);
    EXPECT_EQ(place.axisXName, u"A"_s);
    EXPECT_THAT(place.positionKeys, ElementsAre(u"N1"_s, u"N2"_s));
}

TEST_F(PositionPickerTest, AChosenXAxisFetchesTheYAxesAlone) {
    Look(boxes.axisX);
    Log().Clear();
    Choose(*boxes.axisX, 0);
    EXPECT_THAT(Log().Lines(), ElementsAre("GetFloorAxesY(ppid=9,floor=2,x=A)"));
}

TEST_F(PositionPickerTest, AListThatCannotBeFetchedIsToldAndTheCascadeStopsThere) {
    Look(boxes.floor);
    host.script.FailNext("GetFloorAxesX");
    prompts.ExpectMessage(u"获取楼层所有轴网失败！"_s);
    Choose(*boxes.floor, 0);
    EXPECT_EQ(Log().CountOf("GetFloorAxesY"), 0);
    EXPECT_THAT(prompts.Parents(), ElementsAre(dialog.Id()));
}

TEST_F(PositionPickerTest, AWindowThatEndsBehindItsQuestionGetsNoList) {
    host.script.During("GetFloorAxesX", [this] { dialog.Destroy(); });
    emit boxes.axisX->dropDown();
    EXPECT_EQ(place.axisXName, u"B"_s);
    EXPECT_EQ(boxes.axisX->count(), 1);
}

} // namespace
