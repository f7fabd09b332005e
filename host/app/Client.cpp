#include "host/app/Client.h"

#include "host/app/CheckpointMenu.h"
#include "host/app/ConsoleCommands.h"
#include "host/app/ConsoleWatch.h"
#include "host/app/DrawingFlow.h"
#include "host/app/DrawingImport.h"
#include "host/app/DropFlow.h"
#include "host/app/Faults.h"
#include "host/app/FilingFlows.h"
#include "host/app/ImportFlow.h"
#include "host/app/IssueFlow.h"
#include "host/app/LocateNames.h"
#include "host/app/MarkFlow.h"
#include "host/app/ModelComponents.h"
#include "host/app/PhotoFlow.h"
#include "host/app/PickFlow.h"
#include "host/app/PlanReader.h"
#include "host/app/ProjectFlow.h"
#include "host/app/RaiseFlow.h"
#include "host/app/ReminderFlow.h"
#include "host/app/ReportOutput.h"
#include "host/app/RichTextFlow.h"
#include "host/app/SetupFlow.h"
#include "host/app/SheetFlow.h"
#include "host/app/StatisticsFlow.h"
#include "host/app/UndoFlow.h"
#include "host/ui/ActionLogDock.h"
#include "host/ui/ActionLogModel.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/drawing/DrawingPane.h"
#include "host/ui/marks/MarkPanelDock.h"
#include "host/ui/pick/ComponentDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "host/ui/plan/FloorPlanView.h"
#include "include/IKXVeskPicture.h"
#include "site/ICatalogue.h"
#include "site/IChanges.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QDir>
#include <QPointer>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Between two times that the marks are drawn anew, milliseconds.
constexpr int kMarksPauseMs = 300;

MessageKind KindOf(MessageLevel level) {
    switch (level) {
    case MessageLevel::Error:
        return MessageKind::Error;
    case MessageLevel::Warning:
        return MessageKind::Warning;
    default:
        return MessageKind::Info;
    }
}

} // namespace

Client::Client(HostSession& hostSession)
    : m_session(hostSession), m_serving(hostSession), m_axes(hostSession), m_binSource(hostSession),
      m_photoMarks(kMarksPauseMs, [this] { ReadPhotoMarks(); }),
      m_issueMarks(kMarksPauseMs, [this] { ReadIssueMarks(); }) {}

Client::~Client() {
    Stop();
}

std::optional<QString> Client::Start(const QString& moduleFolder) {
    m_window = std::make_unique<MainWindow>();
    m_view = std::make_unique<FloorPlanView>(m_window->Plan());
    m_imports = std::make_unique<ImportFlow>(m_session, *m_window);
    m_photos = std::make_unique<PhotoFlow>(m_session, *m_window);
    Surroundings& lent = m_serving.Around();
    lent.view = m_view.get();
    lent.progress = &m_progress;
    lent.strip = &m_strip;
    lent.transferWait = &m_transferWait;
    m_reports = std::make_unique<ReportOutput>(m_session, m_axes);
    lent.reports = m_reports.get();
    lent.imageFolder = QDir(moduleFolder).filePath(u"work"_s);
    m_console = std::make_unique<ConsoleWatch>(*m_window, lent);
    m_sheets = std::make_unique<SheetFlow>(SheetFlow::Parts{m_session, *m_window, *m_console});
    ConnectWindow();
    ConnectSession();
    ConnectSink();
    ConnectComponents();
    ConnectUndo();
    if (auto lack = m_module.Load(moduleFolder)) {
        return lack;
    }
    m_module.Pictures()->SetPicSink(&m_sink);
    m_module.Pictures()->SetIssueEditSink(&m_sink);
    m_module.Pictures()->AttachObservers(&m_hub);
    m_consoles = std::make_unique<ConsoleCommands>(*m_module.Pictures(), *m_window);
    m_issues = std::make_unique<IssueFlow>(
        IssueFlow::Parts{m_session, *m_window, *m_view, *m_module.Pictures()});
    m_marks = std::make_unique<MarkFlow>(MarkFlow::Parts{
        m_session, m_window->Marks(), *m_view, m_hub, *m_module.Pictures(), *m_module.PictureData(),
        [this](qint32 ppid, const QString& id) { m_issues->ShowIssue(ppid, id); },
        [this](qint32 picId) { m_photos->Show(picId); }});
    m_reminders = std::make_unique<ReminderFlow>(
        ReminderFlow::Parts{m_session, *m_window, lent, *m_module.Pictures()});
    m_richTexts = std::make_unique<RichTextFlow>(m_session, *m_window);
    connect(m_richTexts.get(), &RichTextFlow::Changed, this, &Client::RefreshModule);
    connect(m_window.get(), &MainWindow::RecordStateChanged, this, &Client::RefreshModule);
    MakeDrawingFlows();
    MakeProjects();
    MakeSetup();
    m_filing = std::make_unique<FilingFlows>(
        FilingFlows::Parts{m_session, *m_window, *m_console, *m_module.Pictures()});
    connect(m_filing.get(), &FilingFlows::Changed, this, &Client::ShowChanges);
    m_window->SetUserName(m_session.UserName());
    m_window->SetDataFolder(m_session.Site().Place());
    BringBackLayout();
    m_window->show();
    m_projects->OpenRemembered();
    return std::nullopt;
}

