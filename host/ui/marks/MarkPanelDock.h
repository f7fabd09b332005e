// The dock in which a person chooses the marks that the view shows.
#pragma once

#include "host/ui/marks/MarkPage.h"

#include <QDockWidget>

class QTabWidget;

namespace host {

/// A page for photos and one for issues. Lives on the interface thread, owned by the main window.
class MarkPanelDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit MarkPanelDock(QWidget* parent);

    [[nodiscard]] MarkPage& Page(MarkKind kind) const;
    [[nodiscard]] bool IsPageInSight(MarkKind kind) const;
    /// Sends no signal.
    void SetState(const MarkState& state);
    [[nodiscard]] MarkState State() const;

signals:
    /// A page has come into sight.
    void PageShown(host::MarkKind kind);

private:
    QTabWidget* m_tabs = nullptr;
    MarkPage* m_photos = nullptr;
    MarkPage* m_issues = nullptr;
};

} // namespace host
