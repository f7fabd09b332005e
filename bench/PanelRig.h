// The mark panel beside the plan in a window, filled as the client fills it.
#pragma once

#include "bench/WatchedApplication.h"
#include "host/app/MarkFlow.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/plan/FloorPlanView.h"

#include <QMainWindow>

#include <memory>

class QTreeView;

namespace host {
class MarkPanelDock;
}

namespace bench {

/// From an event to what a person sees, milliseconds.
struct PanelTime {
    double passed = -1; ///< negative: it never came to be seen
    double worked = 0;  ///< of it, this thread's own work
    double behind = 0;  ///< work that follows at once, such as the issues
};

/// Real panel, plan, module and services; times end when the tree of photos has been painted with
/// its rows. The session must have an open project.
class PanelRig final {
public:
    PanelRig(WatchedApplication& watchedApplication, host::HostSession& hostSession);
    ~PanelRig();

    /// What the client does once a project is open.
    [[nodiscard]] PanelTime Fill();
    /// What it does when the data have changed.
    [[nodiscard]] PanelTime ReadAnew();
    /// A person chooses days; without a limit all times count.
    [[nodiscard]] PanelTime Choose(const host::MarkDays& days);
    /// Closes the panel and shows it again; the time is from then on.
    [[nodiscard]] PanelTime ShowAgain();

    [[nodiscard]] const host::MarkTree& Tree() const;
    [[nodiscard]] QSize TreeSize() const;

private:
    [[nodiscard]] PanelTime UntilPainted(const std::function<void()>& act);

    WatchedApplication& m_application;
    host::HostSession& m_session;
    QMainWindow m_window;
    host::FloorPlanPane* m_plan = nullptr;
    host::MarkPanelDock* m_panel = nullptr;
    QTreeView* m_tree = nullptr;
    host::ObserverHub m_hub;
    std::unique_ptr<host::FloorPlanView> m_view;
    std::unique_ptr<host::MarkFlow> m_flow;
};

} // namespace bench
