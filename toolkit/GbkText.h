// 8-bit text at the client's borders: code page 936 (GBK).
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>

#include <string>

namespace toolkit {

/// False where the platform lacks the code page; the program then says so at its start and ends.
[[nodiscard]] TOOLKIT_EXPORT bool IsGbkAvailable();
/// Characters that the code page lacks become "?". Thread: any.
[[nodiscard]] TOOLKIT_EXPORT std::string ToGbk(const QString& text);
/// Bytes that are no text become U+FFFD. Thread: any.
[[nodiscard]] TOOLKIT_EXPORT QString FromGbk(const std::string& bytes);

} // namespace toolkit
