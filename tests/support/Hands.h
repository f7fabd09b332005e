// What a person does with controls: clicks, lists, typed text.
#pragma once

#include <QString>

#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QWidget;

namespace support {

/// In the middle, with the left button; the control must be visible.
void Click(QWidget* control);
/// Drops a list down by mouse; CloseList ends it again without a choice.
void DropDown(QComboBox& box);
void CloseList(QComboBox& box);
/// Drops a list down and chooses an entry with the keyboard.
void Choose(QComboBox& box, int index);
/// Replaces the text of a line, key by key; what has no key comes as an input method gives it.
void TypeOver(QLineEdit& edit, const QString& text);

[[nodiscard]] std::vector<std::string> Entries(const QComboBox& box);
/// Text of the balloon that points at this control; "" if none does.
[[nodiscard]] std::string BalloonAt(const QWidget* control);
/// Name of what has the keyboard: the control itself, not its edit field; "" of nothing.
[[nodiscard]] std::string FocusedName();
/// What Tab comes by, from a control on, until it comes back.
[[nodiscard]] std::vector<std::string> TabOrder(QWidget* first);

} // namespace support
