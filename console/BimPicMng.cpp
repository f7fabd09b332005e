#include "console/BimPicMng.h"

#include "base/FacadeAccess.h"
#include "base/Guard.h"
#include "base/OpenProject.h"
#include "base/StoredFile.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "editors/BimPicEditDlg.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IKXView.h"
#include "services/IVeskPicMng.h"
#include "toolkit/WindowRegistry.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CurrentProject;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::IPictureFacade;
using ZelvorNRQ_KXVeskPicture::PictureFacade;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

namespace {

enum BimColumn { kPeople = 5, kTimes = 6, kPosition = 7, kLabels = 8, kRectify = 9, kText = 10 };

const QColor kInvalidPosition(255, 0, 0);

} // namespace

QString CBimPicMng::GetSearchHint() const {
    return u"输入照片名称、相关人账号、描述等关键字"_s;
}

bool CBimPicMng::InitColumns(std::map<int, bool>& sortable) {
    InsertColumns(kModeBim, sortable);
    return true;
}

void CBimPicMng::NotifyChanged() {
    PictureFacade().Sink().RefreshBimMarks();
}

bool CBimPicMng::QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                           KX_DATA::PageResult& result) {
    records.clear();
    const int filling = grid->Filling();
    std::vector<KX_DATA::BimPicRow> page;
    if (GetVeskPicMng()->QueryBimPics(PicFilter(), request, result, page) != KX_DATA::kServiceOk ||
        grid->Filling() != filling) {
        return false;
    }
    records = std::move(page);
    for (size_t i = 0; i < records.size(); ++i) {
        BuildRow(rowImages, int(i), records[i]);
    }
    return true;
}

void CBimPicMng::BuildRow(const toolkit::ImageList& rowImages, int place,
                          KX_DATA::BimPicRow& record) {
    const qint32 wanted = PicFilter().picId;
    auto row = StartRow(place, wanted != KX_DATA::kNoPic && wanted == record.picId);
    row->SetText(kProjectColumn, ProjectName(record.ppid));
    PutMark(*row, record.markId);
    row->SetText(kNameColumn, record.fileName);
    row->SetText(kPeople, PairText(record.uploaderName, record.updaterName));
    row->SetText(kTimes, PairText(record.uploadTime, record.updateTime));
    row->SetText(kPosition, BimPositionText(record));
    if (record.posValid == 0) {
        row->GetItem(kPosition)->SetTextColor(kInvalidPosition);
    }
    row->SetText(kLabels, LabelText(record.labelNames));
    row->SetText(kRectify, record.rectifyText);
    row->SetText(kText, record.description);
    row->SetText(GetStatusColumn(), StatusText(record.status));
    const int icons = FirstIconColumn(kModeBim);
    PutIcons(*row, icons, rowImages);
    if (record.floor.isEmpty()) {
        row->GetItem(icons + 1)->Enable(false);
    }
    row->SetData(&record);
    grid->AddRow(std::move(row));
}

int CBimPicMng::GetStatusColumn() const {
    return StatusColumn(kModeBim);
}

bool CBimPicMng::GetUsedMarks(std::vector<qint32>& markIds) {
    return GetVeskPicMng()->GetUsedBimMarks(markIds);
}

bool CBimPicMng::EditRow(CGridRow& row) {
    CBimPicEditDlg editor(RecordOf<KX_DATA::BimPicRow>(row));
    // Neither row nor record need be there any more when it comes back.
    return editor.DoModal(grid->ParentId()) == DialogResult::Ok;
}

void CBimPicMng::LocateRow(CGridRow& row) {
    const auto& record = RecordOf<KX_DATA::BimPicRow>(row);
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

DownloadSource CBimPicMng::GetDownloadSource(const CGridRow& row) const {
    const auto& record = RecordOf<KX_DATA::BimPicRow>(row);
    // The folder is that of the open project, not of the row's.
    const auto project = CurrentProject().value_or(KX_DATA::ProjectRecord());
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, project.ppid, project.name);
    return {record.text8, record.fileName,
            ZelvorNRQ_KXVeskPicture::StoredFilePath(folder, record.text8,
                                                    ZelvorNRQ_KXVeskPicture::kPictureEnding)};
}

bool CBimPicMng::DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) {
    Q_UNUSED(projectId);
    if (!GetVeskPicMng()->DeleteBimPics(picIds)) {
        return false;
    }
    WriteAction(u"删除Vesk照片"_s);
    return true;
}

void CBimPicMng::BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const {
    for (int i = 0; i < grid->GetRowCount(); ++i) {
        const CGridRow& row = *grid->GetRow(i);
        const KX_DATA::BimPicRow& record = records[size_t(i)];
        KX_DATA::PicViewItem item;
        item.picId = record.picId;
        item.ppid = record.ppid;
        item.uuid = record.text8;
        item.fileText = record.text9;
        item.picName = record.fileName;
        item.positionKey = record.positionKey;
        item.markId = record.markId;
        item.positionText = row.GetItem(kPosition)->GetText();
        item.uploader = record.uploaderName;
        item.uploadTime = record.uploadTime;
        item.updater = record.updaterName;
        item.updateTime = record.updateTime;
        item.labelText = row.GetItem(kLabels)->GetText();
        item.description = record.description;
        item.rectifyText = record.rectifyText;
        items.push_back(std::move(item));
    }
}

bool CBimPicMng::CollectCheckedIds(std::vector<qint32>& picIds) const {
    bool allValid = true;
    for (const CGridRow* row : CheckedRows()) {
        const auto& record = RecordOf<KX_DATA::BimPicRow>(*row);
        picIds.push_back(record.picId);
        allValid = allValid && record.posValid != 0;
    }
    return allValid;
}

bool CBimPicMng::SetShown(qint32 projectId, const std::vector<qint32>& picIds, bool hidden) {
    return GetVeskPicMng()->SetBimPicsShown(projectId, picIds, hidden);
}
