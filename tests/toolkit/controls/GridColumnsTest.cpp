// Columns of a grid: told and shown widths, locks, tips, what the user drags.
#include "tests/toolkit/controls/SampleGrid.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct GridColumns : ::testing::Test {
    SampleGrid grid;
    std::unique_ptr<SampleWindow> window;

    void Open(QSize size = QSize(760, 500)) {
        grid.AddColumns();
        window = std::make_unique<SampleWindow>(grid, size);
        grid.Fill(3);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QHeaderView* Header() const { return grid.View()->horizontalHeader(); }
    [[nodiscard]] int Shown(int column) const { return grid.View()->columnWidth(column); }
    void DragDivider(int column, int by) const {
        QWidget* viewport = Header()->viewport();
        const int right = Header()->sectionViewportPosition(column) + Header()->sectionSize(column);
        const QPoint start(right - 1, Header()->height() / 2);
        QTest::mouseMove(viewport, start);
        QTest::mousePress(viewport, Qt::LeftButton, {}, start);
        QTest::mouseMove(viewport, start + QPoint(by / 2, 0));
        QTest::mouseMove(viewport, start + QPoint(by, 0));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, start + QPoint(by, 0));
    }
    [[nodiscard]] QString TipAt(QWidget* viewport, const QPoint& place) const {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, viewport->mapToGlobal(place));
        QCoreApplication::sendEvent(viewport, &event);
        return QToolTip::text();
    }
};

TEST_F(GridColumns, TextColumnsShareTheFreeRoomAndLockedOnesKeepTheirWidth) {
    Open();
    EXPECT_EQ(Shown(SampleGrid::kCheck), 20);
    EXPECT_EQ(Shown(SampleGrid::kNumber), 35);
    EXPECT_EQ(Shown(SampleGrid::kEdit), 40);
    EXPECT_GT(Shown(SampleGrid::kName), 150);
    EXPECT_EQ(Header()->length(), grid.View()->viewport()->width());
    EXPECT_EQ(grid.GetColumnWidth(SampleGrid::kName), 150);
}

TEST_F(GridColumns, NarrowViewScrollsInsteadOfSqueezing) {
    Open(QSize(300, 300));
    EXPECT_EQ(Shown(SampleGrid::kName), 150);
    EXPECT_GT(grid.View()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(GridColumns, SetStretchOverrulesTheShare) {
    Open();
    grid.SetColumnStretch(SampleGrid::kMark, 0);
    grid.SetColumnStretch(SampleGrid::kName, 0);
    grid.AdjustLayout();
    EXPECT_EQ(Shown(SampleGrid::kMark), 75);
    EXPECT_EQ(Shown(SampleGrid::kName), 150);
    EXPECT_EQ(Header()->length(), grid.View()->viewport()->width());
}

TEST_F(GridColumns, DraggedColumnKeepsTheUsersWidth) {
    Open();
    const int before = Shown(SampleGrid::kName);
    DragDivider(SampleGrid::kName, 40);
    EXPECT_EQ(Shown(SampleGrid::kName), before + 40);
    EXPECT_EQ(grid.GetColumnWidth(SampleGrid::kName), before + 40);
    EXPECT_TRUE(grid.headerClicks.empty());
    window->resize(1200, 500);
    grid.AdjustLayout();
    EXPECT_EQ(Shown(SampleGrid::kName), before + 40);
}

TEST_F(GridColumns, LockedColumnCannotBeDragged) {
    Open();
    DragDivider(SampleGrid::kEdit, 40);
    EXPECT_EQ(Shown(SampleGrid::kEdit), 40);
}

TEST_F(GridColumns, UsersWidthOutlivesTheWindow) {
    Open();
    DragDivider(SampleGrid::kMark, 33);
    const int width = Shown(SampleGrid::kMark);
    window.reset();
    window = std::make_unique<SampleWindow>(grid);
    EXPECT_EQ(Shown(SampleGrid::kMark), width);
}

TEST_F(GridColumns, HiddenColumnTakesNoRoomAndKeepsItsWidth) {
    Open();
    grid.SetColumnVisible(SampleGrid::kEdit, false);
    grid.AdjustLayout();
    EXPECT_TRUE(grid.View()->isColumnHidden(SampleGrid::kEdit));
    EXPECT_EQ(grid.GetColumnWidth(SampleGrid::kEdit), 40);
    grid.SetColumnVisible(SampleGrid::kEdit, true);
    grid.AdjustLayout();
    EXPECT_EQ(Shown(SampleGrid::kEdit), 40);
}

TEST_F(GridColumns, ChangesShowWithoutAskingForThem) {
    Open();
    grid.SetColumnVisible(SampleGrid::kEdit, false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid.View()->isColumnHidden(SampleGrid::kEdit); }));
}

