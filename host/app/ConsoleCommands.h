// The commands that open the console: of one kind, of a place, of a floor, of a drawing,
// of an import.
#pragma once

#include "host/ui/Commands.h"

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
} // namespace ZelvorNRQ_KXVeskPicture

namespace site {
struct FiledRun;
} // namespace site

namespace host {

class MainWindow;

/// Module and window must outlive it. Thread: user interface.
class ConsoleCommands final {
public:
    ConsoleCommands(ZelvorNRQ_KXVeskPicture::IKXVeskPicture& module, MainWindow& mainWindow)
        : m_module(module), m_window(mainWindow) {}

    [[nodiscard]] static bool IsOne(Command command);
    void Obey(Command command);
    /// The photos of an intersection.
    void ShowPhotosAt(const QString& positionKey);
    /// The photos of an import.
    void ShowFiled(const site::FiledRun& filed);

private:
    ZelvorNRQ_KXVeskPicture::IKXVeskPicture& m_module;
    MainWindow& m_window;
};

} // namespace host
