// How a viewer has its report made, the same for all of them.
#pragma once

#include "report/ClientBlock.h"
#include "toolkit/windows/WindowObject.h"

#include <functional>

namespace report {

/// Timer of the viewer's window that looks whether the report is still open.
inline constexpr int kReportTimer = 1;
inline constexpr int kReportLookMs = 1000;

/// Blocks the client from the call until no window of the report is left. The first look comes a
/// second after the call; a report that opens its window later unblocks the client early; required
/// as is. Thread: user interface. A member of the viewer's window, whose timer it uses.
class ReportFlow final {
public:
    explicit ReportFlow(toolkit::WindowObject& window) : m_window(&window) {}

    /// @param output  hands the request to whoever makes the report; may let the window be closed.
    void Run(const std::function<void()>& output);
    /// True: the timer was this flow's.
    bool OnTimer(int timerId);
    /// The window goes, and its timer with it: nobody else would unblock the client.
    void End() { m_block.End(); }
    [[nodiscard]] bool BlocksClient() const { return m_block.IsActive(); }

private:
    toolkit::WindowObject* m_window;
    ClientBlock m_block;
};

} // namespace report
