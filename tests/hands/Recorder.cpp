#include "tests/hands/Recorder.h"

#include "tests/support/WaitFor.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace hands {

using namespace Qt::StringLiterals;

namespace {

QString Held(Qt::KeyboardModifiers modifiers) {
    return modifiers.testFlag(Qt::ControlModifier) ? u"Ctrl+"_s : QString();
}

} // namespace

Recorder::Recorder(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setMouseTracking(true);
}

bool Recorder::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        NoteMouse(u"press"_s, *event);
        if (onPress) {
            onPress();
        }
        return true;
    case QEvent::MouseButtonRelease:
        NoteMouse(u"release"_s, *event);
        return true;
    case QEvent::MouseButtonDblClick:
        NoteMouse(u"double"_s, *event);
        return true;
    case QEvent::MouseMove:
        NoteMouse(static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton ? u"hover"_s
                                                                              : u"move"_s,
                  *event);
        return true;
    case QEvent::Wheel: {
        const auto& wheel = *static_cast<QWheelEvent*>(event);
        seen << Held(wheel.modifiers()) + u"wheel %1"_s.arg(wheel.angleDelta().y());
        return true;
    }
    case QEvent::KeyPress: {
        const auto& key = *static_cast<QKeyEvent*>(event);
        seen << Held(key.modifiers()) + u"key "_s + key.text();
        return true;
    }
    case QEvent::InputMethod:
        seen << u"commit "_s + static_cast<QInputMethodEvent*>(event)->commitString();
        return true;
    default:
        return QWidget::event(event);
    }
}

void Recorder::NoteMouse(const QString& what, const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint place = mouse.position().toPoint();
    seen << Held(mouse.modifiers()) + u"%1 %2,%3"_s.arg(what).arg(place.x()).arg(place.y());
}

bool ShowInFront(QWidget& window) {
    window.show();
    window.activateWindow();
    return support::WaitFor([&window] { return window.isActiveWindow(); });
}

} // namespace hands
