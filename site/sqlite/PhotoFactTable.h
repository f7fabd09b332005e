// Facts of photos in the database.
#pragma once

#include "site/IPhotoFacts.h"

#include <vector>

namespace site {

class Database;

class PhotoFactTable final : public IPhotoFacts {
public:
    explicit PhotoFactTable(Database& owner) : m_database(owner) {}

    [[nodiscard]] std::vector<PhotoDetails> Of(const Projects& projects,
                                               const std::vector<qint32>& picIds) override;

    /// Within the transaction in which the photo is filed. Without facts and without an original
    /// there is no row.
    /// @param original  name and uuid of the file as it came, or empty
    static void Note(Database& database, qint32 ppid, qint64 photoId, const PhotoFacts& facts,
                     const QString& originalName, const QString& originalUuid);
    /// Whether the photo says of itself that it can't be: half a place, numbers past their range.
    [[nodiscard]] static bool IsSound(const PhotoFacts& facts);

private:
    Database& m_database;
};

/// photo_fact (photo_id): what is known of photos of both kinds, with the triggers by which it goes
/// with its photo.
[[nodiscard]] std::vector<QString> PhotoFactSchema();

} // namespace site
