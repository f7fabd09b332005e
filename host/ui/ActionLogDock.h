// The dock that shows what users did, as it happens.
#pragma once

#include <QDockWidget>

namespace host {

class ActionLogModel;

/// Owns the rows; whoever knows of an action adds it. Lives on the interface thread, owned by the
/// main window.
class ActionLogDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit ActionLogDock(QWidget* parent);

    [[nodiscard]] ActionLogModel& Model() const { return *m_model; }

private:
    ActionLogModel* m_model = nullptr;
};

} // namespace host
