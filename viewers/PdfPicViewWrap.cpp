#include "viewers/PdfPicViewWrap.h"

#include "base/ConsoleMode.h"
#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "toolkit/windows/StillThere.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPointRecordHeight = 150;
constexpr qint32 kRecordOfDrawing = 2;

} // namespace

CPdfPicViewWrap::CPdfPicViewWrap()
    : CReportViewWrap(std::make_unique<CPdfPicViewDlg>(this),
                      {u"PdfPicViewWrap"_s, u"PDF照片查看"_s, kModePdf, kPointRecordHeight}) {}

bool CPdfPicViewWrap::OpenView(qint32 wantedPicId) {
    const toolkit::StillThere still(Id());
    RichContext record;
    record.ownerId = drawingId;
    record.objectType = kRecordOfDrawing;
    record.projectId = ppid;
    ShowRecord(record);
    return still && Pane().LoadCheckpoint(drawingId, wantedPicId);
}

// Of the drawing with all its checkpoints.
void CPdfPicViewWrap::AskForReport(const ReportTexts& texts) {
    PIC_REPORT::PdfReportRequest request;
    request.htmlText = texts.html;
    request.richTextEnabled = texts.isEnabled;
    request.drawingId = drawingId;
    request.versionText = texts.state;
    request.recordText = texts.editorName;
    request.drawingName = drawingName;
    GetPicReportCtrl()->OutputPdfReport(&request);
}
