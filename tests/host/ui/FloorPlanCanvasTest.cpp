#include "host/ui/plan/FloorPlanCanvas.h"

#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "tests/host/ui/FloorPlanSamples.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class FloorPlan : public testing::Test {
protected:
    FloorPlan() {
        pane.resize(900, 600);
        pane.SetModel(hosttest::SmallPlan());
        pane.show();
        canvas.setFocus();
        QObject::connect(&canvas, &FloorPlanCanvas::PhotosWanted,
                         [this](const QString& key) { wanted << key; });
    }

    void ClickPlace(const QString& key) {
        const auto place = FindPlace(canvas.Model(), key);
        QTest::mouseClick(&canvas, Qt::LeftButton, {}, canvas.CentreOf(place->intersection));
    }
    [[nodiscard]] QPushButton* CardButton() const {
        return canvas.findChild<QPushButton*>(u"planCardPhotos"_s);
    }

    FloorPlanPane pane{nullptr};
    FloorPlanCanvas& canvas{pane.Canvas()};
    QStringList wanted;
};

TEST_F(FloorPlan, ListAndPlanStayOnTheSameFloor) {
    auto* list = pane.findChild<QListWidget*>(u"floorList"_s);
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(0)->text(), u"-1层"_s);
    EXPECT_EQ(list->item(1)->text(), u"1层（5）"_s);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    QTest::keyClick(&canvas, Qt::Key_PageUp);
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(FloorPlan, TheListOfFloorsIsWideEnoughForTheCountsOfAWorksetAndHasALimit) {
    auto* list = pane.findChild<QListWidget*>(u"floorList"_s);
    const int alone = list->width();
    FloorPlanModel workset = hosttest::SmallPlan();
    workset.floors[1].project = u"滨江花园三期"_s;
    pane.SetModel(workset);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(list->item(1)->text(), u"滨江花园三期 1层（5）"_s);
    EXPECT_GT(list->width(), alone);
    EXPECT_GE(list->viewport()->width(),
              list->fontMetrics().horizontalAdvance(list->item(1)->text()) + 8);
    workset.floors[1].project = QString(300, u'长');
    pane.SetModel(workset);
    QCoreApplication::sendPostedEvents();
    EXPECT_LT(list->width(), 400);
}

TEST_F(FloorPlan, AClickOnAPlaceWithPhotosOffersThem) {
    canvas.SetFloor(1);
    ClickPlace(u"1:2/B"_s);
    ASSERT_TRUE(CardButton()->isVisible());
    ASSERT_TRUE(CardButton()->isEnabled());
    QTest::mouseClick(CardButton(), Qt::LeftButton);
    EXPECT_EQ(wanted, QStringList{u"1:2/B"_s});
}

TEST_F(FloorPlan, APlaceWithoutPhotosOffersNone) {
    ClickPlace(u"-1:1/A"_s);
    EXPECT_TRUE(CardButton()->isVisible());
    EXPECT_FALSE(CardButton()->isEnabled());
}

TEST_F(FloorPlan, AClickBesideClosesTheCardAndKeepsTheChoice) {
    ClickPlace(u"-1:1/A"_s);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_FALSE(CardButton()->isVisible());
    ASSERT_NE(canvas.Chosen(), nullptr);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"-1:1/A"_s);
}

TEST_F(FloorPlan, KeysMoveTheChoiceOpenTheCardAndAskForPhotos) {
    QTest::keyClick(&canvas, Qt::Key_Right);
    ASSERT_NE(canvas.Chosen(), nullptr);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"-1:1/A"_s);
    QTest::keyClick(&canvas, Qt::Key_Right);
    QTest::keyClick(&canvas, Qt::Key_Up);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"-1:2/B"_s);
    QTest::keyClick(&canvas, Qt::Key_Space);
    EXPECT_TRUE(CardButton()->isVisible());
    QTest::keyClick(&canvas, Qt::Key_Return);
    EXPECT_EQ(wanted, QStringList{u"-1:2/B"_s});
    QTest::keyClick(&canvas, Qt::Key_Escape);
    EXPECT_FALSE(CardButton()->isVisible());
    QTest::keyClick(&canvas, Qt::Key_Escape);
    EXPECT_EQ(canvas.Chosen(), nullptr);
}

