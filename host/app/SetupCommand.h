// Setup files from the command line.
#pragma once

#include "host/app/SetupWords.h"
#include "host/drawings/DrawingReader.h"

class QTextStream;

namespace host {

/// setup FILE [--user NAME] [--data DIR]... [--check], setup --write FILE [--data DIR]
///
/// Each folder is changed as a whole, drawings too, or not at all; a fault in one doesn't keep the
/// others from it. A folder without a site gets one, unless something is wrong or it is a check. A
/// site that somebody may set up is changed by such a person only.
/// Prints each change, or each fault.
///
/// @param request  with at least one folder.
/// @return         exit code: 0 all done, 1 at least one folder wasn't changed (or the file not
///                 written), 2 there is no such setup file, or it
///                 is to be written as a workbook.
[[nodiscard]] int RunSetupCommand(const SetupRequest& request, const DrawingReader::Terms& terms,
                                  QTextStream& out, QTextStream& err);

} // namespace host
