// The client's start up to its main window: data folder, sample site, user.
#pragma once

#include "host/app/CommandLine.h"

#include <QString>

#include <vector>

namespace host {

class HostSession;

/// How far a start has come.
struct StartResult {
    bool goOn = true; ///< false with an empty fault: the person gave up
    QString fault;    ///< Chinese, what is wrong and what to do
};

/// The folder that the command line names, else the one that was chosen last, or the user's own.
[[nodiscard]] QString DataFolderOf(const CommandLine& line);
/// It is the one that was chosen last.
[[nodiscard]] bool IsRemembered(const CommandLine& line);
/// Says of that one that it is gone.
[[nodiscard]] QString LostFolderText(const QString& folder);
/// Those of a site's first user.
[[nodiscard]] std::vector<qint32> AllRights();
/// Opens the data folder and, if no site is in it yet, makes the sample site with progress shown.
/// Cancelled, the folder is left without a site; one that was chosen and is gone isn't made anew.
/// Thread: user interface.
[[nodiscard]] StartResult OpenSite(HostSession& session, const CommandLine& line);
/// Signs in the user whom the command line names, or asks. The folder is open.
[[nodiscard]] StartResult SignInUser(HostSession& session, const CommandLine& line);

} // namespace host
