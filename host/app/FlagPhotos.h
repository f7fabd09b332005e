// The photos of a flag, for a menu.
#pragma once

#include "host/ui/marks/MarkFlag.h"

namespace host {

class HostSession;

struct FlagPhoto {
    qint32 picId = 0;
    QString caption; ///< name and time
    QString tip;     ///< whole name, who and what
};

struct FlagPhotos {
    std::vector<FlagPhoto> named; ///< latest change first
    int others = 0;               ///< how many more there are
};

/// Those that the view shows: of the mark at the position, and in the days of the panel. Empty
/// where they can't be read; the person is told. Thread: user interface.
[[nodiscard]] FlagPhotos ReadFlagPhotos(HostSession& session, qint32 ppid, const MarkFlag& flag,
                                        int most);

} // namespace host
