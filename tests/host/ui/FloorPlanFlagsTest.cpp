// Flags on the plan: mouse, keyboard, and what the module asks of the view.
#include "host/ui/Blink.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "tests/host/ui/FloorPlanSamples.h"
#include "tests/host/ui/MarkSamples.h"
#include "tests/support/WaitFor.h"
#include "toolkit/GbkText.h"

#include <QContextMenuEvent>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using hosttest::IssueGroup;
using hosttest::PhotoGroup;
using hosttest::PhotoItem;

/// Floor 1: two marks at 2/B, four at 3/A; a lost position; something on no floor.
class FlagsOnThePlan : public testing::Test {
protected:
    FlagsOnThePlan() {
        FloorPlanModel model = hosttest::SmallPlan();
        model.floors.push_back(PlanFloor());
        pane.resize(900, 460);
        pane.SetModel(model);
        pane.show();
        canvas.setFocus();
        view.SetMarkTable({{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
        view.SetVeskPicMarkers(
            {PhotoGroup(
                 "1",
                 {PhotoItem("1:2/B", "2/B", {{1, 5}, {2, 3}}),
                  PhotoItem(
                      "1:3/A", "3/A",
                      {{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}, {7, 1}, {8, 1}, {9, 1}}),
                  PhotoItem("1:gone", "9/Z", {{2, 4}})}),
             PhotoGroup(toolkit::ToGbk(u"其他"_s), {PhotoItem("", "", {{1, 2}})})});
        QObject::connect(&view, &ModelView::FlagOpened,
                         [this](const MarkFlag& flag) { opened.push_back(flag); });
        QObject::connect(&view, &ModelView::FlagMenuWanted,
                         [this](const FlagMenuRequest& request) { menus.push_back(request); });
        QObject::connect(&canvas, &FloorPlanCanvas::PhotosWanted,
                         [this](const QString& key) { wanted << key; });
    }

    /// The box of a mark at a place, or of the rest there.
    [[nodiscard]] QPoint BoxPoint(const QString& key, qint32 markId) const {
        for (const FlagBox& box : canvas.FlagsLayout().boxes) {
            const bool isRest = box.flag < 0;
            if (isRest != (markId == 0)) {
                continue;
            }
            const int index = isRest ? box.rest.front() : box.flag;
            const MarkFlag& flag = canvas.Flags()[size_t(index)].flag;
            if (flag.positionKey == key && (isRest || flag.markId == markId)) {
                return box.rect.center().toPoint();
            }
        }
        ADD_FAILURE() << "no such box";
        return {};
    }
    void SendMenu(const QPoint& at, QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, at, canvas.mapToGlobal(at));
        QApplication::sendEvent(&canvas, &event);
    }
    [[nodiscard]] bool IsInSight(const QPoint& point) const {
        return canvas.visibleRegion().contains(point);
    }

    FloorPlanPane pane{nullptr};
    FloorPlanCanvas& canvas{pane.Canvas()};
    FloorPlanView view{pane};
    std::vector<MarkFlag> opened;
    std::vector<FlagMenuRequest> menus;
    QStringList wanted;
};

TEST_F(FlagsOnThePlan, AClickOnAFlagOpensItsPositionAndMark) {
    canvas.SetFloor(1);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, BoxPoint(u"1:2/B"_s, 2));
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_EQ(opened[0].positionKey, u"1:2/B"_s);
    EXPECT_EQ(opened[0].markId, 2);
    EXPECT_EQ(opened[0].floor, u"1"_s);
    EXPECT_EQ(opened[0].ppid, 7);
    EXPECT_EQ(canvas.Chosen(), nullptr);
    EXPECT_TRUE(wanted.isEmpty());
}

TEST_F(FlagsOnThePlan, WhatAFlagOpensMayHaveTheMarksDrawnAnew) {
    canvas.SetFloor(1);
    QString key;
    QObject::connect(&view, &ModelView::FlagOpened, &view, [&](const MarkFlag& flag) {
        view.SetVeskPicMarkers({});
        key = flag.positionKey;
    });
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, BoxPoint(u"1:2/B"_s, 2));
    EXPECT_EQ(key, u"1:2/B"_s);
}

TEST_F(FlagsOnThePlan, AClickThatIsDraggedOffAFlagOpensNothing) {
    canvas.SetFloor(1);
    QTest::mousePress(&canvas, Qt::LeftButton, {}, BoxPoint(u"1:2/B"_s, 2));
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, BoxPoint(u"1:2/B"_s, 1));
    EXPECT_TRUE(opened.empty());
}

TEST_F(FlagsOnThePlan, ADoubleClickOpensAFlagOnce) {
    canvas.SetFloor(1);
    const QPoint at = BoxPoint(u"1:2/B"_s, 1);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, at);
    QTest::mouseDClick(&canvas, Qt::LeftButton, {}, at);
    EXPECT_EQ(opened.size(), 1U);
    EXPECT_TRUE(wanted.isEmpty());
}

