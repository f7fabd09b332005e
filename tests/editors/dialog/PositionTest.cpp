// Floor, X axis, Y axis: lists that are fetched when they drop down, and the cascade.
#include "tests/editors/dialog/EditorFixture.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::Choose;
using support::CloseList;
using support::DropDown;
using support::Entries;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kNoAxes = u"获取楼层所有轴网失败！"_s;
constexpr char kAxisYWrong[] = "请设置正确的Y轴信息后重试！";

class PositionTest : public EditorFixture {
protected:
    void OpenQuietly(const KX_DATA::BimPicRow& row = Photo()) {
        Open(row);
        Log().Clear();
    }
    void Look(DropCombo& box) {
        DropDown(box);
        CloseList(box);
    }
    /// The list can't be read: that is told once, and it isn't fetched again.
    void FailList(const std::string& call, DropCombo& box, const QString& message) {
        host.script.FailNext(call);
        prompts.ExpectMessage(message);
        Look(box);
        EXPECT_THAT(prompts.Parents(), ElementsAre(Editor().Id()));
        Look(box);
        EXPECT_EQ(Log().CountOf(call), 1);
    }
    [[nodiscard]] Calls PlaceCalls() {
        return Log().LinesOf({"GetProjectFloors", "GetFloorAxesX", "GetFloorAxesY"});
    }
    [[nodiscard]] std::string Shown() {
        return (Floor().currentText() + u'|' + AxisX().currentText() + u'|' + AxisY().currentText())
            .toStdString();
    }
};

TEST_F(PositionTest, FloorsAreFetchedByTheFirstDropDownAndNotAgain) {
    OpenQuietly(PhotoAt(u"2"_s, u"A"_s, u"1"_s));
    DropDown(Floor());
    EXPECT_TRUE(Floor().view()->isVisible());
    EXPECT_THAT(Entries(Floor()), ElementsAre("1", "2", "3"));
    EXPECT_EQ(Floor().currentText(), u"2"_s);
    CloseList(Floor());
    Look(Floor());
    EXPECT_THAT(Log().Lines(), ElementsAre("GetProjectFloors(ppid=1)"));
}

TEST_F(PositionTest, XAxesAreFetchedForTheFloorByTheFirstDropDownAndNotAgain) {
    OpenQuietly(PhotoAt(u"1"_s, u"B"_s, u"1"_s));
    Look(AxisX());
    Look(AxisX());
    EXPECT_THAT(Log().Lines(), ElementsAre("GetFloorAxesX(ppid=1,floor=1)"));
    EXPECT_THAT(Entries(AxisX()), ElementsAre("A", "B"));
    EXPECT_EQ(AxisX().currentText(), u"B"_s);
}

