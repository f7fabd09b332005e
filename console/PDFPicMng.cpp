#include "console/PDFPicMng.h"

#include "base/FacadeAccess.h"
#include "base/MissingDialogs.h"
#include "base/OpenProject.h"
#include "base/StoredFile.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/WindowRegistry.h"

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::AnswerAsCancelled;
using ZelvorNRQ_KXVeskPicture::CurrentDrawing;
using ZelvorNRQ_KXVeskPicture::CurrentProject;
using ZelvorNRQ_KXVeskPicture::IPictureFacade;
using ZelvorNRQ_KXVeskPicture::MissingDialog;
using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

enum PdfColumn {
    kDrawing = 5,
    kPdfPeople = 6,
    kPdfTimes = 7,
    kPdfPosition = 8,
    kPdfLabels = 9,
    kPdfRectify = 10,
    kPdfText = 11
};

/// First parameter of the event that asks the main window for a drawing.
constexpr quintptr kLocateDrawing = 3;

} // namespace

QString CPDFPicMng::GetSearchHint() const {
    return u"输入照片名称、图纸、相关人账号、描述等关键字"_s;
}

bool CPDFPicMng::InitColumns(std::map<int, bool>& sortable) {
    InsertColumns(kModePdf, sortable);
    return true;
}

void CPDFPicMng::NotifyChanged() {
    PictureFacade().Sink().RefreshPdfMarks();
}

bool CPDFPicMng::QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                           KX_DATA::PageResult& result) {
    records.clear();
    const int filling = grid->Filling();
    std::vector<KX_DATA::PdfPicRecord> page;
    // The service of drawing photos tells success by any value but 0.
    if (GetVeskPicMng()->QueryPdfPics(PdfFilter(), request, result, page) == 0 ||
        grid->Filling() != filling) {
        return false;
    }
    records = std::move(page);
    for (size_t i = 0; i < records.size(); ++i) {
        BuildRow(rowImages, int(i), records[i]);
    }
    return true;
}

void CPDFPicMng::FillPdfBasicCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) const {
    row.SetText(kNameColumn, record.fileName);
    row.SetText(kPdfPosition, CheckpointText(record.checkpointNo));
    row.SetText(kPdfText, record.description);
    row.SetText(GetStatusColumn(), StatusText(record.status));
}

void CPDFPicMng::BuildRow(const toolkit::ImageList& rowImages, int place,
                          KX_DATA::PdfPicRecord& record) {
    auto row = StartRow(place, false);
    FillPdfBasicCells(*row, record);
    row->SetText(kDrawing, record.drawingName);
    row->SetText(kProjectColumn, ProjectName(record.ppid));
    PutMark(*row, record.markId);
    row->SetText(kPdfLabels, LabelText(record.labels));
    row->SetText(kPdfRectify, record.rectifyText);
    row->SetText(kPdfPeople, PairText(record.uploaderName, record.updaterName));
    row->SetText(kPdfTimes, PairText(record.uploadTime, record.updateTime));
    PutIcons(*row, FirstIconColumn(kModePdf), rowImages);
    row->SetData(&record);
    grid->AddRow(std::move(row));
}

int CPDFPicMng::GetStatusColumn() const {
    return StatusColumn(kModePdf);
}

bool CPDFPicMng::IsViewAffected() {
    const QString current = CurrentDrawing().drawingName;
    for (const CGridRow* row : CheckedRows()) {
        if (RecordOf<KX_DATA::PdfPicRecord>(*row).drawingName == current) {
            return true;
        }
    }
    return false;
}

bool CPDFPicMng::IsRowInView(const CGridRow& row) {
    return RecordOf<KX_DATA::PdfPicRecord>(row).drawingName == CurrentDrawing().drawingName;
}

bool CPDFPicMng::GetUsedMarks(std::vector<qint32>& markIds) {
    return GetVeskPicMng()->GetUsedPdfMarks(markIds);
}

bool CPDFPicMng::EditRow(CGridRow& row) {
    Q_UNUSED(row);
    return AnswerAsCancelled(MissingDialog::PdfPicEditor);
}

void CPDFPicMng::LocateRow(CGridRow& row) {
    // A copy: the sink may fetch the page again.
    const auto photo = RecordOf<KX_DATA::PdfPicRecord>(row);
    IPictureFacade& facade = PictureFacade();
    facade.Sink().SelectCheckpoint(photo.checkpointId);
    facade.pendingPicId = photo.picId;
    facade.ShowPdfPicView(photo.ppid, photo.drawingId, photo.drawingName, toolkit::MainWindow());
    toolkit::PostWindowEvent(toolkit::MainWindow(), ZelvorNRQ_KXVeskPicture::WM_VESK_PDF_LOCATE,
                             kLocateDrawing, quintptr(photo.drawingId));
    // The console stays as it is until the viewer exists that brings it back.
}

DownloadSource CPDFPicMng::GetDownloadSource(const CGridRow& row) const {
    const auto& record = RecordOf<KX_DATA::PdfPicRecord>(row);
    // The folder is that of the open project, not of the row's.
    const auto project = CurrentProject().value_or(KX_DATA::ProjectRecord());
    QString folder;
    GetKXPathMng()->GetThumbFolder(folder, project.ppid, project.name);
    return {record.text1, record.fileName,
            ZelvorNRQ_KXVeskPicture::StoredFilePath(folder, record.text1,
                                                    ZelvorNRQ_KXVeskPicture::kPictureEnding)};
}

bool CPDFPicMng::DeleteIds(qint32 projectId, const std::vector<qint32>& picIds) {
    if (!GetVeskPicMng()->DeletePdfPics(projectId, picIds)) {
        return false;
    }
    // Small letters, unlike for BIM photos; required as is.
    WriteAction(u"删除vesk照片"_s);
    return true;
}

void CPDFPicMng::BuildPreviewList(std::vector<KX_DATA::PicViewItem>& items) const {
    for (int i = 0; i < grid->GetRowCount(); ++i) {
        const CGridRow& row = *grid->GetRow(i);
        const KX_DATA::PdfPicRecord& record = records[size_t(i)];
        KX_DATA::PicViewItem item;
        item.picId = record.picId;
        item.ppid = record.ppid;
        item.uuid = record.text1;
        item.fileText = record.text2;
        item.picName = record.fileName;
        item.drawingId = record.drawingId;
        item.markId = record.markId;
        item.positionText = CheckpointText(record.checkpointNo);
        item.uploader = record.uploaderName;
        item.uploadTime = record.uploadTime;
        item.updater = record.updaterName;
        item.updateTime = record.updateTime;
        item.labelText = row.GetItem(kPdfLabels)->GetText();
        item.description = record.description;
        item.rectifyText = record.rectifyText;
        items.push_back(std::move(item));
    }
}

bool CPDFPicMng::SetShown(qint32 projectId, const std::vector<qint32>& picIds, bool hidden) {
    return GetVeskPicMng()->SetPdfPicsShown(projectId, picIds, hidden);
}
