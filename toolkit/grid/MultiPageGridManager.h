// The paging bar below a grid, and the way from page to page.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QPointer>
#include <QRect>
#include <QWidget>

class CMultiPageGrid;

namespace toolkit {
class PagingBar;
}

/// First, previous, page box, next, last, page count. Drives a grid; the bar follows the grid's
/// page. The object stays when its bar is gone. Thread: user interface.
class TOOLKIT_EXPORT CMultiPageGridManager {
public:
    CMultiPageGridManager();
    ~CMultiPageGridManager();
    CMultiPageGridManager(const CMultiPageGridManager&) = delete;
    CMultiPageGridManager& operator=(const CMultiPageGridManager&) = delete;

    /// The grid stays the caller's; grid and manager may die in any order.
    void SetGrid(CMultiPageGrid* grid);
    /// Makes the grid's view and the bar as children of `parent`.
    void Create(QWidget* parent);
    /// The bar; null without a window.
    [[nodiscard]] QWidget* Widget() const;

    /// Place of the bar in its parent; empty without a window.
    [[nodiscard]] QRect GetRect() const;
    void SetRect(const QRect& rect);
    /// Moves the grid's view.
    void MoveGrid(const QRect& rect);

    void DoFirstPage();
    /// Goes to a page; numbers outside 1 to the page count mean the nearest page.
    void DoPage(int page);
    void SetPageCount(int count);
    [[nodiscard]] int GetPageCount() const { return m_pageCount; }
    /// The grid's page; 1 without a grid.
    [[nodiscard]] int GetCurrentPage() const;
    /// Shows the grid's page number in the bar.
    void UpdateBar();

private:
    friend class CMultiPageGrid;
    void ForgetGrid(const CMultiPageGrid* grid);

    CMultiPageGrid* m_grid = nullptr;
    QPointer<toolkit::PagingBar> m_bar;
    int m_pageCount = 0;
};
