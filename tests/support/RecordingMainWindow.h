// The host's main window, recording the numbered events that it gets.
#pragma once

#include "tests/support/Script.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QWidget>

namespace support {

/// The toolkit's main window while it lives; not shown.
///
/// Logs "MainWindow(event=7540,first=0,second=0)", a lookup in the view with its text:
/// "MainWindow(event=7529,first=0,text=F1-2-3)". The handler's result is 0.
class RecordingMainWindow {
public:
    explicit RecordingMainWindow(Script& script);
    ~RecordingMainWindow();
    RecordingMainWindow(const RecordingMainWindow&) = delete;
    RecordingMainWindow& operator=(const RecordingMainWindow&) = delete;

    [[nodiscard]] toolkit::WindowId Id() const { return m_id; }
    [[nodiscard]] QWidget* Widget() { return &m_widget; }

private:
    qintptr OnEvent(const toolkit::WindowEvent& event);

    Script& m_script;
    QWidget m_widget;
    toolkit::WindowId m_id = toolkit::kNoWindow;
};

} // namespace support
