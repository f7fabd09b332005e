// Drawing photos and their checkpoints in the database.
#pragma once

#include "site/IPdfPhotos.h"

namespace site {

class Database;
class ListQuery;

class PdfPhotos final : public IPdfPhotos {
public:
    PdfPhotos(Database& owner, ListQuery& pages) : m_database(owner), m_lists(pages) {}

    [[nodiscard]] Page<KX_DATA::PdfPicRecord> PageOf(const ListFilter& filter,
                                                     const PageAsked& asked) override;
    [[nodiscard]] std::optional<Revision> Detail(qint32 ppid, qint32 picId,
                                                 KX_DATA::PdfPicDetail& detail) override;
    [[nodiscard]] std::optional<Revision> PicDetail(qint32 ppid, qint32 picId,
                                                    KX_DATA::CheckpointPicDetail& detail) override;
    int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                  std::vector<NamedPhoto>* changed = nullptr) override;
    [[nodiscard]] Saved Update(qint32 ppid, const KX_DATA::PdfPicUpdate& update,
                               const Signature& by, std::optional<Revision> seen) override;
    [[nodiscard]] qint32 ProjectOf(const Projects& projects, qint32 checkpointId,
                                   qint32 picId) override;
    [[nodiscard]] std::optional<Revision> Checkpoint(const Projects& projects, qint32 checkpointId,
                                                     KX_DATA::DrawingRecord& record) override;
    [[nodiscard]] Saved UpdateCheckpoint(const Projects& projects,
                                         const KX_DATA::CheckpointEdit& edit, const Signature& by,
                                         std::optional<Revision> seen) override;
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> UsedLabels() override;
    [[nodiscard]] std::vector<qint32> UsedMarks() override;

private:
    [[nodiscard]] std::vector<KX_DATA::PdfPicRecord> Rows(const std::vector<qint64>& picIds);
    void AddLabels(std::vector<KX_DATA::PdfPicRecord>& rows);
    void AddParts(qint32 checkpointId, KX_DATA::DrawingRecord& record);
    /// On the checkpoint and its photos.
    void SetMark(qint32 checkpointId, qint32 markId);
    /// Of a checkpoint of one of the projects.
    struct CheckpointState {
        qint32 ppid = 0;
        Revision revision{};
    };
    /// Nothing if it isn't there or not of these projects.
    [[nodiscard]] std::optional<CheckpointState> StateOf(const Projects& projects,
                                                         qint32 checkpointId);

    Database& m_database;
    ListQuery& m_lists;
};

} // namespace site
