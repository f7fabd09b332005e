// Where a text breaks into lines.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

#include <vector>

class QFont;

namespace toolkit {

/// Part of a text that stands on one line, in UTF-16 units; a blank line has length 0.
struct TextPart {
    qsizetype start = 0;
    qsizetype length = 0;
    bool operator==(const TextPart&) const = default;
};

/// Breaks plain text at its line feeds and where Unicode lets a line end (UAX 14), elsewhere only
/// within a word that is wider than a line. No pair or joined sign is split. Some microseconds for
/// a comment.
///
/// @param width  of a line, device-independent pixels; a sign that is wider stands alone.
/// @return       at least one part; blanks at the end of a line may hang over its width.
/// Thread: user interface.
[[nodiscard]] TOOLKIT_EXPORT std::vector<TextPart> BreakLines(const QString& text,
                                                              const QFont& font, int width);

} // namespace toolkit
