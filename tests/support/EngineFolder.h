// The data folder under an open site, for tests and measurements of the engine itself.
#pragma once

#include "host/session/HostSession.h"
#include "site/sqlite/SqliteSite.h"

namespace support {

[[nodiscard]] inline site::DataFolder& FolderOf(site::ISite& site) {
    return dynamic_cast<site::SqliteSite&>(site).Folder();
}
[[nodiscard]] inline site::DataFolder& FolderOf(const host::HostSession& session) {
    return FolderOf(session.Site());
}

} // namespace support
