#include "viewers/PictureClip.h"

#include "toolkit/media/PictureFile.h"

#include <QImage>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

/// Qt's own name for an image, which it turns into what the platform wants.
const QString kImage = u"application/x-qt-image"_s;

} // namespace

PictureClip::PictureClip(const QString& path) : m_path(path) {
    setUrls({QUrl::fromLocalFile(path)});
}

bool PictureClip::hasFormat(const QString& mimeType) const {
    return mimeType == kImage || QMimeData::hasFormat(mimeType);
}

QStringList PictureClip::formats() const {
    return QMimeData::formats() << kImage;
}

QVariant PictureClip::retrieveData(const QString& mimeType, QMetaType type) const {
    if (mimeType == kImage) {
        return toolkit::DecodeWholePicture(m_path);
    }
    return QMimeData::retrieveData(mimeType, type);
}

} // namespace gallery