void Client::Stop() {
    if (!m_window) {
        return;
    }
    m_rights.reset();
    m_drops.reset();
    m_imports.reset();
    m_filing.reset();
    m_sheets.reset();
    m_console.reset();
    // Whoever closes the window was asked; at any other end nobody is there to answer.
    m_raising.reset();
    m_issues.reset();
    m_serving.Around().reports = nullptr;
    m_reports.reset();
    KeepLayout();
    if (m_marks) {
        m_marks->Keep();
    }
    if (m_reminders) {
        m_reminders->Keep();
        m_reminders.reset();
    }
    m_window->CloseOtherWindows();
    // The records of the viewers have been saved.
    m_richTexts.reset();
    m_sink.disconnect(this);
    m_setup.reset();
    m_statistics.reset();
    m_checkpoints.reset();
    m_drawingImport.reset();
    m_drawings.reset();
    m_hub.Clear();
    delete m_binWindow;
    m_progress.Close();
    m_strip.CloseProgressBar();
    m_serving.TakeBack();
    m_undo.reset();
    m_session.Desk()->SetMessageSink({});
    m_session.Actions().SetSink({});
    m_window->disconnect(this);
    m_window->hide();
    m_marks.reset();
    if (m_module.Pictures() != nullptr) {
        m_module.Pictures()->SetPicSink(nullptr);
        m_module.Pictures()->SetIssueEditSink(nullptr);
    }
    m_photos.reset();
    m_picks.reset();
    m_view.reset();
    m_window.reset();
    m_module.Release();
}

QString Client::LayoutSetting() const {
    return u"layout:"_s + m_session.UserName();
}

void Client::BringBackLayout() {
    WithoutFault(m_session, [this] {
        const QString kept = m_session.Site().Catalogue().Setting(LayoutSetting());
        m_window->restoreGeometry(QByteArray::fromBase64(kept.section(u' ', 0, 0).toLatin1()));
        m_window->restoreState(QByteArray::fromBase64(kept.section(u' ', 1).toLatin1()));
        toolkit::KeepOnScreen(*m_window);
    });
}

void Client::KeepLayout() {
    // A client that didn't come as far as its user has nothing to keep.
    if (m_module.Pictures() == nullptr || !m_session.IsOpen()) {
        return;
    }
    WithoutFault(m_session, [this] {
        m_session.Site().Catalogue().SetSetting(
            LayoutSetting(), QString::fromLatin1(m_window->saveGeometry().toBase64() + ' ' +
                                                 m_window->saveState().toBase64()));
    });
}

void Client::AskToEnd() {
    // To quit the application at once is refused where the module decides what a close means.
    if (m_window) {
        // Nobody is there to say whether a report may be given up.
        m_reports->End();
        m_setup->End();
        m_window->close();
    }
}

