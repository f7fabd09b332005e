// A page of a report, painted.
#pragma once

#include "host/report/PageInk.h"
#include "host/report/ReportPages.h"

namespace host {

/// With header and footer, on whatever is there; coordinates are 1/96 inch.
///
/// @param pageCount  for the footer; 0: not known yet.
void PaintPage(QPainter& painter, const ReportPages& pages, int page, int pageCount, IPageInk& ink);

} // namespace host
