// Which files can be pictures of an issue.
#pragma once

#include <QString>

namespace host {

/// Largest file that is taken, bytes.
inline constexpr qint64 kMostPictureBytes = 2LL * 1024 * 1024 * 1024;

/// Why a file can't be taken, with its name, for a person; empty: it can. Reads no more than its
/// beginning. Thread: any.
[[nodiscard]] QString PictureLack(const QString& path);

} // namespace host
