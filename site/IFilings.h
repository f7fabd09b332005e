// What was filed into a site lately: for reminders, and for the list to catch up with.
#pragma once

#include "site/IChanges.h"
#include "site/Records.h"

#include <QString>

#include <vector>

namespace site {

/// A photo of the model or an issue that came into the site, with what is known of it now.
struct Filing {
    qint64 seq = 0;                         ///< grows with each commit
    ChangeKind kind = ChangeKind::BimPhoto; ///< or Issue
    bool byThisSite = true;                 ///< through this opening of the site
    qint32 ppid = 0;
    qint32 picId = 0;   ///< of a photo
    QString questionId; ///< of an issue
    QString name;       ///< file name or theme
    QString person;     ///< who uploaded or raised it
    qint64 at = 0;      ///< when it was uploaded or raised, seconds since 1970
    QString uuid;       ///< of its picture, of an issue's first one; empty: none
    QString floor;
    QString posText;     ///< place behind the floor, as a person reads it
    QString positionKey; ///< of a photo
    QString handle;      ///< of the component that an issue is raised against
    QString componentName;
    qint32 markId = 0;
    std::vector<QString> labels; ///< names, of a photo
};
using Filings = std::vector<Filing>;

/// From the first to the last number, both of them meant.
struct SeqRange {
    qint64 first = 0;
    qint64 last = 0;
    bool operator==(const SeqRange& other) const = default;
};

/// What is in the bin, or gone, is left out and comes again if it is restored. Of very many only
/// the latest 100,000 at least are known. Drawing photos are not among them: no reminder is made
/// of one. Operations throw DataError. Thread: the site's.
class IFilings {
public:
    virtual ~IFilings() = default;

    /// Number of the newest one, whatever became of it; 0: none was ever filed.
    [[nodiscard]] virtual qint64 Newest() = 0;
    struct Next {
        Filings filings; ///< the oldest first
        qint64 mark = 0; ///< up to here they are all; the mark that was asked for: nothing came
    };
    /// What came after a mark, in order of commit. Looks at no more than so many, of any project.
    [[nodiscard]] virtual Next After(qint64 mark, int most) = 0;
    /// Those of the projects within a range, the newest first, at most so many.
    [[nodiscard]] virtual Filings Latest(const Projects& projects, const SeqRange& range,
                                         int most) = 0;
    /// How many there are within the ranges; counts no further than to `most`.
    [[nodiscard]] virtual int Count(const Projects& projects, const std::vector<SeqRange>& ranges,
                                    int most) = 0;
};

} // namespace site
