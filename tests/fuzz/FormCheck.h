// Whether HTML is in the document form of rich text, read by other means than what makes it.
#pragma once

#include <QString>

namespace fuzz {

/// Null, or what of the form doesn't hold: elements and attributes that it knows, all in pairs and
/// not too deep; no script, no style sheet, no address that is loaded.
[[nodiscard]] const char* FaultOfForm(const QString& html);

} // namespace fuzz
