// Picking components on the plan by mouse and keyboard, and what the view tells of it.
#include "host/ui/pick/ComponentDock.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/pick/PickPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "tests/host/ui/FloorPlanSamples.h"
#include "tests/host/ui/MarkSamples.h"
#include "tests/host/ui/PickSamples.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class Picking : public testing::Test {
protected:
    Picking() {
        FloorPlanModel model = hosttest::SmallPlan();
        model.floors.push_back(PlanFloor());
        pane.resize(900, 460);
        pane.SetModel(model);
        pane.show();
        view.SetComponents([this](qint32, const QString& floor) {
            asked << floor;
            return hosttest::ComponentsOf(floor);
        });
        QObject::connect(&view, &FloorPlanView::PickEnded,
                         [this](bool confirmed) { ends.push_back(confirmed); });
        QObject::connect(&view, &FloorPlanView::PropertiesWanted,
                         [this](qint32 ppid, const QString& floor, const QString& handle) {
                             properties = u"%1 %2 %3"_s.arg(QString::number(ppid), floor, handle);
                         });
        pane.Canvas().SetFloor(1);
    }

    [[nodiscard]] PickCanvas& Canvas() const { return pane.Picks().Canvas(); }
    [[nodiscard]] QPoint PlaceOf(const QString& handle) const {
        for (const FlagBox& box : Canvas().Boxes().boxes) {
            if (box.flag >= 0 &&
                Canvas().Components()[size_t(box.flag)].component.handle == handle) {
                return box.rect.center().toPoint();
            }
        }
        ADD_FAILURE() << "no such component: " << handle.toStdString();
        return {};
    }
    void Click(const QString& handle, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(&Canvas(), Qt::LeftButton, modifiers, PlaceOf(handle));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&Canvas(), key, modifiers);
    }
    [[nodiscard]] bool IsWholeInSight() const {
        return pane.Canvas().visibleRegion().boundingRect().size() == pane.Canvas().size();
    }
    [[nodiscard]] QStringList Picked() {
        std::vector<KX_DATA::PickedComponent> components(1);
        view.GetPickedComponents(components);
        QStringList handles;
        for (const KX_DATA::PickedComponent& component : components) {
            handles << component.componentHandle;
        }
        return handles;
    }
    template <class Widget> [[nodiscard]] Widget& Find(const QString& name) const {
        return *pane.findChild<Widget*>(name);
    }

    FloorPlanPane pane{nullptr};
    FloorPlanView view{pane};
    QStringList asked;
    std::vector<bool> ends;
    QString properties;
};

TEST_F(Picking, AsksForTheComponentsOfTheShownFloorOnly) {
    view.BeginComponentPick();
    EXPECT_EQ(asked, QStringList({u"1"_s}));
    EXPECT_TRUE(view.IsPicking());
    EXPECT_TRUE(Canvas().isVisible());
    EXPECT_FALSE(pane.Canvas().isVisible());
}

TEST_F(Picking, AClickPicksOneAndTheButtonConfirms) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    Click(u"c2"_s);
    EXPECT_EQ(Picked(), QStringList({u"c2"_s}));
    EXPECT_EQ(Find<QLabel>(u"pickedText"_s).text(), u"已选：KZ-2 框架柱（1层）"_s);
    Find<QPushButton>(u"pickDone"_s).click();
    EXPECT_EQ(ends, std::vector<bool>{true});
    EXPECT_FALSE(view.IsPicking());
    EXPECT_EQ(Picked(), QStringList({u"c2"_s}));
}

TEST_F(Picking, WhatIsPickedIsToldWithEverythingThatIsKnownOfIt) {
    view.BeginComponentPick();
    Click(u"c3"_s);
    std::vector<KX_DATA::PickedComponent> components;
    view.GetPickedComponents(components);
    ASSERT_EQ(components.size(), 1U);
    EXPECT_EQ(components[0].id, 7);
    EXPECT_EQ(components[0].floor, u"1"_s);
    EXPECT_EQ(components[0].text1, u"1:3/B"_s);
    EXPECT_EQ(components[0].componentName, u"KZ-3"_s);
    EXPECT_EQ(components[0].componentSubName, u"框架柱"_s);
    EXPECT_EQ(components[0].componentHandle, u"c3"_s);
    EXPECT_EQ(components[0].text4, u"柱"_s);
}

