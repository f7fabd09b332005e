#include "toolkit/richtext/NotePictures.h"

#include "toolkit/Look.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QPainter>
#include <QTextImageFormat>

#include <algorithm>
#include <cmath>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// Wider than any page is shown at its usual size, device pixels.
constexpr int kMostDecodedWidth = 2000;
constexpr double kMostDecodedPixels = 12e6;
constexpr int kMostDecodedKilobytes = 96 * 1024;

} // namespace

NotePictures::NotePictures(QString folder, QObject* parent)
    : QObject(parent), m_folder(std::move(folder)), m_decoded(kMostDecodedKilobytes) {}

QSize NotePictures::FileSize(const QString& storeName) {
    const auto known = m_sizes.constFind(storeName);
    if (known != m_sizes.cend()) {
        return *known;
    }
    const QSize size = IsStoreName(storeName) ? ReadPictureSize(m_folder + storeName) : QSize();
    if (!size.isEmpty()) {
        m_sizes.insert(storeName, size); // one that isn't there may come
    }
    return size;
}

QSizeF NotePictures::intrinsicSize(QTextDocument* document, int position,
                                   const QTextFormat& format) {
    Q_UNUSED(document);
    Q_UNUSED(position);
    return SizeOf(format) * m_factor;
}

QSizeF NotePictures::SizeOf(const QTextFormat& format) {
    const QTextImageFormat picture = format.toImageFormat();
    const QSizeF given(picture.width(), picture.height());
    if (!given.isEmpty()) {
        return given;
    }
    const QSize file = FileSize(picture.name());
    const QSizeF own = file.isEmpty() ? kMissingPicture : file;
    if (given.width() > 0) {
        return {given.width(), own.height() * given.width() / own.width()};
    }
    if (given.height() > 0) {
        return {own.width() * given.height() / own.height(), given.height()};
    }
    return own;
}

QImage NotePictures::Decoded(const QString& storeName, const QSize& most) {
    const QSize file = FileSize(storeName);
    if (file.isEmpty()) {
        return {};
    }
    // Whatever shape the text gives it, no side has fewer pixels than are seen.
    const double seen =
        std::max(double(most.width()) / file.width(), double(most.height()) / file.height());
    const double scale =
        std::min({1.0, seen, double(kMostDecodedWidth) / file.width(),
                  std::sqrt(kMostDecodedPixels / (double(file.width()) * file.height()))});
    const QSize size = (QSizeF(file) * scale).toSize().expandedTo({1, 1});
    const QString key = u"%1 %2 %3"_s.arg(storeName).arg(size.width()).arg(size.height());
    if (const QImage* known = m_decoded.object(key)) {
        return *known;
    }
    const QImage image = DecodePicture({m_folder + storeName, {}, size, Qt::white});
    m_decoded.insert(key, new QImage(image), 1 + image.sizeInBytes() / 1024);
    return image;
}

void NotePictures::PaintMissing(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.fillRect(place, Colors::Header());
    painter.setFont(UiFont());
    painter.setPen(Colors::HintText());
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    painter.drawText(place, Qt::AlignCenter, u"图片无法显示"_s);
    painter.restore();
}

void NotePictures::drawObject(QPainter* painter, const QRectF& place, QTextDocument* document,
                              int position, const QTextFormat& format) {
    Q_UNUSED(document);
    Q_UNUSED(position);
    const QSizeF pixels = place.size() * painter->device()->devicePixelRatioF();
    const QImage image = Decoded(format.toImageFormat().name(), pixels.toSize());
    if (image.isNull()) {
        PaintMissing(*painter, place);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform, image.size() != place.size().toSize());
    painter->drawImage(place, image);
    painter->restore();
}

} // namespace toolkit
