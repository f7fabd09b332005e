// A report as a file: a PDF document.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportFile.h"

namespace host {

/// PDF/A-1b (ISO 19005-1) as far as Qt's writer makes it one, with embedded faces, bookmarks of the
/// headings and links in the table of contents. Photographs go in as the JPEG files that
/// PrintPictures made: the pages are painted with stand-ins, which qpdf replaces. Steps are pages
/// and photographs.
/// Pictures that can't be read become their reason. Throws ReportFault: cancelled, not written; the
/// final name is as it was then. Thread: any.
void WritePdf(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
              const ReportSteps& steps);

} // namespace host
