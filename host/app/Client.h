// The client at work: session, windows and module held together.
#pragma once

#include "host/app/Calmed.h"
#include "host/app/ModuleLoader.h"
#include "host/app/PlanAxes.h"
#include "host/app/SessionBin.h"
#include "host/app/TransferWait.h"
#include "host/services/ServiceSet.h"
#include "host/ui/Commands.h"
#include "host/ui/ExProgress.h"
#include "host/ui/ObserverHub.h"
#include "host/ui/PictureSink.h"
#include "host/ui/ProgressStrip.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

namespace host {

class CheckpointMenu;
class ConsoleCommands;
class ConsoleWatch;
class DrawingFlow;
class DrawingImport;
class DropFlow;
class FilingFlows;
class FloorPlanView;
class HostSession;
class ImportFlow;
class IssueFlow;
class MainWindow;
class MarkFlow;
class PhotoFlow;
class PickFlow;
class ProjectFlow;
class RaiseFlow;
class ReminderFlow;
class ReportOutput;
class RichTextFlow;
class SetupFlow;
class SheetFlow;
class StatisticsFlow;
class UndoFlow;

/// Makes the main window over a session whose folder is open and whose user is signed in, loads the
/// module and carries orders from one to the other. Start and Stop keep the order in which things
/// depend on each other. Thread: user interface.
class Client final : public QObject {
    Q_OBJECT

public:
    /// The session must outlive the client.
    explicit Client(HostSession& hostSession);
    ~Client() override;

    /// @param moduleFolder  where the module's library lies, and its fixed images in `work`.
    /// @return              Chinese, why the client can't work; nothing on success.
    [[nodiscard]] std::optional<QString> Start(const QString& moduleFolder);
    /// Closes the windows and lets go of the module. Does nothing the second time.
    void Stop();
    /// As from its menu: the windows close, which may ask something; then the program's loop ends.
    void AskToEnd();

    [[nodiscard]] MainWindow* Window() const { return m_window.get(); }

private:
    void ConnectWindow();
    void ConnectSession();
    void ConnectSink();
    void ConnectComponents();
    void ConnectUndo();
    void Obey(Command command);
    /// True for a command of the view or the help.
    bool ObeyView(Command command);
    void ObeyHost(Command command);
    void ShowBin();
    /// The module's windows fetch anew what they list.
    void RefreshModule();
    void OnPhotoLocated(const QString& text);
    /// Size of the window and place of its docks, for each person.
    [[nodiscard]] QString LayoutSetting() const;
    void BringBackLayout();
    void KeepLayout();
    void ProjectChanged();
    void MakeDrawingFlows();
    void MakeProjects();
    void MakeSetup();
    /// Others may have renamed, archived, ordered: what the window lists is read anew.
    void OnSetupChanged();
    void ShowProperties(qint32 ppid, const QString& floor, const QString& handle);
    void ReadPlan();
    void ReadPhotoMarks();
    void ReadIssueMarks();
    void ReadAnew();
    /// After a change of the data by the client itself.
    void ShowChanges();
    void EnableCommands();
    /// After somebody's rights have changed, whoever did it.
    void ShowOthersSetup();

    HostSession& m_session;
    Serving m_serving;
    PlanAxes m_axes;
    SessionBin m_binSource;
    ExProgress m_progress;
    ProgressStrip m_strip;
    TransferWait m_transferWait{m_progress};
    PictureSink m_sink;
    ObserverHub m_hub;
    ModuleLoader m_module;
    std::shared_ptr<void> m_rights; ///< tells of changed ones
    /// Of many reminders each tells of its mark.
    Calmed m_photoMarks;
    Calmed m_issueMarks;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<FloorPlanView> m_view;
    std::unique_ptr<ConsoleCommands> m_consoles;
    std::unique_ptr<ProjectFlow> m_projects;
    std::unique_ptr<PhotoFlow> m_photos;
    std::unique_ptr<PickFlow> m_picks;
    std::unique_ptr<RaiseFlow> m_raising;
    std::unique_ptr<ImportFlow> m_imports;
    std::unique_ptr<IssueFlow> m_issues;
    std::unique_ptr<MarkFlow> m_marks;
    std::unique_ptr<ReminderFlow> m_reminders;
    std::unique_ptr<RichTextFlow> m_richTexts;
    std::unique_ptr<ReportOutput> m_reports;
    std::unique_ptr<DrawingFlow> m_drawings;
    std::unique_ptr<DrawingImport> m_drawingImport;
    std::unique_ptr<CheckpointMenu> m_checkpoints;
    std::unique_ptr<ConsoleWatch> m_console;
    std::unique_ptr<SheetFlow> m_sheets;
    std::unique_ptr<FilingFlows> m_filing;
    std::unique_ptr<DropFlow> m_drops; ///< behind what it works with
    std::unique_ptr<UndoFlow> m_undo;
    std::unique_ptr<SetupFlow> m_setup;
    std::unique_ptr<StatisticsFlow> m_statistics;
    QPointer<BinWindow> m_binWindow;
};

} // namespace host
