// Finds where an import goes by the names that a person writes.
#pragma once

#include "host/import/ImportReport.h"

#include <QString>
#include <QStringList>

namespace site {
class ISite;
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

/// Looks everything up. Throws DataError. Thread: the site's.
[[nodiscard]] ImportTarget FindImportTarget(site::ISite& site, const ImportNames& names);

} // namespace host
