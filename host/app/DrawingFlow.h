// The drawings of the open project in the main window.
#pragma once

#include "host/app/Calmed.h"
#include "host/ui/drawing/DrawingCanvas.h"
#include "host/ui/drawing/SheetFlags.h"
#include "site/IDrawings.h"

#include <QObject>

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
}

namespace host {

class DrawingPane;
class HostSession;
class MainWindow;

/// Places of checkpoints count thousandths of the page.
inline constexpr double kPlaceUnit = 1000;
[[nodiscard]] SheetFlag FlagOf(const site::CheckpointFlag& point);

/// Shows one drawing with its checkpoints, keeps both as they are in the site, opens checkpoints
/// through the module, and lets one be picked for the editor of a photo. Session, window and module
/// must outlive it. Thread: user interface.
class DrawingFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };

    explicit DrawingFlow(const Parts& parts);
    ~DrawingFlow() override;

    /// Another project is open, or none: a pick ends without a word.
    void ProjectChanged();
    /// What is there is read again: drawings, checkpoints.
    void ReadAnew();
    /// Checkpoints are drawn anew, soon.
    void RefreshFlags() { m_flagsSoon.Ask(); }

    /// An entry of the choice; -1 and the like: nothing.
    void TakeDrawing(int index);
    /// The drawing that the console asks about becomes another one; false: it isn't there.
    bool MakeCurrent(qint32 drawingId);
    /// A drawing comes to the front.
    void ShowDrawing(qint32 drawingId);
    /// Somebody wants a drawing to be seen: the editor, to have a checkpoint picked on it, or a
    /// lookup, which then asks for the checkpoint itself.
    void OnDrawingWanted(qint32 drawingId);
    /// A lookup: the checkpoint's drawing comes up and its flag blinks.
    void LocateCheckpoint(qint32 pointId);

    [[nodiscard]] bool IsPicking() const { return m_isPicking; }
    /// Clicks open viewers again, as somebody opens the console; false: nothing was picked.
    bool EndPick();
    /// The drawing that is shown; nothing without one.
    [[nodiscard]] const site::DrawingEntry* Current() const;
    /// A checkpoint of it, as it was read; nothing for another one.
    [[nodiscard]] const site::CheckpointFlag* Checkpoint(qint32 pointId) const;
    /// What it shows comes to the front, with the sheet opened if it isn't.
    void ShowFace();

signals:
    /// Drawings were read, or another one is shown.
    void Changed();
    /// A checkpoint is to be picked: clicks are for that.
    void PickBegins();

private:
    [[nodiscard]] DrawingPane& Pane() const;
    void ConnectPane();
    void Show(qint32 drawingId);
    void ShowChoice();
    void OpenSheet();
    void ForgetSheet();
    void OnFetched(int fetch, const QString& path, bool isThere);
    void ReadFlags();
    void OpenCheckpoint(qint32 pointId);
    void OnFaceChanged(bool toDrawing);
    void GiveUpPick();
    void TryToLocate();
    void WatchChanges();

    const Parts m_parts;
    std::vector<site::DrawingEntry> m_drawings;
    std::vector<site::CheckpointFlag> m_points;
    qint32 m_pointsOf = 0; ///< drawing whose checkpoints these are
    qint32 m_sheetOf = 0;  ///< drawing whose sheet is open, or on its way; 0: none
    int m_fetch = 0;       ///< the latest one; what others bring is late
    qint32 m_toLocate = 0; ///< checkpoint that blinks as soon as it is there
    bool m_isPicking = false;
    std::stop_source m_fetching{std::nostopstate};
    Calmed m_flagsSoon;
    Calmed m_drawingsSoon;
    std::shared_ptr<void> m_changes;
};

} // namespace host