void Client::ConnectWindow() {
    connect(m_window.get(), &MainWindow::CommandGiven, this, &Client::Obey);
    connect(m_window.get(), &MainWindow::PhotoLocated, this, &Client::OnPhotoLocated);
    connect(m_window.get(), &MainWindow::DrawingLocated, this, [this](int pointId) {
        m_drawings->LocateCheckpoint(pointId);
        m_window->ShowStatus(CheckpointLocatedText(m_session, pointId));
    });
    connect(m_window.get(), &MainWindow::Closed, qApp, &QApplication::quit);
    connect(m_console.get(), &ConsoleWatch::Changed, this, &Client::EnableCommands);
    connect(m_console.get(), &ConsoleWatch::PhotoChosen, m_photos.get(), &PhotoFlow::Show);
    connect(m_sheets.get(), &SheetFlow::Changed, this, &Client::EnableCommands);
    connect(m_imports.get(), &ImportFlow::Imported, this, &Client::ShowChanges);
    connect(m_imports.get(), &ImportFlow::ListWanted, this,
            [this](const site::FiledRun& filed) { m_consoles->ShowFiled(filed); });
    FloorPlanCanvas& canvas = m_window->Plan().Canvas();
    connect(&canvas, &FloorPlanCanvas::PhotosWanted, this,
            [this](const QString& positionKey) { m_consoles->ShowPhotosAt(positionKey); });
    connect(&canvas, &FloorPlanCanvas::ChoiceChanged, this, &Client::EnableCommands);
    connect(&canvas, &FloorPlanCanvas::FloorChanged, this, &Client::EnableCommands);
}

void Client::ConnectSession() {
    m_session.Desk()->SetMessageSink(
        [window = QPointer<MainWindow>(m_window.get())](MessageLevel level, const QString& text) {
            const auto show = [window, level, text] {
                if (window) {
                    window->Messages().Show(KindOf(level), text);
                }
            };
            // Transfers report from their own threads.
            if (toolkit::IsInterfaceThread()) {
                show();
            } else {
                toolkit::CallOnInterfaceThread(show);
            }
        });
    m_serving.Around().withdraw = [this](const QString& beginning) {
        m_window->Messages().Withdraw(beginning);
    };
    WithoutFault(m_session, [this] {
        m_rights = m_session.Site().Changes().Subscribe([this](const site::Changes& changes) {
            const bool may = std::any_of(changes.begin(), changes.end(), [](const auto& change) {
                return change.kind == site::ChangeKind::Person ||
                       change.kind == site::ChangeKind::Project ||
                       change.kind == site::ChangeKind::Anything;
            });
            if (may) {
                QMetaObject::invokeMethod(this, &Client::ShowOthersSetup, Qt::QueuedConnection);
            }
        });
    });
    m_session.Actions().SetSink([this](const site::LoggedAction& action) {
        m_window->ActionLog().Model().Add({action.at, action.person, action.action});
    });
    WithoutFault(m_session, [this] {
        std::vector<ActionLogEntry> entries;
        for (const site::LoggedAction& action :
             m_session.Site().Catalogue().Actions(ActionLogModel::kMost)) {
            entries.push_back({action.at, action.person, action.action});
        }
        m_window->ActionLog().Model().SetEntries(entries);
    });
}

void Client::ConnectSink() {
    // Told at once: later it would wipe out what a person asked for meanwhile.
    connect(&m_sink, &PictureSink::BimMarksChanged, this, [this] {
        m_window->ShowStatus(u"已刷新照片标识"_s);
        m_photoMarks.Ask();
    });
    connect(&m_sink, &PictureSink::IssueMarksChanged, this, [this] {
        m_window->ShowStatus(u"已刷新问题标识"_s);
        m_issueMarks.Ask();
    });
    connect(&m_sink, &PictureSink::PdfMarksChanged, this, [this] {
        m_window->ShowStatus(u"已刷新图纸标识"_s);
        m_drawings->RefreshFlags();
    });
    connect(&m_sink, &PictureSink::DrawingWanted, this,
            [this](qint32 drawingId) { m_drawings->OnDrawingWanted(drawingId); });
    connect(&m_sink, &PictureSink::MarkWanted, this,
            [this](const QString& floor, qint32 markId, qint32 picId) {
                OnPhotoLocated(floor + u"-%1-%2"_s.arg(markId).arg(picId));
                m_reminders->PhotoSeen(picId);
            });
}

