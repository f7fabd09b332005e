// What a person leaves half done in a window when it ends: typed and not committed, dropped down
// and not chosen, pressed and not released.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace support {

/// The fields of a window in which something can be half done, by name and what is done: dates,
/// numbers, lines, texts, lists, check boxes, buttons, tables and trees that edit. Only those that
/// are visible and enabled; without those of other windows that lie on it.
///
/// @return  for each a sentence and an action. The action finds its field again in any window that
///          was made like this one, and leaves the keyboard in it.
struct HalfDone {
    std::string what; ///< "startPicker: typed over"
    std::function<void(QWidget& window)> act;
};
[[nodiscard]] std::vector<HalfDone> HalfDoneInputs(const QWidget& window);

/// A window and one way in which it ends.
struct EndTrial {
    /// Opens the window, waits until it has the keyboard, enables its fields, and gives it.
    std::function<QWidget*()> open;
    /// Ends it.
    std::function<void()> end;
    /// Gives what was asked of services and told to the host since the last call, and forgets it.
    std::function<std::vector<std::string>()> takeCalls;
};

/// Ends the window once untouched and once for each half done input, and fails the test where the
/// window is still there or where the calls differ from those of the untouched window: nothing that
/// wasn't committed is committed by the end, and no handler runs in a window that is going.
void ExpectEndsAsUntouched(const EndTrial& trial);

} // namespace support
