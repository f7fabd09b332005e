// A report as a file: one page of the web.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportFile.h"

namespace host {

/// HTML 5 in UTF-8, pictures in it as data of RFC 2397; nothing in it is fetched or run.
/// Pictures that can't be read become their reason. Throws ReportFault: cancelled, not written; the
/// final name is as it was then. Thread: any.
void WriteWeb(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
              const ReportSteps& steps);

} // namespace host
