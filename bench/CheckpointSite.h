// A checkpoint with very many pictures and comments.
#pragma once

#include <QString>
#include <QStringList>

namespace host {
class HostSession;
}

namespace bench {

struct CheckpointSite {
    qint32 ppid = 0; ///< 0: the folder can't be used
    qint32 checkpointId = 0;
    QString drawingName;
    QString firstPicture; ///< path of the picture that the viewer shows first
};

/// Files a checkpoint with 200 pictures and 5,000 comments into an empty, open folder, signs in and
/// opens its project. The pictures' files, the photographs in turn, lie in the cache as if they had
/// been fetched.
[[nodiscard]] CheckpointSite FileCheckpoint(host::HostSession& session, const QStringList& photos);

} // namespace bench
