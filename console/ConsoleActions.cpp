#include "console/ConsoleActions.h"

#include "base/Guard.h"
#include "base/PicNames.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "toolkit/KXTools.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "viewers/SavePicAs.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::Guarded;

namespace {

/// The lookup is judged by this column in every kind. For drawing photos it holds the edit icon,
/// which is never disabled, so that the lookup always runs there; required as is.
constexpr int kLocateColumn = 13;

/// The name without what would lead the dialog into another folder. What is too long is cut in the
/// base: the extension decides the dialog's.
QString ProposedName(const QString& name) {
    using namespace ZelvorNRQ_KXVeskPicture;
    if (name.isEmpty()) {
        return name;
    }
    QString base;
    QString extension;
    SplitPicName(name, base, extension, true);
    return SafeFileName(base) + extension;
}

} // namespace

void ConsoleActions::Run(RowCommand command, CGridRow& row) {
    const auto keepGrid = m_grid.shared_from_this();
    const auto manager = m_grid.Manager();
    switch (command) {
    case RowCommand::Edit:
        Edit(row);
        break;
    case RowCommand::Locate:
        Locate(row);
        break;
    case RowCommand::Preview:
        manager->PreviewRow(row);
        break;
    case RowCommand::Download:
        SaveAs(row);
        break;
    case RowCommand::Delete:
        Delete(row);
        break;
    }
}

void ConsoleActions::Locate(CGridRow& row) {
    const auto keepGrid = m_grid.shared_from_this();
    const auto manager = m_grid.Manager();
    const CGridItem* item = row.GetItem(kLocateColumn);
    if (item != nullptr && item->IsEnabled()) {
        manager->LocateRow(row);
    }
}

void ConsoleActions::Edit(CGridRow& row) {
    const auto manager = m_grid.Manager();
    const toolkit::StillThere still(m_grid.ParentId());
    if (!manager->EditRow(row)) {
        return;
    }
    // The console may have been closed, or have another kind, while the editor was open.
    if (manager == m_grid.Manager() && still) {
        m_grid.Refresh();
    } else {
        manager->NotifyChanged();
    }
}

void ConsoleActions::SaveAs(const CGridRow& row) {
    const QString name = row.GetItem(kNameColumn)->GetText();
    const DownloadSource source = m_grid.Manager()->GetDownloadSource(row);
    ZelvorNRQ_KXVeskPicture::SavePicAs(source.uuid, ProposedName(name), source.localPath);
}

void ConsoleActions::Delete(CGridRow& row) {
    const auto manager = m_grid.Manager();
    Guarded(m_grid.ParentId(), [&] {
        const bool notify = manager->IsRowInView(row);
        const DeleteResult result = manager->DeleteRow(m_grid.ProjectId(), row);
        if (result == DeleteResult::Refused) {
            throw e_VeskPicMngStatus::DeleteFailed;
        }
        if (result == DeleteResult::Cancelled) {
            return;
        }
        // The console may have been closed, or have another kind, behind the question.
        if (manager == m_grid.Manager()) {
            m_grid.FetchAfterDelete();
        }
        if (notify) {
            manager->NotifyChanged();
        }
    });
}

bool ConsoleActions::HasChecked(const Tip& tip, const QString& text) const {
    if (m_grid.HasCheckedRow()) {
        return true;
    }
    tip(text);
    return false;
}

void ConsoleActions::AskAndDelete(const Tip& tip) {
    if (!HasChecked(tip, u"至少要选中一项！"_s)) {
        return;
    }
    const auto keepGrid = m_grid.shared_from_this();
    const QString question = m_grid.GetMode() == kModeIssue ? u"确认删除该问题和所附照片吗 ？"_s
                                                            : u"确认删除所选的照片？"_s;
    const toolkit::StillThere still(m_grid.ParentId());
    // The console may be gone, or have another page, when the question is answered.
    if (toolkit::Prompts().AskOkCancel(m_grid.ParentId(), question) && still &&
        m_grid.HasCheckedRow()) {
        DeleteChecked();
    }
}

void ConsoleActions::AskAndDownload(const Tip& tip) {
    if (!HasChecked(tip, u"请选择要下载的图片！"_s)) {
        return;
    }
    const auto keepGrid = m_grid.shared_from_this();
    const toolkit::StillThere still(m_grid.ParentId());
    QString folder = toolkit::Prompts().AskFolder(m_grid.ParentId(), u"请选择文件存放的路径："_s);
    if (folder.size() > 1 && folder.endsWith(u'/')) {
        folder.chop(1);
    }
    // The console may be gone when the folder is chosen.
    if (!folder.isEmpty() && still) {
        DownloadChecked(folder);
    }
}

void ConsoleActions::SetCheckedShown(bool show, const Tip& tip) {
    if (HasChecked(tip, u"至少要选中一项！"_s)) {
        SetCheckedShown(show);
    }
}

void ConsoleActions::DeleteChecked() {
    const auto keepGrid = m_grid.shared_from_this();
    const auto manager = m_grid.Manager();
    Guarded(m_grid.ParentId(), [&] {
        // Refused or not, the page is fetched again; required as is.
        manager->DeleteChecked(m_grid.ProjectId());
        const bool affected = manager->IsViewAffected();
        m_grid.FetchAfterDelete();
        if (affected) {
            manager->NotifyChanged();
        }
    });
}

void ConsoleActions::DownloadChecked(const QString& folder) {
    const auto keepGrid = m_grid.shared_from_this();
    const auto manager = m_grid.Manager();
    std::vector<BatchRow> rows;
    for (int i = 0; i < m_grid.GetRowCount(); ++i) {
        const CGridRow& row = *m_grid.GetRow(i);
        const bool checked = row.GetItem(manager->GetCheckColumn())->GetBool();
        rows.push_back({checked, checked ? manager->GetDownloadSource(row) : DownloadSource()});
    }
    DownloadRows(rows, folder, m_grid.ParentId());
}

void ConsoleActions::SetCheckedShown(bool show) {
    const auto keepGrid = m_grid.shared_from_this();
    Guarded(m_grid.ParentId(), [&] { SetShown(show); });
}

void ConsoleActions::SetShown(bool show) {
    const auto manager = m_grid.Manager();
    const CheckedResult result = manager->SetCheckedStatus(m_grid.ProjectId(), !show);
    if (result == CheckedResult::NothingChecked) {
        // The dialog has tested for this before; the text is required as is.
        KXTools::ShowMsgBox(m_grid.ParentId(), u"必须选择新的楼层轴网信息才能提交！"_s);
        return;
    }
    if (result == CheckedResult::Refused) {
        throw e_VeskPicMngStatus::ChangeStatusFailed;
    }
    const bool affected = manager->IsViewAffected();
    ShowStatusOfChecked(show);
    if (affected) {
        manager->NotifyChanged();
    }
}

void ConsoleActions::ShowStatusOfChecked(bool show) {
    CPicMngBase& manager = *m_grid.Manager();
    const int column = manager.GetStatusColumn();
    const QString text = StatusText(show ? KX_DATA::kStatusShown : KX_DATA::kStatusHidden);
    for (int i = m_grid.GetRowCount() - 1; i >= 0; --i) {
        CGridRow& row = *m_grid.GetRow(i);
        if (!row.GetItem(manager.GetCheckColumn())->GetBool()) {
            continue;
        }
        row.SetText(column, text);
        // The record gets the column's number and not the status, until the next fetch; required as
        // is.
        manager.SetRowStatus(row, column);
    }
}
