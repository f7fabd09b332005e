// Files that are dropped on the client's windows: where they will go, and there they go.
#pragma once

#include <QObject>
#include <QStringList>

namespace host {

class CheckpointMenu;
class ConsoleWatch;
class DrawingImport;
class ImportFlow;
class MainWindow;

/// PDF files become drawings; all else goes to a checkpoint of the drawing or into the question of
/// the import. Of the main window, the drawing and each console that is opened. What it is made of
/// must outlive it. Thread: user interface.
class DropFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        MainWindow& window;
        ImportFlow& imports;
        DrawingImport& drawings;
        CheckpointMenu& checkpoints;
        ConsoleWatch& consoles;
    };
    explicit DropFlow(const Parts& flowParts);
    ~DropFlow() override;

private:
    void Watch();
    /// Chinese: where files that are dropped now would go, or why nowhere.
    [[nodiscard]] QString WhereDropped(const QStringList& paths) const;
    [[nodiscard]] QString WhereDroppedOn(const QString& checkpoint) const;
    /// @param over  the window; null: the main one.
    void Take(const QStringList& paths, QWidget* over = nullptr);

    Parts m_parts;
};

} // namespace host
