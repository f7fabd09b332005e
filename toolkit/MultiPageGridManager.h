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

    /// The grid stays the caller's and outlives the manager, or is set to null before.
    void SetGrid(CMultiPageGrid* grid);
    /// Makes the bar and the grid's view as children of `parent`.
    void Create(QWidget* parent);
    /// The bar; null without a window.
    [[nodiscard]] QWidget* Widget() const;

    [[nodiscard]] QRect GetRect() const;
    void SetRect(const QRect& rect);
    /// Moves the grid's view.
    void MoveGrid(const QRect& rect);

    void DoFirstPage();
    void DoPage(int page);
    void SetPageCount(int count);
    [[nodiscard]] int GetPageCount() const { return m_pageCount; }
    /// Shows the grid's page number in the bar.
    void UpdateBar();

private:
    CMultiPageGrid* m_grid = nullptr;
    QPointer<toolkit::PagingBar> m_bar;
    int m_pageCount = 0;
};
