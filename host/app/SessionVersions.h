// The window of versions and its records in the open data folder.
#pragma once

#include "host/ui/rich/VersionSource.h"
#include "site/IRichTexts.h"

#include <map>
#include <optional>

namespace host {

class HostSession;

/// Thread: user interface.
class SessionVersions final : public IVersionSource {
public:
    explicit SessionVersions(HostSession& hostSession) : m_session(hostSession) {}

    [[nodiscard]] RecordList ReadRecords() override;
    [[nodiscard]] VersionList ReadVersions(const QString& record) override;
    [[nodiscard]] PageText ReadText(const QString& record, qint64 version) override;
    [[nodiscard]] QString Restore(const QString& record, qint64 version) override;

private:
    /// Of a record that was read.
    [[nodiscard]] std::optional<site::RichPlace> PlaceOf(const QString& record) const;

    HostSession& m_session;
    std::map<QString, site::RichPlace> m_places;
};

} // namespace host
