// The mark panel by mouse and keyboard.
#include "host/ui/marks/MarkPage.h"

#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/marks/MarkTreeView.h"
#include "tests/support/Hands.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTabWidget>
#include <QTimer>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

MarkTree PanelTree(qint32 firstCount = 2) {
    return MakeMarkTree({{u"1"_s, firstCount + 3, {{1, firstCount}, {2, 3}}, 1},
                         {u"2"_s, 5, {{1, 5}}, 1},
                         {u"其他"_s, 1, {{2, 1}}, 1}},
                        {{1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FF00}}});
}

class PageOfMarks : public testing::Test {
protected:
    PageOfMarks() {
        page.resize(280, 500);
        page.SetTree(PanelTree());
        page.show();
        QObject::connect(&page, &MarkPage::TicksChanged, [this] { ++ticked; });
        QObject::connect(&page, &MarkPage::DaysChanged, [this] { ++dayChanges; });
        QObject::connect(&page, &MarkPage::ShownChanged, [this](bool on) { shown.push_back(on); });
        QObject::connect(&page, &MarkPage::FloorWanted,
                         [this](const QString& group) { floors << group; });
        QObject::connect(&page, &MarkPage::IssueWanted,
                         [this](const QString& id) { issues << id; });
    }

    template <typename Control> [[nodiscard]] Control* Find(const QString& name) const {
        return page.findChild<Control*>(name);
    }
    [[nodiscard]] MarkTreeView* View() const { return Find<MarkTreeView>(u"tree"_s); }
    [[nodiscard]] QModelIndex Row(int floor, int mark = -1, int entry = -1) const {
        const MarkTreeModel& model = page.Model();
        QModelIndex index = model.index(floor, 0);
        if (mark >= 0) {
            index = model.index(mark, 0, index);
        }
        if (entry >= 0) {
            index = model.index(entry, 0, index);
        }
        return index;
    }
    void ClickBox(const QModelIndex& index) {
        View()->scrollTo(index);
        QStyleOptionViewItem option;
        option.initFrom(View());
        option.rect = View()->visualRect(index);
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        option.state |= QStyle::State_Enabled;
        const QRect box =
            View()->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, View());
        QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, box.center());
    }
    void DoubleClick(const QModelIndex& index) {
        View()->scrollTo(index);
        const QPoint at = View()->visualRect(index).center();
        QTest::mouseClick(View()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(View()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(View()->viewport(), Qt::LeftButton, {}, at);
    }
    [[nodiscard]] Qt::CheckState StateOf(const QModelIndex& index) const {
        return Qt::CheckState(index.data(Qt::CheckStateRole).toInt());
    }
    [[nodiscard]] QString CountText() const { return Find<QLabel>(u"countLabel"_s)->text(); }

    MarkPage page{MarkKind::Photos, nullptr};
    int ticked = 0;
    int dayChanges = 0;
    std::vector<bool> shown;
    QStringList floors;
    QStringList issues;
};

TEST_F(PageOfMarks, ListsFloorsWithTheirMarksCountsAndColours) {
    const QAbstractItemModelTester tester(&page.Model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(page.Model().rowCount(), 3);
    EXPECT_EQ(Row(0).data().toString(), u"1层"_s);
    EXPECT_EQ(Row(0).siblingAtColumn(1).data().toString(), u"5"_s);
    EXPECT_EQ(Row(2).data().toString(), u"其他"_s);
    EXPECT_EQ(Row(0, 1).data().toString(), u"安全"_s);
    EXPECT_EQ(Row(0, 1).siblingAtColumn(1).data().toString(), u"3"_s);
    const QIcon swatch = Row(0, 0).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(swatch.pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    EXPECT_FALSE(page.Model().hasChildren(Row(0, 0)));
    EXPECT_EQ(CountText(), u"已选 11 / 11 张"_s);
}

TEST_F(PageOfMarks, AClickOnABoxTicksAndUnticksTheFloorAndAllBelowIt) {
    ClickBox(Row(0));
    EXPECT_EQ(ticked, 1);
    EXPECT_EQ(StateOf(Row(0)), Qt::Unchecked);
    EXPECT_EQ(StateOf(Row(0, 1)), Qt::Unchecked);
    EXPECT_EQ(CountText(), u"已选 6 / 11 张"_s);
    View()->expand(Row(0));
    ClickBox(Row(0, 1));
    EXPECT_EQ(StateOf(Row(0)), Qt::PartiallyChecked);
    EXPECT_EQ(StateOf(Row(0, 0)), Qt::Unchecked);
    ClickBox(Row(0));
    EXPECT_EQ(StateOf(Row(0)), Qt::Checked);
    EXPECT_EQ(page.State().ticks, MarkTicks());
    EXPECT_EQ(ticked, 3);
}

TEST_F(PageOfMarks, TheSpaceBarTicksTheCurrentRowAndArrowsOpenAndCloseIt) {
    View()->setFocus();
    View()->setCurrentIndex(Row(1));
    QTest::keyClick(View(), Qt::Key_Space);
    EXPECT_EQ(StateOf(Row(1)), Qt::Unchecked);
    QTest::keyClick(View(), Qt::Key_Right);
    EXPECT_TRUE(View()->isExpanded(Row(1)));
    QTest::keyClick(View(), Qt::Key_Down);
    QTest::keyClick(View(), Qt::Key_Space);
    EXPECT_EQ(StateOf(Row(1)), Qt::Checked);
}

TEST_F(PageOfMarks, AllAndNoneTickEverything) {
    QTest::mouseClick(Find<QPushButton>(u"noneButton"_s), Qt::LeftButton);
    EXPECT_EQ(CountText(), u"已选 0 / 11 张"_s);
    QTest::mouseClick(Find<QPushButton>(u"allButton"_s), Qt::LeftButton);
    EXPECT_EQ(page.State().ticks, MarkTicks());
    EXPECT_EQ(ticked, 2);
}

TEST_F(PageOfMarks, UnderAFilterOnlyWhatIsListedIsTicked) {
    support::TypeOver(*Find<QLineEdit>(u"filterEdit"_s), u"质量"_s);
    EXPECT_EQ(page.Model().rowCount(), 2);
    EXPECT_TRUE(View()->isExpanded(Row(0)));
    QTest::mouseClick(Find<QPushButton>(u"noneButton"_s), Qt::LeftButton);
    EXPECT_FALSE(page.State().ticks.IsMarkTicked(u"1"_s, 1));
    EXPECT_TRUE(page.State().ticks.IsMarkTicked(u"1"_s, 2));
    ClickBox(Row(0));
    EXPECT_TRUE(page.State().ticks.IsMarkTicked(u"1"_s, 1));
    Find<QLineEdit>(u"filterEdit"_s)->clear();
    EXPECT_EQ(page.Model().rowCount(), 3);
    EXPECT_EQ(CountText(), u"已选 6 / 11 张"_s);
}

TEST_F(PageOfMarks, AReloadKeepsTicksExpandedRowsTheCurrentRowAndTheScrollPosition) {
    std::vector<KX_DATA::PicFilterEntry> entries;
    for (int floor = 1; floor <= 60; ++floor) {
        entries.push_back({QString::number(floor), 2, {{1, 1}, {2, 1}}, 1});
    }
    page.SetTree(MakeMarkTree(entries, {}));
    ClickBox(Row(40));
    View()->expand(Row(40));
    View()->setCurrentIndex(Row(40, 1));
    View()->verticalScrollBar()->setValue(35);
    entries.insert(entries.begin(), {u"-1"_s, 1, {{1, 1}}, 1});
    entries[42].values = {{1, 7}, {2, 1}};
    page.SetTree(MakeMarkTree(entries, {}));
    EXPECT_EQ(StateOf(Row(41)), Qt::Unchecked);
    EXPECT_TRUE(View()->isExpanded(Row(41)));
    EXPECT_EQ(page.Model().GroupOf(View()->currentIndex()), u"41"_s);
    EXPECT_EQ(page.Model().MarkOf(View()->currentIndex()), 2);
    EXPECT_EQ(View()->verticalScrollBar()->value(), 35);
    EXPECT_EQ(ticked, 1);
}

TEST_F(PageOfMarks, NewCountsOfTheSameRowsResetNothing) {
    int resets = 0;
    QObject::connect(&page.Model(), &QAbstractItemModel::modelReset, [&] { ++resets; });
    page.SetTree(PanelTree(20));
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(Row(0, 0).siblingAtColumn(1).data().toString(), u"20"_s);
    EXPECT_EQ(CountText(), u"已选 29 / 29 张"_s);
}

TEST_F(PageOfMarks, TheDisplayIsSwitchedByItsBoxAndByTheMenusAction) {
    QTest::mouseClick(Find<QCheckBox>(u"shownBox"_s), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(shown, std::vector<bool>{false});
    EXPECT_FALSE(page.ShownAction()->isChecked());
    page.ShownAction()->trigger();
    EXPECT_EQ(shown, (std::vector<bool>{false, true}));
    EXPECT_TRUE(Find<QCheckBox>(u"shownBox"_s)->isChecked());
    EXPECT_EQ(ticked, 0);
}

TEST_F(PageOfMarks, DaysAreOfferedOnceTheyLimitAndFollowEachOther) {
    EXPECT_FALSE(Find<QDateEdit>(u"fromEdit"_s)->isVisible());
    QTest::mouseClick(Find<QCheckBox>(u"allDaysBox"_s), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(Find<QDateEdit>(u"fromEdit"_s)->isVisible());
    EXPECT_TRUE(page.State().days.limited);
    EXPECT_EQ(dayChanges, 1);
    const QDate later = page.State().days.to.addDays(40);
    Find<QDateEdit>(u"fromEdit"_s)->setDate(later);
    EXPECT_EQ(page.State().days.to, later);
    Find<QDateEdit>(u"toEdit"_s)->setDate(later.addDays(-90));
    EXPECT_EQ(page.State().days.from, later.addDays(-90));
    EXPECT_EQ(dayChanges, 3);
}

TEST_F(PageOfMarks, ItsStateIsSetWithoutASignalAndComesBack) {
    MarkPageState state;
    state.shown = false;
    state.days = {true, QDate(2024, 1, 1), QDate(2024, 2, 1)};
    state.ticks.SetFloor(u"2"_s, false);
    page.SetState(state);
    EXPECT_EQ(page.State(), state);
    EXPECT_EQ(StateOf(Row(1)), Qt::Unchecked);
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(ticked + dayChanges, 0);
}

TEST_F(PageOfMarks, ADoubleClickAndEnterBringUpTheFloor) {
    DoubleClick(Row(1));
    View()->setCurrentIndex(Row(2));
    QTest::keyClick(View(), Qt::Key_Return);
    EXPECT_EQ(floors, (QStringList{u"2"_s, u"其他"_s}));
    EXPECT_EQ(ticked, 0);
}

TEST_F(PageOfMarks, TheMenuOfARowTicksItAlone) {
    View()->setCurrentIndex(Row(0, 1));
    QTimer::singleShot(0, [this] {
        auto* menu = page.findChild<QMenu*>(u"markRowMenu"_s);
        ASSERT_NE(menu, nullptr);
        menu->setActiveAction(menu->actions().front());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    emit View()->customContextMenuRequested(QPoint(5, 5));
    EXPECT_EQ(CountText(), u"已选 3 / 11 张"_s);
    EXPECT_EQ(StateOf(Row(0, 1)), Qt::Checked);
    EXPECT_EQ(StateOf(Row(1)), Qt::Unchecked);
}

TEST_F(PageOfMarks, IssuesAreReadWhenTheirMarkIsOpenedAndTickedOneByOne) {
    int reads = 0;
    page.SetEntryReader([&](const QString& group, qint32 markId) {
        ++reads;
        return std::vector<IssueName>{{group + u"-a"_s, u"裂缝"_s},
                                      {group + u"-b%1"_s.arg(markId), u"渗漏"_s}};
    });
    View()->expand(Row(0));
    EXPECT_EQ(reads, 0);
    View()->expand(Row(0, 0));
    EXPECT_EQ(reads, 1);
    ASSERT_EQ(page.Model().rowCount(Row(0, 0)), 2);
    EXPECT_EQ(Row(0, 0, 1).data().toString(), u"渗漏"_s);
    ClickBox(Row(0, 0, 1));
    EXPECT_EQ(StateOf(Row(0, 0)), Qt::PartiallyChecked);
    EXPECT_FALSE(page.State().ticks.IsEntryTicked(u"1"_s, 1, u"1-b1"_s));
    ClickBox(Row(0, 0, 0));
    EXPECT_EQ(StateOf(Row(0, 0)), Qt::Unchecked);
    DoubleClick(Row(0, 0, 1));
    EXPECT_EQ(issues, QStringList{u"1-b1"_s});
    page.SetTree(PanelTree());
    EXPECT_TRUE(View()->isExpanded(Row(0, 0)));
    EXPECT_EQ(reads, 2);
    // The tester opens everything.
    const QAbstractItemModelTester tester(&page.Model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_GT(reads, 2);
}

TEST_F(PageOfMarks, AnEmptyListSaysWhy) {
    page.SetTree({});
    const QImage nothing = View()->grab().toImage();
    page.SetHint(u"读取标识时出错，请按 F5 重试。"_s);
    EXPECT_NE(View()->grab().toImage(), nothing);
    EXPECT_EQ(CountText(), u"已选 0 / 0 张"_s);
}

TEST(MarkPanelDock, HasAPageForEachKindAndTellsWhichComesIntoSight) {
    MarkPanelDock dock(nullptr);
    dock.show();
    EXPECT_TRUE(dock.IsPageInSight(MarkKind::Photos));
    EXPECT_FALSE(dock.IsPageInSight(MarkKind::Issues));
    std::vector<MarkKind> seen;
    QObject::connect(&dock, &MarkPanelDock::PageShown,
                     [&](MarkKind kind) { seen.push_back(kind); });
    auto* tabs = dock.findChild<QTabWidget*>(u"markTabs"_s);
    QTest::keyClick(tabs, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(dock.IsPageInSight(MarkKind::Issues));
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), MarkKind::Issues);
    MarkState state;
    state.issues.shown = false;
    dock.SetState(state);
    EXPECT_FALSE(dock.State().issues.shown);
    EXPECT_TRUE(dock.State().photos.shown);
}

} // namespace
} // namespace host
