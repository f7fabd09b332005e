// Pictures of formats that no viewer reads: opened and decoded by the system's libraries.
#pragma once

#include "host/import/ImageSniff.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

namespace host {

/// What is known before anything is decoded.
struct PictureHead {
    QString refusal;          ///< Chinese, why it can't be decoded; empty: it can be tried
    QSize size;               ///< pixels, as decoded
    QString note;             ///< Chinese, what of the file is left out; empty: nothing
    QByteArray exif;          ///< block for an upright JPEG; empty: none
    QByteArray colourProfile; ///< ICC, for RGB; empty: none
};

/// One file. Its bytes must outlive it. Thread: one at a time.
class ForeignPicture {
public:
    virtual ~ForeignPicture() = default;

    [[nodiscard]] const PictureHead& Head() const { return m_head; }
    /// The first or primary picture, upright, in Format_RGB888, what is transparent on white. Null
    /// if the data are broken, or cut off. Only without a refusal.
    [[nodiscard]] virtual QImage Decode() = 0;

protected:
    PictureHead m_head;
};

/// What the libraries of this machine can do; tests say something else.
struct PictureLibraries {
    std::function<bool()> readHevc;
};
[[nodiscard]] const PictureLibraries& SystemPictureLibraries();

/// Never null for Heic, Tiff and WebP, null for the others. Decodes nothing. Thread: any.
[[nodiscard]] std::unique_ptr<ForeignPicture>
OpenForeignPicture(ImageKind kind, const QByteArray& bytes,
                   const PictureLibraries& libraries = SystemPictureLibraries());

/// True for the kinds above.
[[nodiscard]] bool IsForeign(ImageKind kind);

[[nodiscard]] std::unique_ptr<ForeignPicture> OpenHeic(const QByteArray& bytes,
                                                       const PictureLibraries& libraries);
[[nodiscard]] std::unique_ptr<ForeignPicture> OpenTiff(const QByteArray& bytes);
[[nodiscard]] std::unique_ptr<ForeignPicture> OpenWebp(const QByteArray& bytes);

} // namespace host
