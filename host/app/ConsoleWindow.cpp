#include "host/app/ConsoleWindow.h"

#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QWidget>

namespace host {

using namespace Qt::StringLiterals;

bool IsOpen(QWidget* console) {
    return console != nullptr && toolkit::WidgetOf(toolkit::WindowOf(console)) == console;
}

QWidget* OpenConsole() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        // The name is the window's own.
        if (window->objectName() == u"VeskPicMngDlg"_s && IsOpen(window)) {
            return window;
        }
    }
    return nullptr;
}

} // namespace host
