// Raising an issue at the desk.
#pragma once

#include <QObject>
#include <QPointer>

namespace host {

class FloorPlanView;
class HostSession;
class MainWindow;
class PickFlow;
class RaiseIssueDialog;
struct IssueDraft;

/// Opens the dialog, has its component picked on the plan while it steps aside, and files what was
/// filled in. One at a time. What it is made of must outlive it. Thread: user interface.
class RaiseFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        FloorPlanView& view;
        PickFlow& picks;
    };

    explicit RaiseFlow(const Parts& parts) : m_parts(parts) {}
    ~RaiseFlow() override;

    /// Why no issue can be raised now, for a tip; empty if a project is open, alone, and the person
    /// may change what is in it.
    [[nodiscard]] QString WhyNot() const;
    /// The dialog that stands open already comes to the front.
    void Ask();
    /// Another project is open: what was filled in stays, its component must be picked again.
    void ProjectChanged();
    /// The client's windows are about to close: one that steps aside comes back, so that its person
    /// is asked.
    void ComeBack();

signals:
    void Raised();

private:
    void Pick();
    void OnPicked(bool confirmed);
    void File(const IssueDraft& draft);
    void BringUp();

    const Parts m_parts;
    QPointer<RaiseIssueDialog> m_dialog;
};

} // namespace host