TEST_F(GridColumns, ColumnsMayBeReplacedWhileTheViewStands) {
    Open();
    grid.RemoveAll();
    grid.DeleteAllColumns();
    grid.InsertColumn(0, u"甲"_s, 60);
    grid.InsertColumn(0, u"乙"_s, 70);
    grid.SetColumnLocked(0, true);
    grid.AdjustLayout();
    EXPECT_EQ(grid.GetColumnCaption(0), u"乙"_s);
    EXPECT_EQ(Shown(0), 70);
    EXPECT_EQ(Header()->count(), 2);
    EXPECT_FALSE(grid.View()->isColumnHidden(1));
}

TEST_F(GridColumns, OutOfRangeChangesNothingAndReadsAsEmpty) {
    grid.AddColumns();
    grid.InsertColumn(9, u"x"_s, 10);
    grid.InsertColumn(-1, u"x"_s, 10);
    EXPECT_EQ(grid.GetColumnCount(), 7);
    for (const int column : {-1, 7}) {
        grid.SetColumnVisible(column, false);
        grid.SetColumnState(column, 1);
        grid.SetHeaderImage(column, 1);
        EXPECT_EQ(grid.GetColumnCaption(column), QString());
        EXPECT_EQ(grid.GetColumnWidth(column), 0);
        EXPECT_FALSE(grid.IsColumnVisible(column));
        EXPECT_FALSE(grid.IsColumnLocked(column));
        EXPECT_EQ(grid.GetColumnState(column), 0);
    }
}

TEST_F(GridColumns, RowHeightIsTheTextWithTheAddedPixels) {
    Open();
    const int before = grid.View()->rowHeight(0);
    grid.SetRowHeightAdd(4);
    EXPECT_EQ(grid.View()->rowHeight(0), before + 4);
    grid.SetMicrosoftYaheiFont(-24);
    EXPECT_GT(grid.View()->rowHeight(0), before + 4 + 8);
    EXPECT_EQ(grid.View()->font().pixelSize(), 24);
}

TEST_F(GridColumns, ThirtyRowsFitTheConsoleWithoutScrolling) {
    grid.AddColumns();
    window = std::make_unique<SampleWindow>(grid, QSize(1060, 737 + 28));
    grid.SetMicrosoftYaheiFont(-12);
    grid.SetRowHeightAdd(4);
    grid.Fill(30);
    QCoreApplication::processEvents();
    EXPECT_EQ(grid.View()->verticalScrollBar()->maximum(), 0);
}

TEST_F(GridColumns, ElidedTextShowsWholeAsTooltipAndStandsAsItIs) {
    Open();
    QWidget* viewport = grid.View()->viewport();
    EXPECT_EQ(TipAt(viewport, grid.CellCenter(0, SampleGrid::kNumber)), QString());
    const QString name = u"<b>x</b>"_s + QString(60, u'长') + u".jpg"_s;
    grid.GetRow(0)->SetText(SampleGrid::kName, name);
    const QString tip = TipAt(viewport, grid.CellCenter(0, SampleGrid::kName));
    EXPECT_FALSE(tip.contains(u"<b>"_s)) << tip.toStdString();
    EXPECT_TRUE(tip.contains(name.toHtmlEscaped())) << tip.toStdString();
}

