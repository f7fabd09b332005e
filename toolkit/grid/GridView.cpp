#include "toolkit/grid/GridView.h"

#include "toolkit/Look.h"
#include "toolkit/grid/GridColumn.h"
#include "toolkit/grid/GridColumnLayout.h"
#include "toolkit/grid/GridHeader.h"
#include "toolkit/grid/GridPainter.h"

#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace toolkit {

GridView::GridView(CMultiPageGrid& grid, QWidget* parent)
    : QTableView(parent), m_grid(&grid), m_model(new GridModel(grid, this)),
      m_header(new GridHeader(grid, this)) {
    setObjectName(u"grid"_s);
    setAccessibleName(u"列表"_s);
    setHorizontalHeader(m_header);
    // A new model starts without a current row; the grid's selection outlasts that.
    const int selected = grid.m_curSel;
    setModel(m_model);
    grid.m_curSel = selected;
    ConnectHeader();
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    // Scrolling goes by MoveToRow and MoveToColumn: a click must not move what it hits.
    setAutoScroll(false);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    ApplyMetrics();
    Relayout();
    ShowSelection();
}

GridView::~GridView() {
    if (m_grid != nullptr) {
        m_grid->m_view = nullptr;
    }
}

void GridView::ConnectHeader() {
    // Qt's own answer to a pressed header selects whole columns.
    disconnect(m_header, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(m_header, &QHeaderView::sectionEntered, this, nullptr);
    connect(m_header, &GridHeader::clicked, this, [this](int column) {
        if (m_grid != nullptr) {
            m_grid->OnHeaderClick(column);
        }
    });
    connect(m_header, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { OnSectionResized(column, width); });
}

void GridView::Retire() {
    if (m_grid != nullptr) {
        m_grid->m_view = nullptr;
    }
    m_grid = nullptr;
    m_header->Detach();
    m_model->Detach();
    hide();
    deleteLater();
}

void GridView::ApplyMetrics() {
    if (m_grid == nullptr) {
        return;
    }
    const QFont face = UiFont(m_grid->m_fontHeight);
    setFont(face);
    m_header->setFont(face);
    constexpr int kRowPadding = 5;
    const int height = QFontMetrics(face).height() + m_grid->m_rowHeightAdd + kRowPadding;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    verticalScrollBar()->setSingleStep(height);
    viewport()->update();
}

void GridView::ScheduleRelayout() {
    if (m_relayoutPending) {
        return;
    }
    m_relayoutPending = true;
    QTimer::singleShot(0, this, [this] {
        if (m_relayoutPending) {
            Relayout();
        }
    });
}

void GridView::Relayout() {
    m_relayoutPending = false;
    if (m_grid == nullptr || m_layingOut) {
        return;
    }
    m_layingOut = true;
    std::vector<GridColumnRequest> requests;
    for (int column = 0; column < m_grid->GetColumnCount(); ++column) {
        const CMultiPageGrid::Column& state = *m_grid->m_columns[size_t(column)];
        const int share = state.userWidth >= 0 ? 0 : m_grid->GetColumnStretch(column);
        requests.push_back({m_grid->GetColumnWidth(column), share, state.visible});
    }
    const std::vector<int> widths = LayoutGridColumns(requests, viewport()->width());
    for (int column = 0; column < m_grid->GetColumnCount(); ++column) {
        m_header->setSectionHidden(column, !m_grid->IsColumnVisible(column));
        m_header->setSectionResizeMode(
            column, m_grid->IsColumnLocked(column) ? QHeaderView::Fixed : QHeaderView::Interactive);
        if (m_grid->IsColumnVisible(column)) {
            m_header->resizeSection(column, widths[size_t(column)]);
        }
    }
    m_layingOut = false;
    m_header->viewport()->update();
    viewport()->update();
}

void GridView::OnSectionResized(int column, int width) {
    if (m_layingOut || m_grid == nullptr || width <= 0) {
        return;
    }
    if (CMultiPageGrid::Column* state = m_grid->ColumnAt(column)) {
        state->userWidth = width;
    }
}

int GridView::sizeHintForColumn(int column) const {
    if (m_grid == nullptr) {
        return 0;
    }
    const QFontMetrics metrics = fontMetrics();
    int widest = metrics.horizontalAdvance(m_grid->GetColumnCaption(column));
    for (int row = 0; row < m_grid->GetRowCount(); ++row) {
        const CGridItem* item = m_grid->GetRow(row)->GetItem(column);
        if (item == nullptr) {
            continue;
        }
        const bool swatch = dynamic_cast<const CColorTxtItem*>(item) != nullptr;
        const int text = metrics.horizontalAdvance(GridLineText(item->GetText()));
        widest = std::max(widest, text + (swatch ? GridSwatchWidth() : 0));
    }
    return widest + 2 * kGridCellPadding + 1;
}

void GridView::OnRowsGone() {
    m_pressed = {};
    SetHover({});
    if (m_menu) {
        m_menu->close();
    }
    // Nothing in the table itself changes when the last row goes, but the empty text appears.
    viewport()->update();
}

void GridView::ShowSelection() {
    if (m_grid == nullptr) {
        return;
    }
    if (m_grid->m_curSel < 0) {
        setCurrentIndex({});
        viewport()->update();
        return;
    }
    const int column = std::max(CurrentCell().column, m_header->logicalIndexAt(0));
    SetCurrent({m_grid->m_curSel, std::max(column, 0)});
    scrollTo(currentIndex());
}

void GridView::UpdateRow(int row) {
    if (row >= 0) {
        viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    }
}

void GridView::UpdateHeader(int column) {
    const int left = m_header->sectionViewportPosition(column);
    m_header->viewport()->update(left, 0, m_header->sectionSize(column), m_header->height());
}

int GridView::RowScroll() const {
    return verticalScrollBar()->value();
}

void GridView::OnPageShown(bool samePage, int scroll) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(samePage ? scroll : 0);
    if (!samePage && m_grid->m_curSel < 0) {
        m_lastRow = 0;
    }
}

void GridView::paintEvent(QPaintEvent* event) {
    executeDelayedItemsLayout();
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().brush(QPalette::Base));
    if (m_grid == nullptr) {
        return;
    }
    std::vector<GridColumnPlace> columns;
    for (int column = 0; column < m_grid->GetColumnCount(); ++column) {
        const int left = columnViewportPosition(column);
        if (!isColumnHidden(column) && left < viewport()->width()) {
            columns.push_back({column, left, columnWidth(column), m_grid->GetColumnAlign(column)});
        }
    }
    const GridPaintState state{m_hover, m_pressed, hasFocus() ? CurrentCell() : GridCell{},
                               m_grid->m_curSel};
    GridPainter rows(painter, *this, m_texts, std::move(columns), state);
    if (m_grid->GetRowCount() == 0) {
        rows.PaintEmptyText(viewport()->rect(), m_grid->m_emptyText);
    }
    const int first = std::max(rowAt(std::max(event->rect().top(), 0)), 0);
    for (int row = first; row < m_grid->GetRowCount(); ++row) {
        const QRect area(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
        if (area.top() > event->rect().bottom()) {
            break;
        }
        rows.PaintRow(*m_grid->GetRow(row), area);
    }
    if (hasFocus() && !currentIndex().isValid()) {
        rows.PaintFocusFrame(viewport()->rect());
    }
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    Relayout();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) {
        viewport()->update();
    }
}

void GridView::scrollContentsBy(int dx, int dy) {
    SetHover({});
    QTableView::scrollContentsBy(dx, dy);
}

} // namespace toolkit
