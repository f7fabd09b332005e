// The way to a site.
#pragma once

#include "site/DataError.h"
#include "site/ISite.h"
#include "site/SystemTime.h"

#include <functional>
#include <optional>

namespace site {

/// Why a site could not be opened.
struct OpenFault {
    Fault fault = Fault::Other;
    QString text; ///< Chinese, for a person
};

struct OpenOptions {
    int busyTimeoutMs = 5000; ///< how long an operation waits for another process's lock
    bool cleanUp = true;      ///< remove leftovers of crashes and bin entries past their time
    /// The present time, seconds since 1970. Thread: any.
    std::function<qint64()> now = SystemSeconds;
};

struct OpenedSite {
    std::unique_ptr<ISite> site;    ///< null on a fault
    std::optional<OpenFault> fault; ///< nothing stays open then
};

/// Opens the site at a place: today a data folder, which is made if it is missing or empty. A
/// second process may have the same one open. A folder with other things in it and no site is
/// refused and left as it is.
[[nodiscard]] OpenedSite OpenSite(const QString& place, const OpenOptions& options = {});

} // namespace site