TEST_F(GridColumns, IconsAndHeadersHaveTheirTips) {
    Open();
    EXPECT_EQ(TipAt(grid.View()->viewport(), grid.CellCenter(0, SampleGrid::kEdit)),
              u"编辑照片信息"_s);
    grid.SetColumnTip(SampleGrid::kCheck, u"全选"_s);
    EXPECT_EQ(TipAt(Header()->viewport(), QPoint(10, 10)), u"全选"_s);
}

TEST_F(GridColumns, AssistiveProgramsReadCellsAndHeaders) {
    Open();
    const QAbstractItemModel& model = *grid.View()->model();
    EXPECT_EQ(model.index(0, SampleGrid::kMark).data().toString(), u"裂缝"_s);
    EXPECT_EQ(model.index(0, SampleGrid::kEdit).data(Qt::AccessibleTextRole).toString(),
              u"编辑照片信息"_s);
    EXPECT_EQ(model.index(0, SampleGrid::kCheck).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_EQ(model.headerData(SampleGrid::kName, Qt::Horizontal).toString(), u"照片名称"_s);
    EXPECT_FALSE(grid.View()->accessibleName().isEmpty());
}

TEST_F(GridColumns, UnlessToldOnlyLeftAlignedFreeColumnsTakeOneShare) {
    grid.AddColumns();
    EXPECT_EQ(grid.GetColumnStretch(SampleGrid::kName), 1);
    EXPECT_EQ(grid.GetColumnStretch(SampleGrid::kNumber), 0);
    EXPECT_EQ(grid.GetColumnStretch(SampleGrid::kEdit), 0);
    grid.SetColumnStretch(SampleGrid::kName, 7);
    EXPECT_EQ(grid.GetColumnStretch(SampleGrid::kName), 7);
    grid.SetColumnStretch(SampleGrid::kName, -3);
    EXPECT_EQ(grid.GetColumnStretch(SampleGrid::kName), 0);
}

TEST_F(GridColumns, ACaptionThatDoesNotFitIsItsOwnTip) {
    Open();
    const auto tip = [this] {
        const int left = Header()->sectionViewportPosition(SampleGrid::kName);
        return TipAt(Header()->viewport(), QPoint(left + 5, 10));
    };
    EXPECT_EQ(tip(), QString());
    Header()->resizeSection(SampleGrid::kName, 30);
    EXPECT_EQ(tip(), u"照片名称"_s);
}

TEST_F(GridColumns, ATextThatItsSwatchLeavesNoRoomForHasATip) {
    Open();
    const int width = Shown(SampleGrid::kMark);
    const QFontMetrics metrics = grid.View()->fontMetrics();
    QString text;
    // As long as fits a cell without a swatch.
    while (metrics.horizontalAdvance(text + u'国') <= width - 12) {
        text += u'国';
    }
    grid.GetRow(0)->SetText(SampleGrid::kName, text);
    Header()->resizeSection(SampleGrid::kName, width);
    EXPECT_EQ(TipAt(grid.View()->viewport(), grid.CellCenter(0, SampleGrid::kName)), QString());
    grid.GetRow(0)->PutItem(SampleGrid::kMark, std::make_unique<CColorTxtItem>(0, text));
    EXPECT_EQ(TipAt(grid.View()->viewport(), grid.CellCenter(0, SampleGrid::kMark)), text);
}

TEST_F(GridColumns, AHeaderHasItsOwnAlignment) {
    Open();
    grid.SetHeaderAlign(SampleGrid::kName, Qt::AlignRight);
    grid.SetColumnAlign(SampleGrid::kName, Qt::AlignHCenter);
    EXPECT_EQ(grid.GetHeaderAlign(SampleGrid::kName), Qt::AlignRight);
    EXPECT_EQ(grid.GetColumnAlign(SampleGrid::kName), Qt::AlignHCenter);
    for (const int none : {-1, grid.GetColumnCount()}) {
        EXPECT_EQ(grid.GetHeaderAlign(none), Qt::Alignment());
        EXPECT_EQ(grid.GetColumnAlign(none), Qt::Alignment());
    }
}

} // namespace
