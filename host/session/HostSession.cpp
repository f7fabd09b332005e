#include "host/session/HostSession.h"

#include "site/DataError.h"
#include "site/ICatalogue.h"
#include "site/IChanges.h"
#include "toolkit/Clock.h"

#include <algorithm>

namespace host {

HostSession::~HostSession() {
    Close();
    m_desk->SetMessageSink({});
}

std::optional<site::OpenFault> HostSession::Open(const QString& place, site::OpenOptions options) {
    Close();
    options.now = [] { return toolkit::Clock().NowSeconds(); };
    site::OpenedSite opened = site::OpenSite(place, options);
    m_site = std::move(opened.site);
    if (m_site != nullptr) {
        m_tables = std::make_unique<SiteTables>(*m_site);
        m_desk->Open(m_site->Blobs(), &m_site->Folders(), m_site->Place(), &m_site->PicFiling());
        m_changes = m_site->Changes().Subscribe([this](const site::Changes& changes) {
            m_rightsOld = m_rightsOld ||
                          std::any_of(changes.begin(), changes.end(), [](const site::Change& one) {
                              return one.kind == site::ChangeKind::Person ||
                                     one.kind == site::ChangeKind::Anything;
                          });
        });
        m_site->SetTold(
            [this](const QString& text) { m_desk->Report(MessageLevel::Warning, text); });
    }
    return opened.fault;
}

void HostSession::Close() {
    m_desk->Close();
    CloseProject();
    m_user.clear();
    m_rights.clear();
    TellWhoActs();
    m_changes.reset();
    m_tables.reset();
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
    TellWhoActs();
    return true;
}

bool HostSession::HasRight(qint32 right) const {
    if (m_rightsOld && m_site != nullptr) {
        try {
            m_rights = m_site->Catalogue().RightsOf(m_user);
            m_rightsOld = false;
        } catch (const site::DataError&) {
            return false; // asked again when the site answers
        }
    }
    return std::find(m_rights.begin(), m_rights.end(), right) != m_rights.end();
}

bool HostSession::OpenProject(qint32 ppid) {
    const site::ProjectEntry found = m_site->Catalogue().Project(ppid);
    if (found.ppid == 0) {
        return false;
    }
    // Never without one in between: a reminder on its way would find none and end them all.
    SetProject(found);
    ForgetShown();
    return true;
}

bool HostSession::OpenWorkset(qint32 worksetId) {
    for (const site::WorksetEntry& entry : m_site->Catalogue().Worksets()) {
        if (entry.id == worksetId) {
            SetProject(m_site->Catalogue().Project(entry.ppids.front()));
            ForgetShown();
            m_workset = entry;
            TellWhoActs();
            return true;
        }
    }
    return false;
}

void HostSession::CloseProject() {
    SetProject({});
    ForgetShown();
}

void HostSession::ReadNames() {
    const site::ProjectEntry found = m_site->Catalogue().Project(m_project.ppid);
    if (found.ppid == 0) {
        CloseProject();
        return;
    }
    SetProject(found);
    if (!IsWorkset()) {
        return;
    }
    for (const site::WorksetEntry& entry : m_site->Catalogue().Worksets()) {
        if (entry.id == m_workset.id) {
            m_workset = entry;
            TellWhoActs();
            return;
        }
    }
    m_workset = {};
    TellWhoActs();
}

void HostSession::ForgetShown() {
    m_workset = {};
    m_drawing = {};
    ShowPhotos({});
    m_issues.clear();
    TellWhoActs();
}

void HostSession::TellWhoActs() {
    m_desk->SetActing(m_user, OpenPpids());
}

void HostSession::SetProject(const site::ProjectEntry& project) {
    m_project = project;
    m_desk->SetProject(project.ppid != 0
                           ? std::optional(KX_DATA::ProjectRecord{project.name, project.ppid})
                           : std::nullopt);
}

void HostSession::ShowPhotos(TickedPhotos photos) {
    m_photos = std::make_shared<const TickedPhotos>(std::move(photos));
}

std::vector<site::ProjectEntry> HostSession::OpenProjects() const {
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

} // namespace host
