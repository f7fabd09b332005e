// The import from the command line.
#pragma once

#include <QStringList>

class QTextStream;

namespace site {
class ISite;
} // namespace site

namespace host {

/// import FOLDER... --project NAME --user NAME [--floor F --x X --y Y] [--mark M]
///
/// Prints a line for each file that isn't filed, a line of progress now and then, and the counts.
/// @param words   what stands behind "import", without the data folder's option.
/// @param folder  opened here if it isn't open.
/// @return        exit code: 0 all done (refused files included), 1 stopped by a fault, 2 the words
///                make no sense or name what doesn't exist.
[[nodiscard]] int RunImportCommand(site::ISite& site, const QStringList& words, QTextStream& out,
                                   QTextStream& err);

} // namespace host
