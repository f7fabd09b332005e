// Row actions of the grid.
#include "console/VeskPicMngGrid.h"

#include "base/Guard.h"
#include "base/PicNames.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "toolkit/KXTools.h"
#include "viewers/SavePicAs.h"

#include <QAction>
#include <QMenu>

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

void CVeskPicMngGrid::OnIconCommand(int command, CGridRow& row) {
    RunCommand(RowCommand(command), row);
}

void CVeskPicMngGrid::OnDoubleClick(CGridRow& row, int column) {
    const auto self = shared_from_this();
    LocateSelected(row);
    Q_UNUSED(column);
}

void CVeskPicMngGrid::RunCommand(RowCommand command, CGridRow& row) {
    // A dialog that a command opens may end the console, or change its kind.
    const auto self = shared_from_this();
    const auto manager = m_manager;
    switch (command) {
    case RowCommand::Edit:
        EditOneRow(row);
        break;
    case RowCommand::Locate:
        LocateSelected(row);
        break;
    case RowCommand::Preview:
        manager->PreviewRow(row);
        break;
    case RowCommand::Download:
        SaveSelectedAs(row);
        break;
    case RowCommand::Delete:
        DeleteOneRow(row);
        break;
    }
}

void CVeskPicMngGrid::LocateSelected(CGridRow& row) {
    const auto manager = m_manager;
    const CGridItem* item = row.GetItem(kLocateColumn);
    if (item != nullptr && item->IsEnabled()) {
        manager->LocateRow(row);
    }
}

void CVeskPicMngGrid::SaveSelectedAs(const CGridRow& row) {
    const QString name = row.GetItem(kNameColumn)->GetText();
    const DownloadSource source = m_manager->GetDownloadSource(row);
    ZelvorNRQ_KXVeskPicture::SavePicAs(source.uuid, ProposedName(name), source.localPath);
}

void CVeskPicMngGrid::DownloadChecked(const QString& folder) {
    const auto self = shared_from_this();
    std::vector<BatchRow> rows;
    for (int i = 0; i < GetRowCount(); ++i) {
        const CGridRow& row = *GetRow(i);
        const bool checked = row.GetItem(m_manager->GetCheckColumn())->GetBool();
        rows.push_back({checked, checked ? m_manager->GetDownloadSource(row) : DownloadSource()});
    }
    DownloadRows(rows, folder, ParentId());
}

void CVeskPicMngGrid::EditOneRow(CGridRow& row) {
    const auto manager = m_manager;
    if (!manager->EditRow(row)) {
        return;
    }
    // The console may have been closed, or have another kind, while the editor was open.
    if (manager == m_manager && IsInDialog()) {
        Refresh();
    } else {
        manager->NotifyChanged();
    }
}

void CVeskPicMngGrid::DeleteOneRow(CGridRow& row) {
    const auto manager = m_manager;
    Guarded(ParentId(), [&] {
        const bool notify = manager->IsRowInView(row);
        const DeleteResult result = manager->DeleteRow(m_projectId, row);
        if (result == DeleteResult::Refused) {
            throw e_VeskPicMngStatus::DeleteFailed;
        }
        if (result == DeleteResult::Cancelled) {
            return;
        }
        // The console may have been closed, or have another kind, behind the question.
        if (manager == m_manager) {
            FetchAfterDelete();
        }
        if (notify) {
            manager->NotifyChanged();
        }
    });
}

void CVeskPicMngGrid::DeleteChecked() {
    const auto self = shared_from_this();
    const auto manager = m_manager;
    Guarded(ParentId(), [&] {
        // Refused or not, the page is fetched again; required as is.
        manager->DeleteChecked(m_projectId);
        const bool affected = manager->IsViewAffected();
        FetchAfterDelete();
        if (affected) {
            manager->NotifyChanged();
        }
    });
}

void CVeskPicMngGrid::SetCheckedShown(bool show) {
    const auto self = shared_from_this();
    Guarded(ParentId(), [&] { ShowCheckedStatus(show); });
}

void CVeskPicMngGrid::ShowCheckedStatus(bool show) {
    const auto manager = m_manager;
    const CheckedResult result = manager->SetCheckedStatus(m_projectId, !show);
    if (result == CheckedResult::NothingChecked) {
        // The dialog has tested for this before; the text is required as is.
        KXTools::ShowMsgBox(ParentId(), u"必须选择新的楼层轴网信息才能提交！"_s);
        return;
    }
    if (result == CheckedResult::Refused) {
        throw e_VeskPicMngStatus::ChangeStatusFailed;
    }
    const bool affected = manager->IsViewAffected();
    const int column = manager->GetStatusColumn();
    for (int i = GetRowCount() - 1; i >= 0; --i) {
        CGridRow& row = *GetRow(i);
        if (!row.GetItem(manager->GetCheckColumn())->GetBool()) {
            continue;
        }
        row.SetText(column, StatusText(show ? KX_DATA::kStatusShown : KX_DATA::kStatusHidden));
        // The record gets the column's number and not the status, until the next fetch; required as
        // is.
        manager->SetRowStatus(row, column);
    }
    if (affected) {
        manager->NotifyChanged();
    }
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
