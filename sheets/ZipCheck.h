// Whether an archive of XML parts was written to its end.
#pragma once

#include <QString>

namespace sheets {

/// Reads all parts: each bears its sum, and each XML part ends with the end of its outermost
/// element. What isn't an archive, or is a damaged one, isn't whole. Reads deflated and stored
/// parts; the memory taken doesn't grow with the file. Form: PKWARE's APPNOTE, 4.3. Thread: any.
[[nodiscard]] bool IsWholeWorkbook(const QString& path);

} // namespace sheets
