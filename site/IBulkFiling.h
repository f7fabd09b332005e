// Files many photos or issues at once, and takes that back.
#pragma once

#include "site/ListFilter.h"
#include "site/Records.h"

#include <optional>
#include <vector>

namespace site {

/// What shall become of each; absent: stays as it is.
struct BulkWish {
    std::optional<QString> positionKey; ///< of BIM photos; "": no place
    std::optional<qint32> markId;       ///< of BIM photos and issues; 0: none, of photos only
    std::optional<qint32> status;       ///< 0 shown, 1 hidden
    std::vector<qint32> labelIds;       ///< of BIM photos
    bool replaceLabels = false;         ///< false: they are added to those that a photo has
};

/// One that was changed: how it was, and its state after that.
struct BulkChange {
    ListKind kind = ListKind::BimPhotos;
    qint32 ppid = 0;
    qint64 id = 0; ///< of a photo; of an issue its row
    QString name;  ///< file name or theme
    QString positionKey;
    QString floor;
    QString axisX;
    QString axisY;
    qint32 markId = 0;
    qint32 status = 0;
    std::vector<qint32> labelIds;
    QString updater;
    qint64 updateTime = 0;
    Revision after{};
};

struct BulkSkipped {
    QString name; ///< its id if it isn't there any more
    QString why;  ///< Chinese
};

struct BulkOutcome {
    std::vector<BulkChange> changed;
    int unchanged = 0; ///< as wished already: nothing was written, by nobody
    std::vector<BulkSkipped> skipped;
};

/// A change is one transaction. What can't be changed is skipped and named, the others go on.
/// Operations throw DataError: Missing, with nothing changed, for a place, mark or label that the
/// site doesn't have (any more). Thread: the site's.
class IBulkFiling {
public:
    virtual ~IBulkFiling() = default;

    /// Who signs is the updater of what changes.
    [[nodiscard]] virtual BulkOutcome FileBimPhotos(const Projects& projects,
                                                    const std::vector<qint32>& picIds,
                                                    const BulkWish& wish, const Signature& by) = 0;
    /// The status alone: mark and labels are their checkpoint's.
    [[nodiscard]] virtual BulkOutcome FilePdfPhotos(const Projects& projects,
                                                    const std::vector<qint32>& picIds,
                                                    const BulkWish& wish, const Signature& by) = 0;
    /// Mark and status; each change is a line of the issue's history.
    [[nodiscard]] virtual BulkOutcome FileIssues(const Projects& projects,
                                                 const std::vector<QString>& questionIds,
                                                 const BulkWish& wish, const Signature& by) = 0;
    /// As it was before, updater and time too; an issue's history tells of both. Skips what
    /// somebody has changed since. `changed` is how it was meanwhile.
    [[nodiscard]] virtual BulkOutcome TakeBack(const std::vector<BulkChange>& changes,
                                               const Signature& by) = 0;
};

} // namespace site
