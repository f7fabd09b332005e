#include "host/app/CheckpointMenu.h"

#include "host/app/DrawingFlow.h"
#include "host/app/Faults.h"
#include "host/app/ImportFlow.h"
#include "host/app/UndoFlow.h"
#include "host/ui/MainWindow.h"
#include "host/ui/drawing/DrawingPane.h"
#include "services/IKXAuthMng.h"
#include "site/IBin.h"
#include "site/IDrawings.h"
#include "toolkit/Icons.h"
#include "toolkit/windows/Prompts.h"

#include <QMenu>

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

site::DrawingPlace PlaceOf(const SheetPlace& place) {
    return {place.page, std::lround(place.at.x() * kPlaceUnit),
            std::lround(place.at.y() * kPlaceUnit)};
}

QString NameOf(qint32 number) {
    return u"检查点%1"_s.arg(number);
}

} // namespace

CheckpointMenu::CheckpointMenu(const Parts& parts) : m_parts(parts) {
    connect(&Pane().Canvas(), &DrawingCanvas::MenuWanted, this, &CheckpointMenu::Open);
    connect(&Pane().Canvas(), &DrawingCanvas::PlaceClicked, this, &CheckpointMenu::OnPlace);
    connect(&Pane(), &DrawingPane::PlacingWanted, this, &CheckpointMenu::BeginPlacing);
    connect(&Pane(), &DrawingPane::HintLeft, this, &CheckpointMenu::LeaveOff);
    connect(&m_parts.window, &MainWindow::FaceChanged, this, &CheckpointMenu::LeaveOff);
    connect(&m_parts.drawings, &DrawingFlow::PickBegins, this, &CheckpointMenu::LeaveOff);
}

DrawingPane& CheckpointMenu::Pane() const {
    return m_parts.window.Drawing();
}

bool CheckpointMenu::MayChange() const {
    return m_parts.session.CurrentProject().ppid != 0 && !m_parts.session.IsWorkset() &&
           m_parts.session.HasRight(KX_DATA::kRightEdit);
}

bool CheckpointMenu::MayRemove() const {
    return MayChange() && m_parts.session.HasRight(KX_DATA::kRightDelete);
}

void CheckpointMenu::Reset() {
    LeaveOff();
    ShowRights();
}

void CheckpointMenu::ShowRights() {
    Pane().SetMayChange(MayChange());
}

QString CheckpointMenu::WhyNot() const {
    return MayChange() ? QString() : u"没有权限在检查点上添加照片，请找有编辑权限的人添加。"_s;
}

void CheckpointMenu::Open(const SheetMenuRequest& request) {
    // What a click is for at the moment comes first.
    if (m_isPlacing || m_moving != 0 || m_parts.drawings.IsPicking()) {
        return;
    }
    QMenu menu;
    menu.setObjectName(u"checkpointMenu"_s);
    if (request.pointId != 0) {
        AddFlagDeeds(menu, request.pointId);
    } else if (MayChange()) {
        menu.addAction(toolkit::Icon(u"pin"_s), u"在此新建检查点"_s, this,
                       [this, place = request.place] { Add(place); });
    }
    if (!menu.isEmpty()) {
        menu.exec(request.screen);
    }
}

void CheckpointMenu::AddFlagDeeds(QMenu& menu, qint32 pointId) {
    const site::CheckpointFlag* point = m_parts.drawings.Checkpoint(pointId);
    if (point == nullptr) {
        return;
    }
    menu.addAction(NameOf(point->number))->setEnabled(false);
    menu.addSeparator();
    QAction* open = menu.addAction(toolkit::Icon(u"preview"_s), u"打开检查点"_s, &Pane().Canvas(),
                                   [this, pointId] { emit Pane().Canvas().FlagOpened(pointId); });
    menu.setDefaultAction(open);
    if (!MayChange()) {
        return;
    }
    menu.addAction(toolkit::Icon(u"photo"_s), u"添加照片..."_s, this,
                   [this, pointId] { AskForPhotos(pointId); });
    menu.addSeparator();
    menu.addAction(toolkit::Icon(u"locate"_s), u"移动检查点"_s, this,
                   [this, pointId] { BeginMoving(pointId); });
    if (MayRemove()) {
        menu.addAction(toolkit::Icon(u"delete"_s), u"删除检查点"_s, this,
                       [this, pointId] { Remove(pointId); });
    }
}

void CheckpointMenu::BeginPlacing(bool on) {
    LeaveOff();
    m_isPlacing = on && MayChange() && !m_parts.drawings.IsPicking();
    Pane().SetPlacing(m_isPlacing);
    if (m_isPlacing) {
        Pane().SetHint(u"请在图纸上点击新检查点的位置，可以连续点击多处"_s);
        Pane().Canvas().setFocus();
    }
}

void CheckpointMenu::BeginMoving(qint32 pointId) {
    const site::CheckpointFlag* point = m_parts.drawings.Checkpoint(pointId);
    if (point == nullptr) {
        return;
    }
    LeaveOff();
    m_moving = pointId;
    Pane().Canvas().SetPlacing(true);
    Pane().SetHint(u"请在图纸上点击%1的新位置"_s.arg(NameOf(point->number)));
    Pane().Canvas().setFocus();
}

