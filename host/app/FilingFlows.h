// Filing many photos or issues at once: from the console, and from the list of those that wait.
#pragma once

#include "host/app/BulkFlow.h"
#include "host/app/InboxFlow.h"
#include "host/ui/Commands.h"

namespace host {

/// Holds the two together. What it is made of must outlive it. Thread: user interface.
class FilingFlows final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        const ConsoleWatch& console;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };

    explicit FilingFlows(const Parts& flowParts);

    /// Commands that aren't about filing are passed over.
    void Obey(Command command);
    void Enable();
    void ProjectChanged();

signals:
    /// Something was filed, or taken back: what lists show is old.
    void Changed();

private:
    const Parts m_parts;
    BulkFlow m_bulk;
    InboxFlow m_inbox;
};

} // namespace host
