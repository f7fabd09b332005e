#include "console/PDFPicMng.h"

#include "base/FacadeAccess.h"
#include "base/OpenProject.h"
#include "console/ColumnTable.h"
#include "console/RowTexts.h"
#include "console/VeskPicMngGrid.h"
#include "editors/PdfPicEditDlg.h"
#include "include/KXEvents.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IVeskPicMng.h"
#include "toolkit/windows/WindowRegistry.h"

#include <algorithm>

using namespace Qt::StringLiterals;

using ZelvorNRQ_KXVeskPicture::CurrentDrawing;
using ZelvorNRQ_KXVeskPicture::IPictureFacade;
using ZelvorNRQ_KXVeskPicture::PictureFacade;

namespace {

enum PdfColumn { kDrawing = 5 };

/// First parameter of the event that asks the main window for a drawing.
constexpr quintptr kLocateDrawing = 3;

} // namespace

void PdfPics::TellHost() {
    PictureFacade().Sink().RefreshPdfMarks();
}

bool PdfPics::Query(const CPicMngBase& mng, const KX_DATA::PageRequest& request,
                    KX_DATA::PageResult& result, std::vector<Record>& page) {
    return GetVeskPicMng()->QueryPdfPics(mng.PdfFilter(), request, result, page) != 0;
}

bool PdfPics::SetShown(qint32 projectId, const std::vector<Id>& ids, bool hidden) {
    return GetVeskPicMng()->SetPdfPicsShown(projectId, ids, hidden);
}

bool PdfPics::Delete(qint32 projectId, const std::vector<Id>& ids) {
    return GetVeskPicMng()->DeletePdfPics(projectId, ids);
}

bool PdfPics::UsedMarks(std::vector<qint32>& markIds) {
    return GetVeskPicMng()->GetUsedPdfMarks(markIds);
}

QString PdfPics::Folder(const KX_DATA::ProjectRecord& project) {
    QString folder;
    GetKXPathMng()->GetThumbFolder(folder, project.ppid, project.name);
    return folder;
}

void PdfPics::PutPlace(KX_DATA::PicViewItem& item, const Record& record, const CGridRow& row) {
    Q_UNUSED(row);
    item.drawingId = record.drawingId;
    item.positionText = CheckpointText(record.checkpointNo);
}

void CPDFPicMng::FillPdfBasicCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) const {
    FillBasicCells(row, record, CheckpointText(record.checkpointNo));
}

void CPDFPicMng::FillCells(CGridRow& row, const KX_DATA::PdfPicRecord& record) {
    FillPdfBasicCells(row, record);
    row.SetText(kDrawing, record.drawingName);
    FillFurtherCells(row, record);
}

bool CPDFPicMng::IsViewAffected() {
    const std::vector<CGridRow*> checked = CheckedRows();
    const QString current = CurrentDrawing().drawingName;
    return std::ranges::any_of(
        checked, [&](const CGridRow* row) { return RecordOf(*row).drawingName == current; });
}

bool CPDFPicMng::IsRowInView(const CGridRow& row) {
    return RecordOf(row).drawingName == CurrentDrawing().drawingName;
}

bool CPDFPicMng::EditRow(CGridRow& row) {
    // False: the editor itself tells the console what it saved.
    CPdfPicEditDlg::Instance().EditPic(RecordOf(row), grid->ParentId());
    return false;
}

void CPDFPicMng::LocateRow(CGridRow& row) {
    // A copy: the sink may fetch the page again.
    const KX_DATA::PdfPicRecord photo = RecordOf(row);
    IPictureFacade& facade = PictureFacade();
    facade.Sink().SelectCheckpoint(photo.checkpointId);
    facade.pendingPicId = photo.picId;
    const bool isViewerOpen = facade.OpenPdfPicView(photo.ppid, photo.drawingId, photo.drawingName,
                                                    toolkit::MainWindow());
    toolkit::PostWindowEvent(toolkit::MainWindow(), ZelvorNRQ_KXVeskPicture::WM_VESK_PDF_LOCATE,
                             kLocateDrawing, quintptr(photo.drawingId));
    // Only behind a viewer that opened: nothing else brings a minimised console back.
    if (isViewerOpen) {
        LeaveToViewer();
    }
}
