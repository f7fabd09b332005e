// Contracts that no part of the client needs yet: they fail, say so in the log, and invent nothing.
#pragma once

#include "services/IPicReportCtrl.h"

namespace host {

class PicReportCtrl final : public PIC_REPORT::IPicReportCtrl {
public:
    void Reserved1() override {}
    void OutputBimReport(const PIC_REPORT::BimReportRequest* request) override;
    void OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) override;
    void OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) override;
};

} // namespace host
