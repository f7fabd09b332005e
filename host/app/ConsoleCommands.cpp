#include "host/app/ConsoleCommands.h"

#include "host/services/ListPresets.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "include/IKXVeskPicture.h"

namespace host {

namespace {

/// Presets: no mark, no photo, no component.
constexpr qint32 kUnread = 0;
constexpr qint32 kAnyMark = 0;
constexpr qint32 kNoPhoto = -1;
constexpr qint32 kNoCheckpoint = -1;

} // namespace

bool ConsoleCommands::IsOne(Command command) {
    return command == Command::BimConsole || command == Command::PdfConsole ||
           command == Command::IssueConsole || command == Command::PlacePhotos ||
           command == Command::FloorIssues || command == Command::DrawingPhotos;
}

void ConsoleCommands::Obey(Command command) {
    switch (command) {
    case Command::BimConsole:
        m_module.ShowPicMng(ZelvorNRQ_KXVeskPicture::kBimPhotos);
        break;
    case Command::PdfConsole:
        m_module.ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
        break;
    case Command::IssueConsole:
        m_module.ShowPicMng(ZelvorNRQ_KXVeskPicture::kIssues);
        break;
    case Command::PlacePhotos:
        if (const PlanIntersection* place = m_window.Plan().Canvas().Chosen()) {
            ShowPhotosAt(place->positionKey);
        }
        break;
    case Command::FloorIssues:
        m_module.ShowIssueMngFor(kUnread, m_window.Plan().CurrentFloor(), kAnyMark, QString());
        break;
    case Command::DrawingPhotos:
        m_module.ShowPdfPicMngFor(kUnread, kAnyMark, kNoCheckpoint);
        break;
    default:
        break;
    }
}

void ConsoleCommands::ShowPhotosAt(const QString& positionKey) {
    m_module.ShowBimPicMngFor(kUnread, positionKey, kAnyMark, kNoPhoto);
}

void ConsoleCommands::ShowFiled(const site::FiledRun& filed) {
    ListPreset preset;
    preset.filed = filed;
    m_module.ShowBimPicMngFor(kUnread, KeyOfPreset(preset), kAnyMark, kNoPhoto);
}

} // namespace host