TEST_F(FlagsOnThePlan, AClickOnTheRestOffersWhatIsFoldedInIt) {
    canvas.SetFloor(1);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, BoxPoint(u"1:3/A"_s, 0));
    EXPECT_TRUE(opened.empty());
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_GE(menus[0].flags.size(), 2U);
    EXPECT_EQ(menus[0].flags.back().markId, 9);
    EXPECT_EQ(menus[0].place, u"3轴 / A轴"_s);
}

TEST_F(FlagsOnThePlan, TheContextMenuIsThatOfTheFlagOrOfThePlaceUnderTheMouse) {
    canvas.SetFloor(1);
    SendMenu(BoxPoint(u"1:2/B"_s, 1), QContextMenuEvent::Mouse);
    ASSERT_EQ(menus.size(), 1U);
    ASSERT_EQ(menus[0].flags.size(), 1U);
    EXPECT_EQ(menus[0].flags[0].markId, 1);
    const auto place = FindPlace(canvas.Model(), u"1:2/B"_s);
    SendMenu(canvas.CentreOf(place->intersection), QContextMenuEvent::Mouse);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[1].flags.size(), 2U);
    EXPECT_EQ(menus[1].positionKey, u"1:2/B"_s);
    const auto empty = FindPlace(canvas.Model(), u"1:1/A"_s);
    SendMenu(canvas.CentreOf(empty->intersection), QContextMenuEvent::Mouse);
    ASSERT_EQ(menus.size(), 3U);
    EXPECT_TRUE(menus[2].flags.empty());
    SendMenu(QPoint(2, 2), QContextMenuEvent::Mouse);
    EXPECT_EQ(menus.size(), 3U);
}

TEST_F(FlagsOnThePlan, EnterOpensTheOnlyFlagOfTheChosenPlaceAndOffersSeveral) {
    view.SetVeskPicMarkers({PhotoGroup(
        "1", {PhotoItem("1:1/A", "1/A", {{1, 1}}), PhotoItem("1:2/B", "2/B", {{1, 5}, {2, 3}})})});
    ASSERT_TRUE(canvas.LocateKey(u"1:1/A"_s));
    QTest::keyClick(&canvas, Qt::Key_Return);
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_EQ(opened[0].positionKey, u"1:1/A"_s);
    ASSERT_TRUE(canvas.LocateKey(u"1:2/B"_s));
    QTest::keyClick(&canvas, Qt::Key_Enter);
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(menus[0].flags.size(), 2U);
    ASSERT_TRUE(canvas.LocateKey(u"1:3/B"_s));
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(wanted, QStringList{u"1:3/B"_s});
}

TEST_F(FlagsOnThePlan, TheMenuKeyOffersTheFlagsOfTheChosenPlaceOrOfTheShelf) {
    ASSERT_TRUE(canvas.LocateKey(u"1:2/B"_s));
    SendMenu(QPoint(), QContextMenuEvent::Keyboard);
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(menus[0].flags.size(), 2U);
    QTest::keyClick(&canvas, Qt::Key_Escape);
    SendMenu(QPoint(), QContextMenuEvent::Keyboard);
    ASSERT_EQ(menus.size(), 2U);
    ASSERT_EQ(menus[1].flags.size(), 1U);
    EXPECT_EQ(menus[1].flags[0].positionKey, u"1:gone"_s);
    canvas.SetFloor(0);
    SendMenu(QPoint(), QContextMenuEvent::Keyboard);
    EXPECT_EQ(menus.size(), 2U);
}

TEST_F(FlagsOnThePlan, APhotoIsLocatedOnItsFloorChosenAndBlinks) {
    EXPECT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    ASSERT_NE(canvas.Chosen(), nullptr);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:2/B"_s);
    EXPECT_TRUE(canvas.Light().IsLit());
    EXPECT_EQ(canvas.Blinking()->markId, 2);
    EXPECT_TRUE(support::WaitFor([this] { return !canvas.Light().IsLit(); }));
    EXPECT_TRUE(support::WaitFor([this] { return canvas.Light().IsLit(); }));
    EXPECT_TRUE(support::WaitFor([this] { return canvas.Blinking() == nullptr; }));
}

TEST_F(FlagsOnThePlan, WhatIsNotShownIsNotLocatedAndMovesNothing) {
    EXPECT_FALSE(view.LocatePicture(u"1:2/B"_s, 3));
    EXPECT_FALSE(view.LocatePicture(u"-1:1/A"_s, 1));
    EXPECT_FALSE(view.LocatePicture(u"elsewhere"_s, 1));
    view.ShowMarks(MarkKind::Photos, false);
    EXPECT_FALSE(view.LocatePicture(u"1:2/B"_s, 2));
    EXPECT_EQ(pane.CurrentFloor(), u"-1"_s);
    EXPECT_EQ(canvas.Blinking(), nullptr);
    view.ShowMarks(MarkKind::Photos, true);
    EXPECT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
}

