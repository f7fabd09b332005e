// The records of places: formatted text with its files, and how far a place is rectified.
#pragma once

#include "site/Records.h"

#include <QString>

#include <limits>
#include <optional>
#include <vector>

namespace site {

/// Files of one version; an editor's document has a few dozen at most.
inline constexpr qsizetype kMostRichFiles = 1000;
/// Bytes of one file: what the records of the services can tell.
inline constexpr qint64 kMostRichBytes = std::numeric_limits<qint32>::max();

/// Where a record lies: with the photos of a mark at an intersection, or with those of a
/// checkpoint.
struct RichPlace {
    qint32 ppid = 0;         ///< of a checkpoint: left aside when it is asked for
    QString positionKey;     ///< empty: the photos without a floor, which hang on one place
    qint32 markId = 0;       ///< 0: without a mark
    qint32 checkpointId = 0; ///< not 0: the place is a checkpoint, and key and mark don't count

    bool operator==(const RichPlace& other) const = default;
};
[[nodiscard]] inline RichPlace AtIntersection(qint32 ppid, const QString& positionKey,
                                              qint32 markId) {
    return {ppid, positionKey, markId, 0};
}
[[nodiscard]] inline RichPlace AtCheckpoint(qint32 checkpointId) {
    return {0, {}, 0, checkpointId};
}

struct RichFile {
    QString name;
    QString md5;
    QString uuid;
    qint64 size = 0; ///< bytes
    qint32 kind = 0; ///< as the editor has it; 1 is a file of the page
};

/// A record as somebody saved it.
struct RichVersion {
    int number = 0;  ///< from 1 on; 0: nobody has saved yet
    QString text;    ///< names this version of this place alone, never given again; may be empty
                     ///< only where nobody has saved
    QString docName; ///< empty: nothing was written, only the state was set
    qint32 state = 0;
    QString person;
    qint64 at = 0; ///< seconds since 1970
    std::vector<RichFile> files;
};

/// What somebody saves.
struct NewRichVersion {
    QString base; ///< text of the version that was read; empty: there was none
    QString docName;
    qint32 state = 0;
    std::vector<QString> removed; ///< uuids of files of the base; others are passed over
    std::vector<RichFile> added;  ///< name, uuid and kind count
};

/// A place that has a record.
struct RichEntry {
    qint64 id = 0; ///< by which the feed tells of it
    RichPlace place;
    QString where;    ///< for a person: floor, axes and mark, or drawing and checkpoint
    RichVersion last; ///< without its files; its number is how many versions there are
};

/// Every version is kept with its files. A checkpoint in the bin has its record there, out of sight
/// until it comes back; both end together. The feed tells of a save by the id of the record, and of
/// each photo whose state it sets. Operations throw DataError; a change is one transaction.
/// Thread: the site's.
class IRichTexts {
public:
    virtual ~IRichTexts() = default;

    /// What was saved last. Before anything was it has number 0 and the state of the newest photo
    /// of the place, the first of all states without one.
    /// @return  nothing for a place of none of the projects, here and below.
    [[nodiscard]] virtual std::optional<RichVersion> Newest(const Projects& projects,
                                                            const RichPlace& place) = 0;
    /// Makes a version of the files of the base, without the removed and with the added ones, and
    /// gives all photos of the place its state, which those that come later take too. Whatever was
    /// saved since the base was read is overwritten, not merged.
    ///
    /// An added file was uploaded, or belongs to a version of this place; one that the base has
    /// already stands at the end under its new name. MD5 and size are those of the store. Refused,
    /// with a sentence: a state that is none, a base that isn't a version of this place, a page
    /// without a document's name, names that are no names of files, too many or too large files.
    /// Missing: a file that isn't there.
    /// @return  what was saved; nothing also for a place that has neither photos nor a position.
    [[nodiscard]] virtual std::optional<RichVersion> Save(const Projects& projects,
                                                          const RichPlace& place,
                                                          const NewRichVersion& version,
                                                          const Signature& by) = 0;

    /// Where a place is, for a person, as the list says it.
    [[nodiscard]] virtual std::optional<QString> Where(const Projects& projects,
                                                       const RichPlace& place) = 0;
    /// All that have a record, the one that was saved last first.
    [[nodiscard]] virtual std::vector<RichEntry> List(const Projects& projects) = 0;
    /// Without their files, the newest first.
    [[nodiscard]] virtual std::optional<std::vector<RichVersion>>
    Versions(const Projects& projects, const RichPlace& place) = 0;
    /// Nothing also for a number that the place doesn't have.
    [[nodiscard]] virtual std::optional<RichVersion>
    Version(const Projects& projects, const RichPlace& place, int number) = 0;
};

} // namespace site
