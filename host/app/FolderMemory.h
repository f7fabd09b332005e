// Which data folder the client begins with when nobody names one.
#pragma once

#include <QString>

namespace host {

/// The user's own, as the system says.
[[nodiscard]] QString OwnDataFolder();

/// The folder that a person chose last on the first-start page; empty: none, or the user's own. It
/// stands in a settings file beside those of other programs, the one thing that the client writes
/// outside of a data folder.
[[nodiscard]] QString RememberedFolder();
/// The user's own one needs no memory, nor a settings file. False: it couldn't be written.
bool RememberFolder(const QString& folder);

} // namespace host
