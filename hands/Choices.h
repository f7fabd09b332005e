// Choosing among what a control offers: lists that drop down, menus, cells.
#pragma once

#include <QString>
#include <Qt>

class QAbstractItemView;
class QComboBox;
class QMenu;
class QMenuBar;

namespace hands {

/// As the operations of Hands.h: false, having done nothing, where a person could not do it.
/// Thread: user interface.

/// Drops the list down by its arrow; elsewhere a box with an edit field takes the click for its
/// text. One without entries shows no list.
bool DropDown(QComboBox* combo);
/// Ends a list that was dropped down without a choice.
bool CloseList(QComboBox* combo);
/// Drops the list down and clicks the entry of a row, or the first that begins with a text. Without
/// such an entry the list closes again and the answer is false.
bool ChooseRow(QComboBox* combo, int row);
bool ChooseInCombo(QComboBox* combo, const QString& entry);
/// Opens a menu of the bar by its title and clicks an entry; texts compare without mnemonics.
bool ClickInMenuBar(QMenuBar* bar, const QString& menu, const QString& entry);
/// Clicks an entry of a menu that is open.
bool ClickInMenu(QMenu* menu, const QString& entry);
/// Clicks a cell of a table or list; the cell is scrolled into sight.
bool ClickCell(QAbstractItemView* view, int row, int column,
               Qt::MouseButton button = Qt::LeftButton);

} // namespace hands
