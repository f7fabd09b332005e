#include "host/app/FilingFlows.h"

#include "host/app/ConsoleWatch.h"
#include "host/ui/MainWindow.h"

namespace host {

FilingFlows::FilingFlows(const Parts& flowParts)
    : m_parts(flowParts), m_bulk({flowParts.session, flowParts.window, flowParts.console}),
      m_inbox({flowParts.session, flowParts.window, m_bulk, flowParts.pictures}) {
    connect(&m_bulk, &BulkFlow::Changed, this, [this] {
        m_inbox.Reload();
        emit Changed();
    });
}

void FilingFlows::Obey(Command command) {
    if (command == Command::FileTicked) {
        m_bulk.AskForTicked();
    } else if (command == Command::Inbox) {
        m_inbox.Show();
    }
}

void FilingFlows::Enable() {
    // Whether something is ticked, and who may, it says itself.
    const bool hasConsole = m_parts.console.Console() != nullptr;
    m_parts.window.SetEnabled(Command::FileTicked, hasConsole,
                              hasConsole ? QString() : m_bulk.WhyNot());
}

void FilingFlows::ProjectChanged() {
    m_bulk.ProjectChanged();
    m_inbox.Reload();
}

} // namespace host
