// Fetches one stored file while the person waits.
#pragma once

#include "services/IKXFilesMng.h"

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// Fetches a file into `localPath` by the file service, which may show its own progress.
/// @param localPath  as StoredFilePath gave it; empty, or with a text that is no uuid, it is
///                   a failed download of which the service isn't told.
/// Thread: user interface; blocks it.
[[nodiscard]] KX_DATA::TransferResult FetchStoredFile(const QString& uuid, const QString& localPath,
                                                      bool flag);

} // namespace ZelvorNRQ_KXVeskPicture
