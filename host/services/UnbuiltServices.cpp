#include "host/services/UnbuiltServices.h"

#include "host/services/SiteService.h"

namespace host {

void PicReportCtrl::OutputBimReport(const PIC_REPORT::BimReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputBimReport");
}

void PicReportCtrl::OutputPdfReport(const PIC_REPORT::PdfReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputPdfReport");
}

void PicReportCtrl::OutputIssueReport(const PIC_REPORT::IssueReportRequest* /*request*/) {
    Unimplemented("IPicReportCtrl::OutputIssueReport");
}

} // namespace host
