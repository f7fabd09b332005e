#include "bench/CachedPictures.h"

#include <QBuffer>
#include <QFile>
#include <QImage>

#include <filesystem>

namespace bench {

using namespace Qt::StringLiterals;

QByteArray StoredPicture() {
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG");
    return bytes;
}

bool PutIntoCache(const QStringList& uuids, const QString& folder, const QStringList& photos) {
    const auto pathOf = [&](qsizetype at) { return folder + uuids[at] + u".jpg"_s; };
    for (qsizetype at = 0; at < uuids.size(); ++at) {
        std::error_code error;
        if (at < photos.size()) {
            QFile::copy(photos[at], pathOf(at));
        } else {
            std::filesystem::create_hard_link(pathOf(at % photos.size()).toStdString(),
                                              pathOf(at).toStdString(), error);
        }
        if (error || !QFile::exists(pathOf(at))) {
            return false;
        }
    }
    return !uuids.isEmpty();
}

} // namespace bench
