// What the pointer and the keyboard do in a grid.
#include "toolkit/grid/GridView.h"

#include "toolkit/Look.h"
#include "toolkit/grid/GridPainter.h"
#include "toolkit/grid/MultiPageGrid.h"
#include "toolkit/windows/StillThere.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace toolkit {

GridCell GridView::CellAt(const QPoint& position) const {
    const GridCell cell{rowAt(position.y()), columnAt(position.x())};
    return cell.row < 0 || cell.column < 0 ? GridCell{} : cell;
}

CGridItem* GridView::ItemAt(const GridCell& cell) const {
    const CGridRow* row = m_grid == nullptr ? nullptr : m_grid->GetRow(cell.row);
    return row == nullptr ? nullptr : row->GetItem(cell.column);
}

bool GridView::IsButton(const GridCell& cell) const {
    const CGridItem* item = ItemAt(cell);
    return dynamic_cast<const CIconGridItem*>(item) != nullptr ||
           dynamic_cast<const CCheckBoxItem*>(item) != nullptr;
}

GridCell GridView::CurrentCell() const {
    const QModelIndex current = currentIndex();
    return current.isValid() ? GridCell{current.row(), current.column()} : GridCell{};
}

void GridView::SetCurrent(const GridCell& cell) {
    setCurrentIndex(m_model->index(cell.row, cell.column));
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    UpdateRow(previous.row());
    UpdateRow(current.row());
    if (m_grid != nullptr) {
        m_grid->m_curSel = current.row();
    }
    if (current.isValid()) {
        m_lastRow = current.row();
    }
}

void GridView::UpdateCell(const GridCell& cell) {
    if (cell.row >= 0) {
        update(m_model->index(cell.row, cell.column));
    }
}

void GridView::SetHover(const GridCell& cell) {
    if (cell == m_hover) {
        return;
    }
    UpdateCell(m_hover);
    m_hover = cell;
    UpdateCell(m_hover);
    if (cell.row >= 0) {
        viewport()->setCursor(Qt::PointingHandCursor);
    } else {
        viewport()->unsetCursor();
    }
}

void GridView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_pressed = CellAt(event->position().toPoint());
    if (m_pressed.row < 0) {
        return;
    }
    SetCurrent(m_pressed);
    UpdateCell(m_pressed);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    const GridCell cell = CellAt(event->position().toPoint());
    const CGridItem* item = ItemAt(cell);
    const bool active = IsButton(cell) && item->IsEnabled();
    // With the button held, only the cell where it went down answers.
    const bool mine = event->buttons() == Qt::NoButton || cell == m_pressed;
    SetHover(active && mine ? cell : GridCell{});
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const GridCell pressed = m_pressed;
    m_pressed = {};
    UpdateCell(pressed);
    if (pressed.row >= 0 && CellAt(event->position().toPoint()) == pressed) {
        Activate(pressed);
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    m_pressed = {};
    if (event->button() != Qt::LeftButton || m_grid == nullptr) {
        return;
    }
    const GridCell cell = CellAt(event->position().toPoint());
    const CGridItem* item = ItemAt(cell);
    // An icon's command has run at the first click.
    if (dynamic_cast<const CIconGridItem*>(item) != nullptr && item->IsEnabled()) {
        return;
    }
    // Beside and below the rows it is the selected row's.
    if (cell.row >= 0) {
        SetCurrent(cell);
    }
    DoubleClick({m_grid->m_curSel, cell.column});
}

void GridView::Activate(const GridCell& cell) {
    CGridItem* item = ItemAt(cell);
    if (item == nullptr || !item->IsEnabled()) {
        return;
    }
    if (dynamic_cast<CCheckBoxItem*>(item) != nullptr) {
        item->SetValue(!item->GetValue().toBool());
    } else if (const auto* icon = dynamic_cast<const CIconGridItem*>(item)) {
        m_grid->OnIconCommand(icon->Command(), *m_grid->GetRow(cell.row));
    }
}

void GridView::ToggleCheckBox(int row) {
    const CGridRow* found = m_grid->GetRow(row);
    if (found == nullptr) {
        return;
    }
    for (int column = 0; column < found->GetItemCount(); ++column) {
        auto* box = dynamic_cast<CCheckBoxItem*>(found->GetItem(column));
        if (box == nullptr || !box->IsEnabled() || !m_grid->IsColumnVisible(column)) {
            continue;
        }
        box->SetValue(!box->GetValue().toBool());
        return;
    }
}

