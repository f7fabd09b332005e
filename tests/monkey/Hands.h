// Mouse, keys and windows, as a window system hands them over.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QWidget;

namespace monkey {

/// True where a person could do something: in sight, enabled, and no dialog in the way.
[[nodiscard]] bool CanReach(const QWidget* widget);

/// All take a widget that can be reached; it may be gone behind any of them. Places are in the
/// widget's own pixels. Thread: user interface.
struct Press {
    Qt::MouseButton button = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};
void Click(QWidget* widget, const QPoint& place, const Press& press);
void DoubleClick(QWidget* widget, const QPoint& place, const Press& press);
void Hover(QWidget* widget, const QPoint& place);
/// In between it moves in a few steps.
void Drag(QWidget* widget, const QPoint& from, const QPoint& to);
void Wheel(QWidget* widget, const QPoint& place, int steps, Qt::KeyboardModifiers modifiers);
/// To whatever has the focus in the widget's window.
void PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers);
/// Plain signs by keys, the rest as an input method gives it.
void Type(QWidget* window, const QString& text);

} // namespace monkey
