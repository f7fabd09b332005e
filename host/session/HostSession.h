// Who works on what in this process: the open site, the person, what is shown.
#pragma once

#include "host/session/ActionLog.h"
#include "host/session/SessionDesk.h"
#include "host/session/SiteTables.h"
#include "host/session/Ticked.h"
#include "services/DrawingRecords.h"
#include "site/OpenSite.h"
#include "site/Records.h"

#include <memory>
#include <optional>
#include <vector>

namespace host {

/// Owns the open site; knows no widget. Thread: user interface, except for its desk.
class HostSession final {
public:
    HostSession() = default;
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    /// Opens the site at a place; a fault leaves the session without one.
    [[nodiscard]] std::optional<site::OpenFault> Open(const QString& place,
                                                      site::OpenOptions options = {});
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_site != nullptr; }
    /// Only while one is open, as Tables.
    [[nodiscard]] site::ISite& Site() const { return *m_site; }
    [[nodiscard]] SiteTables& Tables() const { return *m_tables; }

    /// False for a person whom the site doesn't know.
    bool SignIn(const QString& name);
    [[nodiscard]] QString UserName() const { return m_user; }
    /// As the site has it now: a right that was taken away is gone at once.
    [[nodiscard]] bool HasRight(qint32 right) const;

    /// Ends an open workset. Clears drawing and ticked marks. False for an unknown project.
    bool OpenProject(qint32 ppid);
    /// Its first project becomes the current one. False for an unknown workset.
    bool OpenWorkset(qint32 worksetId);
    void CloseProject();
    /// The open project and workset as they are called now; what is gone is closed. Throws
    /// DataError.
    void ReadNames();
    /// ppid 0: none is open.
    [[nodiscard]] const site::ProjectEntry& CurrentProject() const { return m_project; }
    [[nodiscard]] bool IsWorkset() const { return m_workset.id != 0; }
    [[nodiscard]] const site::WorksetEntry& CurrentWorkset() const { return m_workset; }
    /// Projects of the workset, else the open one; empty without any.
    [[nodiscard]] std::vector<site::ProjectEntry> OpenProjects() const;
    /// Their ids, without asking the site.
    [[nodiscard]] site::Projects OpenPpids() const;

    void SetDrawing(const KX_DATA::CurrentDrawing& current) { m_drawing = current; }
    [[nodiscard]] const KX_DATA::CurrentDrawing& Drawing() const { return m_drawing; }
    /// What is ticked to be shown. Never null, and another object after each change.
    [[nodiscard]] const std::shared_ptr<const TickedPhotos>& ShownPhotos() const {
        return m_photos;
    }
    void ShowPhotos(TickedPhotos photos);
    [[nodiscard]] const TickedIssues& ShownIssues() const { return m_issues; }
    void ShowIssues(TickedIssues issues) { m_issues = std::move(issues); }

    [[nodiscard]] ActionLog& Actions() { return m_actions; }
    /// Never null. What other threads use of the session; may be kept beyond it.
    [[nodiscard]] const std::shared_ptr<SessionDesk>& Desk() const { return m_desk; }

private:
    void SetProject(const site::ProjectEntry& project);
    /// Workset, drawing and ticked marks.
    void ForgetShown();
    void TellWhoActs();

    std::unique_ptr<site::ISite> m_site;
    std::unique_ptr<SiteTables> m_tables;
    QString m_user;
    mutable std::vector<qint32> m_rights;
    mutable bool m_rightsOld = false; ///< somebody has changed a person
    std::shared_ptr<void> m_changes;  ///< keeps it told
    site::ProjectEntry m_project;
    site::WorksetEntry m_workset;
    KX_DATA::CurrentDrawing m_drawing;
    std::shared_ptr<const TickedPhotos> m_photos = std::make_shared<const TickedPhotos>();
    TickedIssues m_issues;
    ActionLog m_actions{*this};
    const std::shared_ptr<SessionDesk> m_desk = std::make_shared<SessionDesk>();
};

} // namespace host
