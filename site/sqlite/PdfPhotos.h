// Drawing photos and their checkpoints in the database.
#pragma once

#include "services/DrawingRecords.h"
#include "services/PicRecords.h"

#include <QString>

#include <vector>

namespace site {

class Database;

/// Operations throw DataError; changes are one transaction each. Thread: the database's.
class PdfPhotos final {
public:
    explicit PdfPhotos(Database& owner) : database(owner) {}

    /// In the order of the ids; ids without a photo are left out.
    [[nodiscard]] std::vector<KX_DATA::PdfPicRecord> Rows(const std::vector<qint64>& ids);
    /// False for an unknown photo of the project, here and below.
    [[nodiscard]] bool Detail(qint32 ppid, qint32 picId, KX_DATA::PdfPicDetail& detail);
    [[nodiscard]] bool PicDetail(qint32 ppid, qint32 picId, KX_DATA::CheckpointPicDetail& detail);
    /// Counts as a change by nobody: people and times stay. Returns how many there were.
    int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status);
    /// A point of 0 or less leaves the photo where it is; false for a point of another project too.
    bool Update(qint32 ppid, const KX_DATA::PdfPicUpdate& update, const QString& person,
                qint64 now);
    /// Project of a photo, if it hangs on the checkpoint; else 0.
    [[nodiscard]] qint32 ProjectOf(qint32 checkpointId, qint32 picId);

    [[nodiscard]] bool Checkpoint(qint32 checkpointId, KX_DATA::DrawingRecord& record);
    /// Mark and labels of its photos change with it. False for an unknown checkpoint; a label that
    /// doesn't exist is a fault.
    bool UpdateCheckpoint(const KX_DATA::CheckpointEdit& edit, qint64 now);

    /// In use on any photo; marks that the mark table doesn't know are left out.
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> UsedLabels();
    [[nodiscard]] std::vector<qint32> UsedMarks();

private:
    void AddLabels(std::vector<KX_DATA::PdfPicRecord>& rows);
    void AddParts(qint32 checkpointId, KX_DATA::DrawingRecord& record);

    Database& database;
};

} // namespace site
