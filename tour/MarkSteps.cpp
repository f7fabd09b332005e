#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

host::FloorPlanCanvas* MarkPlan() {
    return Find<host::FloorPlanCanvas>(kMain, u"floorPlanCanvas"_s);
}

QAbstractItemView* MarkTreeOf(const QString& page) {
    return qobject_cast<QAbstractItemView*>(FindIn(FindIn(FindWindow(kMain), page), u"tree"_s));
}

int FlagsInSight() {
    const host::FloorPlanCanvas* plan = MarkPlan();
    return plan == nullptr ? 0 : int(plan->Flags().size());
}

/// Row of a group in the panel; -1 if it isn't listed.
int RowOfGroup(const QString& page, const QString& caption) {
    const QAbstractItemView* tree = MarkTreeOf(page);
    for (int row = 0; tree != nullptr && row < tree->model()->rowCount(); ++row) {
        if (tree->model()->index(row, 0).data().toString() == caption) {
            return row;
        }
    }
    return -1;
}

/// The panel's row of the shown floor.
int RowOfShownFloor(const QString& page) {
    const host::FloorPlanCanvas* plan = MarkPlan();
    return plan == nullptr
               ? -1
               : RowOfGroup(page, host::PlanFloorCaption(
                                      plan->Model().floors[std::size_t(plan->State().floor)]));
}

/// The box of the first flag of the shown floor that stands for photos.
QPoint FirstPhotoFlag() {
    const host::FloorPlanCanvas* plan = MarkPlan();
    for (const host::FlagBox& box : plan->FlagsLayout().boxes) {
        if (box.flag >= 0 &&
            plan->Flags()[std::size_t(box.flag)].flag.kind == host::MarkKind::Photos) {
            return box.rect.center().toPoint();
        }
    }
    return {};
}

QMenu* OpenFlagMenu() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu != nullptr && menu->objectName() == u"flagMenu"_s ? menu : nullptr;
}

void WriteTicks(TourScript& script) {
    const QString page = u"photoMarks"_s;
    script.Do(
        u"标识面板中选中所示的楼层，用方向键展开"_s,
        [page] {
            QAbstractItemView* tree = MarkTreeOf(page);
            Remembered() = FlagsInSight();
            return hands::ClickCell(tree, RowOfShownFloor(page), 0) &&
                   hands::PressKey(tree, Qt::Key_Right);
        },
        [page] {
            const QAbstractItemView* tree = MarkTreeOf(page);
            return tree->currentIndex().row() == RowOfShownFloor(page);
        });
    script.Do(
        u"用空格取消勾选它的第一个标识：平面图上少了标识"_s,
        [page] {
            QAbstractItemView* tree = MarkTreeOf(page);
            return hands::PressKey(tree, Qt::Key_Down) && hands::PressKey(tree, Qt::Key_Space);
        },
        [] { return FlagsInSight() < Remembered(); });
    script.Picture(kMain, u"mark-panel"_s);
    script.Do(
        u"单击“全不选”：没有照片标识了"_s,
        [page] { return hands::Click(FindIn(FindIn(FindWindow(kMain), page), u"noneButton"_s)); },
        [] {
            const auto& flags = MarkPlan()->Flags();
            return std::none_of(flags.begin(), flags.end(), [](const host::PlacedFlag& flag) {
                return flag.flag.kind == host::MarkKind::Photos;
            });
        });
    script.Do(
        u"单击“全选”：标识都回来了"_s,
        [page] { return hands::Click(FindIn(FindIn(FindWindow(kMain), page), u"allButton"_s)); },
        [] { return FlagsInSight() == Remembered(); });
}

void WriteFlagMenu(TourScript& script) {
    script.Do(
        u"在一个标识上单击右键：菜单列出它的照片"_s,
        [] { return hands::ClickAt(MarkPlan(), FirstPhotoFlag(), Qt::RightButton); },
        [] { return OpenFlagMenu() != nullptr; });
    script.Picture(kMain, u"flag-menu"_s);
    script.Do(
        u"关闭菜单（Esc）"_s, [] { return hands::PressKey(OpenFlagMenu(), Qt::Key_Escape); },
        [] { return OpenFlagMenu() == nullptr; });
}

void WriteIssueMarks(TourScript& script) {
    const QString page = u"issueMarks"_s;
    script.Do(
        u"面板换到“问题标识”页"_s,
        [] {
            auto* tabs = qobject_cast<QTabWidget*>(FindIn(FindWindow(kMain), u"markTabs"_s));
            return tabs != nullptr &&
                   hands::ClickAt(tabs->tabBar(), tabs->tabBar()->tabRect(1).center());
        },
        [page] {
            const QAbstractItemView* tree = MarkTreeOf(page);
            return tree != nullptr && tree->model()->rowCount() > 0;
        });
    script.Do(
        u"双击一个楼层：平面图切换到它"_s,
        [page] {
            QAbstractItemView* tree = MarkTreeOf(page);
            return hands::DoubleClickAt(tree->viewport(),
                                        tree->visualRect(tree->model()->index(0, 1)).center());
        },
        [page] { return RowOfShownFloor(page) == 0; });
    script.Picture(kMain, u"issue-marks"_s);
    script.Do(
        u"回到“照片标识”页"_s,
        [] {
            auto* tabs = qobject_cast<QTabWidget*>(FindIn(FindWindow(kMain), u"markTabs"_s));
            return hands::ClickAt(tabs->tabBar(), tabs->tabBar()->tabRect(0).center());
        },
        [] { return MarkTreeOf(u"photoMarks"_s) != nullptr; });
}

} // namespace

void WriteMarks(TourScript& script) {
    WriteTicks(script);
    WriteFlagMenu(script);
    WriteIssueMarks(script);
}

} // namespace tour
