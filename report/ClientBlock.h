// Keeps the client's main window from the user while a report is being made.
#pragma once

#include "toolkit/windows/WindowRegistry.h"

namespace report {

/// The client's other windows stay as they are. Ends with the object at the latest, so that nobody
/// is left with a client that doesn't answer. Thread: user interface. A member of a viewer.
class ClientBlock final {
public:
    ClientBlock() = default;
    ~ClientBlock() { End(); }
    ClientBlock(const ClientBlock&) = delete;
    ClientBlock& operator=(const ClientBlock&) = delete;

    void Begin();
    void End();
    [[nodiscard]] bool IsActive() const { return m_blocked != toolkit::kNoWindow; }

    /// Whether a window of the report is open.
    [[nodiscard]] static bool IsReportOpen();

private:
    toolkit::WindowId m_blocked = toolkit::kNoWindow;
};

} // namespace report