TEST_F(FlagsOnThePlan, ALookupCallsNobodyBack) {
    EXPECT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
    EXPECT_TRUE(opened.empty());
    EXPECT_TRUE(menus.empty());
    EXPECT_TRUE(wanted.isEmpty());
}

TEST_F(FlagsOnThePlan, AFoldedFlagComesOutWhenItIsLocated) {
    ASSERT_TRUE(view.LocatePicture(u"1:3/A"_s, 9));
    EXPECT_TRUE(IsInSight(BoxPoint(u"1:3/A"_s, 9)));
}

TEST_F(FlagsOnThePlan, ALostPositionIsLocatedOnTheShelfOfItsFloor) {
    EXPECT_TRUE(view.LocatePicture(u"1:gone"_s, 2));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    EXPECT_EQ(canvas.Chosen(), nullptr);
    EXPECT_TRUE(IsInSight(BoxPoint(u"1:gone"_s, 2)));
}

TEST_F(FlagsOnThePlan, WhatHangsOnNoFloorHasAPlaceOfItsOwn) {
    EXPECT_TRUE(view.LocatePicture(QString(), 1));
    EXPECT_EQ(canvas.State().floor, 2);
    EXPECT_TRUE(pane.CurrentFloor().isEmpty());
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, BoxPoint(QString(), 1));
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_TRUE(opened[0].floor.isEmpty());
    EXPECT_TRUE(opened[0].positionKey.isEmpty());
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(opened.size(), 2U);
}

TEST_F(FlagsOnThePlan, OnALargeFloorTheFlagIsScrolledIntoSight) {
    PlanFloorBuilder builder(u"1"_s);
    for (int x = 1; x <= 30; ++x) {
        for (int y = 1; y <= 20; ++y) {
            builder.Add(QString::number(x), QString::number(y), u"%1/%2"_s.arg(x).arg(y), {1, 0});
        }
    }
    pane.SetModel({u"大"_s, {PlanFloorBuilder(u"-1"_s).Finish(), builder.Finish()}});
    view.SetVeskPicMarkers({PhotoGroup("1", {PhotoItem("30/1", "30/1", {{1, 1}})})});
    ASSERT_TRUE(view.LocatePicture(u"30/1"_s, 1));
    EXPECT_TRUE(IsInSight(BoxPoint(u"30/1"_s, 1)));
}

TEST_F(FlagsOnThePlan, AFloorWhoseNameTheCodePageLacksHasItsFlagsAndIsLocated) {
    FloorPlanModel model = canvas.Model();
    model.floors[1].name = u"ñ1"_s;
    pane.SetModel(model);
    view.SetVeskPicMarkers(
        {PhotoGroup(toolkit::ToGbk(u"ñ1"_s), {PhotoItem("1:2/B", "2/B", {{2, 3}})})});
    EXPECT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
    ASSERT_EQ(canvas.Flags().size(), 1U);
    EXPECT_EQ(canvas.Flags()[0].flag.floor, u"ñ1"_s);
    EXPECT_TRUE(canvas.Light().IsLit());
    ASSERT_NE(canvas.Chosen(), nullptr);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:2/B"_s);
}

TEST_F(FlagsOnThePlan, IssuesAreLocatedOnlyWhileTheyAreShownAndBlinkToo) {
    EXPECT_FALSE(view.LocateIssue(u"q1"_s));
    view.SetTNIssueMarkers({IssueGroup(u"1"_s, u"q1"_s, u"3-B轴"_s, 1)});
    EXPECT_TRUE(view.LocateIssue(u"q1"_s));
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:3/B"_s);
    EXPECT_EQ(canvas.Blinking()->kind, MarkKind::Issues);
    view.ShowMarks(MarkKind::Issues, false);
    EXPECT_FALSE(view.LocateIssue(u"q1"_s));
    EXPECT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
}

TEST_F(FlagsOnThePlan, AnotherFloorEndsTheBlinking) {
    ASSERT_TRUE(view.LocatePicture(u"1:2/B"_s, 2));
    QTest::keyClick(&canvas, Qt::Key_PageUp);
    EXPECT_EQ(canvas.Blinking(), nullptr);
}

TEST_F(FlagsOnThePlan, MarksThatGoTakeTheirFlagsAlong) {
    canvas.SetFloor(1);
    EXPECT_FALSE(canvas.Flags().empty());
    view.SetVeskPicMarkers({});
    EXPECT_TRUE(canvas.Flags().empty());
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, QPoint(450, 200));
    EXPECT_TRUE(opened.empty());
}

TEST_F(FlagsOnThePlan, AFloorIsBroughtUpByItsName) {
    EXPECT_TRUE(view.ShowFloor(u"1"_s));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    EXPECT_FALSE(view.ShowFloor(u"77"_s));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
}

} // namespace
} // namespace host
