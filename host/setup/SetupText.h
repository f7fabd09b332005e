// The setup of a site as a setup file.
#pragma once

#include "site/SetupState.h"

#include <QByteArray>

namespace host {

/// What `ReadSetupText` reads and `PlanSetup` makes the same setup of, on an empty site too: UTF-8
/// with its mark, line ends CR LF. Of an empty state a file to be filled in. Left out: numbers,
/// which each site gives itself, crossings that aren't valid, drawings, whose files a setup doesn't
/// have.
[[nodiscard]] QByteArray SetupTextOf(const site::SetupState& state);

} // namespace host
