#include "viewers/GalleryFonts.h"

#include "toolkit/Look.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

constexpr int kNavy = 0x8B4215;
const QString kNoPicture = u"无图片"_s;

QFont Face(int pixels) {
    QFont face(u"宋体"_s);
    face.setPixelSize(pixels);
    return face;
}

} // namespace

QFont LargeFace() {
    return Face(20);
}

QFont SmallFace() {
    return Face(13);
}

void PaintNoPicture(QPainter& painter, const QRect& area) {
    painter.setFont(LargeFace());
    painter.setPen(toolkit::ColorFromBgr(kNavy));
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, kNoPicture);
}

void PaintNoPictureOnMiddle(QPainter& painter, const QRect& area) {
    painter.setFont(LargeFace());
    painter.setPen(toolkit::ColorFromBgr(kNavy));
    const int width = painter.fontMetrics().horizontalAdvance(kNoPicture);
    painter.drawText(area.x() + (area.width() - width) / 2, area.y() + area.height() / 2,
                     kNoPicture);
}

} // namespace gallery