TEST_F(Picking, AClickWithCtrlAddsAndRemoves) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    Click(u"stair"_s, Qt::ControlModifier);
    EXPECT_EQ(Picked(), QStringList({u"c1"_s, u"stair"_s}));
    Click(u"c1"_s, Qt::ControlModifier);
    EXPECT_EQ(Picked(), QStringList({u"stair"_s}));
}

TEST_F(Picking, AClickBesideTheComponentsChangesNothing) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, QPoint(3, Canvas().height() / 2));
    EXPECT_EQ(Picked(), QStringList({u"c1"_s}));
}

TEST_F(Picking, NothingPickedMayBeConfirmedToo) {
    view.BeginComponentPick();
    Key(Qt::Key_Return);
    EXPECT_EQ(ends, std::vector<bool>{true});
    EXPECT_TRUE(Picked().isEmpty());
}

TEST_F(Picking, EscapeAndTheButtonCancelWithNothingPicked) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    Key(Qt::Key_Escape);
    EXPECT_EQ(ends, std::vector<bool>{false});
    EXPECT_TRUE(Picked().isEmpty());
    view.BeginComponentPick();
    Find<QPushButton>(u"pickCancel"_s).click();
    EXPECT_EQ(ends, std::vector<bool>({false, false}));
    view.EndPick(true);
    EXPECT_EQ(ends.size(), 2U);
}

TEST_F(Picking, TheKeysWalkPickAddAndConfirm) {
    view.BeginComponentPick();
    Key(Qt::Key_Right);
    Key(Qt::Key_Space);
    EXPECT_EQ(Picked(), QStringList({u"c1"_s}));
    Key(Qt::Key_Down);
    Key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Picked(), QStringList({u"c1"_s, u"c2"_s}));
    Key(Qt::Key_Right);
    Key(Qt::Key_Space);
    EXPECT_EQ(Picked(), QStringList({u"c3"_s}));
    Key(Qt::Key_Enter);
    EXPECT_EQ(ends, std::vector<bool>{true});
    EXPECT_EQ(Picked(), QStringList({u"c3"_s}));
}

TEST_F(Picking, TheFloorCanBeChangedMeanwhileByListAndKeys) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    Find<QListWidget>(u"floorList"_s).setCurrentRow(0);
    Click(u"c4"_s, Qt::ControlModifier);
    EXPECT_EQ(Picked(), QStringList({u"c1"_s, u"c4"_s}));
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Find<QListWidget>(u"floorList"_s).currentRow(), 1);
    Key(Qt::Key_Return);
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    EXPECT_EQ(Find<QListWidget>(u"floorList"_s).currentRow(), 1);
}

TEST_F(Picking, WhatHangsOnNoFloorIsPickedUnderOthers) {
    view.BeginComponentPick();
    Canvas().SetFloor(2);
    Click(u"fence"_s);
    std::vector<KX_DATA::PickedComponent> components;
    view.GetPickedComponents(components);
    ASSERT_EQ(components.size(), 1U);
    EXPECT_EQ(components[0].floor, QString());
}

TEST_F(Picking, WhatAPlaceHasNoRoomForIsOfferedAsAMenuAndComesToTheFront) {
    view.SetComponents([](qint32, const QString&) {
        std::vector<PlanComponent> many;
        for (int at = 0; at < 30; ++at) {
            many.push_back(
                hosttest::Component(u"m%1"_s.arg(at), u"1"_s, u"1:2/A"_s, u"KL-%1"_s.arg(at)));
        }
        return many;
    });
    view.BeginComponentPick();
    const FlagBox rest = Canvas().Boxes().boxes.back();
    ASSERT_LT(rest.flag, 0);
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, rest.rect.center().toPoint());
    auto* menu = Canvas().findChild<QMenu*>(u"pickMenu"_s);
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), qsizetype(rest.rest.size()));
    EXPECT_TRUE(menu->actions().last()->isCheckable());
    menu->actions().last()->trigger();
    menu->close();
    EXPECT_EQ(Picked(), QStringList({u"m29"_s}));
    EXPECT_NE(PlaceOf(u"m29"_s), QPoint());
}

