// What a report tells of a place, a drawing or an issue, read from the data.
#pragma once

#include "host/report/ReportContent.h"
#include "services/ReportRecords.h"

#include <cstddef>
#include <vector>

namespace host {

class HostSession;

/// A file that a report wants, and where its content has room for it.
struct ReportWish {
    enum class What { Photo, Voice };
    What what = What::Photo;
    QString uuid;
    QString path; ///< where the module looks for it too
    size_t section = 0;
    size_t index = 0; ///< of the photo, or of the voice note
};

/// The place that a report shows in a plan.
struct ReportPlace {
    qint32 ppid = 0;
    QString floor;
    QString positionKey;  ///< empty: none on a floor
    qint32 drawingId = 0; ///< 0: none on a drawing
    qint32 pointId = 0;   ///< of the drawing
};

struct ReportReading {
    ReportContent content;
    std::vector<ReportWish> wishes; ///< in the order of the report
    ReportPlace place;
    QString lack; ///< why there is no report, a sentence; empty: there is one
};

/// All photos of the mark at the intersection that are shown. May throw DataError, here and below.
[[nodiscard]] ReportReading ReadBimReport(HostSession& session,
                                          const PIC_REPORT::BimReportRequest& request);
/// All checkpoints of the drawing on which the request's lies, those alone that have photos or
/// texts.
[[nodiscard]] ReportReading ReadPdfReport(HostSession& session,
                                          const PIC_REPORT::PdfReportRequest& request);
/// The issue with its rectification.
[[nodiscard]] ReportReading ReadIssueReport(HostSession& session,
                                            const PIC_REPORT::IssueReportRequest& request);

} // namespace host
