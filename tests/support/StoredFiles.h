// What lies in the store of a data folder, for tests of what files something.
#pragma once

#include "site/sqlite/DataFolder.h"

#include <QDirIterator>

namespace support {

/// Files that are in the store, whatever refers to them.
[[nodiscard]] inline int CountStored(const site::DataFolder& folder) {
    int count = 0;
    QDirIterator walk(folder.StorePath(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        count += walk.filePath().contains(QStringLiteral("/incoming/")) ? 0 : 1;
    }
    return count;
}

} // namespace support