TEST_F(Picking, PickedOnesAreHighlighted) {
    view.BeginComponentPick();
    const QPoint edge =
        Canvas().Boxes().boxes[0].rect.topRight().toPoint() + QPoint(-3, 3); // beside the name
    const QColor before = pane.grab().toImage().pixelColor(Canvas().mapTo(&pane, edge));
    Click(u"c1"_s);
    const QColor after = pane.grab().toImage().pixelColor(Canvas().mapTo(&pane, edge));
    EXPECT_EQ(before, QColor(Qt::white));
    EXPECT_EQ(after, toolkit::Colors::Selection());
}

TEST_F(Picking, EnterOnAButtonOfTheBarPressesThatButton) {
    view.BeginComponentPick();
    auto& cancel = Find<QPushButton>(u"pickCancel"_s);
    cancel.setFocus();
    QTest::keyClick(&cancel, Qt::Key_Return);
    EXPECT_EQ(ends, (std::vector<bool>{false}));
}

TEST_F(Picking, InANarrowPaneTheButtonsKeepTheirRoomAndTheBarItsHeight) {
    view.BeginComponentPick();
    support::RunPendingEvents();
    const int high = Find<QWidget>(u"pickBar"_s).height();
    EXPECT_TRUE(Find<QLabel>(u"pickHint"_s).isVisible());
    pane.resize(390, 460); // some 210 of them beside the list of floors
    support::RunPendingEvents();
    EXPECT_FALSE(Find<QLabel>(u"pickHint"_s).isVisible());
    EXPECT_LE(Find<QWidget>(u"pickBar"_s).height(), high);
    for (const QString& name : {u"pickProperties"_s, u"pickDone"_s, u"pickCancel"_s}) {
        const auto& button = Find<QPushButton>(name);
        EXPECT_GE(button.width(), button.minimumSizeHint().width()) << name.toStdString();
        EXPECT_FALSE(button.accessibleName().isEmpty() && button.text().isEmpty());
    }
}

TEST_F(Picking, TheTickOfAPickedOneIsWhite) {
    view.BeginComponentPick();
    const QRectF box = Canvas().Boxes().boxes[0].rect;
    const auto whites = [&] {
        const QImage shown = Canvas().grab().toImage();
        int count = 0;
        for (int x = 6; x < 13; ++x) {
            for (int y = -3; y <= 3; ++y) {
                const QPoint at(int(box.left()) + x, int(box.center().y()) + y);
                count += shown.pixelColor(at).lightness() > 200 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_GT(whites(), 40) << "an empty square";
    Click(u"c1"_s);
    QTest::mouseMove(&Canvas(), QPoint(1, 1));
    EXPECT_GT(whites(), 3) << "the tick";
    EXPECT_LT(whites(), 30) << "on a square that is filled";
}

TEST_F(Picking, TheOneBelowTheMouseHasARing) {
    view.BeginComponentPick();
    const QRectF box = Canvas().Boxes().boxes[0].rect;
    const QPoint above(int(box.center().x()), int(box.top()) - 1);
    EXPECT_NE(Canvas().grab().toImage().pixelColor(above), toolkit::Colors::Hover());
    QTest::mouseMove(&Canvas(), QPoint(2, Canvas().height() - 2));
    EXPECT_NE(Canvas().grab().toImage().pixelColor(above), toolkit::Colors::Hover());
    QTest::mouseMove(&Canvas(), box.center().toPoint());
    EXPECT_EQ(Canvas().grab().toImage().pixelColor(above), toolkit::Colors::Hover());
}

TEST(PickedProperties, StandBelowTheirTitleAndAreCopiedWhole) {
    ComponentDock dock(nullptr);
    dock.resize(300, 300);
    dock.ShowFacts({u"柱 KZ-1"_s, {{u"名称"_s, u"KZ-1"_s}, {u"类别"_s, u"柱"_s}}});
    const auto* title = dock.findChild<QLabel*>(u"componentTitle"_s);
    auto* table = dock.findChild<QTableWidget*>(u"componentTable"_s);
    EXPECT_GE(table->y(), title->geometry().bottom());
    ASSERT_EQ(table->actions().size(), 2);
    table->actions().last()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), u"柱 KZ-1\n名称\tKZ-1\n类别\t柱"_s);
}

TEST_F(Picking, ASecondBeginStartsAnew) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    view.BeginComponentPick();
    EXPECT_TRUE(Picked().isEmpty());
    EXPECT_TRUE(ends.empty());
    EXPECT_TRUE(view.IsPicking());
}

