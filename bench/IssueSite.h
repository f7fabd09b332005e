// An issue with very many pictures.
#pragma once

#include <QString>
#include <QStringList>

namespace host {
class HostSession;
}

namespace bench {

struct IssueSite {
    qint32 ppid = 0; ///< 0: the folder can't be used
    QString questionId;
    QString firstPicture; ///< path of the picture that the viewer shows first
};

/// Files an issue with 200 pictures into an empty, open folder, signs in and opens its project. The
/// pictures' files, the photographs in turn, lie in the cache as if they had been fetched.
[[nodiscard]] IssueSite FileIssue(host::HostSession& session, const QStringList& photos);

} // namespace bench
