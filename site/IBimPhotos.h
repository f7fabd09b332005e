// BIM photos: pages of their list, what viewers and editor read, what is changed.
#pragma once

#include "services/PicRecords.h"
#include "site/ListFilter.h"
#include "site/Records.h"

#include <optional>

namespace site {

/// Operations throw DataError; changes are one transaction each. Thread: the site's.
class IBimPhotos {
public:
    virtual ~IBimPhotos() = default;

    [[nodiscard]] virtual Page<KX_DATA::BimPicRow> PageOf(const ListFilter& filter,
                                                          const PageAsked& asked) = 0;
    /// In the order of the ids; ids without a photo in one of the projects are left out.
    [[nodiscard]] virtual std::vector<KX_DATA::BimPicRow>
    Rows(const Projects& projects, const std::vector<qint64>& picIds) = 0;
    /// The state that was read; nothing for an unknown photo of the project.
    [[nodiscard]] virtual std::optional<Revision> Detail(qint32 ppid, qint32 picId,
                                                         KX_DATA::BimPicDetail& detail) = 0;
    /// Files of BIM and drawing photos, in the order of the ids; unknown ids are left out.
    [[nodiscard]] virtual std::vector<KX_DATA::PicFileEntry>
    Files(const Projects& projects, const std::vector<qint32>& picIds) = 0;
    /// Shown photos only, latest change first. An empty key: those without a floor.
    [[nodiscard]] virtual std::vector<KX_DATA::PicFileEntry>
    FilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId) = 0;

    /// Counts as a change by nobody: people and times stay. Returns how many there were. `changed`
    /// gets those that had another status before; null: nobody asks.
    virtual int SetStatus(qint32 ppid, const std::vector<qint32>& picIds, qint32 status,
                          std::vector<NamedPhoto>* changed = nullptr) = 0;
    /// The signature becomes updater and time. The position key decides about floor and axes: they
    /// are what the model says of it, and stay where the model has the photo's key no longer.
    /// Throws, with nothing changed, for another key that the project hasn't and for an unknown
    /// label.
    /// @param seen  the state that the person saw, hidden or shown with it; none: whatever was
    ///              before is overwritten.
    [[nodiscard]] virtual Saved Update(qint32 ppid, const KX_DATA::BimPicUpdate& update,
                                       const Signature& by, std::optional<Revision> seen = {}) = 0;

    /// Of the whole site: in use on any photo; marks that the mark table doesn't know are left out.
    [[nodiscard]] virtual std::vector<KX_DATA::LabelEntry> UsedLabels() = 0;
    [[nodiscard]] virtual std::vector<qint32> UsedMarks() = 0;
};

} // namespace site
