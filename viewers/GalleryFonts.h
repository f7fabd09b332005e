// Faces and the one text that pictures share.
#pragma once

#include <QFont>
#include <QRect>

class QPainter;

namespace gallery {

/// 15 point "宋体" at 96 dots an inch, whatever the screen says of itself: places are told in
/// pixels, so faces are too.
[[nodiscard]] QFont LargeFace();
/// 10 point "宋体".
[[nodiscard]] QFont SmallFace();

/// "无图片" in navy on the middle of an area, whose background is painted already.
void PaintNoPicture(QPainter& painter, const QRect& area);
/// The same with the text standing on the middle line of the area.
void PaintNoPictureOnMiddle(QPainter& painter, const QRect& area);

} // namespace gallery