TEST_F(Picking, NothingIsLocatedMeanwhile) {
    view.SetMarkTable({{1, {u"质量"_s, 0x0000FF}}});
    view.SetVeskPicMarkers(
        {hosttest::PhotoGroup("-1", {hosttest::PhotoItem("-1:2/B", "2/B", {{1, 5}})})});
    view.BeginComponentPick();
    EXPECT_FALSE(view.LocatePicture(u"-1:2/B"_s, 1));
    EXPECT_FALSE(view.ShowFloor(u"-1"_s));
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    view.EndPick(false);
    EXPECT_TRUE(view.LocatePicture(u"-1:2/B"_s, 1));
}

TEST_F(Picking, AModelThatIsReadAnewKeepsPickAndFloor) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    FloorPlanModel model = hosttest::SmallPlan();
    std::swap(model.floors[0], model.floors[1]);
    pane.SetModel(model);
    EXPECT_EQ(Picked(), QStringList({u"c1"_s}));
    EXPECT_EQ(Canvas().State().floor, 0);
    EXPECT_EQ(asked.last(), u"1"_s);
    EXPECT_TRUE(ends.empty());
}

TEST_F(Picking, AModelThatIsClosedEndsThePickAsCancelled) {
    view.BeginComponentPick();
    Click(u"c1"_s);
    pane.SetModel({});
    EXPECT_EQ(ends, std::vector<bool>{false});
    EXPECT_FALSE(view.IsPicking());
    EXPECT_TRUE(Picked().isEmpty());
}

TEST_F(Picking, TheStateFromBeforeBringsBackFloorChoiceAndScroll) {
    pane.resize(360, 170);
    ASSERT_TRUE(support::WaitFor([this] { return !IsWholeInSight(); }));
    pane.Canvas().LocateKey(u"1:3/B"_s);
    const QPoint before(30, 20);
    pane.ScrollTo(before);
    ASSERT_EQ(pane.Scrolled(), before);
    std::vector<qint32> state;
    view.SaveViewState(state);
    EXPECT_EQ(view.GetViewTool(), 0);
    view.BeginComponentPick();
    EXPECT_EQ(view.GetViewTool(), 0);
    Canvas().SetFloor(0);
    Key(Qt::Key_Return);
    pane.Canvas().SetFloor(0);
    view.RestoreViewState(state);
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    EXPECT_EQ(pane.Canvas().Chosen()->positionKey, u"1:3/B"_s);
    EXPECT_EQ(pane.Scrolled(), before);
}

TEST_F(Picking, AStateWithoutAChoiceTakesTheChoiceBack) {
    std::vector<qint32> state;
    view.SaveViewState(state);
    pane.Canvas().LocateKey(u"-1:2/B"_s);
    view.RestoreViewState(state);
    EXPECT_EQ(pane.CurrentFloor(), u"1"_s);
    EXPECT_EQ(pane.Canvas().Chosen(), nullptr);
}

TEST_F(Picking, PropertiesAreAskedForFromTheMenuAndFromTheBar) {
    view.BeginComponentPick();
    EXPECT_FALSE(Find<QPushButton>(u"pickProperties"_s).isEnabled());
    Click(u"c3"_s);
    Find<QPushButton>(u"pickProperties"_s).click();
    EXPECT_EQ(properties, u"7 1 c3"_s);
    const QPoint at = PlaceOf(u"c1"_s);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, Canvas().mapToGlobal(at));
    QApplication::sendEvent(&Canvas(), &event);
    auto* menu = Canvas().findChild<QMenu*>(u"pickMenu"_s);
    ASSERT_NE(menu, nullptr);
    menu->actions().first()->trigger();
    menu->close();
    EXPECT_EQ(properties, u"7 1 c1"_s);
    EXPECT_EQ(Picked(), QStringList({u"c3"_s}));
}

TEST_F(Picking, APlanWithoutFloorsTakesKeysAndClicks) {
    pane.SetModel({});
    view.BeginComponentPick();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Space, Qt::Key_PageDown}) {
        Key(key);
    }
    QTest::mouseClick(&Canvas(), Qt::LeftButton);
    EXPECT_TRUE(Picked().isEmpty());
    Key(Qt::Key_Escape);
    EXPECT_EQ(ends, std::vector<bool>{false});
}

} // namespace
} // namespace host
