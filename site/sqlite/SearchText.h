// How texts are cut for the search table, and how a keyword is asked for: one cut for both.
#pragma once

#include <QString>

namespace site {

/// Each character becomes a word of its own, so that a phrase of words is a substring of the text.
/// ASCII letters become small; what is neither letter nor digit becomes a word that names its code.
[[nodiscard]] QString SearchWords(const QString& text);
/// The query that finds `keyword` in any one field; empty for an empty keyword.
[[nodiscard]] QString SearchPhrase(const QString& keyword);

} // namespace site
