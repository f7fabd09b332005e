#include "host/app/DrawingFlow.h"

#include "host/app/Faults.h"
#include "host/ui/MainWindow.h"
#include "host/ui/drawing/DrawingPane.h"
#include "include/IKXVeskPicture.h"
#include "site/IChanges.h"
#include "site/IClientFolders.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/Look.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Between two times that checkpoints are drawn anew, milliseconds.
constexpr int kFlagsPauseMs = 300;

bool ChangesFlags(const site::Change& change) {
    using site::ChangeKind;
    return change.kind == ChangeKind::Anything || change.kind == ChangeKind::Checkpoint ||
           change.kind == ChangeKind::PdfPhoto || change.kind == ChangeKind::Mark;
}

bool ChangesDrawings(const site::Change& change) {
    return change.kind == site::ChangeKind::Anything || change.kind == site::ChangeKind::Drawing;
}

} // namespace

SheetFlag FlagOf(const site::CheckpointFlag& point) {
    return {
        point.id,         point.number,
        point.place.page, {double(point.place.x) / kPlaceUnit, double(point.place.y) / kPlaceUnit},
        point.markName,   toolkit::ColorFromBgr(point.markColor),
        point.shownPhotos};
}

DrawingFlow::DrawingFlow(const Parts& parts)
    : m_parts(parts), m_flagsSoon(kFlagsPauseMs, [this] { ReadFlags(); }),
      m_drawingsSoon(kFlagsPauseMs, [this] { ReadAnew(); }) {
    ConnectPane();
    WatchChanges();
}

DrawingFlow::~DrawingFlow() {
    ForgetSheet();
}

DrawingPane& DrawingFlow::Pane() const {
    return m_parts.window.Drawing();
}

void DrawingFlow::ConnectPane() {
    connect(&Pane(), &DrawingPane::DrawingChosen, this, &DrawingFlow::TakeDrawing);
    connect(&Pane(), &DrawingPane::RetryWanted, this, [this] {
        ForgetSheet();
        OpenSheet();
    });
    connect(&Pane(), &DrawingPane::HintLeft, this, &DrawingFlow::GiveUpPick);
    connect(&Pane().Canvas(), &DrawingCanvas::FlagOpened, this, &DrawingFlow::OpenCheckpoint);
    connect(&Pane().Store(), &SheetStore::StateChanged, this, &DrawingFlow::TryToLocate);
    connect(&m_parts.window, &MainWindow::FaceChanged, this, &DrawingFlow::OnFaceChanged);
    connect(&m_parts.window, &MainWindow::DrawingChosen, this, &DrawingFlow::TakeDrawing);
}

void DrawingFlow::WatchChanges() {
    // Told from inside of any question to the site: what is read comes later.
    const auto note = [this](const site::Changes& changes) {
        if (std::any_of(changes.begin(), changes.end(), ChangesDrawings)) {
            QMetaObject::invokeMethod(
                this, [this] { m_drawingsSoon.Ask(); }, Qt::QueuedConnection);
        } else if (std::any_of(changes.begin(), changes.end(), ChangesFlags)) {
            QMetaObject::invokeMethod(
                this, [this] { m_flagsSoon.Ask(); }, Qt::QueuedConnection);
        }
    };
    WithoutFault(m_parts.session,
                 [&] { m_changes = m_parts.session.Site().Changes().Subscribe(note); });
}

const site::DrawingEntry* DrawingFlow::Current() const {
    const qint32 shown = m_parts.session.Drawing().drawingId;
    const auto found =
        std::find_if(m_drawings.begin(), m_drawings.end(),
                     [shown](const site::DrawingEntry& entry) { return entry.id == shown; });
    return found == m_drawings.end() ? nullptr : &*found;
}

const site::CheckpointFlag* DrawingFlow::Checkpoint(qint32 pointId) const {
    const auto found =
        std::find_if(m_points.begin(), m_points.end(),
                     [pointId](const site::CheckpointFlag& point) { return point.id == pointId; });
    return found == m_points.end() ? nullptr : &*found;
}

