// Hands of the walk through the client: mouse, keys, drops, as a person makes them.
#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

class QAbstractItemView;
class QComboBox;
class QMenu;
class QMenuBar;
class QWidget;

namespace tour {

/// Events enter where a window system would hand them over, so that focus, popups, shortcuts and
/// blocking by dialogs work as for a person. Each operation answers false, having done nothing,
/// where a person could not do it: null, hidden or disabled widget, or a dialog in the way; and
/// once when the window must come to the foreground first.
/// Thread: user interface.

[[nodiscard]] bool CanReach(const QWidget* widget);
bool Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
/// `place` in the widget's own pixels.
bool ClickAt(QWidget* widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);
bool DoubleClickAt(QWidget* widget, const QPoint& place);
bool MoveTo(QWidget* widget, const QPoint& place);
/// To whatever has the focus in the widget's window.
bool PressKey(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks into the widget, selects all and types; Chinese text comes as an input method gives it.
bool TypeOver(QWidget* widget, const QString& text);
/// Opens the drop-down list and clicks the entry that begins with this text.
bool ChooseInCombo(QComboBox* combo, const QString& entry);
/// Opens a menu of the bar by its title and clicks an entry; texts compare without mnemonics.
bool ClickInMenuBar(QMenuBar* bar, const QString& menu, const QString& entry);
/// Clicks an entry of a menu that is open.
bool ClickInMenu(QMenu* menu, const QString& entry);
/// Clicks a cell of a table or list; the cell is scrolled into sight.
bool ClickCell(QAbstractItemView* view, int row, int column,
               Qt::MouseButton button = Qt::LeftButton);
bool DropPaths(QWidget* widget, const QStringList& paths);
/// What a window's close button does.
bool CloseWindow(QWidget* window);

} // namespace tour
