// What a person can do with mouse and keys, and only where a person could.
#pragma once

#include "hands/Input.h"

#include <QStringList>

namespace hands {

/// Each operation answers false, having done nothing, where a person could not do it: null, hidden
/// or disabled widget, or a dialog in the way; and once when the window must come to the foreground
/// first. Thread: user interface.

[[nodiscard]] bool CanReach(const QWidget* widget);
/// In the middle.
bool Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
/// `place` in the widget's own pixels; outside of it, or where another lies over it: false.
bool ClickAt(QWidget* widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);
bool DoubleClickAt(QWidget* widget, const QPoint& place);
bool MoveTo(QWidget* widget, const QPoint& place);
/// To whatever has the focus in the widget's window.
bool PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks into the widget, selects all and puts a text there at once, as an input method does.
bool TypeOver(QWidget* widget, const QString& text);
/// Drops files or folders into the middle of the widget; false if it doesn't take them.
bool DropPaths(QWidget* widget, const QStringList& paths);
/// What a window's close button does.
bool CloseWindow(QWidget* window);

} // namespace hands
