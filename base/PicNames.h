// Names of picture files.
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// "jpg", "jpeg", "png", "bmp", "gif" in any case; without dot.
[[nodiscard]] bool IsPicExtension(const QString& extension);

/// Parts a picture's name into base and extension, both spelled as in the name. A name without one
/// of the known extensions is all base, and the extension is "jpg".
/// @param withDot  the extension comes with its dot in front.
void SplitPicName(const QString& name, QString& base, QString& extension, bool withDot);

/// Most numbers that a copy tries behind a name that is taken.
inline constexpr int kMostCopyNumbers = 31;

/// Path of a copy: number 0 is the plain name, others stand in brackets behind the base. The base
/// comes with what a file system refuses replaced (see SafeFileName).
[[nodiscard]] QString CopyTarget(const QString& folder, const QString& base, int number,
                                 const QString& extension);

/// The name with separators, control characters and what common file systems refuse replaced by
/// "_", cut to what fits with an extension; "_" for an empty name and for dots alone.
[[nodiscard]] QString SafeFileName(const QString& name);

} // namespace ZelvorNRQ_KXVeskPicture
