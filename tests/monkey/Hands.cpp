#include "tests/monkey/Hands.h"

#include "tour/TourDriver.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

// The entrance that QtGui keeps for synthetic input; QtTest declares the same two.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers mods, const QString& text, bool autorep,
                                    ushort count);

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFarApart = 5'000;
constexpr int kCloseTogether = 20;
constexpr int kDragSteps = 6;
constexpr int kWheelStep = 120;
constexpr int kMostKeys = 40; ///< longer texts come at once

int NextTimestamp(int step) {
    static int timestamp = 10'000;
    timestamp += step;
    return timestamp;
}

struct MouseStep {
    QEvent::Type type;
    Qt::MouseButtons held;
    Qt::MouseButton button;
    Qt::KeyboardModifiers modifiers;
    int after;
};

/// False once the widget is gone or out of sight.
bool Send(const QPointer<QWidget>& widget, const QPoint& place, const MouseStep& step) {
    if (widget.isNull() || !widget->isVisible() || widget->window()->windowHandle() == nullptr) {
        return false;
    }
    QWidget* top = widget->window();
    const QPoint local = widget->mapTo(top, place);
    qt_handleMouseEvent(top->windowHandle(), local, top->mapToGlobal(local), step.held, step.button,
                        step.type, step.modifiers, NextTimestamp(step.after));
    return !widget.isNull();
}

void SendClick(const QPointer<QWidget>& widget, const QPoint& place, const Press& press,
               int after) {
    const Qt::MouseButton button = press.button;
    if (Send(widget, place, {QEvent::MouseButtonPress, button, button, press.modifiers, after})) {
        Send(widget, place, {QEvent::MouseButtonRelease, {}, button, press.modifiers, 1});
    }
}

void Activate(QWidget* widget) {
    QWidget* top = widget->window();
    if (!top->isActiveWindow() && top->windowType() != Qt::Popup) {
        top->activateWindow();
    }
}

void Commit(const QString& text) {
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr || !target->testAttribute(Qt::WA_InputMethodEnabled)) {
        return;
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(target, &event);
}

void SendKey(const QPointer<QWindow>& window, Qt::Key key, Qt::KeyboardModifiers modifiers,
             const QString& text) {
    if (window.isNull()) {
        return;
    }
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, false, 1);
    if (!window.isNull()) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text, false, 1);
    }
}

} // namespace

bool CanReach(const QWidget* widget) {
    return tour::CanReach(widget);
}

void Click(QWidget* widget, const QPoint& place, const Press& press) {
    const QPointer<QWidget> guarded(widget);
    Activate(widget);
    Hover(guarded, place);
    SendClick(guarded, place, press, kFarApart);
}

void DoubleClick(QWidget* widget, const QPoint& place, const Press& press) {
    const QPointer<QWidget> guarded(widget);
    Click(widget, place, press);
    SendClick(guarded, place, press, kCloseTogether);
}

void Hover(QWidget* widget, const QPoint& place) {
    Send(widget, place, {QEvent::MouseMove, {}, Qt::NoButton, {}, kFarApart});
}

void Drag(QWidget* widget, const QPoint& from, const QPoint& to) {
    const QPointer<QWidget> guarded(widget);
    Activate(widget);
    Hover(guarded, from);
    const Qt::MouseButton left = Qt::LeftButton;
    if (!Send(guarded, from, {QEvent::MouseButtonPress, left, left, {}, kFarApart})) {
        return;
    }
    for (int step = 1; step <= kDragSteps; ++step) {
        const QPoint place = from + (to - from) * step / kDragSteps;
        if (!Send(guarded, place, {QEvent::MouseMove, left, Qt::NoButton, {}, kCloseTogether})) {
            return;
        }
    }
    Send(guarded, to, {QEvent::MouseButtonRelease, {}, left, {}, kCloseTogether});
}

void Wheel(QWidget* widget, const QPoint& place, int steps, Qt::KeyboardModifiers modifiers) {
    QWidget* top = widget->window();
    const QPoint local = widget->mapTo(top, place);
    QWheelEvent event(local, top->mapToGlobal(local), {}, {0, steps * kWheelStep}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    event.setTimestamp(quint64(NextTimestamp(kCloseTogether)));
    QApplication::sendEvent(top->windowHandle(), &event);
}

void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Activate(widget);
    QString text;
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde &&
        (modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier) {
        text = QString(QChar(char16_t(key))).toLower();
    }
    SendKey(widget->window()->windowHandle(), key, modifiers, text);
}

void Type(QWidget* window, const QString& text) {
    Activate(window);
    const bool plain = std::all_of(text.begin(), text.end(), [](QChar sign) {
        return sign.unicode() >= Qt::Key_Space && sign.unicode() <= Qt::Key_AsciiTilde;
    });
    if (!plain || text.size() > kMostKeys) {
        Commit(text);
        return;
    }
    const QPointer<QWindow> handle(window->window()->windowHandle());
    for (const QChar sign : text) {
        SendKey(handle, Qt::Key(sign.toUpper().unicode()),
                sign.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, sign);
    }
}

} // namespace monkey
