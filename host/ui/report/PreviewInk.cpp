#include "host/ui/report/PreviewInk.h"

#include "host/report/PageText.h"
#include "host/report/ReportOptions.h"
#include "toolkit/media/PictureFile.h"

#include <QPainter>

namespace host {

void PreviewInk::DrawPhoto(QPainter& painter, const PhotoPlace& place, const QString& file,
                           const QString& lack) {
    if (file.isEmpty()) {
        DrawLack(painter, place.room, lack);
        return;
    }
    const PrintPicture* photo = m_pictures.Find(file, place.room.size());
    if (photo == nullptr) {
        m_isComplete = false;
        painter.fillRect(place.room, kShadeInk);
        return;
    }
    if (!photo->IsThere()) {
        DrawLack(painter, place.room, {});
        return;
    }
    const QRectF where = PlaceIn(place, photo->size);
    const QSize size =
        (where.size() * m_pixels).toSize().boundedTo(photo->size).expandedTo(QSize(1, 1));
    painter.drawImage(where, toolkit::DecodePicture({photo->path, {}, size}));
}

void PreviewInk::DrawImage(QPainter& painter, const QRectF& place, const QImage& image) {
    const QSize size = (place.size() * m_pixels).toSize().expandedTo(QSize(1, 1));
    const bool isSmaller = size.width() < image.width() && size.height() < image.height();
    painter.drawImage(
        place,
        isSmaller ? image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : image);
}

} // namespace host
