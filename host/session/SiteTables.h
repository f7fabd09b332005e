// The small tables of a site that everything asks for again and again.
#pragma once

#include "services/EnvRecords.h"

#include <QString>

#include <map>
#include <memory>

namespace site {
class ISite;
} // namespace site

namespace host {

/// Names of projects, and marks, read anew only after a change of them. Throws DataError.
/// Thread: user interface.
class SiteTables final {
public:
    /// The site must outlive the tables.
    explicit SiteTables(site::ISite& site);
    SiteTables(const SiteTables&) = delete;
    SiteTables& operator=(const SiteTables&) = delete;

    /// "" for an unknown project.
    [[nodiscard]] QString ProjectName(qint32 ppid);
    [[nodiscard]] const std::map<qint32, KX_DATA::MarkRecord>& Marks();

private:
    void Refresh();

    site::ISite& m_site;
    bool m_old = true;
    std::map<qint32, QString> m_projectNames;
    std::map<qint32, KX_DATA::MarkRecord> m_marks;
    std::shared_ptr<void> m_changes; ///< keeps the tables told
};

} // namespace host
