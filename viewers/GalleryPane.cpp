#include "viewers/GalleryPane.h"

#include "toolkit/Look.h"
#include "toolkit/windows/WindowEnd.h"
#include "viewers/GalleryAccess.h"

#include <QApplication>
#include <QBackingStore>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

namespace gallery {

GalleryPane::GalleryPane(IGalleryEvents& events, QWidget* parent)
    : QWidget(parent), m_events(&events) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    // Keys of controls are seen here before the controls get them.
    qApp->installEventFilter(this);
    LetReadersIn();
}

GalleryPane::~GalleryPane() {
    toolkit::TellWindowDies(*this);
}

std::span<const CDirectUIButton> GalleryPane::Buttons() const {
    return m_events == nullptr ? std::span<const CDirectUIButton>() : m_events->Buttons();
}

void GalleryPane::PressButton(int index) {
    if (m_events != nullptr) {
        m_events->OnButtonPressed(index);
    }
}

/// What was enabled or disabled since the last paint.
void GalleryPane::TellChangedButtons() {
    const std::span<const CDirectUIButton> buttons = Buttons();
    m_toldEnabled.resize(buttons.size(), false);
    for (size_t at = 0; at < buttons.size(); ++at) {
        if (m_toldEnabled[at] == buttons[at].IsEnabled()) {
            continue;
        }
        m_toldEnabled[at] = buttons[at].IsEnabled();
        emit ButtonEnabledChanged(int(at));
    }
}

bool GalleryPane::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_events != nullptr) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString tip = m_events->TipAt(help->pos());
        if (tip.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), toolkit::PlainTip(tip), this,
                               m_events->TipPlace(help->pos()));
        }
        return true;
    }
    if (event->type() == QEvent::ScreenChangeInternal && m_events != nullptr) {
        m_events->OnShown();
    }
    return QWidget::event(event);
}

void GalleryPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_events != nullptr) {
        m_events->OnShown();
    }
}

bool GalleryPane::eventFilter(QObject* watched, QEvent* event) {
    // Seen here before anybody lays out anew.
    if (watched == this && event->type() == QEvent::Resize) {
        m_resizing = true;
    }
    if (m_events == nullptr || event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return false;
    }
    auto* widget = static_cast<QWidget*>(watched);
    if (widget != this && !isAncestorOf(widget)) {
        return false;
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    return m_events->OnKey(key->key(), key->modifiers(), widget == this);
}

void GalleryPane::paintEvent(QPaintEvent* event) {
    m_resizing = false;
    QPainter painter(this);
    QBackingStore* store = window()->backingStore();
    const bool onScreen = isVisible() && store != nullptr &&
                          painter.paintEngine()->paintDevice() == store->paintDevice();
    if (m_events != nullptr && !onScreen) {
        m_events->OnPictureTaken();
    }
    if (m_events != nullptr) {
        m_events->OnPaint(painter, event->region());
    }
    TellChangedButtons();
}

void GalleryPane::mousePressEvent(QMouseEvent* event) {
    if (m_events != nullptr && event->button() == Qt::LeftButton) {
        m_events->OnLeftButtonDown(event->position().toPoint());
    }
}

void GalleryPane::mouseReleaseEvent(QMouseEvent* event) {
    if (m_events != nullptr && event->button() == Qt::LeftButton) {
        m_events->OnLeftButtonUp(event->position().toPoint());
    }
}

void GalleryPane::mouseDoubleClickEvent(QMouseEvent* event) {
    if (m_events != nullptr && event->button() == Qt::LeftButton) {
        m_events->OnDoubleClick(event->position().toPoint());
    }
}

void GalleryPane::mouseMoveEvent(QMouseEvent* event) {
    if (m_events != nullptr) {
        m_events->OnMouseMove(event->position().toPoint());
    }
}

void GalleryPane::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (m_events != nullptr) {
        m_events->OnMouseLeave();
    }
}

void GalleryPane::wheelEvent(QWheelEvent* event) {
    if (m_events != nullptr) {
        m_events->OnMouseWheel(event->angleDelta().y(), event->position().toPoint(),
                               event->modifiers().testFlag(Qt::ControlModifier));
    }
    event->accept();
}

} // namespace gallery
