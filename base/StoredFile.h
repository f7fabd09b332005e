// Where the local copy of a stored file lies: the one place that makes paths of uuids.
#pragma once

#include <QString>
#include <QStringView>

namespace ZelvorNRQ_KXVeskPicture {

inline constexpr QStringView kPictureEnding = u".jpg";
inline constexpr QStringView kNoteEnding = u".amr";

/// Longest name of a stored file, in characters.
inline constexpr int kLongestUuid = 128;

/// Whether a text from a record can name a stored file: letters and digits of ASCII, "-" and "_",
/// 1 to kLongestUuid of them. Nothing else becomes part of a path, since what is no name ("..",
/// separators, control characters) would lead out of the folder.
[[nodiscard]] bool IsUuid(const QString& text);

/// @param folder  ends with its separator.
/// @param ending  with its dot.
/// @return        empty for a text that is no uuid: there is no such file, and none is fetched.
/// Thread: any.
[[nodiscard]] QString StoredFilePath(const QString& folder, const QString& uuid,
                                     QStringView ending);

/// Whether there is a file that was fetched: one without any bytes was not. Thread: any.
[[nodiscard]] bool IsFetched(const QString& path);

} // namespace ZelvorNRQ_KXVeskPicture
