#include "toolkit/controls/RichLinkButton.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace {

constexpr QRgb kResting = qRgb(0, 102, 204);
constexpr QRgb kUnderPointer = qRgb(0, 0, 255);
constexpr int kSide = 3;

} // namespace

CRichLinkButton::CRichLinkButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setCursor(Qt::PointingHandCursor);
    setFlat(true);
    setAutoDefault(false);
}

void CRichLinkButton::SetAlwaysUnderline(bool on) {
    m_alwaysUnderline = on;
    update();
}

void CRichLinkButton::SetMultiline(bool on) {
    m_multiline = on;
    update();
}

void CRichLinkButton::SetAlignment(Qt::Alignment side) {
    m_side = side & Qt::AlignHorizontal_Mask;
    update();
}

QFont CRichLinkButton::FontNow() const {
    QFont face = font();
    face.setUnderline(m_alwaysUnderline || underMouse());
    return face;
}

void CRichLinkButton::SizeToContent(bool centreAcross, bool centreDown) {
    const QRect before = geometry();
    QFont underlined = font();
    underlined.setUnderline(true);
    const QSize text = QFontMetrics(underlined).size(Qt::TextSingleLine, this->text());
    QRect now(before.topLeft(),
              icon().isNull() ? text + QSize(2 * kSide, 2 * kSide) : QPushButton::sizeHint());
    if (centreAcross) {
        now.moveLeft(before.left() + (before.width() - now.width()) / 2);
    }
    if (centreDown) {
        now.moveTop(before.top() + (before.height() - now.height()) / 2);
    }
    setGeometry(now);
}

bool CRichLinkButton::event(QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey) {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        update();
    }
    return QPushButton::event(event);
}

void CRichLinkButton::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setFont(FontNow());
    painter.setPen(QColor(underMouse() ? kUnderPointer : kResting));
    const int flags = m_multiline ? int(Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop)
                                  : int(Qt::TextSingleLine | m_side | Qt::AlignVCenter);
    painter.drawText(rect(), flags, text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        // Without the widget: the look leaves it out for buttons, which show it in their panels.
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter);
    }
}
