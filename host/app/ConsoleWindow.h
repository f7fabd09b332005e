// The module's console, as the client sees it.
#pragma once

class QWidget;

namespace host {

/// True for a window that is there. A console that has ended may still wait to be deleted, and is
/// no window of the toolkit then.
[[nodiscard]] bool IsOpen(QWidget* console);
/// Null while it isn't open.
[[nodiscard]] QWidget* OpenConsole();

} // namespace host
