#include "host/app/Client.h"

#include "host/app/Faults.h"
#include "host/app/ImportFlow.h"
#include "host/app/LocateNames.h"
#include "host/app/MarkFlow.h"
#include "host/app/PlanReader.h"
#include "host/ui/ActionLogDock.h"
#include "host/ui/ActionLogModel.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "include/IKXVeskPicture.h"
#include "site/ICatalogue.h"
#include "toolkit/Look.h"
#include "toolkit/Notices.h"
#include "toolkit/WindowPlace.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QToolTip>

namespace host {

using namespace Qt::StringLiterals;

namespace {

MessageKind KindOf(MessageLevel level) {
    switch (level) {
    case MessageLevel::kError:
        return MessageKind::kError;
    case MessageLevel::kWarning:
        return MessageKind::kWarning;
    default:
        return MessageKind::kInfo;
    }
}

/// Beside the pointer, or in the middle of the window that has the keyboard: the bar may lie behind
/// it.
void TellAtTheActiveWindow(const QString& text) {
    constexpr int kShownMs = 6000;
    QWidget* active = QApplication::activeWindow();
    if (active == nullptr)
        return;
    const QPoint pointer = QCursor::pos();
    const QRect place = active->frameGeometry();
    QToolTip::showText(place.contains(pointer) ? pointer : place.center(), toolkit::PlainTip(text),
                       active, {}, kShownMs);
}

} // namespace

Client::Client(HostSession& hostSession) : session(hostSession), binSource(hostSession) {}

Client::~Client() {
    Stop();
}

std::optional<QString> Client::Start(const QString& moduleFolder) {
    window = std::make_unique<MainWindow>();
    view = std::make_unique<FloorPlanView>(window->Plan());
    imports = std::make_unique<ImportFlow>(session, *window);
    session.view = view.get();
    session.progress = &progress;
    session.transferWait = &transferWait;
    session.imageFolder = QDir(moduleFolder).filePath(u"work"_s);
    ConnectWindow();
    ConnectSession();
    ConnectSink();
    if (auto lack = module.Load(moduleFolder))
        return lack;
    module.Pictures()->SetPicSink(&sink);
    module.Pictures()->SetIssueEditSink(&sink);
    module.Pictures()->AttachObservers(&hub);
    marks = std::make_unique<MarkFlow>(MarkFlow::Parts{session, window->Marks(), *view, hub,
                                                       *module.Pictures(), *module.PictureData()});
    window->SetUserName(session.UserName());
    window->SetDataFolder(session.Site().Place());
    BringBackLayout();
    window->show();
    OpenRemembered();
    return std::nullopt;
}

void Client::Stop() {
    if (!window)
        return;
    imports.reset();
    KeepLayout();
    if (marks)
        marks->Keep();
    window->CloseOtherWindows();
    hub.Clear();
    delete binWindow;
    progress.Close();
    session.view = nullptr;
    session.progress = nullptr;
    session.transferWait = nullptr;
    session.SetMessageSink({});
    session.SetWithdrawSink({});
    session.SetActionSink({});
    toolkit::SetNoticeSink({});
    window->disconnect(this);
    window->hide();
    marks.reset();
    if (module.Pictures() != nullptr) {
        module.Pictures()->SetPicSink(nullptr);
        module.Pictures()->SetIssueEditSink(nullptr);
    }
    view.reset();
    window.reset();
    module.Release();
}

QString Client::LayoutSetting() const {
    return u"layout:"_s + session.UserName();
}

void Client::BringBackLayout() {
    WithoutFault(session, [this] {
        const QString kept = session.Site().Catalogue().Setting(LayoutSetting());
        window->restoreGeometry(QByteArray::fromBase64(kept.section(u' ', 0, 0).toLatin1()));
        window->restoreState(QByteArray::fromBase64(kept.section(u' ', 1).toLatin1()));
        toolkit::KeepOnScreen(*window);
    });
}

void Client::KeepLayout() {
    // A client that didn't come as far as its user has nothing to keep.
    if (module.Pictures() == nullptr || !session.IsOpen())
        return;
    WithoutFault(session, [this] {
        session.Site().Catalogue().SetSetting(
            LayoutSetting(), QString::fromLatin1(window->saveGeometry().toBase64() + ' ' +
                                                 window->saveState().toBase64()));
    });
}

void Client::ConnectWindow() {
    connect(window.get(), &MainWindow::CommandGiven, this, &Client::Obey);
    connect(window.get(), &MainWindow::ProjectChosen, this, &Client::TakeProject);
    connect(window.get(), &MainWindow::DrawingChosen, this, &Client::TakeDrawing);
    connect(window.get(), &MainWindow::PhotoLocated, this, &Client::OnPhotoLocated);
    connect(window.get(), &MainWindow::DrawingLocated, this,
            [this](int pointId) { window->ShowStatus(CheckpointLocatedText(session, pointId)); });
    connect(window.get(), &MainWindow::PathsDropped, imports.get(), &ImportFlow::Ask);
    connect(window.get(), &MainWindow::Closed, qApp, &QApplication::quit);
    connect(imports.get(), &ImportFlow::Imported, this, &Client::ReadAnew);
    FloorPlanCanvas& canvas = window->Plan().Canvas();
    connect(&canvas, &FloorPlanCanvas::PhotosWanted, this, &Client::ShowPhotosAt);
    connect(&canvas, &FloorPlanCanvas::ChoiceChanged, this, &Client::EnableCommands);
    connect(&canvas, &FloorPlanCanvas::FloorChanged, this, &Client::EnableCommands);
}

void Client::ConnectSession() {
    session.SetMessageSink([this](MessageLevel level, const QString& text) {
        // Transfers report from their own threads.
        QMetaObject::invokeMethod(
            window.get(), [this, level, text] { window->Messages().Show(KindOf(level), text); });
    });
    session.SetWithdrawSink(
        [this](const QString& beginning) { window->Messages().Withdraw(beginning); });
    toolkit::SetNoticeSink([this](const QString& text) {
        window->Messages().Show(MessageKind::kInfo, text);
        TellAtTheActiveWindow(text);
    });
    session.SetActionSink([this](const site::LoggedAction& action) {
        window->ActionLog().Model().Add({action.at, action.person, action.action});
    });
    WithoutFault(session, [this] {
        std::vector<ActionLogEntry> entries;
        for (const site::LoggedAction& action :
             session.Site().Catalogue().Actions(ActionLogModel::kMost))
            entries.push_back({action.at, action.person, action.action});
        window->ActionLog().Model().SetEntries(entries);
    });
}

void Client::ConnectSink() {
    const auto tell = [this](const QString& what) {
        window->ShowStatus(u"已刷新%1标识"_s.arg(what));
    };
    connect(&sink, &PictureSink::BimMarksChanged, this, [this, tell] {
        tell(u"照片"_s);
        ReadPlan();
        marks->Reload(MarkKind::kPhotos);
    });
    connect(&sink, &PictureSink::IssueMarksChanged, this, [this, tell] {
        tell(u"问题"_s);
        marks->Reload(MarkKind::kIssues);
    });
    connect(&sink, &PictureSink::PdfMarksChanged, this, [tell] { tell(u"图纸"_s); });
    connect(&sink, &PictureSink::DrawingWanted, this, &Client::BringUpDrawing);
    connect(&sink, &PictureSink::MarkWanted, this,
            [this](const QString& floor, qint32 markId, qint32 picId) {
                OnPhotoLocated(floor + u"-%1-%2"_s.arg(markId).arg(picId));
            });
}

void Client::OnPhotoLocated(const QString& text) {
    const auto target = ParseLocateText(text);
    if (target)
        view->ShowFloor(target->floor);
    window->ShowStatus(target ? PhotoLocatedText(session, *target) : u"无法识别的定位请求"_s);
}

void Client::OpenRemembered() {
    ReadProjects();
    WithoutFault(session, [this] {
        const int remembered = RememberedChoice(session, choices);
        if (remembered >= 0)
            TakeChoice(session, choices[remembered]);
    });
    ProjectChanged();
}

void Client::ReadProjects() {
    WithoutFault(session, [this] { choices = ReadProjectChoices(session); });
}

void Client::TakeProject(int index) {
    if (index < 0 || index >= int(choices.size()) || index == OpenChoice(session, choices))
        return;
    marks->Keep();
    WithoutFault(session, [&] { TakeChoice(session, choices[index]); });
    ProjectChanged();
}

void Client::ProjectChanged() {
    hub.TellProjectChange();
    QStringList names;
    for (const ProjectChoice& choice : choices)
        names << choice.text;
    window->SetProjects(names, OpenChoice(session, choices));
    ReadDrawings();
    ReadPlan();
    marks->ProjectChanged();
    window->ShowStatus(session.CurrentProject().ppid == 0 ? u"没有打开的工程"_s : u"就绪"_s);
}

void Client::ReadDrawings() {
    drawings.clear();
    WithoutFault(session, [this] {
        if (session.CurrentProject().ppid != 0)
            drawings = session.Site().Catalogue().Drawings(session.CurrentProject().ppid);
    });
    if (!drawings.empty() && session.Drawing().drawingId < 0)
        session.SetDrawing(drawings.front());
    ShowDrawings();
}

void Client::ShowDrawings() {
    QStringList names;
    int current = -1;
    for (const KX_DATA::CurrentDrawing& drawing : drawings) {
        if (drawing.drawingId == session.Drawing().drawingId)
            current = int(names.size());
        names << drawing.drawingName;
    }
    window->SetDrawings(names, current);
    EnableCommands();
}

void Client::TakeDrawing(int index) {
    if (index < 0 || index >= int(drawings.size()))
        return;
    session.SetDrawing(drawings[index]);
    ShowDrawings();
    window->ShowStatus(u"当前图纸：%1"_s.arg(drawings[index].drawingName));
}

void Client::BringUpDrawing(qint32 drawingId) {
    for (int at = 0; at < int(drawings.size()); ++at) {
        if (drawings[at].drawingId == drawingId)
            TakeDrawing(at);
    }
}

void Client::ReadPlan() {
    window->Plan().SetModel(ReadFloorPlan(session));
    EnableCommands();
}

void Client::ReadAnew() {
    ReadPlan();
    marks->Reload(MarkKind::kPhotos);
    marks->Reload(MarkKind::kIssues);
}

void Client::EnableCommands() {
    const bool hasProject = session.CurrentProject().ppid != 0;
    const PlanIntersection* chosen = window->Plan().Canvas().Chosen();
    for (const Command command : {Command::kBimConsole, Command::kPdfConsole,
                                  Command::kIssueConsole, Command::kImport, Command::kRefresh})
        window->SetEnabled(command, hasProject);
    window->SetEnabled(Command::kPlacePhotos, chosen != nullptr);
    window->SetEnabled(Command::kFloorIssues, !window->Plan().CurrentFloor().isEmpty());
    window->SetEnabled(Command::kDrawingPhotos, session.Drawing().drawingId >= 0);
}

} // namespace host
