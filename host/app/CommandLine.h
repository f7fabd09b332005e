// What the person wrote behind the program's name.
#pragma once

#include "host/app/SetupWords.h"
#include "host/app/SimulateWords.h"
#include "sample/SampleSize.h"
#include "site/IBlobs.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace host {

/// What the program is to do.
enum class Road {
    Client,        ///< open the client
    Import,        ///< file a folder of photos and end
    ImportDrawing, ///< file PDF drawings and end
    Setup,         ///< set up sites as a file says, or write such a file, and end
    Simulate,      ///< file what the phones on a site would, until it is stopped
    Help,
};

struct CommandLine {
    Road road = Road::Client;
    QString dataFolder; ///< empty: the user's own
    QString userName;   ///< empty: asked for
    /// The site that a folder without one gets; nothing: whoever sees the windows is asked, for
    /// others it is the full one.
    std::optional<sample::SampleSize> sample;
    site::TransferRules transfers; ///< slow or failing, for demonstrations
    bool isWatched = false;        ///< somebody looks at the windows, also without a display
    QStringList importWords;       ///< what stands behind "import", without --data and --sample
    SetupRequest setup;
    SimulateRequest simulate;
    QStringList drawings;   ///< files behind "import-drawing"
    QString drawingProject; ///< where they go
    QString error;          ///< Chinese; empty: nothing to complain of
};

/// What stands behind a program's name.
[[nodiscard]] QStringList WordsOf(int argc, char** argv);

/// The value of an option, "--data DIR" or "--data=DIR"; nothing without one.
///
/// @param at  place of the option; moved to the last word that was taken.
[[nodiscard]] std::optional<QString> TakeValue(const QStringList& words, qsizetype& at);

/// @param words  the command line without the program's name.
/// @return       with `error` set at the first word that makes no sense; the rest is then unread.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& words);

/// What --help prints.
[[nodiscard]] QString HelpText();

} // namespace host
