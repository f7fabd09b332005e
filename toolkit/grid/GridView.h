// The window of a grid: rows of one page, painted in one pass.
#pragma once

#include "toolkit/grid/GridModel.h"
#include "toolkit/grid/GridTextCache.h"

#include <QPointer>
#include <QTableView>

class CGridItem;
class CGridRow;
class CMultiPageGrid;
class QMenu;

namespace toolkit {

class GridHeader;

/// Place of a cell; -1 and -1: none.
struct GridCell {
    int row = -1;
    int column = -1;
    bool operator==(const GridCell&) const = default;
};

/// Shows a grid object and turns clicks and keys into its calls. Knows nothing of what rows mean.
/// User interface thread; owned by its parent widget. Whatever the grid is told may end the grid
/// and this view, so every call out is the last thing that a handler does.
class GridView final : public QTableView {
    Q_OBJECT
public:
    GridView(CMultiPageGrid& grid, QWidget* parent);
    ~GridView() override;

    /// The grid is about to end or gets another view: this one hides and dies.
    void Retire();
    [[nodiscard]] GridModel& Rows() { return *m_model; }
    /// Font and row height from the grid.
    void ApplyMetrics();
    /// Widths, visibility and locks of all columns, at once.
    void Relayout();
    /// The same once the events in progress are done.
    void ScheduleRelayout();
    void OnRowsGone();
    void ShowSelection();
    void UpdateRow(int row);
    void UpdateHeader(int column);
    [[nodiscard]] int RowScroll() const;
    /// Rows of a page are all there; another page than before starts at its top.
    void OnPageShown(bool samePage, int scroll);
    /// Width that shows every text of the column whole.
    [[nodiscard]] int sizeHintForColumn(int column) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    [[nodiscard]] GridCell CellAt(const QPoint& position) const;
    [[nodiscard]] CGridItem* ItemAt(const GridCell& cell) const;
    [[nodiscard]] bool IsButton(const GridCell& cell) const;
    [[nodiscard]] GridCell CurrentCell() const;
    void SetCurrent(const GridCell& cell);
    void SetHover(const GridCell& cell);
    void UpdateCell(const GridCell& cell);
    void ConnectHeader();
    void OnSectionResized(int column, int width);

    void Activate(const GridCell& cell);
    void ToggleCheckBox(int row);
    void DoubleClick(const GridCell& cell);
    void ShowRowMenu(const QPoint& globalPosition);
    void ShowCellTip(const QPoint& position, const QPoint& globalPosition);

    bool MoveByKey(QKeyEvent* event);
    void StepRow(int step);
    void MoveToRow(int row);
    void MoveToColumn(int step);

    CMultiPageGrid* m_grid;
    GridModel* m_model;
    GridHeader* m_header;
    GridTextCache m_texts;
    QPointer<QMenu> m_menu;
    GridCell m_hover;
    GridCell m_pressed;
    int m_lastRow = 0; ///< where the keyboard goes on after the rows were replaced
    bool m_relayoutPending = false;
    bool m_layingOut = false;
};

} // namespace toolkit
