#include "viewers/PdfPicViewWrap.h"

#include "base/ConsoleMode.h"

using namespace Qt::StringLiterals;

CPdfPicViewWrap::CPdfPicViewWrap()
    : CReportViewWrap(std::make_unique<CPdfPicViewDlg>(this),
                      {u"PdfPicViewWrap"_s, u"PDF照片查看"_s, kModePdf}) {}

bool CPdfPicViewWrap::OpenView(qint32 wantedPicId) {
    return Pane().LoadCheckpoint(drawingId, wantedPicId);
}
