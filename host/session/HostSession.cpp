#include "host/session/HostSession.h"

#include "site/ICatalogue.h"

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

} // namespace

HostSession::HostSession() {
    current = this;
    const std::lock_guard guard(DeskPlace().lock);
    DeskPlace().desk = desk;
}

HostSession::~HostSession() {
    Close();
    desk->SetMessageSink({});
    HostSession* self = this;
    current.compare_exchange_strong(self, nullptr);
    const std::lock_guard guard(DeskPlace().lock);
    if (DeskPlace().desk == desk) {
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
    site = std::move(opened.site);
    if (site != nullptr) {
        desk->Open(site->Place());
        site->SetTold([this](const QString& text) { desk->Report(MessageLevel::kWarning, text); });
    }
    return opened.fault;
}

void HostSession::Close() {
    desk->Close();
    CloseProject();
    user.clear();
    rights.clear();
    projectNames.clear();
    marks.clear();
    tableStamp = {};
    site.reset();
}

bool HostSession::SignIn(const QString& name) {
    const std::vector<QString> people = site->Catalogue().People();
    if (std::find(people.begin(), people.end(), name) == people.end()) {
        return false;
    }
    user = name;
    rights = site->Catalogue().RightsOf(name);
    return true;
}

bool HostSession::HasRight(qint32 right) const {
    return std::find(rights.begin(), rights.end(), right) != rights.end();
}

bool HostSession::OpenProject(qint32 ppid) {
    const site::ProjectEntry found = site->Catalogue().Project(ppid);
    if (found.ppid == 0) {
        return false;
    }
    CloseProject();
    project = found;
    return true;
}

bool HostSession::OpenWorkset(qint32 worksetId) {
    for (const site::WorksetEntry& entry : site->Catalogue().Worksets()) {
        if (entry.id == worksetId) {
            CloseProject();
            workset = entry;
            project = site->Catalogue().Project(entry.ppids.front());
            return true;
        }
    }
    return false;
}

void HostSession::CloseProject() {
    project = {};
    workset = {};
    drawing = {};
    shownPicMarks.clear();
    shownIssueMarks.clear();
}

std::vector<site::ProjectEntry> HostSession::OpenProjects() {
    std::vector<site::ProjectEntry> projects;
    if (IsWorkset()) {
        for (const qint32 ppid : workset.ppids) {
            projects.push_back(site->Catalogue().Project(ppid));
        }
    } else if (project.ppid != 0) {
        projects.push_back(project);
    }
    return projects;
}

site::Projects HostSession::OpenPpids() const {
    if (IsWorkset()) {
        return workset.ppids;
    }
    return project.ppid != 0 ? site::Projects{project.ppid} : site::Projects{};
}

void HostSession::LogAction(const QString& action) {
    const site::LoggedAction entry{QDateTime::currentSecsSinceEpoch(), user, project.ppid, action};
    site->Catalogue().LogAction(entry);
    if (actionSink) {
        actionSink(entry);
    }
}

void HostSession::RefreshTables() {
    const site::Stamp now = site->ChangeStamp();
    if (now == tableStamp) {
        return;
    }
    projectNames.clear();
    for (const site::ProjectEntry& entry : site->Catalogue().Projects()) {
        projectNames[entry.ppid] = entry.name;
    }
    marks = site->Catalogue().Marks();
    tableStamp = now;
}

QString HostSession::ProjectName(qint32 ppid) {
    RefreshTables();
    const auto found = projectNames.find(ppid);
    return found != projectNames.end() ? found->second : QString();
}

const std::map<qint32, KX_DATA::MarkRecord>& HostSession::Marks() {
    RefreshTables();
    return marks;
}

} // namespace host