void DrawingFlow::ProjectChanged() {
    m_isPicking = false;
    m_toLocate = 0;
    Pane().SetHint({});
    // Nothing of the project before may be seen, whatever can be read of this one.
    m_drawings.clear();
    ForgetSheet();
    ReadFlags();
    ShowChoice();
    ReadAnew();
}

void DrawingFlow::ReadAnew() {
    std::vector<site::DrawingEntry> drawings;
    const bool isRead = WithoutFault(m_parts.session, [&] {
        for (const qint32 ppid : m_parts.session.OpenPpids()) {
            const auto some = m_parts.session.Site().Drawings().List(ppid);
            drawings.insert(drawings.end(), some.begin(), some.end());
        }
    });
    if (!isRead) {
        return;
    }
    m_drawings = std::move(drawings);
    if (Current() != nullptr) {
        // It may have another name now, or another file.
        Show(Current()->id);
    } else if (!m_drawings.empty()) {
        Show(m_drawings.front().id);
    } else {
        m_parts.session.SetDrawing({});
        ForgetSheet();
        ReadFlags();
    }
    ShowChoice();
}

void DrawingFlow::ShowChoice() {
    QStringList names;
    int current = -1;
    for (const site::DrawingEntry& entry : m_drawings) {
        current = &entry == Current() ? int(names.size()) : current;
        QString name = entry.name;
        if (m_parts.session.IsWorkset()) {
            WithoutFault(m_parts.session, [&] {
                name = m_parts.session.Tables().ProjectName(entry.ppid) + u" / "_s + name;
            });
        }
        names << name;
    }
    m_parts.window.SetDrawings(names, current);
    emit Changed();
}

void DrawingFlow::TakeDrawing(int index) {
    if (index < 0 || index >= int(m_drawings.size())) {
        return;
    }
    Show(m_drawings[size_t(index)].id);
    ShowChoice();
    m_parts.window.ShowStatus(u"当前图纸：%1"_s.arg(Current()->name));
}

void DrawingFlow::Show(qint32 drawingId) {
    const auto found = std::find_if(
        m_drawings.begin(), m_drawings.end(),
        [drawingId](const site::DrawingEntry& entry) { return entry.id == drawingId; });
    if (found == m_drawings.end()) {
        return;
    }
    m_parts.session.SetDrawing({found->id, found->name});
    if (m_sheetOf != 0 && m_sheetOf != drawingId) {
        ForgetSheet();
    }
    ReadFlags();
    if (m_parts.window.IsDrawingInFront()) {
        OpenSheet();
    }
}

void DrawingFlow::ForgetSheet() {
    m_fetching.request_stop();
    ++m_fetch;
    m_sheetOf = 0;
    Pane().Store().Close();
}

void DrawingFlow::OpenSheet() {
    const site::DrawingEntry* drawing = Current();
    if (drawing == nullptr || m_sheetOf == drawing->id) {
        return;
    }
    m_sheetOf = drawing->id;
    if (drawing->fileUuid.isEmpty()) {
        Pane().Store().Break(DrawingFault::Missing);
        return;
    }
    const auto folder =
        m_parts.session.Desk()->Folder([ppid = drawing->ppid](site::IClientFolders& folders) {
            return folders.CacheOf(ppid, site::IClientFolders::Cache::Drawings);
        });
    if (!folder || folder->isEmpty()) {
        Pane().Store().Break(DrawingFault::Missing);
        return;
    }
    const QPointer<DrawingFlow> self(this);
    const int fetch = ++m_fetch;
    const auto work = [self, fetch, uuid = drawing->fileUuid,
                       path = *folder + u'/' + drawing->fileUuid +
                              u".pdf"_s](site::IBlobs& blobs, const site::TransferTerms& terms) {
        const bool isThere = blobs.Fetch(uuid, path, terms).ok;
        // Looked up on the interface thread: the client may have ended by then.
        toolkit::CallOnInterfaceThread([self, fetch, path, isThere] {
            if (self) {
                self->OnFetched(fetch, path, isThere);
            }
        });
    };
    m_fetching = m_parts.session.Desk()->Start(work);
}

