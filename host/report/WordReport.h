// A report as a file: a Word document.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportFile.h"

namespace host {

/// Office Open XML (ISO/IEC 29500, transitional), packed by libzip. Headings are outline levels,
/// the contents a field with its text, which has pages once Word counts it; page numbers are
/// fields. Pictures that can't be read become their reason. Throws ReportFault: cancelled, not
/// written; the final name is as it was then. Thread: any.
void WriteWord(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
               const ReportSteps& steps);

} // namespace host
