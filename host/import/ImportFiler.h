// Files examined pictures as photos of a project.
#pragma once

#include "host/import/FileExamination.h"
#include "host/import/ImportReport.h"
#include "site/sqlite/SiteWriter.h"

namespace host {

/// Each picture is one transaction: a crash loses nothing that was reported as filed and leaves
/// nothing half filed. Thread: that of the data folder.
class ImportFiler final {
public:
    ImportFiler(site::DataFolder& folder, ImportRequest target);

    /// Never throws; kFailed means that no further file needs to be tried.
    [[nodiscard]] ImportLine File(const ExaminedFile& file);

private:
    site::SiteWriter writer;
    ImportRequest request;
};

} // namespace host
