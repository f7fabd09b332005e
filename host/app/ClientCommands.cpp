#include "host/app/Client.h"

#include "host/app/ConsoleCommands.h"
#include "host/app/DrawingFlow.h"
#include "host/app/DrawingImport.h"
#include "host/app/Faults.h"
#include "host/app/FilingFlows.h"
#include "host/app/ImportFlow.h"
#include "host/app/IssueFlow.h"
#include "host/app/ProjectFlow.h"
#include "host/app/RaiseFlow.h"
#include "host/app/ReminderFlow.h"
#include "host/app/RichTextFlow.h"
#include "host/app/SetupFlow.h"
#include "host/app/SheetFlow.h"
#include "host/ui/HelpWindows.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/drawing/DrawingPane.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "include/KXEvents.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>

namespace host {

using namespace Qt::StringLiterals;

void Client::Obey(Command command) {
    if (ConsoleCommands::IsOne(command)) {
        // A place of the plan leaves an editor's wait for a checkpoint alone.
        if (command != Command::PlacePhotos) {
            m_drawings->EndPick();
        }
        m_consoles->Obey(command);
    } else if (!ObeyView(command)) {
        ObeyHost(command);
    }
}

bool Client::ObeyView(Command command) {
    switch (command) {
    case Command::PlanFace:
        m_window->ShowDrawingFace(false);
        m_window->Plan().Canvas().setFocus();
        return true;
    case Command::DrawingFace:
        m_drawings->ShowFace();
        m_window->Drawing().Canvas().setFocus();
        return true;
    case Command::Refresh:
        ReadAnew();
        m_window->ShowStatus(u"平面图已刷新"_s);
        return true;
    case Command::CatchUp:
        m_window->ToggleCatchUp();
        return true;
    case Command::MarkAllRead:
        m_reminders->MarkAllRead();
        return true;
    case Command::ClearMessages:
        m_window->Messages().Clear();
        return true;
    case Command::Keys:
        ShowKeys(m_window.get());
        return true;
    case Command::About:
        ShowAbout(m_window.get(), m_session.Site().Place());
        return true;
    default:
        return false;
    }
}

void Client::ObeyHost(Command command) {
    switch (command) {
    case Command::NewProject:
        m_projects->Make();
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
    case Command::RecordVersions:
        m_richTexts->ShowVersions();
        break;
    case Command::Drafts:
        m_richTexts->ShowDrafts();
        break;
    case Command::Setup:
        m_setup->Show();
        break;
    case Command::Bin:
        ShowBin();
        break;
    case Command::OpenFolder:
        toolkit::Prompts().OpenFolder(m_session.Site().Place());
        break;
    case Command::Quit:
        m_window->close();
        break;
    default:
        m_filing->Obey(command);
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
            ShowChanges();
        });
    }
    m_binWindow->show();
    m_binWindow->raise();
    m_binWindow->activateWindow();
}

} // namespace host
