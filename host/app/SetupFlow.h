// The settings of the site, from the main window.
#pragma once

#include "host/ui/setup/SetupDesk.h"

#include <QObject>
#include <QPointer>

namespace host {

class DrawingImport;
class HostSession;
class MainWindow;
class SetupWindow;
class UndoFlow;
struct SetupTables;

/// Whoever has the right to set up opens the window; what it saves is asked for the right again.
/// What it is made of must outlive it. Thread: user interface.
class SetupFlow final : public QObject, private ISetupDesk {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        DrawingImport& drawings;
        UndoFlow& undo;
    };

    explicit SetupFlow(const Parts& flowParts);
    ~SetupFlow() override;

    /// Why the window can't be opened; empty: it can.
    [[nodiscard]] QString WhyNot() const;
    /// Opens the window, or brings it to the front.
    void Show();
    /// Closes it without a question.
    void End();
    /// Null while it isn't open.
    [[nodiscard]] SetupWindow* Window() const;

signals:
    /// The site is set up otherwise now.
    void Changed();

private:
    std::optional<site::SetupState> Read() override;
    std::optional<site::SetupGrid> ReadGrid(qint32 ppid) override;
    std::optional<site::SetupOutcome> Save(const site::SetupState& seen,
                                           const site::SetupState& wanted) override;
    std::optional<QString> Uses(site::SetupList list, qint32 id) override;
    std::optional<QString> FloorUses(qint32 ppid, const QString& floor) override;
    std::optional<QString> CrossingUses(const QString& positionKey) override;
    SetupReading ReadFile(const QString& path, const site::SetupState& draft) override;
    SetupReading ReadText(const QString& text, site::SetupList list, const QString& project,
                          const site::SetupState& draft) override;
    QString WriteFile(const QString& path) override;
    std::vector<SetupDrawing> Drawings(qint32 ppid) override;
    QString RemoveDrawing(qint32 ppid, qint32 drawingId) override;
    void ImportDrawings(qint32 ppid, const QStringList& paths) override;
    /// What tables make of a draft; of projects whose grids it hasn't got they are read.
    [[nodiscard]] SetupReading Plan(const SetupTables& tables, const site::SetupState& draft);

    const Parts m_parts;
    QPointer<SetupWindow> m_setup;
};

} // namespace host