void Client::ConnectComponents() {
    m_picks = std::make_unique<PickFlow>(PickFlow::Parts{*m_window, *m_view, m_hub});
    m_view->SetComponents([this](qint32 ppid, const QString& floor) {
        return ReadPlanComponents(m_session, ppid, floor);
    });
    m_raising =
        std::make_unique<RaiseFlow>(RaiseFlow::Parts{m_session, *m_window, *m_view, *m_picks});
    connect(m_raising.get(), &RaiseFlow::Raised, this, [this] {
        m_issueMarks.Ask();
        RefreshModule();
    });
    connect(m_window.get(), &MainWindow::Closing, m_raising.get(), &RaiseFlow::ComeBack);
    connect(m_view.get(), &FloorPlanView::PropertiesWanted, this, &Client::ShowProperties);
    connect(&m_sink, &PictureSink::IssueEditVisible, this, [this](bool visible) {
        m_window->ShowStatus(visible ? u"就绪"_s : u"编辑问题的窗口已让开，选完构件后它会回来"_s);
    });
}

void Client::ConnectUndo() {
    m_undo = std::make_unique<UndoFlow>(m_session, *m_window);
    m_serving.Around().deedDone = [this](const DoneDeed& deed) { m_undo->Note(deed); };
    m_binSource.SetRestored(
        [this](const std::vector<qint64>& binIds) { m_undo->EntriesRestored(binIds); });
    connect(m_undo.get(), &UndoFlow::Undone, this, [this] {
        if (m_binWindow) {
            m_binWindow->Reload();
        }
        ShowChanges();
    });
}

void Client::ShowProperties(qint32 ppid, const QString& floor, const QString& handle) {
    const ComponentFacts facts = ReadComponentFacts(m_session, ppid, floor, handle);
    if (facts.title.isEmpty()) {
        m_window->Properties().ShowSentence(
            handle.isEmpty()
                ? u"该问题没有指定构件。"_s
                : u"模型中没有这个构件（%1），它可能已被删除或换了楼层。"_s.arg(handle));
    } else {
        m_window->Properties().ShowFacts(facts);
    }
}

void Client::OnPhotoLocated(const QString& text) {
    const auto target = ParseLocateText(text);
    if (target) {
        m_view->ShowFloor(target->floor);
        m_photos->Show(target->picId);
    }
    m_window->ShowStatus(target ? PhotoLocatedText(m_session, *target) : u"无法识别的定位请求"_s);
}

void Client::ProjectChanged() {
    m_hub.TellProjectChange();
    m_window->Properties().Empty();
    m_photos->ProjectChanged();
    m_raising->ProjectChanged();
    m_issues->ProjectChanged();
    m_checkpoints->Reset();
    m_drawings->ProjectChanged();
    ReadPlan();
    m_marks->ProjectChanged();
    m_reminders->ProjectChanged();
    m_richTexts->ProjectChanged();
    m_statistics->ProjectChanged();
    m_filing->ProjectChanged();
    m_window->ShowStatus(m_session.CurrentProject().ppid == 0 ? u"没有打开的工程"_s : u"就绪"_s);
}

