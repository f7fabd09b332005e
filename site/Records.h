// The small records of a site: projects, worksets, what was done.
#pragma once

#include <QString>

#include <algorithm>
#include <vector>

namespace site {

/// Those whose photos and issues an operation may touch.
using Projects = std::vector<qint32>;
[[nodiscard]] inline bool Has(const Projects& projects, qint32 ppid) {
    return std::find(projects.begin(), projects.end(), ppid) != projects.end();
}

/// Of a mark that the table doesn't have: the ground on which it would stand.
inline constexpr qint32 kNoMarkColor = 0xFAFAFA;

struct ProjectEntry {
    qint32 ppid = 0;
    QString name;
    qint32 major = 0; ///< 1 to 4, the trade
    bool archived = false;
};

struct WorksetEntry {
    qint32 id = 0;
    QString name;
    std::vector<qint32> ppids;
    bool archived = false;
};

/// Where a checkpoint is, as a person knows it.
struct CheckpointPlace {
    QString drawing; ///< name
    qint32 number = 0;
};

struct LoggedAction {
    qint64 at = 0; ///< seconds since 1970
    QString person;
    qint32 ppid = 0;
    QString action;
};

/// A photo and its file name, for who must tell of it when it is gone.
struct NamedPhoto {
    qint32 picId = 0;
    QString name;
};

/// An issue and its theme.
struct NamedIssue {
    QString questionId;
    QString theme;
};

/// Who makes a change, and when: seconds since 1970.
struct Signature {
    QString person;
    qint64 at = 0;
};

/// The state of a record that was read: another one after each change of it, by whomever and
/// however soon. To be compared with states of the same record alone.
enum class Revision : qint64 {};

/// What became of an update.
enum class Saved {
    Yes,
    Gone,             ///< unknown in the project, nothing was changed
    ChangedMeanwhile, ///< it isn't in the state that was seen any more, nothing was changed
};

} // namespace site
