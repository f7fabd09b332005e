// Reads one file and decides whether it is a picture that can be filed.
#pragma once

#include <QByteArray>
#include <QString>

namespace host {

/// One file as the worker hands it over.
struct ExaminedFile {
    QString path;
    QString refusal;     ///< Chinese, why it is passed over; empty: it can be filed
    QString displayName; ///< name to show, without separators and control characters
    QByteArray bytes;    ///< the whole file as it is; what was examined is what gets stored
    QString md5;         ///< 32 lower-case hexadecimal digits
    qint64 time = 0;     ///< seconds since 1970, from the photo itself or from the file
};

/// Largest picture that is taken; above the 108 megapixels of today's phones.
inline constexpr qint64 kMaxPixels = 200'000'000;
/// Largest file that is taken.
inline constexpr qint64 kMaxFileBytes = 300LL * 1024 * 1024;

/// Never throws and never opens what isn't a plain file. Thread: any.
[[nodiscard]] ExaminedFile ExamineFile(const QString& path);

/// The name without what may not stand in a display name: separators and ":" become "_", control
/// characters vanish, and the base is cut so that the whole has at most 200 characters. A name of
/// which nothing is left becomes "照片".
[[nodiscard]] QString CleanDisplayName(const QString& name);

} // namespace host