void CheckpointMenu::LeaveOff() {
    const bool wasMoving = std::exchange(m_moving, 0) != 0;
    if (std::exchange(m_isPlacing, false) || wasMoving) {
        Pane().SetHint({});
    }
    Pane().SetPlacing(false);
}

void CheckpointMenu::OnPlace(const SheetPlace& place) {
    if (m_moving != 0) {
        Move(place);
    } else if (m_isPlacing) {
        Add(place);
    }
}

void CheckpointMenu::Add(const SheetPlace& place) {
    const site::DrawingEntry* drawing = m_parts.drawings.Current();
    if (drawing == nullptr) {
        return;
    }
    constexpr qint32 kNextNumber = 0;
    HostSession& session = m_parts.session;
    const site::DrawingEntry on = *drawing;
    WithoutFault(session, [&] {
        const auto added = session.Site().Drawings().AddCheckpoint(
            session.OpenPpids(), on.id, PlaceOf(place), kNextNumber,
            {session.UserName(), session.Site().Now()});
        if (!added) {
            session.Desk()->Report(MessageLevel::Warning,
                                   u"图纸“%1”已被删除，没有新建检查点。"_s.arg(on.name));
            return;
        }
        session.Actions().Write(u"新建%1（%2）"_s.arg(NameOf(added->number), on.name));
        m_parts.window.ShowStatus(u"已新建%1"_s.arg(NameOf(added->number)));
    });
    m_parts.drawings.ReadAnew();
}

void CheckpointMenu::Move(const SheetPlace& place) {
    const site::CheckpointFlag* point = m_parts.drawings.Checkpoint(m_moving);
    if (point == nullptr) {
        LeaveOff();
        return;
    }
    const site::CheckpointFlag moved = *point;
    LeaveOff();
    HostSession& session = m_parts.session;
    WithoutFault(session, [&] {
        const site::Saved saved = session.Site().Drawings().MoveCheckpoint(
            session.OpenPpids(), moved.id, PlaceOf(place),
            {session.UserName(), session.Site().Now()}, moved.revision);
        if (saved == site::Saved::Yes) {
            session.Actions().Write(u"移动%1"_s.arg(NameOf(moved.number)));
            m_parts.window.ShowStatus(u"已移动%1"_s.arg(NameOf(moved.number)));
        } else {
            session.Desk()->Report(
                MessageLevel::Warning,
                saved == site::Saved::Gone
                    ? u"%1已被删除。"_s.arg(NameOf(moved.number))
                    : u"%1刚被其他人修改，没有移动，请再试一次。"_s.arg(NameOf(moved.number)));
        }
    });
    m_parts.drawings.ReadAnew();
}

void CheckpointMenu::Remove(qint32 pointId) {
    const site::CheckpointFlag* point = m_parts.drawings.Checkpoint(pointId);
    if (point == nullptr) {
        return;
    }
    const QString name = NameOf(point->number);
    if (!toolkit::Prompts().AskOkCancel(m_parts.window.Id(),
                                        u"确定删除%1？30 天内可以从回收站恢复。"_s.arg(name))) {
        return;
    }
    HostSession& session = m_parts.session;
    WithoutFault(session, [&] {
        std::vector<site::BinEntry> made;
        const bool isRemoved = session.Site().Bin().DeleteCheckpoint(
            session.OpenPpids(), pointId, {session.UserName(), session.Site().Now()}, &made);
        if (isRemoved) {
            m_parts.undo.Note(DeedOf(made));
            session.Actions().Write(u"删除%1"_s.arg(name));
        }
        m_parts.window.ShowStatus(isRemoved ? u"已删除%1"_s.arg(name) : u"%1已被删除"_s.arg(name));
    });
    m_parts.drawings.ReadAnew();
}

void CheckpointMenu::AskForPhotos(qint32 pointId) {
    const QStringList paths = toolkit::Prompts().AskOpenFiles(
        {m_parts.window.Id(),
         u"照片 (*.jpg *.jpeg *.png *.bmp *.gif *.heic *.heif *.hif *.tif *.tiff"
         " *.webp);;所有文件 (*)"_s});
    if (!paths.isEmpty()) {
        FilePhotos(pointId, paths);
    }
}

void CheckpointMenu::FilePhotos(qint32 pointId, const QStringList& paths) {
    const QString whyNot = WhyNot();
    if (!whyNot.isEmpty()) {
        m_parts.session.Desk()->Report(MessageLevel::Warning, whyNot);
        return;
    }
    const site::CheckpointFlag* point = m_parts.drawings.Checkpoint(pointId);
    const site::DrawingEntry* drawing = m_parts.drawings.Current();
    if (point != nullptr && drawing != nullptr) {
        m_parts.imports.FileOnCheckpoint(drawing->ppid, pointId, paths);
    }
}

} // namespace host