TEST_F(PositionTest, YAxesAreFetchedForFloorAndXAxisByTheFirstDropDownAndNotAgain) {
    OpenQuietly(PhotoAt(u"1"_s, u"A"_s, u"3"_s));
    Look(AxisY());
    Look(AxisY());
    EXPECT_THAT(Log().Lines(), ElementsAre("GetFloorAxesY(ppid=1,floor=1,x=A)"));
    EXPECT_THAT(Entries(AxisY()), ElementsAre("1", "2", "3"));
    EXPECT_EQ(AxisY().currentText(), u"3"_s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N3"_s);
}

TEST_F(PositionTest, TheServiceIsAskedForThePhotosOwnProject) {
    KX_DATA::BimPicRow row = Photo();
    row.ppid = 42;
    OpenQuietly(row);
    Choose(Floor(), 1);
    EXPECT_TRUE(Save());
    EXPECT_THAT(
        Log().LinesOf({"GetProjectFloors", "GetFloorAxesX", "GetFloorAxesY", "UpdateBimPic"}),
        ElementsAre("GetProjectFloors(ppid=42)", "GetFloorAxesX(ppid=42,floor=2)",
                    "GetFloorAxesY(ppid=42,floor=2,x=A)", "UpdateBimPic(ppid=42,id=1)"));
}

TEST_F(PositionTest, WithoutTouchingTheAxesTheKeyThatItStartedWithIsSent) {
    OpenQuietly();
    Look(Floor());
    Look(AxisX());
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, AChosenFloorFetchesXAxesAndYAxesAndSelectsTheirFirst) {
    OpenQuietly(PhotoAt(u"1"_s, u"B"_s, u"3"_s));
    Choose(Floor(), 2);
    EXPECT_THAT(PlaceCalls(),
                ElementsAre("GetProjectFloors(ppid=1)", "GetFloorAxesX(ppid=1,floor=3)",
                            "GetFloorAxesY(ppid=1,floor=3,x=A)"));
    EXPECT_EQ(Shown(), "3|A|1");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N1"_s);
}

TEST_F(PositionTest, AChosenXAxisFetchesYAxesAndSelectsTheFirst) {
    OpenQuietly(PhotoAt(u"1"_s, u"A"_s, u"3"_s));
    Choose(AxisX(), 1);
    EXPECT_THAT(PlaceCalls(),
                ElementsAre("GetFloorAxesX(ppid=1,floor=1)", "GetFloorAxesY(ppid=1,floor=1,x=B)"));
    EXPECT_EQ(Shown(), "1|B|1");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N1"_s);
}

TEST_F(PositionTest, AChosenYAxisFetchesNothingMoreAndSendsItsKey) {
    OpenQuietly();
    Choose(AxisY(), 1);
    EXPECT_THAT(PlaceCalls(), ElementsAre("GetFloorAxesY(ppid=1,floor=1,x=A)"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N2"_s);
}

TEST_F(PositionTest, TheFloorThatIsChosenAlreadyMovesNothing) {
    OpenQuietly(PhotoAt(u"1"_s, u"B"_s, u"2"_s));
    Choose(Floor(), 0);
    EXPECT_EQ(Shown(), "1|B|2");
    EXPECT_THAT(PlaceCalls(), ElementsAre("GetProjectFloors(ppid=1)"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, TheXAxisThatIsChosenAlreadyMovesNothing) {
    OpenQuietly(PhotoAt(u"1"_s, u"B"_s, u"2"_s));
    Choose(AxisX(), 1);
    EXPECT_EQ(Shown(), "1|B|2");
    EXPECT_THAT(PlaceCalls(), ElementsAre("GetFloorAxesX(ppid=1,floor=1)"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, AListThatIsClosedWithoutAChoiceMovesNothing) {
    OpenQuietly(PhotoAt(u"1"_s, u"B"_s, u"2"_s));
    DropDown(Floor());
    QTest::keyClick(Floor().view(), Qt::Key_Down);
    CloseList(Floor());
    EXPECT_EQ(Shown(), "1|B|2");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, AfterAChoiceEachListIsFetchedOnceMoreAndTheYAxesGoBackToTheFirst) {
    OpenQuietly();
    Choose(Floor(), 1);
    Log().Clear();
    Look(Floor());
    Look(AxisX());
    Look(AxisX());
    // The Y axis by the keyboard, without a list.
    AxisY().setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(Shown(), "2|A|2");
    Look(AxisY());
    Look(AxisY());
    EXPECT_THAT(PlaceCalls(),
                ElementsAre("GetFloorAxesX(ppid=1,floor=2)", "GetFloorAxesY(ppid=1,floor=2,x=A)"));
    EXPECT_EQ(Shown(), "2|A|1") << "a choice of the Y axis isn't kept beside its box";
}

TEST_F(PositionTest, TheKeyboardChoosesWithoutDroppingDown) {
    OpenQuietly();
    Look(AxisX());
    Log().Clear();
    AxisX().setFocus();
    Key(Qt::Key_Down);
    EXPECT_THAT(PlaceCalls(), ElementsAre("GetFloorAxesY(ppid=1,floor=1,x=B)"));
    EXPECT_EQ(Shown(), "1|B|1");
}

TEST_F(PositionTest, AFloorThatIsGoneSelectsTheFirstAndItsNameIsAskedForNext) {
    OpenQuietly(PhotoAt(u"旧层"_s, u"A"_s, u"1"_s));
    Look(Floor());
    EXPECT_EQ(Floor().currentText(), u"1"_s);
    Look(AxisX());
    EXPECT_THAT(Log().Lines(),
                ElementsAre("GetProjectFloors(ppid=1)", "GetFloorAxesX(ppid=1,floor=1)"));
    // The key decides, whatever the boxes show.
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, FloorsThatCannotBeReadAreToldAndNotFetchedAgain) {
    OpenQuietly();
    FailList("GetProjectFloors", Floor(), u"获取工程的所有楼层失败！"_s);
    EXPECT_THAT(Entries(Floor()), ElementsAre("1"));
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"K1"_s);
}

TEST_F(PositionTest, XAxesThatCannotBeReadAreToldAndNotFetchedAgain) {
    OpenQuietly();
    FailList("GetFloorAxesX", AxisX(), kNoAxes);
    EXPECT_THAT(Entries(AxisX()), ElementsAre("A"));
}

TEST_F(PositionTest, YAxesThatCannotBeReadAreToldAndSavingIsRefusedAtTheirBox) {
    OpenQuietly();
    FailList("GetFloorAxesY", AxisY(), kNoAxes);
    EXPECT_THAT(Entries(AxisY()), IsEmpty());
    ExpectRefused(AxisY(), kAxisYWrong);
    // Choosing another X axis reads them.
    Choose(AxisX(), 1);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N1"_s);
}

TEST_F(PositionTest, AFailureInTheCascadeIsToldAndLeavesTheBoxesAsFarAsTheyWereFilled) {
    OpenQuietly();
    host.script.FailNext("GetFloorAxesX");
    prompts.ExpectMessage(kNoAxes);
    Choose(Floor(), 1);
    EXPECT_THAT(prompts.Parents(), ElementsAre(Editor().Id()));
    EXPECT_EQ(Shown(), "2|A|1");
    EXPECT_EQ(Log().CountOf("GetFloorAxesY"), 0);

    host.script.FailNext("GetFloorAxesY");
    prompts.ExpectMessage(kNoAxes);
    Choose(Floor(), 2);
    EXPECT_EQ(Shown(), "3|A|");
    EXPECT_FALSE(Save());
}

TEST_F(PositionTest, AFloorWithoutAxesRefusesTheSaveAndNeverSendsAnEmptyKey) {
    OpenQuietly();
    host.pics.axesX.clear();
    host.pics.axesY.clear();
    Choose(Floor(), 1);
    EXPECT_EQ(Shown(), "2||");
    EXPECT_EQ(AxisY().currentIndex(), -1);
    ExpectRefused(AxisY(), kAxisYWrong);
}

TEST_F(PositionTest, AnEmptyListOfYAxesRefusesTheSave) {
    OpenQuietly();
    host.pics.axesY.clear();
    Look(AxisY());
    ExpectRefused(AxisY(), kAxisYWrong);
}

TEST_F(PositionTest, AnEmptyKeyFromTheServiceRefusesTheSave) {
    OpenQuietly();
    host.pics.axesY = {{u"1"_s, QString()}, {u"2"_s, u"N2"_s}};
    Look(AxisY());
    ExpectRefused(AxisY(), kAxisYWrong);
    Choose(AxisY(), 1);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N2"_s);
}

TEST_F(PositionTest, APhotoWithoutAPlaceIsSavedWithoutOne) {
    OpenQuietly(PhotoWithoutPlace());
    EXPECT_EQ(Shown(), "||");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, QString());
}

TEST_F(PositionTest, APhotoWithoutAPlaceGetsOneByTheCascade) {
    OpenQuietly(PhotoWithoutPlace());
    Choose(Floor(), 0);
    Choose(AxisX(), 1);
    Choose(AxisY(), 2);
    EXPECT_EQ(Shown(), "1|B|3");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sent().positionKey, u"N3"_s);
}

TEST_F(PositionTest, WhatCodeChangesIsNoChoice) {
    OpenQuietly();
    Look(Floor());
    Log().Clear();
    Floor().setCurrentIndex(2);
    AxisX().setCurrentIndex(0);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_F(PositionTest, ClosedWhileAServiceAnswersTheListStaysShut) {
    for (const char* call : {"GetProjectFloors", "GetFloorAxesX", "GetFloorAxesY"}) {
        OpenQuietly();
        host.script.During(call, [this] { Editor().Destroy(); });
        QPointer<DropCombo> box = call == Calls::value_type("GetProjectFloors") ? &Floor()
                                  : call == Calls::value_type("GetFloorAxesX")  ? &AxisX()
                                                                                : &AxisY();
        DropDown(*box);
        EXPECT_FALSE(IsOpen());
        host.script.During(call, nullptr);
    }
}

TEST_F(PositionTest, ClosedInTheMiddleOfTheCascadeItEndsThere) {
    OpenQuietly();
    host.script.During("GetFloorAxesX", [this] { Editor().Destroy(); });
    Choose(Floor(), 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Log().CountOf("GetFloorAxesY"), 0);
}

TEST_F(PositionTest, TheWaitCursorShowsWhileAServiceIsAskedAndNotInItsMessage) {
    OpenQuietly();
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    bool during = false;
    bool told = true;
    host.script.During("GetFloorAxesY", [&] { during = waits(); });
    host.script.FailNext("GetFloorAxesY");
    prompts.ExpectMessage(kNoAxes);
    prompts.Meanwhile([&] { told = waits(); });
    Look(AxisY());
    EXPECT_TRUE(during);
    EXPECT_FALSE(told);
    EXPECT_FALSE(waits());
}

TEST_F(PositionTest, ANameWithoutRoomStandsInTheTip) {
    KX_DATA::BimPicRow row = Photo();
    row.floor = QString(60, u'层');
    OpenQuietly(row);
    EXPECT_TRUE(Floor().toolTip().contains(row.floor));
    EXPECT_LT(Floor().width(), 600);
}

TEST_F(PositionTest, NamesThatLookLikeMarkupStandInTheTipsAsTheyAre) {
    host.pics.floors = {u"<b>1</b>"_s};
    OpenQuietly();
    Choose(Floor(), 0);
    EXPECT_TRUE(Floor().toolTip().contains(u"&lt;b&gt;1&lt;/b&gt;"_s))
        << Floor().toolTip().toStdString();
    EXPECT_EQ(Floor().currentText(), u"<b>1</b>"_s);
}

} // namespace
