#include "viewers/GalleryPainter.h"

#include "toolkit/Look.h"
#include "viewers/GalleryFonts.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

constexpr int kBackColor = 0xFAFAFA;
constexpr int kPictureFrame = 0xD9C3B1;
constexpr int kCurrentFrame = 0xF0B600;
constexpr int kHoverFrame = 0xF5DAA9;
constexpr std::array<int, 3> kBarColors{0xF0B600, 0xD6C60F, 0xE09014}; ///< by `hotState`
constexpr int kBandHeight = 20;
constexpr int kBandAlpha = 100;
const QColor kProgressFill(0x00, 0xB6, 0xF0, 0x96);
const QColor kFailedText(255, 0, 0);

QColor Back() {
    return toolkit::ColorFromBgr(kBackColor);
}

/// A frame of one pixel, `outside` pixels around a rectangle.
void DrawFrame(QPainter& painter, const QRect& rect, int outside, int bgr) {
    const QRect outer = rect.adjusted(-outside, -outside, outside, outside);
    const QRect inner = outer.adjusted(1, 1, -1, -1);
    for (const QRect& side : QRegion(outer) - QRegion(inner)) {
        painter.fillRect(side, toolkit::ColorFromBgr(bgr));
    }
}

QRect BandOf(const QRect& rect) {
    return {rect.x(), rect.y() + rect.height() / 2 - kBandHeight / 2, rect.width(), kBandHeight};
}

