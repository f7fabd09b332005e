// BIM photos in the database: reading them for lists and viewers, changing them.
#pragma once

#include "services/PicRecords.h"

#include <QString>

#include <vector>

namespace site {

class Database;

/// Operations throw DataError; changes are one transaction each. Thread: the database's.
class BimPhotos final {
public:
    explicit BimPhotos(Database& owner) : database(owner) {}

    /// In the order of the ids; ids without a photo are left out.
    [[nodiscard]] std::vector<KX_DATA::BimPicRow> Rows(const std::vector<qint64>& ids);
    /// False for an unknown photo of the project.
    [[nodiscard]] bool Detail(qint32 ppid, qint32 picId, KX_DATA::BimPicDetail& detail);
    /// Files of BIM and drawing photos, in the order of the ids; unknown ids are left out.
    [[nodiscard]] std::vector<KX_DATA::PicFileEntry> Files(const std::vector<qint32>& picIds);
    /// Shown photos only, latest change first. An empty key: those without a floor.
    [[nodiscard]] std::vector<KX_DATA::PicFileEntry>
    FilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId);

    /// Counts as a change by nobody: people and times stay. Returns how many there were.
    int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status);
    /// False for an unknown photo of the project. `person` becomes the updater, `now` the time. The
    /// position key decides about floor and axes: they are what the model says of it, and stay
    /// where the model has the photo's key no longer. Throws, with nothing changed, for another key
    /// that the project hasn't and for an unknown label.
    bool Update(qint32 ppid, const KX_DATA::BimPicUpdate& update, const QString& person,
                qint64 now);

    /// In use on any photo; marks that the mark table doesn't know are left out.
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> UsedLabels();
    [[nodiscard]] std::vector<qint32> UsedMarks();

private:
    void AddLabels(std::vector<KX_DATA::BimPicRow>& rows);
    void MoveTo(qint32 ppid, qint32 picId, const QString& key, const QString& oldKey);
    void SetLabels(qint32 ppid, qint32 picId, const std::vector<QString>& labelIds);

    Database& database;
};

} // namespace site
