// What is changed on a site, by whom, in the order in which it became true.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace site {

/// Numbers as they are stored.
enum class ChangeKind : int {
    Anything = 0, ///< nobody knows what: all that was read may be old
    BimPhoto = 1,
    PdfPhoto = 2,
    Issue = 3,
    Checkpoint = 4,
    Drawing = 5,
    Project = 6, ///< worksets too
    Mark = 7,
    Label = 8,
    Place = 9, ///< floors and intersections
    Person = 10,
    Other = 11,   ///< what no list, count or table shows: settings, records of actions, uploads
    Comment = 12, ///< with the id of its checkpoint
    RichText = 13,
};

struct Change {
    qint64 seq = 0; ///< grows with each commit; 0 for Anything
    ChangeKind kind = ChangeKind::Anything;
    qint32 ppid = 0;        ///< 0: of no project, or of all
    qint64 id = 0;          ///< of the record; 0: many
    QString person;         ///< who did it; empty: nobody was signed in
    bool byThisSite = true; ///< through this opening of the site, not another program's
};
using Changes = std::vector<Change>;

/// Nothing is asked while nothing happens, nothing is lost, one's own and others' changes come
/// alike. Operations throw DataError. Thread: the site's.
class IChanges {
public:
    virtual ~IChanges() = default;

    /// Who signs what is changed from now on.
    virtual void SetPerson(const QString& name) = 0;

    /// Of the newest change that subscribers were told.
    [[nodiscard]] virtual qint64 Mark() const = 0;
    struct Past {
        Changes changes;
        bool complete = true; ///< false: what came after the mark is no longer known
    };
    /// What came after a mark, also one of an earlier day, the oldest first; at most so many.
    [[nodiscard]] virtual Past Since(qint64 mark, int most) = 0;

    using Listener = std::function<void(const Changes&)>;
    /// Told of each change once, in order, those of one commit together. May be told from inside of
    /// any question to the site, so it only takes note; what it does with it comes later.
    /// @return keeps the subscription for as long as it lives, not beyond the site
    [[nodiscard]] virtual std::shared_ptr<void> Subscribe(Listener listener) = 0;

    /// Tells at once what would be told soon; for who can't wait for it.
    virtual void Look() = 0;
};

} // namespace site
