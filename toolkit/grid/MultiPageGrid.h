// A grid that shows one page of a longer list.
#pragma once

#include "toolkit/ImageList.h"
#include "toolkit/ToolkitExport.h"
#include "toolkit/grid/GridRow.h"
#include "toolkit/windows/WindowId.h"

#include <QString>
#include <QWidget>

#include <map>
#include <memory>
#include <vector>

class CMultiPageGridManager;
class QAction;
class QMenu;

namespace toolkit {
class GridView;
}

/// Columns, rows and paging state. The object holds all of it without a window; its view is made by
/// CMultiPageGridManager::Create and follows the object. Destroyed views leave the object whole.
///
/// Selection is one whole row; cells aren't edited. Space turns the check box of the current row,
/// Enter does what a double click does, the menu key opens the row's menu.
/// Thread: user interface.
class TOOLKIT_EXPORT CMultiPageGrid {
public:
    CMultiPageGrid();
    virtual ~CMultiPageGrid();
    CMultiPageGrid(const CMultiPageGrid&) = delete;
    CMultiPageGrid& operator=(const CMultiPageGrid&) = delete;

    // Window.
    [[nodiscard]] bool HasWindow() const;
    /// Null without a window.
    [[nodiscard]] QWidget* Widget() const;
    /// The registered window that the view lies in; kNoWindow without one.
    [[nodiscard]] toolkit::WindowId ParentId() const;
    /// Makes the view, in place of one that there is; then OnInitialize. Called by the manager.
    void CreateView(QWidget* parent);
    /// Repaints and re-measures after changes of rows, columns or items.
    void AdjustLayout();
    void SetFocus();
    /// Face "微软雅黑"; a negative height is a height in pixels.
    void SetMicrosoftYaheiFont(int height);
    /// Pixels added to the height of each row.
    void SetRowHeightAdd(int pixels);
    /// Text shown in place of rows while there are none.
    void SetEmptyText(const QString& text);
    [[nodiscard]] const QString& GetEmptyText() const { return m_emptyText; }

    // Columns. Indexes out of range change nothing and read as empty, 0 or false.
    void InsertColumn(int index, const QString& caption, int width);
    void DeleteAllColumns();
    [[nodiscard]] int GetColumnCount() const;
    [[nodiscard]] QString GetColumnCaption(int column) const;
    /// Device-independent pixels, also while hidden: what was told, or what the user made of it.
    /// The view may show a column wider where there is room.
    [[nodiscard]] int GetColumnWidth(int column) const;
    void SetHeaderAlign(int column, Qt::Alignment alignment);
    [[nodiscard]] Qt::Alignment GetHeaderAlign(int column) const;
    void SetColumnAlign(int column, Qt::Alignment alignment);
    [[nodiscard]] Qt::Alignment GetColumnAlign(int column) const;
    /// Locked: the user can't change the width.
    void SetColumnLocked(int column, bool locked);
    [[nodiscard]] bool IsColumnLocked(int column) const;
    void SetColumnVisible(int column, bool visible);
    [[nodiscard]] bool IsColumnVisible(int column) const;
    void SetColumnTip(int column, const QString& tip);
    [[nodiscard]] QString GetColumnTip(int column) const;
    /// Share of the room that the columns leave free, beside the other columns' shares; 0: none.
    /// Unless set: 1 for left-aligned columns that aren't locked, 0 for all others.
    void SetColumnStretch(int column, int share);
    [[nodiscard]] int GetColumnStretch(int column) const;
    void SetHeaderImageList(const toolkit::ImageList& images);
    [[nodiscard]] const toolkit::ImageList& GetHeaderImageList() const { return m_headerImages; }
    /// Image in a column's header, -1 for none.
    void SetHeaderImage(int column, int image);
    [[nodiscard]] int GetHeaderImage(int column) const;
    /// 1 after an ascending sort of this column, -1 after a descending one, 0 for all others.
    void SetColumnState(int column, int state);
    [[nodiscard]] int GetColumnState(int column) const;

    // Rows.
    [[nodiscard]] std::unique_ptr<CGridRow> CreateRow(int cells) const;
    CGridRow* AddRow(std::unique_ptr<CGridRow> row);
    void RemoveAll();
    [[nodiscard]] int GetRowCount() const { return int(m_rows.size()); }
    /// Null out of range.
    [[nodiscard]] CGridRow* GetRow(int index) const;
    /// Null if nothing is selected.
    [[nodiscard]] CGridRow* GetCurSel() const;
    /// -1: nothing; a row that isn't there changes nothing.
    void SetCurSel(int index);
    /// Orders the rows by CompareRows; equal ones keep their order. The selection goes with its
    /// row.
    void SortRows();

    // Paging.
    [[nodiscard]] int GetCurrentPage() const { return m_currentPage; }
    void SetManager(CMultiPageGridManager* manager) { m_manager = manager; }
    [[nodiscard]] CMultiPageGridManager* GetManager() const { return m_manager; }
    /// Prepares and fetches a page; numbers below 1 mean 1. The same page again keeps the scroll
    /// position. The grid may end in what it calls.
    void DoPage(int page);
    void DoCurrentPage();

    /// Column index to sortable flag; columns that aren't in it count as not sortable.
    std::map<int, bool> sortable;

protected:
    virtual void OnInitialize() {}
    virtual void OnHeaderClick(int column);
    /// True if `first` comes behind `second`.
    [[nodiscard]] virtual bool CompareRows(const CGridRow& first, const CGridRow& second) const;
    /// The page number was set; comes before OnQueryPage.
    virtual void OnPreparePage() {}
    virtual void OnQueryPage() {}
    /// An icon of the row was clicked; the row is selected by then.
    virtual void OnIconCommand(int command, CGridRow& row);
    /// A double click anywhere but on an icon that has just acted: the selected row's, with the
    /// column -1 where there is no cell.
    virtual void OnDoubleClick(CGridRow& row, int column);
    /// Fills the row's context menu; nothing filled: no menu.
    virtual void FillRowMenu(CGridRow& row, QMenu& menu);

private:
    friend class toolkit::GridView;
    friend class CGridItem;
    struct Column;

    void ItemChanged(const CGridRow& row);
    [[nodiscard]] Column* ColumnAt(int column) const;
    void ColumnChanged();

    std::vector<std::unique_ptr<Column>> m_columns;
    std::vector<std::unique_ptr<CGridRow>> m_rows;
    toolkit::ImageList m_headerImages;
    CMultiPageGridManager* m_manager = nullptr;
    toolkit::GridView* m_view = nullptr; ///< owned by its parent widget
    QString m_emptyText;
    int m_currentPage = 1;
    int m_fontHeight = 12;
    int m_rowHeightAdd = 0;
    int m_curSel = -1;
    /// Expires with the grid: tells who called out of it whether it is still there.
    std::shared_ptr<void> m_alive = std::make_shared<int>();
};
