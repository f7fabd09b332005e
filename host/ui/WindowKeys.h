// What the keys of a window do beyond Qt: Tab past docks out of sight, Enter on a button.
#pragma once

class QKeyEvent;
class QMainWindow;
class QWidget;

namespace host {

/// Moves the focus to the next control of the window, or the one before. A dock behind the tab of
/// another one is visible to Qt and to nobody else: its controls are passed over.
/// False: no other control takes the focus, which stays.
bool StepFocus(QMainWindow& window, bool next);

/// Enter presses the button in `area` that has the focus, as the blank does. False: another key, or
/// no such button; nothing happened.
bool PressByEnter(const QWidget& area, const QKeyEvent& event);

} // namespace host
