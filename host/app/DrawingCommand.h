// PDF drawings from the command line.
#pragma once

#include "host/drawings/DrawingReader.h"

#include <QStringList>

class QTextStream;

namespace site {
class ISite;
} // namespace site

namespace host {

struct DrawingRequest {
    QStringList files;
    QString project; ///< by its name
};

/// import-drawing FILE.pdf... --project NAME
///
/// Prints a line for each file: filed under which name, or why not.
/// @return  exit code: 0 all filed, 1 at least one wasn't, 2 the words name what doesn't exist.
[[nodiscard]] int RunDrawingCommand(site::ISite& site, const DrawingRequest& request,
                                    const DrawingReader::Terms& terms, QTextStream& out,
                                    QTextStream& err);

} // namespace host
