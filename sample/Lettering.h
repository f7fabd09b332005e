// The face in which the program writes on pictures and drawings.
#pragma once

#include <QFont>

namespace sample {

/// A Simplified Chinese sans face of the given height. Thread: any, once the application object
/// exists.
[[nodiscard]] QFont SiteFont(int pixels, bool bold = false);

} // namespace sample
