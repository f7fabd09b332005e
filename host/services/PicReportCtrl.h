// Reports of what a viewer shows.
#pragma once

#include "host/services/SiteService.h"
#include "services/IPicReportCtrl.h"

namespace host {

/// Hands a request on to the client's component; without one the person is told that there is none.
/// Thread: user interface.
class PicReportCtrl final : public PIC_REPORT::IPicReportCtrl, private SiteService {
public:
    using SiteService::SiteService;

    void Reserved1() override {}
    void OutputBimReport(const PIC_REPORT::BimReportRequest* request) override;
    void OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) override;
    void OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) override;

private:
    template <class Request>
    void HandOn(const Request* request,
                void (PIC_REPORT::IPicReportCtrl::*operation)(const Request*));
};

} // namespace host
