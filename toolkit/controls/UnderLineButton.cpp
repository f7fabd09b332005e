#include "toolkit/controls/UnderLineButton.h"

#include "toolkit/Look.h"
#include "toolkit/controls/LineText.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kSide = 4; ///< left and right of the text

QColor InkOf(const QAbstractButton& button) {
    if (!button.isEnabled()) {
        return toolkit::Colors::DisabledText();
    }
    const bool isHot = button.underMouse() || button.isDown();
    return isHot ? QColor(Qt::blue) : toolkit::Colors::Link();
}

} // namespace

UnderLineButton::UnderLineButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize UnderLineButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * kSide, fontMetrics().height() + kSide};
}

void UnderLineButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    QFont underlined = font();
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(InkOf(*this));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(toolkit::LineStart(text()), Qt::ElideRight, width()));
    if (hasFocus()) {
        painter.setPen(toolkit::Colors::Accent());
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void UnderLineButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void UnderLineButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void UnderLineButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}
