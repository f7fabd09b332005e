// The text of a reminder message out of the bytes that the host hands over.
#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <string>

namespace reminder {

/// A larger message, in bytes of code page 936, is void before it is parsed.
inline constexpr size_t kMostBytes = 1 << 20;

/// @param json  8-bit text in code page 936; bytes that are no text become U+FFFD.
/// @return      nothing for an empty message and for one that is too large. Thread: any.
[[nodiscard]] std::optional<QString> MessageText(const std::string& json);

} // namespace reminder
