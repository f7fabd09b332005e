// What the person wrote behind the walk's name.
#pragma once

#include "host/app/CommandLine.h"

#include <QSize>
#include <QString>
#include <QStringList>

namespace tour {

enum class WalkKind {
    Sample, ///< through the sample site, by all windows
    OwnSite ///< from nothing to a project of one's own
};

struct TourWords {
    QString folder; ///< of the pictures
    WalkKind walk = WalkKind::Sample;
    QSize screen{1920, 1080}; ///< device-independent pixels
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
