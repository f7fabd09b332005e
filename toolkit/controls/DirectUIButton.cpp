#include "toolkit/controls/DirectUIButton.h"

#include "toolkit/Look.h"

#include <QPainter>
#include <QPainterPath>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFrames = 4;
enum Frame { kNormal, kHover, kPressed, kDisabled };

QColor ArrowColor(int frame) {
    switch (frame) {
    case kHover:
        return toolkit::Colors::Accent();
    case kPressed:
        return toolkit::Colors::TextAccent();
    case kDisabled:
        return toolkit::Colors::Frame().lighter(115);
    default:
        return toolkit::Colors::TextAccent();
    }
}

qreal ArrowAngle(ButtonArrow arrow) {
    switch (arrow) {
    case ButtonArrow::Up:
        return 90;
    case ButtonArrow::Right:
        return 180;
    case ButtonArrow::Down:
        return 270;
    default:
        return 0;
    }
}

} // namespace

QString CDirectUIButton::Tip() const {
    return shortcut.isEmpty() ? name : u"%1（%2）"_s.arg(name, shortcut);
}

void CDirectUIButton::Enable(bool enabled) {
    m_enabled = enabled;
    m_hot = m_hot && enabled;
    m_pressed = m_pressed && enabled;
}

void CDirectUIButton::SetImage(const QImage& image, ClipType clipType) {
    m_image = image;
    m_clipType = clipType;
}

bool CDirectUIButton::Hits(const QPoint& point) const {
    return m_enabled && Covers(point);
}

bool CDirectUIButton::PointAt(const QPoint& point) {
    const bool hot = Hits(point);
    const bool changed = hot != m_hot;
    m_hot = hot;
    return changed;
}

bool CDirectUIButton::Press(const QPoint& point) {
    m_pressed = Hits(point);
    m_hot = m_hot || m_pressed;
    return m_pressed;
}

bool CDirectUIButton::Release(const QPoint& point) {
    const bool clicked = m_pressed && Hits(point);
    m_pressed = false;
    return clicked;
}

int CDirectUIButton::FrameIndex() const {
    if (!m_enabled) {
        return kDisabled;
    }
    if (m_pressed) {
        return m_hot ? kPressed : kNormal;
    }
    return m_hot ? kHover : kNormal;
}

QRect CDirectUIButton::FrameInImage() const {
    const int index = FrameIndex();
    if (m_clipType == ClipType::Stacked) {
        const int height = m_image.height() / kFrames;
        return {0, index * height, m_image.width(), height};
    }
    const int width = m_image.width() / kFrames;
    return {index * width, 0, width, m_image.height()};
}

void CDirectUIButton::Paint(QPainter& painter) const {
    if (rect.isEmpty() || !shown) {
        return;
    }
    const QRect frame = m_image.isNull() ? QRect() : FrameInImage();
    if (frame.isEmpty()) {
        PaintArrow(painter);
        return;
    }
    const QSizeF size = QSizeF(frame.size()).scaled(rect.size(), Qt::KeepAspectRatio);
    QRectF place(QPointF(0, 0), size);
    place.moveCenter(QRectF(rect).center());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_image, frame);
    painter.restore();
}

void CDirectUIButton::PaintArrow(QPainter& painter) const {
    const qreal reach = qMin(rect.width(), rect.height()) * 0.28;
    QPainterPath path;
    path.moveTo(reach / 2, -reach);
    path.lineTo(-reach / 2, 0);
    path.lineTo(reach / 2, reach);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect).center());
    painter.rotate(ArrowAngle(m_arrow));
    painter.setBrush(Qt::NoBrush);
    // A light rim, since the arrow may stand on a dark picture.
    for (const auto& [color, width] :
         {std::pair(QColor(255, 255, 255, 200), 5.0), std::pair(ArrowColor(FrameIndex()), 2.5)}) {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(path);
    }
    painter.restore();
}
