#include "host/session/SiteTables.h"

#include "site/ICatalogue.h"
#include "site/IChanges.h"
#include "site/ISite.h"

#include <algorithm>

namespace host {

namespace {

bool IsOfTables(const site::Change& change) {
    return change.kind == site::ChangeKind::Anything || change.kind == site::ChangeKind::Project ||
           change.kind == site::ChangeKind::Mark;
}

} // namespace

SiteTables::SiteTables(site::ISite& site)
    : m_site(site), m_changes(site.Changes().Subscribe([this](const site::Changes& changes) {
          m_old = m_old || std::any_of(changes.begin(), changes.end(), IsOfTables);
      })) {}

void SiteTables::Refresh() {
    if (!m_old) {
        return;
    }
    m_projectNames.clear();
    for (const site::ProjectEntry& entry : m_site.Catalogue().Projects()) {
        m_projectNames[entry.ppid] = entry.name;
    }
    m_marks = m_site.Catalogue().Marks();
    m_old = false;
}

QString SiteTables::ProjectName(qint32 ppid) {
    Refresh();
    const auto found = m_projectNames.find(ppid);
    return found != m_projectNames.end() ? found->second : QString();
}

const std::map<qint32, KX_DATA::MarkRecord>& SiteTables::Marks() {
    Refresh();
    return m_marks;
}

} // namespace host
