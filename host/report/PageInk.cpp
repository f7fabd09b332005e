#include "host/report/PageInk.h"

#include "host/report/PageText.h"
#include "host/report/PrintPictures.h"
#include "host/report/ReportOptions.h"

#include <QPainter>

namespace host {

using namespace Qt::StringLiterals;

void IPageInk::DrawImage(QPainter& painter, const QRectF& place, const QImage& image) {
    painter.drawImage(place, image);
}

QRectF IPageInk::PlaceIn(const PhotoPlace& place, const QSizeF& picture) {
    const QRectF& room = place.room;
    const QSizeF own = picture * (kReportDpi / kPrintDpi);
    const bool fits = own.width() <= room.width() && own.height() <= room.height();
    const QSizeF size = fits ? own : own.scaled(room.size(), Qt::KeepAspectRatio);
    QRectF result(QPointF(), size);
    result.moveCenter(room.center());
    if (place.alignment.testFlag(Qt::AlignLeft)) {
        result.moveLeft(room.left());
    }
    if (place.alignment.testFlag(Qt::AlignTop)) {
        result.moveTop(room.top());
    } else if (place.alignment.testFlag(Qt::AlignBottom)) {
        result.moveBottom(room.bottom());
    }
    return result;
}

void IPageInk::DrawLack(QPainter& painter, const QRectF& room, const QString& lack) {
    painter.setPen(QPen(kFrameInk, 1));
    painter.setBrush(kShadeInk);
    painter.drawRect(room);
    const TextColumn text(lack.isEmpty() ? u"图片无法读取"_s : lack, TextLook::Faint,
                          room.width() - 16);
    const double top = room.center().y() - text.Height() / 2;
    painter.save();
    painter.setClipRect(room);
    text.Draw(painter, {room.left() + 8, std::max(top, room.top())}, 0, text.LineCount());
    painter.restore();
}

} // namespace host