void Client::MakeDrawingFlows() {
    m_drawings = std::make_unique<DrawingFlow>(
        DrawingFlow::Parts{m_session, *m_window, *m_module.Pictures()});
    m_drawingImport = std::make_unique<DrawingImport>(m_session, *m_window);
    m_checkpoints = std::make_unique<CheckpointMenu>(
        CheckpointMenu::Parts{m_session, *m_window, *m_drawings, *m_imports, *m_undo});
    m_statistics = std::make_unique<StatisticsFlow>(
        StatisticsFlow::Parts{m_session, *m_window, *m_drawings, *m_module.Pictures()});
    connect(m_drawings.get(), &DrawingFlow::Changed, this, &Client::EnableCommands);
    connect(m_drawingImport.get(), &DrawingImport::Imported, m_drawings.get(),
            &DrawingFlow::ShowDrawing);
    DrawingPane& pane = m_window->Drawing();
    connect(&pane, &DrawingPane::ImportWanted, m_drawingImport.get(), &DrawingImport::Ask);
    m_drops = std::make_unique<DropFlow>(
        DropFlow::Parts{*m_window, *m_imports, *m_drawingImport, *m_checkpoints, *m_console});
}

void Client::MakeProjects() {
    m_projects = std::make_unique<ProjectFlow>(m_session, *m_window);
    connect(m_projects.get(), &ProjectFlow::Leaving, this, [this] {
        m_marks->Keep();
        // What asked for a component works on the project from before.
        m_picks->Cancel();
    });
    connect(m_projects.get(), &ProjectFlow::Changed, this, &Client::ProjectChanged);
}

void Client::MakeSetup() {
    m_setup = std::make_unique<SetupFlow>(
        SetupFlow::Parts{m_session, *m_window, *m_drawingImport, *m_undo});
    connect(m_setup.get(), &SetupFlow::Changed, this, &Client::OnSetupChanged);
}

void Client::OnSetupChanged() {
    m_projects->ReadAnew();
    m_drawings->ReadAnew();
    ShowChanges();
}

void Client::ReadPlan() {
    m_window->Plan().SetModel(ReadFloorPlan(m_session, m_axes));
    EnableCommands();
}

void Client::ReadPhotoMarks() {
    if (m_marks) {
        m_photos->Refresh();
        ReadPlan();
        m_marks->Reload(MarkKind::Photos);
    }
}

void Client::ReadIssueMarks() {
    if (m_marks) {
        m_marks->Reload(MarkKind::Issues);
    }
}

void Client::ReadAnew() {
    m_photos->Refresh();
    ReadPlan();
    m_marks->Reload(MarkKind::Photos);
    m_marks->Reload(MarkKind::Issues);
}

void Client::ShowChanges() {
    ReadAnew();
    RefreshModule();
}

void Client::ShowOthersSetup() {
    if (m_projects) {
        m_projects->ReadOthers();
    }
    EnableCommands();
    if (m_checkpoints) {
        m_checkpoints->ShowRights();
    }
}

void Client::EnableCommands() {
    if (!m_raising) {
        return; // the client ends
    }
    const bool hasProject = m_session.CurrentProject().ppid != 0;
    const PlanIntersection* chosen = m_window->Plan().Canvas().Chosen();
    for (const Command command :
         {Command::BimConsole, Command::PdfConsole, Command::IssueConsole, Command::Refresh,
          Command::ImportDrawing, Command::OpenByCode, Command::Inbox}) {
        m_window->SetEnabled(command, hasProject);
    }
    const QString noImport = m_imports ? m_imports->WhyNot() : QString();
    m_window->SetEnabled(Command::Import, hasProject && noImport.isEmpty(), noImport);
    const QString noList = m_sheets->WhyNot();
    m_window->SetEnabled(Command::ExportList, noList.isEmpty(), noList);
    m_filing->Enable();
    const QString whyNot = m_raising->WhyNot();
    const QString noSetup = m_setup ? m_setup->WhyNot() : QString();
    m_window->SetEnabled(Command::Setup, noSetup.isEmpty(), noSetup);
    m_window->SetEnabled(Command::NewProject, noSetup.isEmpty(), noSetup);
    m_window->SetEnabled(Command::RaiseIssue, whyNot.isEmpty(), whyNot);
    m_window->SetEnabled(Command::PlacePhotos, chosen != nullptr);
    m_window->SetEnabled(Command::FloorIssues, !m_window->Plan().CurrentFloor().isEmpty());
    m_window->SetEnabled(Command::DrawingPhotos, m_session.Drawing().drawingId >= 0);
}

} // namespace host
