// Who works on what in this process: the open data folder, the user, the project, the view.
#pragma once

#include "host/session/SessionDesk.h"
#include "services/DrawingRecords.h"
#include "services/EnvRecords.h"
#include "services/MarkGroups.h"
#include "site/OpenSite.h"
#include "site/Records.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace KX_DATA {
class IExProgress;
class IKXView;
} // namespace KX_DATA

namespace site {
class ITransferWait;
} // namespace site

namespace host {

/// Made once by the program (or by each test) before any service is asked for; services act on the
/// living one. Owns the folder; knows no widget. Thread: user interface, except where said.
class HostSession final {
public:
    HostSession();
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    /// The living session, or null.
    [[nodiscard]] static HostSession* Current();

    /// Opens the site at a place; a fault leaves the session without one.
    [[nodiscard]] std::optional<site::OpenFault> Open(const QString& place,
                                                      const site::OpenOptions& options = {});
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_site != nullptr; }
    /// Only while one is open.
    [[nodiscard]] site::ISite& Site() const { return *m_site; }

    /// False for a user whom the database doesn't know.
    bool SignIn(const QString& name);
    [[nodiscard]] QString UserName() const { return m_user; }
    [[nodiscard]] bool HasRight(qint32 right) const;

    /// Ends an open workset. Clears drawing and ticked marks. False for an unknown project.
    bool OpenProject(qint32 ppid);
    /// Its first project becomes the current one. False for an unknown workset.
    bool OpenWorkset(qint32 worksetId);
    void CloseProject();
    /// ppid 0: none is open.
    [[nodiscard]] const site::ProjectEntry& CurrentProject() const { return m_project; }
    [[nodiscard]] bool IsWorkset() const { return m_workset.id != 0; }
    [[nodiscard]] const site::WorksetEntry& CurrentWorkset() const { return m_workset; }
    /// Projects of the workset, else the open one; empty without any.
    [[nodiscard]] std::vector<site::ProjectEntry> OpenProjects();
    /// Their ids, without asking the site.
    [[nodiscard]] site::Projects OpenPpids() const;

    void SetDrawing(const KX_DATA::CurrentDrawing& current) { m_drawing = current; }
    [[nodiscard]] const KX_DATA::CurrentDrawing& Drawing() const { return m_drawing; }
    /// What is ticked in the mark panel.
    KX_DATA::ShownPicMarks shownPicMarks;
    KX_DATA::ShownIssueMarks shownIssueMarks;

    /// Not owned; null while there is none.
    KX_DATA::IKXView* view = nullptr;
    KX_DATA::IExProgress* progress = nullptr;
    site::ITransferWait* transferWait = nullptr;
    /// Folder of the module's fixed images, with its separator; empty: the folder's work folder.
    QString imageFolder;
    bool remindOfIssues = true;

    using ActionSink = std::function<void(const site::LoggedAction&)>;
    /// See SessionDesk, as the three below.
    void SetMessageSink(SessionDesk::MessageSink sink) { m_desk->SetMessageSink(std::move(sink)); }
    void ReportHostMessage(MessageLevel level, const QString& text) { m_desk->Report(level, text); }
    void SetTransfers(const site::TransferRules& rules) { m_desk->SetRules(rules); }
    /// The living session's, for services that are called on any thread; null without a session.
    /// Thread: any.
    [[nodiscard]] static std::shared_ptr<SessionDesk> CurrentDesk();

    void SetActionSink(ActionSink sink) { m_actionSink = std::move(sink); }
    /// Is told how messages begin that no longer hold. Thread: user interface, as the one below.
    using WithdrawSink = std::function<void(const QString& beginning)>;
    void SetWithdrawSink(WithdrawSink sink) { m_withdrawSink = std::move(sink); }
    void WithdrawHostMessages(const QString& beginning) const {
        if (m_withdrawSink) {
            m_withdrawSink(beginning);
        }
    }
    /// Writes the record of what users did and tells the action sink.
    void LogAction(const QString& action);

    /// Project names by id, read anew only after a change of projects or marks.
    [[nodiscard]] QString ProjectName(qint32 ppid);
    [[nodiscard]] const std::map<qint32, KX_DATA::MarkRecord>& Marks();

private:
    void RefreshTables();

    std::unique_ptr<site::ISite> m_site;
    QString m_user;
    std::vector<qint32> m_rights;
    site::ProjectEntry m_project;
    site::WorksetEntry m_workset;
    KX_DATA::CurrentDrawing m_drawing;
    ActionSink m_actionSink;
    WithdrawSink m_withdrawSink;
    std::shared_ptr<void> m_changes; ///< keeps the tables told
    bool m_tablesOld = true;
    std::map<qint32, QString> m_projectNames;
    std::map<qint32, KX_DATA::MarkRecord> m_marks;
    const std::shared_ptr<SessionDesk> m_desk = std::make_shared<SessionDesk>();
};

} // namespace host
