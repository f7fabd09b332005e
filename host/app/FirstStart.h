// The client's first start: what is there to open, and what a person without a site wants.
#pragma once

#include "host/app/StartUp.h"

#include <QStringList>

namespace host {

class HostSession;

/// How the client has begun.
struct Beginning {
    StartResult site;
    QString userName;     ///< who signs in without a question; empty: asked
    QStringList messages; ///< for the message bar once the client is open
};

/// Opens the client's data folder. Where somebody sees the windows, no sample was named and no site
/// is there yet, a page asks how to begin, before anything is made: the sample site, a new one, or
/// one elsewhere. What comes to nothing leaves nothing behind, and who gives up neither. A folder
/// that was chosen is remembered, save one that the command line names. Elsewhere as OpenSite.
/// Thread: user interface.
[[nodiscard]] Beginning BeginClient(HostSession& session, const CommandLine& line);

} // namespace host
