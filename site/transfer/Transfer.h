// Fetching a stored file into a client's cache: a real transfer that can be slow and can fail.
#pragma once

#include "site/IBlobs.h"

#include <QString>

namespace site {

/// A file of the store that can be read under a path.
struct StoredCopy {
    QString path;
    QString uuid;
    QString md5; ///< of its bytes, 32 lower-case hexadecimal digits
};

/// Copies it to `localPath` unless it lies there whole: in blocks to a temporary name beside it,
/// checked against the MD5, then renamed over what was there. On failure, and past its limits, what
/// was there stays and nothing is left behind. Throws DataError. Thread: any.
void FetchCopy(const StoredCopy& stored, const QString& localPath, const TransferTerms& terms);

/// Removes what transfers of a killed process left behind in a folder and those in it, links
/// unfollowed; what was touched within the last day may belong to another process and stays.
void RemoveLeftovers(const QString& folder);

} // namespace site
