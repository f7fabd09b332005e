// As much of a text as one line on a screen can show.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

namespace toolkit {

/// Texts from data may be megabytes; measuring more than a line holds takes its time, and the width
/// of millions of characters overflows, so that they count as narrow.
///
/// @return  the text itself if it is no longer than any line; otherwise its beginning and an
///          ellipsis, still longer than any line.
[[nodiscard]] TOOLKIT_EXPORT QString LineStart(const QString& text);

/// The same for a line that is elided in its middle: beginning and end of the text, together still
/// longer than any line.
[[nodiscard]] TOOLKIT_EXPORT QString LineEnds(const QString& text);

} // namespace toolkit
