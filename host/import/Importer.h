// Imports folders of pictures in one blocking run.
#pragma once

#include "host/import/ImportReport.h"

#include <functional>

namespace site {
class ISite;
} // namespace site

namespace host {

/// Called after each file on the thread of Run; false ends the import after this file.
using ImportProgress = std::function<bool(const ImportStep&)>;

/// Reads and examines on a worker while this thread files. What was filed stays filed, however the
/// run ends. Thread: that of the data folder. For a window see ImportJob.h.
class Importer final {
public:
    /// The site must outlive the importer.
    explicit Importer(site::ISite& openSite) : m_site(openSite) {}

    [[nodiscard]] ImportReport Run(const ImportRequest& request,
                                   const ImportProgress& progress = {});

private:
    site::ISite& m_site;
};

} // namespace host