void DrawBandText(QPainter& painter, const QRect& band, const QString& text,
                  const QColor& color = Qt::white) {
    painter.setPen(color);
    painter.drawText(band, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void DrawBand(QPainter& painter, const QRect& rect, const QImage& defaultPicture) {
    if (!defaultPicture.isNull()) {
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
        painter.drawImage(rect.topLeft(), defaultPicture);
        painter.restore();
    }
    QColor fill(Qt::white);
    fill.setAlpha(kBandAlpha);
    painter.fillRect(BandOf(rect), fill);
}

void DrawProgress(QPainter& painter, const QRect& band, int percent) {
    QRect part = band.adjusted(1, 1, -1, -1);
    part.setWidth(part.width() * std::clamp(percent, 0, 100) / 100);
    painter.fillRect(part, kProgressFill);
    DrawBandText(painter, band, u"%1%"_s.arg(percent));
}

void DrawPicture(QPainter& painter, const QRect& rect, const QImage& picture) {
    DrawFrame(painter, rect, 0, kPictureFrame);
    DrawFrame(painter, rect, 1, kPictureFrame);
    if (!picture.isNull()) {
        painter.drawImage(rect.topLeft() + QPoint(1, 1), picture);
    }
}

void DrawContent(QPainter& painter, const Cell& cell, const QImage& defaultPicture) {
    if (cell.state == kOnDisk && cell.fileThere) {
        DrawPicture(painter, cell.rect, cell.picture);
        return;
    }
    if (cell.state < kWaiting || cell.state > kDownloadFailedState) {
        return;
    }
    DrawBand(painter, cell.rect, defaultPicture);
    const QRect band = BandOf(cell.rect);
    if (cell.state == kDownloading) {
        DrawProgress(painter, band, cell.percent);
    } else if (cell.state == kDownloadFailedState) {
        DrawBandText(painter, band, u"下载失败"_s, kFailedText);
    } else {
        DrawBandText(painter, band, cell.state == kOnDisk ? u"图片不存在"_s : u"等待下载"_s);
    }
}

void DrawBar(QPainter& painter, const ThumbBar& bar) {
    if (bar.trackRect.isEmpty() || !bar.overflow) {
        return;
    }
    painter.fillRect(bar.trackRect, toolkit::ColorFromBgr(kPictureFrame));
    const size_t color = std::min(size_t(std::max(bar.hotState, 0)), kBarColors.size() - 1);
    painter.fillRect(bar.thumbRect, toolkit::ColorFromBgr(kBarColors[color]));
}

void DrawStepButtons(QPainter& painter, const GalleryState& state) {
    state.buttons[kPrevPic].Paint(painter);
    state.buttons[kNextPic].Paint(painter);
}

/// Fills what an image leaves free, so that no pixel is painted twice.
void FillAround(QPainter& painter, const QRect& area, const QRectF& place) {
    for (const QRect& rest :
         QRegion(area) - QRegion(place.toAlignedRect().adjusted(1, 1, -1, -1))) {
        painter.fillRect(rest, Back());
    }
}

void DrawPlaced(QPainter& painter, const PlacedImage& placed) {
    if (placed.image.isNull()) {
        return;
    }
    const QSizeF own = placed.image.deviceIndependentSize();
    const QSizeF difference = own - placed.place.size();
    // One to one where the sizes agree but for the rounding to device pixels.
    if (qAbs(difference.width()) < 1 && qAbs(difference.height()) < 1) {
        painter.drawImage(placed.place.topLeft(), placed.image);
    } else {
        painter.drawImage(placed.place, placed.image);
    }
}

} // namespace

void PaintCell(QPainter& painter, const Cell& cell, const QImage& defaultPicture) {
    painter.setFont(SmallFace());
    DrawContent(painter, cell, defaultPicture);
    if (cell.frame == CellFrame::None) {
        return;
    }
    const int color = cell.frame == CellFrame::Current ? kCurrentFrame : kHoverFrame;
    for (int outside = 1; outside <= 3; ++outside) {
        DrawFrame(painter, cell.rect, outside, color);
    }
}

void PaintStrip(QPainter& painter, const GalleryState& state, const std::vector<Cell>& cells,
                const QImage& defaultPicture) {
    painter.fillRect(state.stripArea, Back());
    const bool usable = state.HasItem(state.currentIndex) && !state.visible.IsNone();
    if (!state.items.empty() && !usable) {
        return;
    }
    for (const Cell& cell : cells) {
        PaintCell(painter, cell, defaultPicture);
    }
    state.buttons[state.strip.horizontal ? kThumbLeft : kThumbUp].Paint(painter);
    state.buttons[state.strip.horizontal ? kThumbRight : kThumbDown].Paint(painter);
    DrawBar(painter, state.stripBar);
}

QImage RenderCells(const std::vector<Cell>& cells, const QImage& defaultPicture, const QSize& size,
                   qreal pixelRatio) {
    QImage image(size * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Back());
    QPainter painter(&image);
    for (const Cell& cell : cells) {
        PaintCell(painter, cell, defaultPicture);
    }
    return image;
}

void PaintNoBigPicture(QPainter& painter, const GalleryState& state) {
    painter.fillRect(state.bigArea, Back());
    PaintNoPicture(painter, state.bigArea);
    DrawStepButtons(painter, state);
}

void PaintBigPicture(QPainter& painter, const GalleryState& state,
                     const std::vector<PlacedImage>& images) {
    painter.save();
    painter.setClipRect(state.bigArea, Qt::IntersectClip);
    FillAround(painter, state.bigArea, images.empty() ? QRectF() : images.front().place);
    for (const PlacedImage& placed : images) {
        DrawPlaced(painter, placed);
    }
    painter.restore();
    DrawStepButtons(painter, state);
}

void PaintZoomLabel(QPainter& painter, const GalleryState& state) {
    if (state.zoom.fit) {
        return;
    }
    QRect label(0, 0, 64, 24);
    label.moveCenter({state.bigArea.center().x(), state.bigArea.bottom() - 24});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawRoundedRect(label, 4, 4);
    painter.setFont(toolkit::UiFont());
    painter.setPen(toolkit::Colors::TextAccent());
    painter.drawText(label, Qt::AlignCenter, u"%1%"_s.arg(qRound(state.zoom.scale * 100)));
    painter.restore();
}

void PaintSlide(QPainter& painter, const GalleryState& state, const SlideScene& scene) {
    const QRect bounds = scene.slide.bounds;
    painter.save();
    painter.setClipRect(bounds, Qt::IntersectClip);
    painter.fillRect(bounds, Back());
    const QRect oldPlace = scene.slide.OldAt(scene.offset);
    const QRect newPlace = scene.slide.NewAt(scene.offset);
    if (oldPlace.intersects(bounds)) {
        DrawPlaced(painter, {oldPlace, scene.oldImage});
    }
    if (newPlace.intersects(bounds)) {
        painter.drawImage(newPlace.topLeft(), scene.newImage);
    }
    painter.restore();
    if (scene.ofPicture) {
        DrawStepButtons(painter, state);
    }
}

} // namespace gallery
