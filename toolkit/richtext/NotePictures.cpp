#include "toolkit/richtext/NotePictures.h"

#include "toolkit/Look.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
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
/// Of a file that takes longer to be decoded than a frame may take.
constexpr double kLargePixels = 3e6;
constexpr int kMostDecodedKilobytes = 96 * 1024;

} // namespace

NotePictures::NotePictures(QString folder, QTextDocument* document)
    : QObject(document), m_folder(std::move(folder)), m_decoded(kMostDecodedKilobytes),
      m_decoder([this] {
          QMetaObject::invokeMethod(this, &NotePictures::TakeDecoded, Qt::QueuedConnection);
      }) {}

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

NotePictures::Wanted NotePictures::WantedOf(const QString& storeName, const QSize& file,
                                            const QSize& most) {
    // Whatever shape the text gives it, no side has fewer pixels than are seen.
    const double seen =
        std::max(double(most.width()) / file.width(), double(most.height()) / file.height());
    const double scale =
        std::min({1.0, seen, double(kMostDecodedWidth) / file.width(),
                  std::sqrt(kMostDecodedPixels / (double(file.width()) * file.height()))});
    const QSize size = (QSizeF(file) * scale).toSize().expandedTo({1, 1});
    return {u"%1 %2 %3"_s.arg(storeName).arg(size.width()).arg(size.height()),
            {m_folder + storeName, {}, size, Qt::white}};
}

void NotePictures::Keep(const QString& key, const QImage& image) {
    m_decoded.insert(key, new QImage(image), 1 + image.sizeInBytes() / 1024);
}

QImage NotePictures::Decoded(const QString& storeName, const QSize& most) {
    const QSize file = FileSize(storeName);
    if (file.isEmpty()) {
        return {};
    }
    const Wanted wanted = WantedOf(storeName, file, most);
    if (const QImage* known = m_decoded.object(wanted.key)) {
        return *known;
    }
    const QImage image = DecodePicture(wanted.request);
    Keep(wanted.key, image);
    return image;
}

std::optional<QImage> NotePictures::DecodedSoon(const QString& storeName, const QSize& most) {
    const QSize file = FileSize(storeName);
    if (double(file.width()) * file.height() < kLargePixels) {
        return Decoded(storeName, most);
    }
    const Wanted wanted = WantedOf(storeName, file, most);
    if (const QImage* known = m_decoded.object(wanted.key)) {
        m_shown[storeName] = wanted.key;
        return *known;
    }
    m_decoder.Ask(wanted.key, wanted.request);
    const QImage* before = m_decoded.object(m_shown.value(storeName));
    return before == nullptr ? std::nullopt : std::optional(*before);
}

void NotePictures::TakeDecoded() {
    for (const NoteDecoder::Done& done : m_decoder.Take()) {
        Keep(done.key, done.image);
    }
    emit static_cast<QTextDocument*>(parent())->documentLayout()->update();
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
    const QString name = format.toImageFormat().name();
    // Paper and pictures of the document don't come back for what comes later.
    const bool isWindow = painter->device()->devType() == QInternal::Widget;
    const std::optional<QImage> soon =
        isWindow ? DecodedSoon(name, pixels.toSize()) : Decoded(name, pixels.toSize());
    if (!soon) {
        painter->fillRect(place, Colors::Frame());
        return;
    }
    const QImage& image = *soon;
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
