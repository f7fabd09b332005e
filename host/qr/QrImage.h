// A text as a QR code.
#pragma once

#include <QImage>
#include <QString>

namespace host {

/// White around the code that readers need (ISO/IEC 18004), in modules.
inline constexpr int kQuietModules = 4;

/// In UTF-8, with error correction M and a quiet zone, each module a square of whole pixels, black
/// on white.
/// @param modulePixels  side of a module, > 0.
/// @return              null for an empty text and for one of more than 2331 bytes of UTF-8.
/// Thread: any.
[[nodiscard]] QImage QrImageOf(const QString& text, int modulePixels);

} // namespace host
