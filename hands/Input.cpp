#include "hands/Input.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

// The entrance that QtGui keeps for synthetic input; QtTest declares the same two.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers mods, const QString& text, bool autorep,
                                    ushort count);

namespace hands {

namespace {

constexpr int kFarApart = 5'000;
constexpr int kCloseTogether = 20;
constexpr int kDragSteps = 6;
constexpr int kWheelStep = 120;

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
    int after; ///< milliseconds since the step before
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

void PressAndRelease(const QPointer<QWidget>& widget, const QPoint& place, const Press& press,
                     int after) {
    const Qt::MouseButton button = press.button;
    if (Send(widget, place, {QEvent::MouseButtonPress, button, button, press.modifiers, after})) {
        Send(widget, place, {QEvent::MouseButtonRelease, {}, button, press.modifiers, 1});
    }
}

bool HasKey(QChar sign) {
    return sign.unicode() >= Qt::Key_Space && sign.unicode() <= Qt::Key_AsciiTilde;
}

/// What a key writes; empty for one that writes nothing.
QString TextOf(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const bool writes = (modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier;
    if (!writes || key < Qt::Key_Space || key > Qt::Key_AsciiTilde) {
        return {};
    }
    const QString sign{QChar(char16_t(key))};
    return modifiers.testFlag(Qt::ShiftModifier) ? sign : sign.toLower();
}

void PressAndReleaseKey(const QPointer<QWindow>& window, Qt::Key key,
                        Qt::KeyboardModifiers modifiers, const QString& text) {
    if (window.isNull()) {
        return;
    }
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, false, 1);
    if (!window.isNull()) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text, false, 1);
    }
}

/// From `at` on, as far as an input method would give it in one.
QString WithoutKeys(const QString& text, qsizetype at) {
    qsizetype end = at;
    while (end < text.size() && !HasKey(text[end])) {
        ++end;
    }
    return text.mid(at, end - at);
}

} // namespace

void SendHover(QWidget* widget, const QPoint& place) {
    Send(widget, place, {QEvent::MouseMove, {}, Qt::NoButton, {}, kFarApart});
}

void SendClick(QWidget* widget, const QPoint& place, const Press& press) {
    const QPointer<QWidget> guarded(widget);
    BringUp(widget);
    SendHover(guarded, place);
    PressAndRelease(guarded, place, press, kFarApart);
}

void SendDoubleClick(QWidget* widget, const QPoint& place, const Press& press) {
    const QPointer<QWidget> guarded(widget);
    SendClick(widget, place, press);
    PressAndRelease(guarded, place, press, kCloseTogether);
}

void SendDrag(QWidget* widget, const QPoint& from, const QPoint& to) {
    const QPointer<QWidget> guarded(widget);
    BringUp(widget);
    SendHover(guarded, from);
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

void SendWheel(QWidget* widget, const QPoint& place, int steps, Qt::KeyboardModifiers modifiers) {
    QWidget* top = widget->window();
    if (!widget->isVisible() || top->windowHandle() == nullptr) {
        return;
    }
    const QPoint local = widget->mapTo(top, place);
    QWheelEvent event(local, top->mapToGlobal(local), {}, {0, steps * kWheelStep}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    event.setTimestamp(quint64(NextTimestamp(kCloseTogether)));
    QApplication::sendEvent(top->windowHandle(), &event);
}

void SendKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    BringUp(widget);
    PressAndReleaseKey(widget->window()->windowHandle(), key, modifiers, TextOf(key, modifiers));
}

void SendText(QWidget* widget, const QString& text) {
    BringUp(widget);
    const QPointer<QWindow> window(widget->window()->windowHandle());
    qsizetype at = 0;
    while (at < text.size()) {
        const QChar sign = text[at];
        if (HasKey(sign)) {
            PressAndReleaseKey(window, Qt::Key(sign.toUpper().unicode()),
                               sign.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, sign);
            ++at;
            continue;
        }
        const QString word = WithoutKeys(text, at);
        CommitText(word);
        at += word.size();
    }
}

bool CommitText(const QString& text) {
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr || !target->testAttribute(Qt::WA_InputMethodEnabled)) {
        return false;
    }
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(target, &event);
    return true;
}

bool BringUp(QWidget* widget) {
    QWidget* top = widget->window();
    // A toast takes clicks where it stands and never the keyboard.
    const bool staysBehind = top->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus);
    if (top->isActiveWindow() || top->windowType() == Qt::Popup || staysBehind) {
        return true;
    }
    top->activateWindow();
    return false;
}

} // namespace hands
