// Drawing photos and the checkpoints on which they hang.
#pragma once

#include "services/DrawingRecords.h"
#include "services/PicRecords.h"
#include "site/ListFilter.h"
#include "site/Records.h"

#include <optional>

namespace site {

/// Operations throw DataError; changes are one transaction each. Thread: the site's.
class IPdfPhotos {
public:
    virtual ~IPdfPhotos() = default;

    [[nodiscard]] virtual Page<KX_DATA::PdfPicRecord> PageOf(const ListFilter& filter,
                                                             const PageAsked& asked) = 0;
    /// The state of the photo that was read, the same for both; nothing for an unknown photo of the
    /// project.
    [[nodiscard]] virtual std::optional<Revision> Detail(qint32 ppid, qint32 picId,
                                                         KX_DATA::PdfPicDetail& detail) = 0;
    [[nodiscard]] virtual std::optional<Revision>
    PicDetail(qint32 ppid, qint32 picId, KX_DATA::CheckpointPicDetail& detail) = 0;
    /// Counts as a change by nobody: people and times stay. Returns how many there were. `changed`
    /// gets those that had another status before; null: nobody asks.
    virtual int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                          std::vector<NamedPhoto>* changed = nullptr) = 0;
    /// A point of 0 or less leaves the photo where it is, a status that is none as it is; one that
    /// isn't there, or not in the project, is Missing with a sentence that asks for another.
    /// @param seen  the state that the person saw, hidden or shown and its mark with it; none:
    ///              whatever was before is overwritten.
    [[nodiscard]] virtual Saved Update(qint32 ppid, const KX_DATA::PdfPicUpdate& update,
                                       const Signature& by, std::optional<Revision> seen = {}) = 0;
    /// Project of a photo, if it hangs on the checkpoint and is of one of the projects; else 0.
    [[nodiscard]] virtual qint32 ProjectOf(const Projects& projects, qint32 checkpointId,
                                           qint32 picId) = 0;

    /// The state of the checkpoint, without its photos; nothing for one of none of the projects.
    [[nodiscard]] virtual std::optional<Revision>
    Checkpoint(const Projects& projects, qint32 checkpointId, KX_DATA::DrawingRecord& record) = 0;
    /// Mark and labels of its photos change with it; a mark of 0 or less leaves the mark as it is.
    /// A label that doesn't exist is a fault.
    /// @param seen  as for a photo.
    [[nodiscard]] virtual Saved UpdateCheckpoint(const Projects& projects,
                                                 const KX_DATA::CheckpointEdit& edit,
                                                 const Signature& by,
                                                 std::optional<Revision> seen = {}) = 0;

    /// Of the whole site: in use on any photo; marks that the mark table doesn't know are left out.
    [[nodiscard]] virtual std::vector<KX_DATA::LabelEntry> UsedLabels() = 0;
    [[nodiscard]] virtual std::vector<qint32> UsedMarks() = 0;
};

} // namespace site
