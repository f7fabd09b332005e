#include "host/app/Client.h"

#include "host/app/DrawingFlow.h"
#include "host/app/DrawingImport.h"
#include "host/app/Faults.h"
#include "host/app/ImportFlow.h"
#include "host/app/IssueFlow.h"
#include "host/app/RaiseFlow.h"
#include "host/app/ReminderFlow.h"
#include "host/app/RichTextFlow.h"
#include "host/app/SheetFlow.h"
#include "host/ui/HelpWindows.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/ProjectNameDialog.h"
#include "host/ui/drawing/DrawingPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "include/IKXVeskPicture.h"
#include "include/KXEvents.h"
#include "site/IIntake.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Presets: no mark, no photo, no component.
constexpr qint32 kUnread = 0;
constexpr qint32 kAnyMark = 0;
constexpr qint32 kNoPhoto = -1;
constexpr qint32 kNoCheckpoint = -1;

/// Which gives up an editor's wait for a checkpoint.
bool OpensConsole(Command command) {
    return command == Command::BimConsole || command == Command::PdfConsole ||
           command == Command::IssueConsole || command == Command::FloorIssues ||
           command == Command::DrawingPhotos;
}

} // namespace

void Client::Obey(Command command) {
    ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures = *m_module.Pictures();
    if (OpensConsole(command)) {
        m_drawings->EndPick();
    }
    switch (command) {
    case Command::BimConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kBimPhotos);
        break;
    case Command::PdfConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
        break;
    case Command::IssueConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kIssues);
        break;
    case Command::PlacePhotos:
        if (const PlanIntersection* place = m_window->Plan().Canvas().Chosen()) {
            ShowPhotosAt(place->positionKey);
        }
        break;
    case Command::FloorIssues:
        pictures.ShowIssueMngFor(kUnread, m_window->Plan().CurrentFloor(), kAnyMark, QString());
        break;
    case Command::RecordVersions:
        m_richTexts->ShowVersions();
        break;
    case Command::Drafts:
        m_richTexts->ShowDrafts();
        break;
    case Command::DrawingPhotos:
        pictures.ShowPdfPicMngFor(kUnread, kAnyMark, kNoCheckpoint);
        break;
    default:
        ObeyHost(command);
    }
}

void Client::ObeyHost(Command command) {
    switch (command) {
    case Command::NewProject:
        MakeProject();
        break;
    case Command::Import:
        m_imports->Ask({});
        break;
    case Command::ImportDrawing:
        m_drawingImport->Ask();
        break;
    case Command::ExportList:
        m_sheets->Ask();
        break;
    case Command::RaiseIssue:
        m_raising->Ask();
        break;
    case Command::OpenByCode:
        m_issues->OpenByCode();
        break;
    case Command::PlanFace:
        m_window->ShowDrawingFace(false);
        m_window->Plan().Canvas().setFocus();
        break;
    case Command::DrawingFace:
        m_drawings->ShowFace();
        m_window->Drawing().Canvas().setFocus();
        break;
    case Command::Bin:
        ShowBin();
        break;
    case Command::OpenFolder:
        toolkit::Prompts().OpenFolder(m_session.Site().Place());
        break;
    case Command::Refresh:
        ReadAnew();
        m_window->ShowStatus(u"平面图已刷新"_s);
        break;
    case Command::CatchUp:
        m_window->ToggleCatchUp();
        break;
    case Command::MarkAllRead:
        m_reminders->MarkAllRead();
        break;
    case Command::ClearMessages:
        m_window->Messages().Clear();
        break;
    case Command::Keys:
        ShowKeys(m_window.get());
        break;
    case Command::About:
        ShowAbout(m_window.get(), m_session.Site().Place());
        break;
    case Command::Quit:
        m_window->close();
        break;
    default:
        break;
    }
}

void Client::ShowPhotosAt(const QString& positionKey) {
    m_module.Pictures()->ShowBimPicMngFor(kUnread, positionKey, kAnyMark, kNoPhoto);
}

void Client::MakeProject() {
    QStringList taken;
    for (const ProjectChoice& choice : m_choices) {
        taken << choice.text;
    }
    ProjectNameDialog dialog(m_window.get(), taken);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const bool isMade = WithoutFault(m_session, [&] {
        m_session.Site().NewIntake()->AddProject(dialog.Name());
        m_session.Actions().Write(u"新建工程“%1”"_s.arg(dialog.Name()));
    });
    if (!isMade) {
        return;
    }
    ReadProjects();
    for (int at = 0; at < int(m_choices.size()); ++at) {
        if (m_choices[at].ppid != 0 && m_choices[at].text == dialog.Name()) {
            TakeProject(at);
        }
    }
}

void Client::RefreshModule() {
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        const toolkit::WindowId id = toolkit::WindowOf(other);
        if (id != toolkit::kNoWindow && id != m_window->Id()) {
            toolkit::PostWindowEvent(id, ZelvorNRQ_KXVeskPicture::WM_PIC_MNG_REFRESH);
        }
    }
}

void Client::ShowBin() {
    if (m_binWindow.isNull()) {
        m_binWindow = new BinWindow(m_window.get(), m_binSource);
        m_binWindow->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_binWindow, &BinWindow::Restored, this, [this](int count) {
            m_window->ShowStatus(u"已恢复 %1 项"_s.arg(count));
            ReadAnew();
            RefreshModule();
        });
    }
    m_binWindow->show();
    m_binWindow->raise();
    m_binWindow->activateWindow();
}

} // namespace host
