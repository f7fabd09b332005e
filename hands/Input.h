// Mouse and keys as a window system hands them over.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QWidget;

namespace hands {

/// A press of the mouse.
struct Press {
    Qt::MouseButton button = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// Events enter before Qt looks for their receiver, so that focus, popups, shortcuts and blocking
/// by dialogs work as for a person. All take a widget of a window that is shown and do nothing, or
/// no more, once it is hidden or gone; it may be gone behind any of them. Clicks and keys ask the
/// window system to bring the window to the foreground, and don't wait for it. Places are in the
/// widget's own pixels. Thread: user interface.

void SendHover(QWidget* widget, const QPoint& place);
/// Clicks lie further apart than a double click, whatever the real time between them.
void SendClick(QWidget* widget, const QPoint& place, const Press& press = {});
void SendDoubleClick(QWidget* widget, const QPoint& place, const Press& press = {});
/// With the left button; in between it moves in a few steps.
void SendDrag(QWidget* widget, const QPoint& from, const QPoint& to);
/// @param steps  notches, away from the person counts up.
void SendWheel(QWidget* widget, const QPoint& place, int steps,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// To whatever has the focus in the widget's window.
void SendKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Signs that a keyboard has by its keys, the rest as an input method gives it.
void SendText(QWidget* widget, const QString& text);
/// All at once to what has the focus, as an input method gives it. False: nothing there takes text.
bool CommitText(const QString& text);

/// Asks for the widget's window to be brought to the foreground, as a click on it does first of
/// all. False: it isn't there yet.
bool BringUp(QWidget* widget);

} // namespace hands
