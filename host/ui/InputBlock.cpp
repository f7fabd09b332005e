#include "host/ui/InputBlock.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace host {

namespace {

bool IsInput(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    case QEvent::Close:
        return event.spontaneous();
    default:
        return false;
    }
}

} // namespace

InputBlock::InputBlock() {
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    qApp->installEventFilter(this);
}

InputBlock::~InputBlock() {
    QGuiApplication::restoreOverrideCursor();
}

bool InputBlock::IsOfFreeWindow(const QObject* watched) const {
    if (m_free == nullptr) {
        return false;
    }
    const auto* widget = qobject_cast<const QWidget*>(watched);
    return widget != nullptr ? widget->window() == m_free : watched == m_free->windowHandle();
}

bool InputBlock::eventFilter(QObject* watched, QEvent* event) {
    if (!IsInput(*event) || IsOfFreeWindow(watched)) {
        return false;
    }
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

} // namespace host
