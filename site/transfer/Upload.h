// Taking a file into the store before anything refers to it.
#pragma once

#include "services/EnvRecords.h"
#include "site/DataError.h"

namespace site {

/// Stores the file and writes its row, owned by nothing yet. Opens a connection of its own.
/// Throws DataError. Thread: any.
[[nodiscard]] KX_DATA::UploadResult StoreUpload(const QString& dataFolder, const QString& path);

} // namespace site
