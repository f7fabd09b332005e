// Who has components picked on the plan, and what becomes of it.
#pragma once

#include <QObject>

#include <functional>
#include <optional>

namespace host {

class FloorPlanView;
class MainWindow;
class ObserverHub;

/// The module begins a pick at the view and is told the end through the hub; the client's own
/// dialogs ask here. One pick runs at a time: who began the one before is told that it was
/// cancelled. While it runs, the plan is in front. Window, view and hub must outlive it. Thread:
/// user interface.
class PickFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        MainWindow& window;
        FloorPlanView& view;
        const ObserverHub& hub;
    };
    using Ended = std::function<void(bool confirmed)>;

    explicit PickFlow(const Parts& parts);

    /// For a window of the client; what is picked is asked of the view.
    void Begin(Ended onEnd);
    /// Does nothing while none runs.
    void Cancel();
    /// One that a window of the client began.
    [[nodiscard]] bool IsForClient() const { return m_running.has_value(); }

private:
    void OnBegin();
    void OnEnd(bool confirmed);

    const Parts m_parts;
    std::optional<Ended> m_next;
    std::optional<Ended> m_running; ///< nothing: the module's, or none runs
    bool m_wasDrawing = false;
};

} // namespace host
