#include "toolkit/grid/MultiPageGrid.h"

#include "toolkit/grid/GridColumn.h"
#include "toolkit/grid/GridView.h"
#include "toolkit/grid/MultiPageGridManager.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

#include <algorithm>

CMultiPageGrid::CMultiPageGrid() = default;

CMultiPageGrid::~CMultiPageGrid() {
    if (m_manager != nullptr) {
        m_manager->ForgetGrid(this);
    }
    if (m_view != nullptr) {
        m_view->Retire();
    }
}

bool CMultiPageGrid::HasWindow() const {
    return m_view != nullptr;
}

QWidget* CMultiPageGrid::Widget() const {
    return m_view;
}

toolkit::WindowId CMultiPageGrid::ParentId() const {
    return m_view == nullptr ? toolkit::kNoWindow : toolkit::WindowOf(m_view);
}

void CMultiPageGrid::CreateView(QWidget* parent) {
    if (m_view != nullptr) {
        m_view->Retire();
    }
    m_view = new toolkit::GridView(*this, parent);
    m_view->show();
    OnInitialize();
}

void CMultiPageGrid::AdjustLayout() {
    if (m_view != nullptr) {
        m_view->Relayout();
    }
}

void CMultiPageGrid::SetFocus() {
    if (m_view != nullptr) {
        m_view->setFocus(Qt::OtherFocusReason);
    }
}

void CMultiPageGrid::SetMicrosoftYaheiFont(int height) {
    m_fontHeight = height == 0 ? 12 : std::abs(height);
    if (m_view != nullptr) {
        m_view->ApplyMetrics();
    }
}

void CMultiPageGrid::SetRowHeightAdd(int pixels) {
    m_rowHeightAdd = std::max(pixels, 0);
    if (m_view != nullptr) {
        m_view->ApplyMetrics();
    }
}

void CMultiPageGrid::SetEmptyText(const QString& text) {
    m_emptyText = text;
    if (m_view != nullptr) {
        m_view->viewport()->update();
    }
}

std::unique_ptr<CGridRow> CMultiPageGrid::CreateRow(int cells) const {
    return std::make_unique<CGridRow>(cells);
}

CGridRow* CMultiPageGrid::AddRow(std::unique_ptr<CGridRow> row) {
    if (row == nullptr) {
        return nullptr;
    }
    const int index = GetRowCount();
    CGridRow* added = row.get();
    added->m_grid = this;
    added->m_index = index;
    if (m_view != nullptr) {
        m_view->Rows().beginInsertRows({}, index, index);
    }
    m_rows.push_back(std::move(row));
    if (m_view != nullptr) {
        m_view->Rows().endInsertRows();
    }
    return added;
}

void CMultiPageGrid::RemoveAll() {
    m_curSel = -1;
    if (m_rows.empty()) {
        return;
    }
    if (m_view != nullptr) {
        m_view->Rows().beginRemoveRows({}, 0, GetRowCount() - 1);
    }
    m_rows.clear();
    if (m_view != nullptr) {
        m_view->Rows().endRemoveRows();
        m_view->OnRowsGone();
    }
}

CGridRow* CMultiPageGrid::GetRow(int index) const {
    if (index < 0 || index >= GetRowCount()) {
        return nullptr;
    }
    return m_rows[size_t(index)].get();
}

CGridRow* CMultiPageGrid::GetCurSel() const {
    return GetRow(m_curSel);
}

void CMultiPageGrid::SetCurSel(int index) {
    if (index != -1 && GetRow(index) == nullptr) {
        return;
    }
    m_curSel = index;
    if (m_view != nullptr) {
        m_view->ShowSelection();
    }
}

void CMultiPageGrid::SortRows() {
    const CGridRow* selected = GetCurSel();
    std::stable_sort(m_rows.begin(), m_rows.end(), [this](const auto& first, const auto& second) {
        return CompareRows(*second, *first);
    });
    for (int index = 0; index < GetRowCount(); ++index) {
        m_rows[size_t(index)]->m_index = index;
    }
    if (selected != nullptr) {
        SetCurSel(selected->GetRowId());
    }
    if (m_view != nullptr) {
        m_view->viewport()->update();
    }
}

void CMultiPageGrid::DoPage(int page) {
    const toolkit::StillThere still(m_alive);
    const int wanted = std::max(page, 1);
    const bool samePage = wanted == m_currentPage;
    const int scroll = m_view != nullptr ? m_view->RowScroll() : 0;
    m_currentPage = wanted;
    OnPreparePage();
    if (!still) {
        return;
    }
    OnQueryPage();
    if (!still) {
        return;
    }
    if (m_view != nullptr) {
        m_view->OnPageShown(samePage, scroll);
    }
    if (m_manager != nullptr) {
        m_manager->UpdateBar();
    }
}

void CMultiPageGrid::DoCurrentPage() {
    DoPage(m_currentPage);
}

void CMultiPageGrid::OnHeaderClick(int column) {
    Q_UNUSED(column);
}

bool CMultiPageGrid::CompareRows(const CGridRow& first, const CGridRow& second) const {
    Q_UNUSED(first);
    Q_UNUSED(second);
    return false;
}

void CMultiPageGrid::OnIconCommand(int command, CGridRow& row) {
    Q_UNUSED(command);
    Q_UNUSED(row);
}

void CMultiPageGrid::OnDoubleClick(CGridRow& row, int column) {
    Q_UNUSED(row);
    Q_UNUSED(column);
}

void CMultiPageGrid::FillRowMenu(CGridRow& row, QMenu& menu) {
    Q_UNUSED(row);
    Q_UNUSED(menu);
}

void CMultiPageGrid::ItemChanged(const CGridRow& row) {
    if (m_view != nullptr) {
        m_view->UpdateRow(row.GetRowId());
    }
}
