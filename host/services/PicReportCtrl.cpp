#include "host/services/PicReportCtrl.h"

namespace host {

using namespace Qt::StringLiterals;

template <class Request>
void PicReportCtrl::HandOn(const Request* request,
                           void (PIC_REPORT::IPicReportCtrl::*operation)(const Request*)) {
    if (PIC_REPORT::IPicReportCtrl* reports = Around().reports) {
        (reports->*operation)(request);
    } else if (const auto desk = Around().Desk()) {
        desk->Report(MessageLevel::Info, u"此版本尚不提供“输出报告”，请等待后续版本。"_s);
    }
}

void PicReportCtrl::OutputBimReport(const PIC_REPORT::BimReportRequest* request) {
    HandOn(request, &IPicReportCtrl::OutputBimReport);
}

void PicReportCtrl::OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) {
    HandOn(request, &IPicReportCtrl::OutputPdfReport);
}

void PicReportCtrl::OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) {
    HandOn(request, &IPicReportCtrl::OutputIssueReport);
}

} // namespace host
