// What the person wrote behind the walk's name.
#pragma once

#include "host/app/CommandLine.h"

#include <QString>
#include <QStringList>

namespace tour {

struct TourWords {
    QString folder;           ///< of the pictures
    int scale = 1;            ///< device pixels for each pixel, 1 to 4
    host::CommandLine client; ///< how the client is opened, by the rest of the words
    bool wantsHelp = false;
    QString error; ///< Chinese; empty: nothing to complain of
};

/// @param words  the command line without the program's name.
/// @return       with `error` set if some of them make no sense or the folder isn't named.
[[nodiscard]] TourWords ReadTourWords(const QStringList& words);

/// What --help prints.
[[nodiscard]] QString TourHelpText();

} // namespace tour
