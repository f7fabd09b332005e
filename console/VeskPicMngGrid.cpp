#include "console/VeskPicMngGrid.h"

#include "base/Guard.h"
#include "base/OpenProject.h"
#include "console/BimPicMng.h"
#include "console/ColumnTable.h"
#include "console/ConsoleEvents.h"
#include "console/PDFPicMng.h"
#include "console/SortKeys.h"
#include "console/TNPicMng.h"
#include "toolkit/Icons.h"
#include "toolkit/grid/MultiPageGridManager.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QMenu>
#include <boost/make_shared.hpp>

#include <utility>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::CurrentProject;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

namespace {

constexpr int kFontHeight = -12;
constexpr int kRowHeightAdd = 4;

enum HeaderImage { kUnchecked = 0, kChecked = 1 };

boost::shared_ptr<CPicMngBase> MakeManager(ConsoleMode mode, CVeskPicMngGrid* grid) {
    switch (mode) {
    case kModePdf:
        return boost::make_shared<CPDFPicMng>(grid);
    case kModeIssue:
        return boost::make_shared<CTNPicMng>(grid);
    default:
        return boost::make_shared<CBimPicMng>(grid);
    }
}

toolkit::ImageList MakeRowImages() {
    toolkit::ImageList images;
    images.Set(12, toolkit::Icon(u"edit"_s));
    images.Set(5, toolkit::Icon(u"locate"_s));
    images.Set(4, toolkit::Icon(u"preview"_s));
    images.Set(2, toolkit::Icon(u"download"_s));
    images.Set(11, toolkit::Icon(u"delete"_s));
    return images;
}

toolkit::ImageList MakeHeaderImages() {
    toolkit::ImageList images;
    images.Set(kUnchecked, toolkit::Icon(u"checkbox-off"_s));
    images.Set(kChecked, toolkit::Icon(u"checkbox-on"_s));
    return images;
}

QString FailedText(ConsoleMode mode) {
    return mode == kModeIssue ? u"读取问题失败。请检查网络后按 F5 重试。"_s
                              : u"读取照片失败。请检查网络后按 F5 重试。"_s;
}

QString EmptyText(ConsoleMode mode) {
    return mode == kModeIssue ? u"没有符合条件的问题。可以放宽筛选条件，再点“搜索”。"_s
                              : u"没有符合条件的照片。可以放宽筛选条件，再点“搜索”。"_s;
}

} // namespace

void CVeskPicMngGrid::OnInitialize() {
    SetMicrosoftYaheiFont(kFontHeight);
    SetRowHeightAdd(kRowHeightAdd);
    m_rowImages = MakeRowImages();
    m_headerImages = MakeHeaderImages();
    SetHeaderImageList(m_headerImages);
    SetMode(m_mode);
    m_projectId = CurrentProject().value_or(KX_DATA::ProjectRecord()).ppid;
}

void CVeskPicMngGrid::CreateManager(ConsoleMode newMode) {
    // A console that is only brought back has its item selected again.
    m_keptKey = newMode == m_mode ? TakeSelectedKey() : QString();
    // Rows point into the records of the manager that goes.
    Empty();
    m_mode = newMode;
    m_manager = MakeManager(newMode, this);
}

void CVeskPicMngGrid::SetMode(ConsoleMode newMode) {
    Empty();
    DeleteAllColumns();
    CreateManager(newMode);
    m_sortField = DefaultSortField(newMode);
    m_sortOrder = u"desc"_s;
    sortable.clear();
    m_manager->InitColumns(sortable);
    SetHeaderImage(kCheckColumn, kUnchecked);
    SetEmptyText(EmptyText(newMode));
    AdjustLayout();
}

void CVeskPicMngGrid::Empty() {
    ++m_filling;
    RemoveAll();
    CheckAll(false);
}

void CVeskPicMngGrid::CheckAll(bool checked) {
    m_allChecked = checked;
    SetHeaderImage(kCheckColumn, checked ? kChecked : kUnchecked);
    for (int i = 0; i < GetRowCount(); ++i) {
        GetRow(i)->SetText(m_manager->GetCheckColumn(), checked);
    }
    AdjustLayout();
}

void CVeskPicMngGrid::OnHeaderClick(int column) {
    if (column == kCheckColumn) {
        CheckAll(!m_allChecked);
        return;
    }
    // A column that the map doesn't have is entered as not sortable.
    if (sortable[column]) {
        SortBy(column);
    }
}

void CVeskPicMngGrid::SortBy(int column) {
    m_sortField = SortField(m_mode, column);
    m_sortOrder = SortOrderAfter(GetColumnState(column));
    for (int i = 0; i < GetColumnCount(); ++i) {
        SetColumnState(i, i == column ? ColumnStateOf(m_sortOrder) : 0);
    }
    if (GetManager() != nullptr) {
        GetManager()->DoFirstPage();
    }
}

