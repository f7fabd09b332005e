// Reads one file and decides whether it is a picture that can be filed.
#pragma once

#include "host/import/ForeignPicture.h"
#include "site/PhotoFacts.h"

#include <QByteArray>
#include <QSize>
#include <QString>

namespace host {

/// One file as the worker hands it over.
struct ExaminedFile {
    QString path;
    QString refusal;        ///< Chinese, why it is passed over; empty: it can be filed
    QString note;           ///< Chinese, what of a file that can be filed is left out; often empty
    QString displayName;    ///< name to show, without separators and control characters
    QByteArray bytes;       ///< what viewers read: the whole file as it is, or a JPEG made of it
    QByteArray original;    ///< the whole file as it is if `bytes` were made of it, else empty
    QString originalName;   ///< its name, cleaned as the other one
    QString md5;            ///< of the file as it is, 32 lower-case hexadecimal digits
    bool isKnown = false;   ///< the project has it: not examined, and without its bytes
    site::PhotoFacts facts; ///< what the picture tells of its taking
};

/// Largest picture that is taken; above the 108 megapixels of today's phones.
inline constexpr qint64 kMaxPixels = 200'000'000;
/// Largest file that is taken.
inline constexpr qint64 kMaxFileBytes = 300LL * 1024 * 1024;

/// The first half: reads the file and its MD5, and refuses what can't be a picture by its name and
/// its first bytes. Never throws and never opens what isn't a plain file. Thread: any.
[[nodiscard]] ExaminedFile ReadFile(const QString& path);
/// The second half, which takes long: decodes the picture, and makes the JPEG of one that no viewer
/// reads. Nothing for a file that was refused. Thread: any.
void Examine(ExaminedFile& file, const PictureLibraries& libraries = SystemPictureLibraries());
/// Both.
[[nodiscard]] ExaminedFile
ExamineFile(const QString& path, const PictureLibraries& libraries = SystemPictureLibraries());

/// Chinese, if there are more than kMaxPixels; else empty.
[[nodiscard]] QString TooManyPixels(QSize size);

/// The name without what may not stand in a display name: separators and ":" become "_", control
/// characters vanish, and the base is cut so that the whole has at most 200 characters. A name of
/// which nothing is left becomes "照片".
[[nodiscard]] QString CleanDisplayName(const QString& name);

} // namespace host
