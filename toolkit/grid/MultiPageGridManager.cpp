#include "toolkit/grid/MultiPageGridManager.h"

#include "toolkit/grid/MultiPageGrid.h"
#include "toolkit/grid/PagingBar.h"

#include <algorithm>

CMultiPageGridManager::CMultiPageGridManager() = default;

CMultiPageGridManager::~CMultiPageGridManager() {
    SetGrid(nullptr);
    if (m_bar) {
        m_bar->Retire();
    }
}

void CMultiPageGridManager::SetGrid(CMultiPageGrid* grid) {
    if (m_grid != nullptr && m_grid->GetManager() == this) {
        m_grid->SetManager(nullptr);
    }
    m_grid = grid;
    if (m_grid != nullptr) {
        m_grid->SetManager(this);
    }
    UpdateBar();
}

void CMultiPageGridManager::ForgetGrid(const CMultiPageGrid* grid) {
    if (m_grid == grid) {
        m_grid = nullptr;
    }
}

void CMultiPageGridManager::Create(QWidget* parent) {
    if (m_bar) {
        m_bar->Retire();
    }
    m_bar.clear();
    // The grid comes first in the Tab order.
    if (m_grid != nullptr) {
        m_grid->CreateView(parent);
    }
    m_bar = new toolkit::PagingBar(*this, parent);
    m_bar->show();
    UpdateBar();
}

QWidget* CMultiPageGridManager::Widget() const {
    return m_bar;
}

QRect CMultiPageGridManager::GetRect() const {
    return m_bar ? m_bar->geometry() : QRect();
}

void CMultiPageGridManager::SetRect(const QRect& rect) {
    if (m_bar) {
        m_bar->setGeometry(rect);
    }
}

void CMultiPageGridManager::MoveGrid(const QRect& rect) {
    if (m_grid != nullptr && m_grid->HasWindow()) {
        m_grid->Widget()->setGeometry(rect);
    }
}

void CMultiPageGridManager::DoFirstPage() {
    DoPage(1);
}

void CMultiPageGridManager::DoPage(int page) {
    if (m_grid != nullptr) {
        m_grid->DoPage(std::clamp(page, 1, std::max(m_pageCount, 1)));
    }
}

void CMultiPageGridManager::SetPageCount(int count) {
    m_pageCount = std::max(count, 0);
    UpdateBar();
}

int CMultiPageGridManager::GetCurrentPage() const {
    return m_grid == nullptr ? 1 : m_grid->GetCurrentPage();
}

void CMultiPageGridManager::UpdateBar() {
    if (m_bar) {
        m_bar->ShowPage(GetCurrentPage(), m_pageCount);
    }
}
