#include "tests/support/RecordingMainWindow.h"

#include "include/KXEvents.h"
#include "tests/support/ArgText.h"

namespace support {

RecordingMainWindow::RecordingMainWindow(Script& script) : m_script(script) {
    m_id = toolkit::RegisterWindow(
        &m_widget, [this](const toolkit::WindowEvent& event) { return OnEvent(event); });
    toolkit::SetMainWindow(m_id);
}

RecordingMainWindow::~RecordingMainWindow() {
    toolkit::SetMainWindow(toolkit::kNoWindow);
    toolkit::UnregisterWindow(m_id);
}

qintptr RecordingMainWindow::OnEvent(const toolkit::WindowEvent& event) {
    // Two events share the number; the first parameter tells them apart.
    const bool inView =
        event.number == ZelvorNRQ_KXVeskPicture::WM_VESK_PIC_LOCATE && event.first == 0;
    const std::string second = inView ? Arg("text", *reinterpret_cast<const QString*>(event.second))
                                      : Arg("second", quint64(event.second));
    m_script.Call("MainWindow",
                  {Arg("event", event.number), Arg("first", quint64(event.first)), second});
    return 0;
}

} // namespace support
