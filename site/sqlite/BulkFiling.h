// Files many photos or issues of a data folder at once.
#pragma once

#include "site/IBulkFiling.h"

#include <functional>
#include <set>

namespace site {

class Database;

class BulkFiling final : public IBulkFiling {
public:
    explicit BulkFiling(Database& database) : m_database(database) {}

    [[nodiscard]] BulkOutcome FileBimPhotos(const Projects& projects,
                                            const std::vector<qint32>& picIds, const BulkWish& wish,
                                            const Signature& by) override;
    [[nodiscard]] BulkOutcome FilePdfPhotos(const Projects& projects,
                                            const std::vector<qint32>& picIds, const BulkWish& wish,
                                            const Signature& by) override;
    [[nodiscard]] BulkOutcome FileIssues(const Projects& projects,
                                         const std::vector<QString>& questionIds,
                                         const BulkWish& wish, const Signature& by) override;
    [[nodiscard]] BulkOutcome TakeBack(const std::vector<BulkChange>& changes,
                                       const Signature& by) override;

private:
    struct Place;
    /// How it is now, without its labels; nothing if it isn't there.
    [[nodiscard]] std::optional<BulkChange> Present(ListKind kind, qint64 id);
    [[nodiscard]] std::vector<qint32> LabelsOf(qint64 photoId);
    void RequireKnown(const BulkWish& wish);
    [[nodiscard]] std::optional<Place> PlaceOf(const QString& positionKey);
    /// As the photo's place is called by now; one that is gone keeps the names that it had.
    void NamePlace(BulkChange& photo);
    /// Writes what differs between the two; false if nothing does.
    bool Write(const BulkChange& before, const BulkChange& after);
    void WriteLabels(const BulkChange& photo);
    void NoteIssue(const BulkChange& before, const BulkChange& after, const Signature& by);
    /// Files one after another as `wanted` says; it answers why not, or nothing.
    void FileOne(ListKind kind, qint64 id, const Projects& projects, const Signature& by,
                 const std::function<QString(BulkChange&)>& want, BulkOutcome& outcome);

    /// Looks at the search table while nothing of it is changed.
    void LookForOtherWords(ListKind kind, const std::vector<qint64>& ids);
    void LookForOtherWords(const std::vector<BulkChange>& changes);

    Database& m_database;
    std::set<qint64> m_otherWords; ///< of those that are changed now
};

} // namespace site
