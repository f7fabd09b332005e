#include "console/PicMngBase.h"

#include "base/FacadeAccess.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "services/Factories.h"
#include "services/IKXAuthMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXSysMng.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct RowIcon {
    RowCommand command;
    int image;
    QString tip;
};

/// Icons of a row in the order of their columns; the numbers of the images are fixed.
const std::vector<RowIcon>& RowIcons() {
    static const std::vector<RowIcon> icons = {
        {RowCommand::Edit, 12, u"编辑"_s},   {RowCommand::Locate, 5, u"反查"_s},
        {RowCommand::Preview, 4, u"预览"_s}, {RowCommand::Download, 2, u"下载"_s},
        {RowCommand::Delete, 11, u"删除"_s},
    };
    return icons;
}

} // namespace

const KX_DATA::PicQueryFilter& CPicMngBase::PicFilter() const {
    static const KX_DATA::PicQueryFilter none;
    const auto* set = std::get_if<const KX_DATA::PicQueryFilter*>(&filter);
    return set != nullptr ? **set : none;
}

const KX_DATA::PdfQueryFilter& CPicMngBase::PdfFilter() const {
    static const KX_DATA::PdfQueryFilter none;
    const auto* set = std::get_if<const KX_DATA::PdfQueryFilter*>(&filter);
    return set != nullptr ? **set : none;
}

void CPicMngBase::InsertColumns(ConsoleMode mode, std::map<int, bool>& sortable) {
    const std::vector<ColumnSpec>& columns = ConsoleColumns(mode);
    for (int i = 0; i < int(columns.size()); ++i) {
        const ColumnSpec& column = columns[size_t(i)];
        grid->InsertColumn(i, column.caption, column.width);
        grid->SetHeaderAlign(i, Qt::AlignCenter);
        grid->SetColumnAlign(i,
                             column.centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        grid->SetColumnLocked(i, column.locked);
        grid->SetColumnStretch(i, column.stretch);
        sortable[i] = column.sortable;
    }
    ColumnRights rights;
    if (mode != kModeIssue) {
        KX_DATA::IKXAuthMng* auth = GetKXAuthMng();
        rights.edit = auth->HasRight(KX_DATA::kRightEdit);
        rights.remove = auth->HasRight(KX_DATA::kRightDelete);
        rights.showHide = auth->HasRight(KX_DATA::kRightShowHide);
    }
    rights.worksetMode = GetKXGlobalData()->IsWorksetMode();
    for (const int column : HiddenColumns(mode, rights)) {
        grid->SetColumnVisible(column, false);
    }
}

std::unique_ptr<CGridRow> CPicMngBase::StartRow(int place, bool checked) const {
    std::unique_ptr<CGridRow> row = grid->CreateRow(grid->GetColumnCount());
    row->PutItem(GetCheckColumn(), std::make_unique<CCheckBoxItem>(checked));
    row->SetText(GetIndexColumn(), RunningNumber(currentPage, place));
    return row;
}

void CPicMngBase::PutMark(CGridRow& row, qint32 markId) {
    std::map<qint32, KX_DATA::MarkRecord> table;
    GetKXLocalCacheData()->GetMarkTable(table);
    const auto mark = table.find(markId);
    if (mark != table.end()) {
        row.PutItem(kMarkColumn,
                    std::make_unique<CColorTxtItem>(mark->second.color, mark->second.name));
    }
}

void CPicMngBase::PutIcons(CGridRow& row, int firstColumn, const toolkit::ImageList& images) {
    int column = firstColumn;
    for (const RowIcon& icon : RowIcons()) {
        row.PutItem(column++, std::make_unique<CIconGridItem>(images, icon.image, int(icon.command),
                                                              icon.tip));
    }
}

QString CPicMngBase::ProjectName(qint32 ppid) {
    QString name;
    return GetKXGlobalData()->GetProjectName(name, ppid);
}

void CPicMngBase::WriteAction(const QString& action) {
    GetKXSysMng()->WriteActionLog(action);
}

std::vector<CGridRow*> CPicMngBase::CheckedRows() const {
    std::vector<CGridRow*> rows;
    for (int i = grid->GetRowCount() - 1; i >= 0; --i) {
        CGridRow* row = grid->GetRow(i);
        const CGridItem* item = row->GetItem(GetCheckColumn());
        if (item != nullptr && item->GetBool()) {
            rows.push_back(row);
        }
    }
    return rows;
}

void CPicMngBase::LeaveToViewer() {
    LeaveToViewer(grid->ParentId());
}

void CPicMngBase::LeaveToViewer(toolkit::WindowId console) {
    ZelvorNRQ_KXVeskPicture::PictureFacade().reopenConsole = true;
    if (QWidget* window = toolkit::WidgetOf(console)) {
        toolkit::MinimiseWindow(*window);
    }
}
