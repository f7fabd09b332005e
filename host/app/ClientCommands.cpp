#include "host/app/Client.h"

#include "host/app/Faults.h"
#include "host/app/ImportFlow.h"
#include "host/ui/HelpWindows.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/ProjectNameDialog.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "include/IKXVeskPicture.h"
#include "include/KXEvents.h"
#include "site/IIntake.h"
#include "toolkit/Prompts.h"
#include "toolkit/WindowRegistry.h"

#include <QApplication>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Presets: no mark, no photo, no component.
constexpr qint32 kUnread = 0;
constexpr qint32 kAnyMark = 0;
constexpr qint32 kNoPhoto = -1;
constexpr qint32 kNoCheckpoint = -1;

} // namespace

void Client::Obey(Command command) {
    ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures = *module.Pictures();
    switch (command) {
    case Command::kBimConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kBimPhotos);
        break;
    case Command::kPdfConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
        break;
    case Command::kIssueConsole:
        pictures.ShowPicMng(ZelvorNRQ_KXVeskPicture::kIssues);
        break;
    case Command::kPlacePhotos:
        if (const PlanIntersection* place = window->Plan().Canvas().Chosen())
            ShowPhotosAt(place->positionKey);
        break;
    case Command::kFloorIssues:
        pictures.ShowIssueMngFor(kUnread, window->Plan().CurrentFloor(), kAnyMark, QString());
        break;
    case Command::kDrawingPhotos:
        pictures.ShowPdfPicMngFor(kUnread, kAnyMark, kNoCheckpoint);
        break;
    default:
        ObeyHost(command);
    }
}

void Client::ObeyHost(Command command) {
    switch (command) {
    case Command::kNewProject:
        MakeProject();
        break;
    case Command::kImport:
        imports->Ask({});
        break;
    case Command::kBin:
        ShowBin();
        break;
    case Command::kOpenFolder:
        toolkit::Prompts().OpenFolder(session.Site().Place());
        break;
    case Command::kRefresh:
        ReadAnew();
        window->ShowStatus(u"平面图已刷新"_s);
        break;
    case Command::kClearMessages:
        window->Messages().Clear();
        break;
    case Command::kKeys:
        ShowKeys(window.get());
        break;
    case Command::kAbout:
        ShowAbout(window.get(), session.Site().Place());
        break;
    case Command::kQuit:
        window->close();
        break;
    default:
        break;
    }
}

void Client::ShowPhotosAt(const QString& positionKey) {
    module.Pictures()->ShowBimPicMngFor(kUnread, positionKey, kAnyMark, kNoPhoto);
}

void Client::MakeProject() {
    QStringList taken;
    for (const ProjectChoice& choice : choices)
        taken << choice.text;
    ProjectNameDialog dialog(window.get(), taken);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool isMade = WithoutFault(session, [&] {
        session.Site().NewIntake()->AddProject(dialog.Name());
        session.LogAction(u"新建工程“%1”"_s.arg(dialog.Name()));
    });
    if (!isMade)
        return;
    ReadProjects();
    for (int at = 0; at < int(choices.size()); ++at) {
        if (choices[at].ppid != 0 && choices[at].text == dialog.Name())
            TakeProject(at);
    }
}

void Client::RefreshModule() {
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        const toolkit::WindowId id = toolkit::WindowOf(other);
        if (id != toolkit::kNoWindow && id != window->Id())
            toolkit::PostWindowEvent(id, ZelvorNRQ_KXVeskPicture::WM_PIC_MNG_REFRESH);
    }
}

void Client::ShowBin() {
    if (binWindow.isNull()) {
        binWindow = new BinWindow(window.get(), binSource);
        binWindow->setAttribute(Qt::WA_DeleteOnClose);
        connect(binWindow, &BinWindow::Restored, this, [this](int count) {
            window->ShowStatus(u"已恢复 %1 项"_s.arg(count));
            ReadAnew();
            RefreshModule();
        });
    }
    binWindow->show();
    binWindow->raise();
    binWindow->activateWindow();
}

} // namespace host
