#include "host/services/GlobalData.h"

#include "host/services/SiteService.h"

namespace host {

using namespace Qt::StringLiterals;

void GlobalData::GetClientVersionText(QString& text) {
    text = u"1.0"_s;
}

void GlobalData::GetGroupName(QString& name, qint32 /*groupId*/) {
    // Photos have one second level, and viewers look for it under no name.
    name.clear();
}

bool GlobalData::IsTNReminderEnabled() {
    return Around().Session() != nullptr && Around().remindOfIssues;
}

bool GlobalData::IsWorksetMode() {
    const HostSession* session = Around().Session();
    return session != nullptr && session->IsWorkset();
}

void GlobalData::GetOpenProjectIds(std::vector<qint32>& ids) {
    ids.clear();
    Guarded(u"读取工程"_s, false, [&](HostSession& session) {
        for (const site::ProjectEntry& project : session.OpenProjects()) {
            ids.push_back(project.ppid);
        }
        return true;
    });
}

void GlobalData::GetWorksetProjects(std::vector<KX_DATA::WorksetProject>& projects) {
    projects.clear();
    Guarded(u"读取工程"_s, false, [&](HostSession& session) {
        for (const site::ProjectEntry& project : session.OpenProjects()) {
            projects.push_back({project.ppid, project.name});
        }
        return true;
    });
}

const QString& GlobalData::GetProjectName(QString& name, qint32 ppid) {
    name = Guarded(u"读取工程"_s, QString(),
                   [&](HostSession& session) { return session.Tables().ProjectName(ppid); });
    return name;
}

} // namespace host
