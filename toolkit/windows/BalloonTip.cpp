#include "toolkit/windows/BalloonTip.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

constexpr int kArrowHeight = 8;
constexpr int kArrowHalfWidth = 9;
constexpr int kBalloonPadding = 9;
constexpr int kWidestText = 320;
constexpr int kLifetime = 5000;
constexpr int kIconSide = 16;
constexpr int kIconGap = 6;
constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;

QPointer<BalloonTip>& OpenBalloon() {
    static QPointer<BalloonTip> open;
    return open;
}

} // namespace

BalloonTip* BalloonTip::ShowAt(QWidget* control, const QString& text, BalloonKind kind) {
    if (BalloonTip* open = Current()) {
        open->Dismiss();
    }
    if (control == nullptr) {
        return nullptr;
    }
    auto* balloon = new BalloonTip(control, text, kind);
    OpenBalloon() = balloon;
    balloon->show();
    return balloon;
}

BalloonTip* BalloonTip::Current() {
    return OpenBalloon();
}

BalloonTip::BalloonTip(QWidget* control, const QString& text, BalloonKind kind)
    : QWidget(control->window(), Qt::ToolTip | Qt::FramelessWindowHint), m_control(control),
      m_text(text), m_kind(kind) {
    setObjectName(u"balloonTip"_s);
    setAccessibleName(text);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setFont(UiFont());
    setPalette(QApplication::palette());
    setEnabled(true);
    Place();

    auto* timer = new QTimer(this);
    timer->setObjectName(u"balloonTimer"_s);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &BalloonTip::Dismiss);
    timer->start(kLifetime);
    connect(control, &QObject::destroyed, this, &BalloonTip::Dismiss);
    // The key or click that brought the balloon is still on its way through the window.
    QTimer::singleShot(0, this, &BalloonTip::Watch);
}

void BalloonTip::Watch() {
    if (Current() == this) {
        qApp->installEventFilter(this);
    }
}

void BalloonTip::Dismiss() {
    if (Current() == this) {
        OpenBalloon().clear();
    }
    qApp->removeEventFilter(this);
    hide();
    deleteLater();
}

void BalloonTip::Place() {
    const QFontMetrics metrics(font());
    const QSize text =
        metrics.boundingRect(QRect(0, 0, kWidestText, 10000), kTextFlags, m_text).size();
    const int least = m_kind == BalloonKind::Error ? kIconSide : 0;
    const QSize size(TextStart() + text.width() + kBalloonPadding + 1,
                     std::max(text.height(), least) + 2 * kBalloonPadding + kArrowHeight);
    const QRect control(m_control->mapToGlobal(QPoint(0, 0)), m_control->size());
    const QRect screen = m_control->screen()->availableGeometry();

    // Points at the middle of a small control and near the start of a wide one.
    const int target = control.left() + std::min(control.width() / 2, 40);
    m_arrowUp = control.bottom() + size.height() <= screen.bottom();
    int top = m_arrowUp ? control.bottom() - 1 : control.top() - size.height() + 2;
    top = std::clamp(top, screen.top(), std::max(screen.top(), screen.bottom() - size.height()));
    const int left = std::clamp(target - 24, screen.left(),
                                std::max(screen.left(), screen.right() + 1 - size.width()));
    constexpr int kCorner = kArrowHalfWidth + 5;
    m_arrowX = std::clamp(target - left, kCorner, std::max(kCorner, size.width() - kCorner));
    setGeometry(QRect(QPoint(left, top), size));
    // Where nothing composes windows, the corners would be black.
    setMask(QRegion(Outline(-1.0).toFillPolygon().toPolygon()));
}

QRect BalloonTip::Body() const {
    return m_arrowUp ? rect().adjusted(0, kArrowHeight, 0, 0)
                     : rect().adjusted(0, 0, 0, -kArrowHeight);
}

int BalloonTip::TextStart() const {
    return kBalloonPadding + 1 + (m_kind == BalloonKind::Error ? kIconSide + kIconGap : 0);
}

QPainterPath BalloonTip::Outline(qreal inset) const {
    const QRectF body = QRectF(Body()).adjusted(inset, inset, -inset, -inset);
    // Its foot lies inside the frame, so that the two become one outline.
    const qreal edge = m_arrowUp ? body.top() + 2 : body.bottom() - 2;
    const qreal point = m_arrowUp ? inset : height() - inset;
    QPainterPath frame;
    frame.addRoundedRect(body, 4, 4);
    QPainterPath arrow;
    arrow.moveTo(m_arrowX - kArrowHalfWidth, edge);
    arrow.lineTo(m_arrowX, point);
    arrow.lineTo(m_arrowX + kArrowHalfWidth, edge);
    arrow.closeSubpath();
    return frame.united(arrow);
}

void BalloonTip::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isError = m_kind == BalloonKind::Error;
    painter.setPen(QPen(isError ? Colors::ErrorText() : Colors::TextAccent(), 1));
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawPath(Outline(0.5));
    painter.setPen(Colors::Text());
    if (isError) {
        QRect icon(Body().left() + kBalloonPadding + 1, 0, kIconSide, kIconSide);
        icon.moveTop(Body().center().y() - kIconSide / 2 + 1);
        Icon(u"error"_s).paint(&painter, icon);
    }
    painter.drawText(Body().adjusted(TextStart(), 0, -kBalloonPadding, 0), kTextFlags, m_text);
}

void BalloonTip::mousePressEvent(QMouseEvent* event) {
    Q_UNUSED(event);
    Dismiss();
}

bool BalloonTip::IsEnd(const QObject* watched, const QEvent& event) const {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return true;
    case QEvent::Hide:
        return watched == m_control || watched == parentWidget();
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate:
        return watched == parentWidget();
    default:
        return false;
    }
}

bool BalloonTip::eventFilter(QObject* watched, QEvent* event) {
    if (IsEnd(watched, *event)) {
        Dismiss();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace toolkit