TEST_F(FloorPlan, ADoubleClickAsksForThePhotosAtOnce) {
    canvas.SetFloor(1);
    const auto place = FindPlace(canvas.Model(), u"1:2/B"_s);
    QTest::mouseDClick(&canvas, Qt::LeftButton, {}, canvas.CentreOf(place->intersection));
    EXPECT_EQ(wanted, QStringList{u"1:2/B"_s});
}

TEST_F(FloorPlan, ANewModelKeepsFloorAndChoiceWhereTheyStillAre) {
    canvas.LocateKey(u"1:3/A"_s);
    pane.SetModel(hosttest::SmallPlan());
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    ASSERT_NE(canvas.Chosen(), nullptr);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:3/A"_s);
    pane.SetModel({});
    EXPECT_EQ(canvas.Chosen(), nullptr);
    EXPECT_TRUE(pane.CurrentFloor().isEmpty());
}

TEST_F(FloorPlan, AnEmptyPlanTakesClicksAndKeysWithoutHarm) {
    pane.SetModel({});
    QTest::mouseClick(&canvas, Qt::LeftButton);
    for (const int key : {Qt::Key_Left, Qt::Key_Space, Qt::Key_Return, Qt::Key_PageDown}) {
        QTest::keyClick(&canvas, Qt::Key(key));
    }
    EXPECT_TRUE(wanted.isEmpty());
}

TEST_F(FloorPlan, TheViewsStateBringsBackFloorAndChoice) {
    FloorPlanView view(pane);
    canvas.LocateKey(u"1:3/B"_s);
    std::vector<qint32> state;
    view.SaveViewState(state);
    canvas.SetFloor(0);
    view.RestoreViewState(state);
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:3/B"_s);
    view.RestoreViewState({});
    view.RestoreViewState({7, 3, 0, 0});
    view.RestoreViewState({-1, 3, 0, 0});
    EXPECT_EQ(canvas.Chosen()->positionKey, u"1:3/B"_s);
}

TEST_F(FloorPlan, WithoutAPickNothingIsPickedAndTheToolIsKept) {
    FloorPlanView view(pane);
    std::vector<KX_DATA::PickedComponent> picked(1);
    view.GetPickedComponents(picked);
    EXPECT_TRUE(picked.empty());
    EXPECT_EQ(view.GetViewTool(), 0);
    view.SetViewTool(4);
    EXPECT_EQ(view.GetViewTool(), 4);
}

TEST_F(FloorPlan, AGridLargerThanThePaneScrollsAndTheChoiceComesIntoSight) {
    PlanFloorBuilder builder(u"1"_s);
    for (int x = 1; x <= 30; ++x) {
        for (int y = 1; y <= 20; ++y) {
            builder.Add(QString::number(x), QString::number(y), u"%1/%2"_s.arg(x).arg(y), {1, 0});
        }
    }
    FloorPlanModel model;
    model.projectName = u"大"_s;
    model.floors.push_back(builder.Finish());
    pane.SetModel(model);
    EXPECT_GT(canvas.width(), 2000);
    EXPECT_EQ(canvas.pos().x(), 0);
    ASSERT_TRUE(canvas.LocateKey(u"30/1"_s));
    EXPECT_LT(canvas.pos().x(), 0);
    EXPECT_TRUE(canvas.visibleRegion().contains(canvas.CentreOf(canvas.State().chosen)));
    QTest::keyClick(&canvas, Qt::Key_Left);
    for (int step = 0; step < 30; ++step) {
        QTest::keyClick(&canvas, Qt::Key_Left);
    }
    EXPECT_TRUE(canvas.visibleRegion().contains(canvas.CentreOf(canvas.State().chosen)));
    pane.SetModel(hosttest::SmallPlan());
    EXPECT_EQ(canvas.size(), canvas.parentWidget()->size());
}

} // namespace
} // namespace host
