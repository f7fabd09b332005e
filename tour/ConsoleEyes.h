// Reads and handles the console's window as a person does, by what stands on the screen.
#pragma once

#include <QString>

class QAbstractItemView;
class QWidget;

namespace tour {

/// Null while the console isn't open.
[[nodiscard]] QWidget* Console();
/// A control of the console by its name; null if it isn't there or isn't visible.
[[nodiscard]] QWidget* ConsoleControl(const QString& name);
[[nodiscard]] QAbstractItemView* ConsoleGrid();
/// The number in "本次共搜索到...", -1 while there is none.
[[nodiscard]] int ConsoleTotal();
[[nodiscard]] int ConsoleRows();
/// A column by its caption; -1 if it isn't there or is hidden.
[[nodiscard]] int ConsoleColumn(const QString& caption);
[[nodiscard]] QString ConsoleText(int row, const QString& caption);
/// True if the texts of the column don't fall (or don't rise) from row to row.
[[nodiscard]] bool ConsoleColumnSorted(const QString& caption, bool ascending);
[[nodiscard]] int ConsoleCheckedRows();
/// How many rows have this text in the column.
[[nodiscard]] int ConsoleRowsWith(const QString& caption, const QString& text);
[[nodiscard]] int ConsolePage();
/// The first row whose photo has a place that the view can show; -1 without one.
[[nodiscard]] int ConsoleRowWithPlace();

bool ClickConsoleHeader(const QString& caption);
bool ClickConsoleCheck(int row);
/// Opens the menu of a row and leaves it open.
bool OpenRowMenu(int row);
bool ChooseInConsole(const QString& combo, const QString& entry);

} // namespace tour
