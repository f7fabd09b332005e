#include "host/session/HostSession.h"

#include "site/ICatalogue.h"
#include "site/IChanges.h"

#include <QDateTime>

#include <algorithm>
#include <atomic>

namespace host {

using namespace Qt::StringLiterals;

namespace {

std::atomic<HostSession*> current{nullptr};

/// The desk of the living session. Left to the process: threads may ask until the very end.
struct CurrentDeskPlace {
    std::mutex lock; ///< guards desk
    std::shared_ptr<SessionDesk> desk;
};
CurrentDeskPlace& DeskPlace() {
    static CurrentDeskPlace& place = *new CurrentDeskPlace;
    return place;
}

bool IsOfTables(const site::Change& change) {
    return change.kind == site::ChangeKind::Anything || change.kind == site::ChangeKind::Project ||
           change.kind == site::ChangeKind::Mark;
}

} // namespace

HostSession::HostSession() {
    current = this;
    const std::lock_guard guard(DeskPlace().lock);
    DeskPlace().desk = m_desk;
}

HostSession::~HostSession() {
    Close();
    m_desk->SetMessageSink({});
    HostSession* self = this;
    current.compare_exchange_strong(self, nullptr);
    const std::lock_guard guard(DeskPlace().lock);
    if (DeskPlace().desk == m_desk) {
        DeskPlace().desk.reset();
    }
}

std::shared_ptr<SessionDesk> HostSession::CurrentDesk() {
    const std::lock_guard guard(DeskPlace().lock);
    return DeskPlace().desk;
}

HostSession* HostSession::Current() {
    return current;
}

std::optional<site::OpenFault> HostSession::Open(const QString& place,
                                                 const site::OpenOptions& options) {
    Close();
    site::OpenedSite opened = site::OpenSite(place, options);
    m_site = std::move(opened.site);
    if (m_site != nullptr) {
        m_desk->Open(m_site->Blobs());
        m_site->SetTold(
            [this](const QString& text) { m_desk->Report(MessageLevel::Warning, text); });
        m_changes = m_site->Changes().Subscribe([this](const site::Changes& changes) {
            m_tablesOld = m_tablesOld || std::any_of(changes.begin(), changes.end(), IsOfTables);
        });
    }
    return opened.fault;
}

void HostSession::Close() {
    m_desk->Close();
    CloseProject();
    m_user.clear();
    m_rights.clear();
    m_projectNames.clear();
    m_marks.clear();
    m_tablesOld = true;
    m_changes.reset();
    m_site.reset();
}

bool HostSession::SignIn(const QString& name) {
    const std::vector<QString> people = m_site->Catalogue().People();
    if (std::find(people.begin(), people.end(), name) == people.end()) {
        return false;
    }
    m_user = name;
    m_site->Changes().SetPerson(name);
    m_rights = m_site->Catalogue().RightsOf(name);
    return true;
}

bool HostSession::HasRight(qint32 right) const {
    return std::find(m_rights.begin(), m_rights.end(), right) != m_rights.end();
}

bool HostSession::OpenProject(qint32 ppid) {
    const site::ProjectEntry found = m_site->Catalogue().Project(ppid);
    if (found.ppid == 0) {
        return false;
    }
    CloseProject();
    m_project = found;
    return true;
}

bool HostSession::OpenWorkset(qint32 worksetId) {
    for (const site::WorksetEntry& entry : m_site->Catalogue().Worksets()) {
        if (entry.id == worksetId) {
            CloseProject();
            m_workset = entry;
            m_project = m_site->Catalogue().Project(entry.ppids.front());
            return true;
        }
    }
    return false;
}

void HostSession::CloseProject() {
    m_project = {};
    m_workset = {};
    m_drawing = {};
    shownPicMarks.clear();
    shownIssueMarks.clear();
}

std::vector<site::ProjectEntry> HostSession::OpenProjects() {
    std::vector<site::ProjectEntry> projects;
    for (const qint32 ppid : OpenPpids()) {
        projects.push_back(ppid == m_project.ppid ? m_project : m_site->Catalogue().Project(ppid));
    }
    return projects;
}

site::Projects HostSession::OpenPpids() const {
    if (IsWorkset()) {
        return m_workset.ppids;
    }
    return m_project.ppid != 0 ? site::Projects{m_project.ppid} : site::Projects{};
}

void HostSession::LogAction(const QString& action) {
    const site::LoggedAction entry{QDateTime::currentSecsSinceEpoch(), m_user, m_project.ppid,
                                   action};
    m_site->Catalogue().LogAction(entry);
    if (m_actionSink) {
        m_actionSink(entry);
    }
}

void HostSession::RefreshTables() {
    if (!m_tablesOld) {
        return;
    }
    m_projectNames.clear();
    for (const site::ProjectEntry& entry : m_site->Catalogue().Projects()) {
        m_projectNames[entry.ppid] = entry.name;
    }
    m_marks = m_site->Catalogue().Marks();
    m_tablesOld = false;
}

QString HostSession::ProjectName(qint32 ppid) {
    RefreshTables();
    const auto found = m_projectNames.find(ppid);
    return found != m_projectNames.end() ? found->second : QString();
}

const std::map<qint32, KX_DATA::MarkRecord>& HostSession::Marks() {
    RefreshTables();
    return m_marks;
}

} // namespace host