void DrawingFlow::OnFetched(int fetch, const QString& path, bool isThere) {
    if (fetch != m_fetch) {
        return;
    }
    if (isThere) {
        Pane().Store().Open(path);
    } else {
        Pane().Store().Break(DrawingFault::Missing);
    }
}

void DrawingFlow::ReadFlags() {
    std::vector<site::CheckpointFlag> points;
    const site::DrawingEntry* drawing = Current();
    const bool isRead = drawing == nullptr || WithoutFault(m_parts.session, [&] {
                            points = m_parts.session.Site()
                                         .Drawings()
                                         .Flags(m_parts.session.OpenPpids(), drawing->id)
                                         .value_or(std::vector<site::CheckpointFlag>());
                        });
    if (!isRead && m_pointsOf == drawing->id) {
        return;
    }
    m_points = std::move(points);
    m_pointsOf = drawing == nullptr ? 0 : drawing->id;
    std::vector<SheetFlag> flags;
    for (const site::CheckpointFlag& point : m_points) {
        flags.push_back(FlagOf(point));
    }
    Pane().Canvas().SetFlags(std::move(flags));
    TryToLocate();
}

void DrawingFlow::OpenCheckpoint(qint32 pointId) {
    if (Current() == nullptr) {
        return;
    }
    EndPick();
    m_parts.pictures.ShowPdfPicView(Current()->ppid, pointId, Current()->name, m_parts.window.Id());
}

void DrawingFlow::ShowFace() {
    m_parts.window.ShowDrawingFace(true);
    OpenSheet();
}

void DrawingFlow::OnFaceChanged(bool toDrawing) {
    if (toDrawing) {
        OpenSheet();
    } else {
        GiveUpPick();
    }
}

bool DrawingFlow::MakeCurrent(qint32 drawingId) {
    Show(drawingId);
    ShowChoice();
    return Current() != nullptr && Current()->id == drawingId;
}

void DrawingFlow::ShowDrawing(qint32 drawingId) {
    ReadAnew();
    Show(drawingId);
    ShowChoice();
    ShowFace();
}

void DrawingFlow::OnDrawingWanted(qint32 drawingId) {
    Show(drawingId);
    ShowChoice();
    ShowFace();
    // A lookup says so at once, by the event that follows.
    m_isPicking = true;
    emit PickBegins();
    Pane().SetHint(u"请在图纸上点击照片所在的检查点，也可以先换一张图纸"_s);
    Pane().Canvas().setFocus();
}

bool DrawingFlow::EndPick() {
    const bool wasPicking = std::exchange(m_isPicking, false);
    if (wasPicking) {
        Pane().SetHint({});
    }
    return wasPicking;
}

void DrawingFlow::GiveUpPick() {
    if (EndPick()) {
        // Opening the console gives up the editor's wait for a checkpoint.
        m_parts.pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    }
}

void DrawingFlow::LocateCheckpoint(qint32 pointId) {
    EndPick();
    std::optional<site::DrawingEntry> drawing;
    WithoutFault(m_parts.session, [&] {
        drawing = m_parts.session.Site().Drawings().DrawingOf(m_parts.session.OpenPpids(), pointId);
    });
    if (!drawing) {
        return;
    }
    Show(drawing->id);
    ShowChoice();
    m_toLocate = pointId;
    ShowFace();
    TryToLocate();
}

void DrawingFlow::TryToLocate() {
    if (m_toLocate != 0 && Pane().Store().Present() == SheetStore::State::Open) {
        Pane().Canvas().LocateFlag(std::exchange(m_toLocate, 0));
    }
}

} // namespace host
