// The report library.
#pragma once

#include "services/ReportRecords.h"

namespace PIC_REPORT {

/// Each operation returns at once; the report runs in a window of its own.
class IPicReportCtrl {
public:
    virtual ~IPicReportCtrl() = default;

    virtual void Reserved1() = 0;
    virtual void OutputBimReport(const BimReportRequest* request) = 0;
    virtual void OutputPdfReport(const PdfReportRequest* request) = 0;
    virtual void OutputIssueReport(const IssueReportRequest* request) = 0;
};

} // namespace PIC_REPORT
