// The grid with real mouse events: icons, check boxes, double clicks, the row's menu, the header.
#include "tests/toolkit/controls/SampleGrid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct GridMouse : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void Open(int rows) {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid);
        grid.Fill(rows);
    }
    [[nodiscard]] QWidget* Viewport() const { return grid.View()->viewport(); }
    void Click(int row, int column) const {
        QTest::mouseClick(Viewport(), Qt::LeftButton, {}, grid.CellCenter(row, column));
    }
    void DoubleClick(int row, int column) const {
        Click(row, column);
        QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, grid.CellCenter(row, column));
        QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, grid.CellCenter(row, column));
    }
    void ClickHeader(int column) const {
        const QHeaderView* header = grid.View()->horizontalHeader();
        const QPoint place(header->sectionViewportPosition(column) +
                               header->sectionSize(column) / 2,
                           header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    }
    [[nodiscard]] QMenu* OpenMenu() const {
        for (QMenu* menu : grid.View()->findChildren<QMenu*>()) {
            if (menu->isVisible()) {
                return menu;
            }
        }
        return nullptr;
    }
};

TEST_F(GridMouse, IconClickSelectsTheRowAndGivesItsCommand) {
    Open(5);
    Click(2, SampleGrid::kEdit);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{7, 2}));
    ASSERT_NE(grid.GetCurSel(), nullptr);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 2);
}

TEST_F(GridMouse, RowIsSelectedBeforeTheIconCommandComes) {
    Open(5);
    int selected = -1;
    grid.onIcon = [&] { selected = grid.GetCurSel()->GetRowId(); };
    Click(3, SampleGrid::kEdit);
    EXPECT_EQ(selected, 3);
}

TEST_F(GridMouse, DisabledIconDoesNotFire) {
    Open(5);
    Click(1, SampleGrid::kLocate);
    EXPECT_THAT(grid.iconCalls, IsEmpty());
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 1);
    Click(2, SampleGrid::kLocate);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{8, 2}));
}

TEST_F(GridMouse, IconFiresOnlyIfReleasedInTheCellWhereItWasPressed) {
    Open(5);
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, grid.CellCenter(0, SampleGrid::kEdit));
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, grid.CellCenter(0, SampleGrid::kLocate));
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, grid.CellCenter(0, SampleGrid::kName));
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, grid.CellCenter(0, SampleGrid::kEdit));
    EXPECT_THAT(grid.iconCalls, IsEmpty());
}

TEST_F(GridMouse, RightButtonOnAnIconDoesNotFire) {
    Open(5);
    QTest::mouseClick(Viewport(), Qt::RightButton, {}, grid.CellCenter(0, SampleGrid::kEdit));
    EXPECT_THAT(grid.iconCalls, IsEmpty());
}

TEST_F(GridMouse, ClickTurnsTheCheckBox) {
    Open(3);
    Click(1, SampleGrid::kCheck);
    EXPECT_TRUE(grid.IsChecked(1));
    EXPECT_FALSE(grid.IsChecked(0));
    QTest::mousePress(Viewport(), Qt::LeftButton, {}, grid.CellCenter(0, SampleGrid::kCheck));
    QTest::mouseRelease(Viewport(), Qt::LeftButton, {}, grid.CellCenter(2, SampleGrid::kCheck));
    EXPECT_FALSE(grid.IsChecked(0));
    EXPECT_FALSE(grid.IsChecked(2));
}

TEST_F(GridMouse, DisabledCheckBoxStaysAsItIs) {
    Open(3);
    grid.GetRow(1)->GetItem(SampleGrid::kCheck)->Enable(false);
    Click(1, SampleGrid::kCheck);
    EXPECT_FALSE(grid.IsChecked(1));
}

TEST_F(GridMouse, DoubleClickOnATextNamesRowAndColumn) {
    Open(5);
    DoubleClick(4, SampleGrid::kName);
    EXPECT_THAT(grid.doubleClicks, ElementsAre(SampleGrid::DoubleClickCall{4, SampleGrid::kName}));
    EXPECT_THAT(grid.iconCalls, IsEmpty());
}

TEST_F(GridMouse, DoubleClickOnAnIconFiresOnceAndIsNoDoubleClick) {
    Open(5);
    DoubleClick(2, SampleGrid::kEdit);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{7, 2}));
    EXPECT_THAT(grid.doubleClicks, IsEmpty());
}

TEST_F(GridMouse, DoubleClickOnAnIconThatDidNothingIsOneLikeElsewhere) {
    Open(5);
    grid.GetRow(2)->GetItem(SampleGrid::kEdit)->Enable(false);
    DoubleClick(2, SampleGrid::kEdit);
    EXPECT_THAT(grid.iconCalls, IsEmpty());
    EXPECT_THAT(grid.doubleClicks, ElementsAre(SampleGrid::DoubleClickCall{2, SampleGrid::kEdit}));
}

TEST_F(GridMouse, DoubleClickOnACheckBoxTurnsItOnceAndIsADoubleClick) {
    Open(5);
    DoubleClick(2, SampleGrid::kCheck);
    EXPECT_TRUE(grid.IsChecked(2));
    EXPECT_THAT(grid.doubleClicks, ElementsAre(SampleGrid::DoubleClickCall{2, SampleGrid::kCheck}));
}

