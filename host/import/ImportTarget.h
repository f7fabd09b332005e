// Finds where an import goes by the names that a person writes.
#pragma once

#include "host/import/ImportReport.h"

#include <QString>
#include <QStringList>

namespace site {
class DataFolder;
} // namespace site

namespace host {

/// Names as written. Empty ones aren't asked for, save project and user.
struct ImportNames {
    QStringList roots;
    QString project;
    QString user;
    QString floor; ///< floor and both axes come together or not at all
    QString axisX;
    QString axisY;
    QString mark; ///< name or number
};

struct ImportTarget {
    ImportRequest request; ///< only without error
    QString error;         ///< Chinese, complete, lists what exists; empty: all was found
};

/// Looks everything up. Throws DataError. Thread: that of the open data folder.
[[nodiscard]] ImportTarget FindImportTarget(site::DataFolder& folder, const ImportNames& names);

} // namespace host
