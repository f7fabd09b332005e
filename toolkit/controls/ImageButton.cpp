#include "toolkit/controls/ImageButton.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QIcon>
#include <QPainter>

namespace {

constexpr qreal kIconPart = 0.5; ///< of the face

} // namespace

CImageButton::CImageButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void CImageButton::SetButtonImage(const QString& image, const QSize& size) {
    m_image = image;
    m_size = size;
    setFixedSize(size);
    update();
}

void CImageButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    using toolkit::Colors;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = qMin(width(), height()) - 2;
    QRectF face(0, 0, side, side);
    face.moveCenter(QRectF(rect()).center());
    const bool hot = isEnabled() && underMouse();
    painter.setBrush(isDown() ? Colors::Hover() : hot ? Colors::Selection() : QColor(Qt::white));
    painter.setPen(QPen(hasFocus() ? Colors::Accent() : Colors::Frame(), hasFocus() ? 2 : 1));
    painter.drawEllipse(face.adjusted(1, 1, -1, -1));
    QRectF place(0, 0, side * kIconPart, side * kIconPart);
    place.moveCenter(face.center());
    toolkit::Icon(m_image).paint(&painter, place.toAlignedRect(), Qt::AlignCenter,
                                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void CImageButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void CImageButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}