TEST_F(GridMouse, DoubleClickBelowTheLastRowIsTheSelectedRows) {
    Open(2);
    const QPoint below(100, Viewport()->height() - 5);
    const auto doubleClick = [&] {
        QTest::mouseClick(Viewport(), Qt::LeftButton, {}, below);
        QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, below);
    };
    doubleClick();
    EXPECT_THAT(grid.doubleClicks, IsEmpty()) << "no row is selected";
    Click(1, SampleGrid::kName);
    doubleClick();
    EXPECT_THAT(grid.doubleClicks, ElementsAre(SampleGrid::DoubleClickCall{1, -1}));
}

TEST_F(GridMouse, TwoQuickClicksOnAHeaderAreTwoClicks) {
    Open(2);
    const QHeaderView* header = grid.View()->horizontalHeader();
    const QPoint place(header->sectionViewportPosition(SampleGrid::kName) +
                           header->sectionSize(SampleGrid::kName) / 2,
                       header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_THAT(grid.headerClicks, ElementsAre(SampleGrid::kName, SampleGrid::kName));
}

TEST_F(GridMouse, TwoQuickClicksOnAHandleOfTheHeaderAreNone) {
    Open(2);
    const QHeaderView* header = grid.View()->horizontalHeader();
    const QPoint handle(header->sectionViewportPosition(SampleGrid::kName) +
                            header->sectionSize(SampleGrid::kName) - 1,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, handle);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, handle);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, handle);
    EXPECT_THAT(grid.headerClicks, IsEmpty());
}

TEST_F(GridMouse, ClickBelowTheLastRowKeepsTheSelection) {
    Open(2);
    Click(1, SampleGrid::kName);
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, QPoint(100, Viewport()->height() - 5));
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 1);
}

TEST_F(GridMouse, PointerIsAHandOverWhatCanBeClickedOnly) {
    Open(5);
    QTest::mouseMove(Viewport(), {1, 1});
    for (const int row : {0, 2}) {
        QTest::mouseMove(Viewport(), grid.CellCenter(row, SampleGrid::kEdit));
        EXPECT_EQ(Viewport()->cursor().shape(), Qt::PointingHandCursor) << row;
        QTest::mouseMove(Viewport(), grid.CellCenter(row, SampleGrid::kName));
        EXPECT_EQ(Viewport()->cursor().shape(), Qt::ArrowCursor) << row;
    }
    QTest::mouseMove(Viewport(), grid.CellCenter(2, SampleGrid::kEdit));
    QTest::mouseMove(Viewport(), grid.CellCenter(2, SampleGrid::kName));
    EXPECT_EQ(Viewport()->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(Viewport(), grid.CellCenter(1, SampleGrid::kLocate));
    EXPECT_EQ(Viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GridMouse, RightClickSelectsTheRowAndOpensItsMenu) {
    Open(5);
    grid.menuActions = {u"编辑"_s, u"删除"_s};
    const QPoint place = grid.CellCenter(3, SampleGrid::kName);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(Viewport(), &event);
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 3);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->actions().size(), 2);
    OpenMenu()->close();
}

TEST_F(GridMouse, NoMenuOpensWhenNothingWasFilledIn) {
    Open(5);
    const QPoint place = grid.CellCenter(3, SampleGrid::kName);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(Viewport(), &event);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(GridMouse, MenuClosesWhenItsRowsGo) {
    Open(5);
    grid.menuActions = {u"编辑"_s};
    const QPoint place = grid.CellCenter(3, SampleGrid::kName);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(Viewport(), &event);
    ASSERT_NE(OpenMenu(), nullptr);
    grid.RemoveAll();
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(GridMouse, HeaderClickNamesTheColumn) {
    Open(2);
    ClickHeader(SampleGrid::kCheck);
    ClickHeader(SampleGrid::kName);
    EXPECT_THAT(grid.headerClicks, ElementsAre(SampleGrid::kCheck, SampleGrid::kName));
    EXPECT_EQ(grid.GetCurSel(), nullptr);
}

TEST_F(GridMouse, HeaderClickComesOnAnEmptyGridToo) {
    Open(0);
    ClickHeader(SampleGrid::kCheck);
    EXPECT_THAT(grid.headerClicks, ElementsAre(SampleGrid::kCheck));
}

TEST_F(GridMouse, ClickOnAHalfHiddenCellMovesNothing) {
    Open(60);
    QCoreApplication::processEvents();
    QScrollBar* bar = grid.View()->verticalScrollBar();
    bar->setValue(7);
    const int row = grid.View()->rowAt(1);
    const QPoint place(grid.CellCenter(row, SampleGrid::kEdit).x(), 1);
    QTest::mouseClick(Viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(bar->value(), 7);
    EXPECT_THAT(grid.iconCalls, ElementsAre(SampleGrid::IconCall{7, row}));
}

TEST_F(GridMouse, DoubleClickSelectsTheRowItself) {
    Open(5);
    Click(1, SampleGrid::kName);
    QTest::mouseDClick(Viewport(), Qt::LeftButton, {}, grid.CellCenter(3, SampleGrid::kName));
    EXPECT_EQ(grid.GetCurSel()->GetRowId(), 3);
    EXPECT_THAT(grid.doubleClicks, ElementsAre(SampleGrid::DoubleClickCall{3, SampleGrid::kName}));
}

} // namespace