bool CVeskPicMngGrid::CompareRows(const CGridRow& first, const CGridRow& second) const {
    const int column = m_manager->GetIndexColumn();
    return first.GetItem(column)->GetValue().toInt() > second.GetItem(column)->GetValue().toInt();
}

void CVeskPicMngGrid::OnPreparePage() {
    if (m_manager) {
        m_manager->currentPage = GetCurrentPage();
    }
}

void CVeskPicMngGrid::OnQueryPage() {
    if (!m_manager) {
        return;
    }
    const auto self = shared_from_this();
    toolkit::SendWindowEvent(ParentId(), WM_PIC_SEARCH_START);
    const auto raised = CatchStatus([this] { FetchPage(); });
    if (raised) {
        totalCount = 0;
        NoteQuery(false);
        ShowStatus(ParentId(), *raised);
    }
    toolkit::SendWindowEvent(ParentId(), WM_PIC_SEARCH_DONE);
}

QString CVeskPicMngGrid::TakeSelectedKey() {
    const QString kept = std::exchange(m_keptKey, {});
    const CGridRow* selected = GetCurSel();
    return selected != nullptr ? m_manager->GetRowKey(*selected) : kept;
}

void CVeskPicMngGrid::SelectKey(const QString& key) {
    for (int i = 0; !key.isEmpty() && i < GetRowCount(); ++i) {
        if (m_manager->GetRowKey(*GetRow(i)) == key) {
            SetCurSel(i);
        }
    }
}

void CVeskPicMngGrid::FetchPage() {
    const QString selected = TakeSelectedKey();
    Empty();
    KX_DATA::PageRequest request;
    request.page = GetCurrentPage();
    request.pageSize = kConsolePageSize;
    request.sortField = m_sortField;
    request.sortOrder = m_sortOrder;
    KX_DATA::PageResult result;
    // While the service answers, another page or another kind may have been asked for: that one is
    // shown then, and the manager asked here may be gone.
    const auto manager = m_manager;
    const int filling = m_filling;
    const bool built = manager->QueryPage(m_rowImages, request, result);
    if (m_filling != filling) {
        return;
    }
    // A refused query leaves an empty page and no hits; only the empty page says that it failed.
    NoteQuery(built);
    if (!built) {
        result = KX_DATA::PageResult();
    }
    totalCount = result.totalCount;
    AdjustLayout();
    SelectKey(selected);
    if (GetManager() != nullptr) {
        GetManager()->SetPageCount(result.pageCount);
    }
}

void CVeskPicMngGrid::NoteQuery(bool succeeded) {
    m_queryFailed = !succeeded;
    SetEmptyText(succeeded ? EmptyText(m_mode) : FailedText(m_mode));
}

void CVeskPicMngGrid::FetchCurrentPage() {
    DoCurrentPage();
}

bool CVeskPicMngGrid::IsInDialog() const {
    return HasWindow() && GetManager() != nullptr;
}

void CVeskPicMngGrid::FetchAfterDelete() {
    if (!IsInDialog()) {
        return;
    }
    const toolkit::StillThere still(ParentId());
    DoCurrentPage();
    if (m_queryFailed || !still) {
        return;
    }
    // What was deleted may have been all of the last page.
    const int last = GetManager()->GetPageCount();
    if (last > 0 && GetCurrentPage() > last) {
        GetManager()->DoPage(last);
    }
}

void CVeskPicMngGrid::Refresh() {
    const auto self = shared_from_this();
    DoCurrentPage();
    AdjustLayout();
    if (m_manager) {
        m_manager->NotifyChanged();
    }
}

bool CVeskPicMngGrid::HasCheckedRow() const {
    for (int i = GetRowCount() - 1; i >= 0; --i) {
        if (GetRow(i)->GetItem(m_manager->GetCheckColumn())->GetBool()) {
            return true;
        }
    }
    return false;
}

void CVeskPicMngGrid::OnIconCommand(int command, CGridRow& row) {
    m_actions.Run(RowCommand(command), row);
}

void CVeskPicMngGrid::OnDoubleClick(CGridRow& row, int column) {
    Q_UNUSED(column);
    m_actions.Locate(row);
}

void CVeskPicMngGrid::FillRowMenu(CGridRow& row, QMenu& menu) {
    const int first = FirstIconColumn(m_mode);
    for (int column = first; column < row.GetItemCount(); ++column) {
        const auto* icon = dynamic_cast<const CIconGridItem*>(row.GetItem(column));
        if (icon == nullptr || !IsColumnVisible(column)) {
            continue;
        }
        QAction* action = menu.addAction(icon->Icon(), icon->Tip());
        action->setEnabled(icon->IsEnabled());
        const int command = icon->Command();
        const boost::weak_ptr<CVeskPicMngGrid> weak = shared_from_this();
        QObject::connect(action, &QAction::triggered, &menu, [weak, command] {
            const auto grid = weak.lock();
            if (grid == nullptr) {
                return;
            }
            if (CGridRow* selected = grid->GetCurSel()) {
                grid->OnIconCommand(command, *selected);
            }
        });
    }
}
