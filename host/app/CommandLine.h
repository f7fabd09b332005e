// What the person wrote behind the program's name.
#pragma once

#include "sample/SampleSize.h"
#include "site/IBlobs.h"

#include <QString>
#include <QStringList>

namespace host {

/// What the program is to do.
enum class Road {
    Client, ///< open the client
    Import, ///< file a folder of photos and end
    Tour,   ///< walk through the client without a display and end
    Help,
};

struct CommandLine {
    Road road = Road::Client;
    QString dataFolder; ///< empty: the user's own
    QString userName;   ///< empty: asked for
    sample::SampleSize sample =
        sample::SampleSize::Full;  ///< the site that a folder without one gets
    site::TransferRules transfers; ///< slow or failing, for demonstrations
    QString tourFolder;
    int tourScale = 1;       ///< device pixels for each pixel, 1 to 4
    QStringList importWords; ///< what stands behind "import", without --data and --sample
    QString error;           ///< Chinese; empty: nothing to complain of
};

/// @param words  the command line without the program's name.
/// @return       with `error` set at the first word that makes no sense; the rest is then unread.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& words);

/// What --help prints.
[[nodiscard]] QString HelpText();

} // namespace host
