// Pictures of a site that lie in the client's cache, without having been fetched.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace bench {

/// A small JPEG file: what the store holds is never fetched here.
[[nodiscard]] QByteArray StoredPicture();

/// The photographs in turn under the pictures' names in a folder of the cache, which ends with its
/// separator. A photograph is copied once; its other names are links. False: not all are there.
[[nodiscard]] bool PutIntoCache(const QStringList& uuids, const QString& folder,
                                const QStringList& photos);

} // namespace bench