void GridView::DoubleClick(const GridCell& cell) {
    if (CGridRow* row = m_grid->GetRow(cell.row)) {
        m_grid->OnDoubleClick(*row, cell.column);
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (m_grid == nullptr || MoveByKey(event)) {
        return;
    }
    const GridCell current = CurrentCell();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Taken also without a row: the dialog's default button isn't meant while the keyboard is
        // in the list. A key that is held acts once.
        event->accept();
        if (!event->isAutoRepeat()) {
            DoubleClick(current);
        }
        return;
    case Qt::Key_Space:
        event->accept();
        if (!event->isAutoRepeat()) {
            ToggleCheckBox(current.row);
        }
        return;
    case Qt::Key_Menu:
        event->accept();
        if (current.row >= 0) {
            ShowRowMenu(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
        }
        return;
    default:
        event->ignore();
    }
}

bool GridView::MoveByKey(QKeyEvent* event) {
    if (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) {
        return false;
    }
    const int page = std::max(viewport()->height() / std::max(rowHeight(0), 1) - 1, 1);
    event->accept();
    switch (event->key()) {
    case Qt::Key_Up:
        StepRow(-1);
        return true;
    case Qt::Key_Down:
        StepRow(1);
        return true;
    case Qt::Key_PageUp:
        StepRow(-page);
        return true;
    case Qt::Key_PageDown:
        StepRow(page);
        return true;
    case Qt::Key_Home:
        MoveToRow(0);
        return true;
    case Qt::Key_End:
        MoveToRow(m_grid->GetRowCount() - 1);
        return true;
    case Qt::Key_Left:
        MoveToColumn(-1);
        return true;
    case Qt::Key_Right:
        MoveToColumn(1);
        return true;
    default:
        event->ignore();
        return false;
    }
}

void GridView::StepRow(int step) {
    const int row = CurrentCell().row;
    // Without a current row the first key goes to where the keyboard was before.
    MoveToRow(row < 0 ? m_lastRow : row + step);
}

void GridView::MoveToRow(int row) {
    const GridCell current = CurrentCell();
    if (m_grid->GetRowCount() == 0) {
        return;
    }
    const int column = current.column < 0 ? std::max(columnAt(0), 0) : current.column;
    const int horizontal = horizontalScrollBar()->value();
    SetCurrent({std::clamp(row, 0, m_grid->GetRowCount() - 1), column});
    scrollTo(currentIndex());
    horizontalScrollBar()->setValue(horizontal);
}

void GridView::MoveToColumn(int step) {
    const GridCell current = CurrentCell();
    if (current.row < 0) {
        MoveToRow(m_lastRow);
        return;
    }
    for (int column = current.column + step; column >= 0 && column < m_grid->GetColumnCount();
         column += step) {
        if (isColumnHidden(column)) {
            continue;
        }
        SetCurrent({current.row, column});
        scrollTo(currentIndex());
        return;
    }
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (m_grid == nullptr) {
        return;
    }
    if (event->reason() == QContextMenuEvent::Keyboard) {
        if (currentIndex().isValid()) {
            ShowRowMenu(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
        }
        return;
    }
    const GridCell cell = CellAt(event->pos());
    if (cell.row < 0) {
        return;
    }
    SetCurrent(cell);
    ShowRowMenu(event->globalPos());
}

void GridView::ShowRowMenu(const QPoint& globalPosition) {
    // The menu key may come twice, as a key and as the platform's event.
    if (m_menu && m_menu->isVisible()) {
        return;
    }
    CGridRow* row = m_grid->GetRow(CurrentCell().row);
    if (row == nullptr) {
        return;
    }
    auto* menu = new QMenu(this);
    const StillThere still(menu);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_menu = menu;
    m_grid->FillRowMenu(*row, *menu);
    if (!still) {
        return;
    }
    if (menu->isEmpty()) {
        menu->deleteLater();
    } else {
        menu->popup(globalPosition);
    }
}

void GridView::focusInEvent(QFocusEvent* event) {
    // Not the base: it would make the first row the current one by itself.
    QFrame::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

bool GridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowCellTip(help->pos(), help->globalPos());
        return true;
    }
    if (event->type() == QEvent::Leave) {
        SetHover({});
    }
    return QTableView::viewportEvent(event);
}

void GridView::ShowCellTip(const QPoint& position, const QPoint& globalPosition) {
    const GridCell cell = CellAt(position);
    const CGridItem* item = ItemAt(cell);
    QString text;
    if (const auto* icon = dynamic_cast<const CIconGridItem*>(item)) {
        text = icon->Tip();
    } else if (item != nullptr) {
        const bool swatch = dynamic_cast<const CColorTxtItem*>(item) != nullptr;
        const QString shown = GridLineText(item->GetText());
        const int room =
            columnWidth(cell.column) - 1 - 2 * kGridCellPadding - (swatch ? GridSwatchWidth() : 0);
        if (fontMetrics().horizontalAdvance(shown) > room) {
            text = item->GetText();
        }
    }
    if (text.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(globalPosition, PlainTip(text), viewport(),
                           visualRect(m_model->index(cell.row, cell.column)));
    }
}

} // namespace toolkit
