// The columns of the grid.
#include "toolkit/grid/GridColumn.h"
#include "toolkit/grid/GridView.h"
#include "toolkit/grid/MultiPageGrid.h"

CMultiPageGrid::Column* CMultiPageGrid::ColumnAt(int column) const {
    if (column < 0 || column >= GetColumnCount()) {
        return nullptr;
    }
    return m_columns[size_t(column)].get();
}

void CMultiPageGrid::ColumnChanged() {
    if (m_view != nullptr) {
        m_view->ScheduleRelayout();
    }
}

void CMultiPageGrid::InsertColumn(int index, const QString& caption, int width) {
    if (index < 0 || index > GetColumnCount()) {
        return;
    }
    auto column = std::make_unique<Column>();
    column->caption = caption;
    column->width = std::max(width, 0);
    if (m_view != nullptr) {
        m_view->Rows().beginInsertColumns({}, index, index);
    }
    m_columns.insert(m_columns.begin() + index, std::move(column));
    if (m_view != nullptr) {
        m_view->Rows().endInsertColumns();
    }
    ColumnChanged();
}

void CMultiPageGrid::DeleteAllColumns() {
    if (m_columns.empty()) {
        return;
    }
    if (m_view != nullptr) {
        m_view->Rows().beginRemoveColumns({}, 0, GetColumnCount() - 1);
    }
    m_columns.clear();
    if (m_view != nullptr) {
        m_view->Rows().endRemoveColumns();
    }
    ColumnChanged();
}

int CMultiPageGrid::GetColumnCount() const {
    return int(m_columns.size());
}

QString CMultiPageGrid::GetColumnCaption(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? QString() : found->caption;
}

int CMultiPageGrid::GetColumnWidth(int column) const {
    const Column* found = ColumnAt(column);
    if (found == nullptr) {
        return 0;
    }
    return found->userWidth >= 0 ? found->userWidth : found->width;
}

void CMultiPageGrid::SetHeaderAlign(int column, Qt::Alignment alignment) {
    if (Column* found = ColumnAt(column)) {
        found->headerAlign = alignment;
        ColumnChanged();
    }
}

Qt::Alignment CMultiPageGrid::GetHeaderAlign(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? Qt::Alignment() : found->headerAlign;
}

void CMultiPageGrid::SetColumnAlign(int column, Qt::Alignment alignment) {
    if (Column* found = ColumnAt(column)) {
        found->align = alignment;
        ColumnChanged();
    }
}

Qt::Alignment CMultiPageGrid::GetColumnAlign(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? Qt::Alignment() : found->align;
}

void CMultiPageGrid::SetColumnLocked(int column, bool locked) {
    if (Column* found = ColumnAt(column)) {
        found->locked = locked;
        ColumnChanged();
    }
}

bool CMultiPageGrid::IsColumnLocked(int column) const {
    const Column* found = ColumnAt(column);
    return found != nullptr && found->locked;
}

void CMultiPageGrid::SetColumnVisible(int column, bool visible) {
    if (Column* found = ColumnAt(column)) {
        found->visible = visible;
        ColumnChanged();
    }
}

bool CMultiPageGrid::IsColumnVisible(int column) const {
    const Column* found = ColumnAt(column);
    return found != nullptr && found->visible;
}

void CMultiPageGrid::SetColumnTip(int column, const QString& tip) {
    if (Column* found = ColumnAt(column)) {
        found->tip = tip;
    }
}

QString CMultiPageGrid::GetColumnTip(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? QString() : found->tip;
}

void CMultiPageGrid::SetColumnStretch(int column, int share) {
    if (Column* found = ColumnAt(column)) {
        found->stretch = std::max(share, 0);
        ColumnChanged();
    }
}

int CMultiPageGrid::GetColumnStretch(int column) const {
    const Column* found = ColumnAt(column);
    if (found == nullptr) {
        return 0;
    }
    if (found->stretch >= 0) {
        return found->stretch;
    }
    return found->align.testFlag(Qt::AlignLeft) && !found->locked ? 1 : 0;
}

void CMultiPageGrid::SetHeaderImageList(const toolkit::ImageList& images) {
    m_headerImages = images;
    ColumnChanged();
}

void CMultiPageGrid::SetHeaderImage(int column, int image) {
    if (Column* found = ColumnAt(column)) {
        found->headerImage = image;
        if (m_view != nullptr) {
            m_view->UpdateHeader(column);
        }
    }
}

int CMultiPageGrid::GetHeaderImage(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? -1 : found->headerImage;
}

void CMultiPageGrid::SetColumnState(int column, int state) {
    if (Column* found = ColumnAt(column)) {
        found->state = state;
    }
}

int CMultiPageGrid::GetColumnState(int column) const {
    const Column* found = ColumnAt(column);
    return found == nullptr ? 0 : found->state;
}
