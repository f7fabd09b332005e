#include "host/session/HostSession.h"

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
    CloseFolder();
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

std::optional<site::OpenFault> HostSession::OpenFolder(const QString& path,
                                                       const site::DataFolder::Options& options) {
    CloseFolder();
    auto opened = std::make_unique<site::DataFolder>(path);
    auto fault = opened->Open(options);
    if (!fault) {
        folder = std::move(opened);
        lists = std::make_unique<site::ListQuery>(folder->Db());
        panel = std::make_unique<site::PanelCache>(folder->Db());
        desk->Open(folder->Path());
        folder->SetTold(
            [this](const QString& text) { desk->Report(MessageLevel::kWarning, text); });
    }
    return fault;
}

void HostSession::CloseFolder() {
    desk->Close();
    CloseProject();
    user.clear();
    rights.clear();
    projectNames.clear();
    marks.clear();
    tableStamp = {};
    panel.reset();
    lists.reset();
    folder.reset();
}

bool HostSession::SignIn(const QString& name) {
    const std::vector<QString> people = Tables().People();
    if (std::find(people.begin(), people.end(), name) == people.end()) {
        return false;
    }
    user = name;
    rights = Tables().RightsOf(name);
    return true;
}

bool HostSession::HasRight(qint32 right) const {
    return std::find(rights.begin(), rights.end(), right) != rights.end();
}

bool HostSession::OpenProject(qint32 ppid) {
    const site::ProjectEntry found = Tables().Project(ppid);
    if (found.ppid == 0) {
        return false;
    }
    CloseProject();
    project = found;
    return true;
}

bool HostSession::OpenWorkset(qint32 worksetId) {
    for (const site::WorksetEntry& entry : Tables().Worksets()) {
        if (entry.id == worksetId) {
            CloseProject();
            workset = entry;
            project = Tables().Project(entry.ppids.front());
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
            projects.push_back(Tables().Project(ppid));
        }
    } else if (project.ppid != 0) {
        projects.push_back(project);
    }
    return projects;
}

void HostSession::LogAction(const QString& action) {
    const site::LoggedAction entry{QDateTime::currentSecsSinceEpoch(), user, project.ppid, action};
    Tables().LogAction(entry);
    if (actionSink) {
        actionSink(entry);
    }
}

void HostSession::RefreshTables() {
    const site::Database::Stamp now = folder->Db().ChangeStamp();
    if (now == tableStamp) {
        return;
    }
    projectNames.clear();
    for (const site::ProjectEntry& entry : Tables().Projects()) {
        projectNames[entry.ppid] = entry.name;
    }
    marks = Tables().Marks();
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
