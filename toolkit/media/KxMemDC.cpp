#include "toolkit/media/KxMemDC.h"

#include <QPaintDevice>

namespace {

QImage MakeBitmap(QPainter* target, const QSize& size) {
    const qreal ratio = target != nullptr && target->device() != nullptr
                            ? target->device()->devicePixelRatio()
                            : 1.0;
    QImage bitmap(qCeil(size.width() * ratio), qCeil(size.height() * ratio), QImage::Format_RGB32);
    bitmap.setDevicePixelRatio(ratio);
    bitmap.fill(Qt::white);
    return bitmap;
}

} // namespace

CKxMemDC::CKxMemDC(QPainter* targetDC, const QRect& rect, bool offsetOrigin, bool copyOnEnd)
    : m_bitmap(MakeBitmap(targetDC, rect.size().expandedTo({0, 0}))), m_targetDC(targetDC),
      m_rect(rect), m_offsetOrigin(offsetOrigin), m_copyOnEnd(copyOnEnd) {}

CKxMemDC::CKxMemDC(const QImage& image)
    : m_bitmap(image), m_rect(QPoint(0, 0), image.deviceIndependentSize().toSize()) {}

CKxMemDC::~CKxMemDC() {
    if (m_copyOnEnd && m_targetDC != nullptr && !m_rect.isEmpty()) {
        m_targetDC->drawImage(m_rect.topLeft(), Bitmap());
    }
}

QPainter& CKxMemDC::Painter() {
    if (!m_painter.isActive() && m_painter.begin(&m_bitmap) && m_offsetOrigin) {
        m_painter.translate(-m_rect.topLeft());
    }
    return m_painter;
}

const QImage& CKxMemDC::Bitmap() {
    if (m_painter.isActive()) {
        m_painter.end();
    }
    return m_bitmap;
}
