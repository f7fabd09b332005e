// What a person may do with the checkpoints of a drawing.
#pragma once

#include "host/ui/drawing/DrawingCanvas.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <optional>

class QMenu;

namespace site {
struct CheckpointFlag;
} // namespace site

namespace host {

class DrawingFlow;
class DrawingPane;
class HostSession;
class ImportFlow;
class MainWindow;
class UndoFlow;

/// The menu on the sheet; setting, moving and removing checkpoints; photos that are filed on one.
/// Session, window and flows must outlive it. Thread: user interface.
class CheckpointMenu final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        DrawingFlow& drawings;
        ImportFlow& imports;
        UndoFlow& undo;
    };

    explicit CheckpointMenu(const Parts& parts);

    /// After another person, project or drawing: nothing that was begun goes on.
    void Reset();
    /// After the person's rights have changed.
    void ShowRights();
    /// Why photos can't be filed on a checkpoint; empty: they can.
    [[nodiscard]] QString WhyNot() const;
    /// Files and folders that were dropped on a flag are filed there.
    void FilePhotos(qint32 pointId, const QStringList& paths);

private:
    [[nodiscard]] DrawingPane& Pane() const;
    [[nodiscard]] bool MayChange() const;
    [[nodiscard]] bool MayRemove() const;
    void Open(const SheetMenuRequest& request);
    void AddFlagDeeds(QMenu& menu, qint32 pointId);
    void BeginPlacing(bool on);
    void BeginMoving(qint32 pointId);
    void LeaveOff();
    void OnPlace(const SheetPlace& place);
    void Add(const SheetPlace& place);
    void Move(const SheetPlace& place);
    void Remove(qint32 pointId);
    void AskForPhotos(qint32 pointId);

    const Parts m_parts;
    /// A click sets a new checkpoint, or moves this one.
    bool m_isPlacing = false;
    qint32 m_moving = 0;
};

} // namespace host
