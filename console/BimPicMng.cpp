#include "console/BimPicMng.h"

#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "editors/BimPicEditDlg.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IKXView.h"
#include "services/IVeskPicMng.h"
#include "toolkit/windows/WindowRegistry.h"

#include <algorithm>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::IPictureFacade;
using ZelvorNRQ_KXVeskPicture::PictureFacade;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

namespace {

enum BimColumn { kPosition = 7 };

const QColor kInvalidPosition(255, 0, 0);

} // namespace

void BimPics::TellHost() {
    PictureFacade().Sink().RefreshBimMarks();
}

bool BimPics::Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                    KX_DATA::PageResult& result, std::vector<Record>& page) {
    return GetVeskPicMng()->QueryBimPics(mng.PicFilter(), request, result, page) ==
           KX_DATA::kServiceOk;
}

bool BimPics::SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden) {
    return GetVeskPicMng()->SetBimPicsShown(projectId, ids, hidden);
}

bool BimPics::Delete(qint32 projectId, const std::vector<Id>& ids) {
    Q_UNUSED(projectId);
    return GetVeskPicMng()->DeleteBimPics(ids);
}

bool BimPics::UsedMarks(std::vector<qint32>& markIds) {
    return GetVeskPicMng()->GetUsedBimMarks(markIds);
}

QString BimPics::Folder(const KX_DATA::ProjectRecord& project) {
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, project.ppid, project.name);
    return folder;
}

void BimPics::PutPlace(KX_DATA::PicViewItem& item, const Record& record, const CGridRow& row) {
    item.positionKey = record.positionKey;
    item.positionText = row.GetItem(kPosition)->GetText();
}

bool CBimPicMng::StartsChecked(const KX_DATA::BimPicRow& record) const {
    const qint32 wanted = PicFilter().picId;
    return wanted != KX_DATA::kNoPic && wanted == record.picId;
}

void CBimPicMng::FillCells(CGridRow& row, const KX_DATA::BimPicRow& record) {
    FillFurtherCells(row, record);
    FillBasicCells(row, record, BimPositionText(record));
    if (record.posValid == 0) {
        row.GetItem(kPosition)->SetTextColor(kInvalidPosition);
    }
    if (record.floor.isEmpty()) {
        row.GetItem(FirstIconColumn(kModeBim) + 1)->Enable(false);
    }
}

bool CBimPicMng::EditRow(CGridRow& row) {
    CBimPicEditDlg editor(RecordOf(row));
    // Neither row nor record need be there any more when it comes back.
    return editor.DoModal(grid->ParentId()) == DialogResult::Ok;
}

void CBimPicMng::LocateRow(CGridRow& row) {
    const auto& record = RecordOf(row);
    // Only 1 stops here: a photo hidden by the console's button holds the number of the status
    // column until the page is fetched again, and can be located; required as is.
    if (record.status == KX_DATA::kStatusHidden) {
        ShowStatus(grid->ParentId(), e_VeskPicMngStatus::PicHidden);
        return;
    }
    // A copy: what the view does on the event may fetch the page again.
    const KX_DATA::BimPicRow photo = record;
    IPictureFacade& facade = PictureFacade();
    facade.pendingPicId = photo.picId;
    KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView();
    const QString place = LocateText(photo.floor, photo.markId, photo.picId);
    toolkit::SendWindowEvent(toolkit::MainWindow(), ZelvorNRQ_KXVeskPicture::WM_VESK_PIC_LOCATE, 0,
                             quintptr(&place));
    if (view != nullptr && view->LocatePicture(photo.positionKey, photo.markId)) {
        // Only behind a viewer that opened: nothing else brings a minimised console back.
        if (facade.OpenBimPicView(photo.ppid, photo.floor, photo.positionKey, photo.markId)) {
            LeaveToViewer();
        }
        return;
    }
    facade.pendingPicId = ZelvorNRQ_KXVeskPicture::kNoPendingPic;
    ShowStatus(grid->ParentId(), e_VeskPicMngStatus::DisplayOff);
}

bool CBimPicMng::CollectCheckedIds(std::vector<qint32>& picIds) const {
    PhotoMng::CollectCheckedIds(picIds);
    const std::vector<CGridRow*> checked = CheckedRows();
    return std::ranges::all_of(checked,
                               [](const CGridRow* row) { return RecordOf(*row).posValid != 0; });
}
