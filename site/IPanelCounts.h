// How many photos and issues there are, floor by floor, place by place, mark by mark: what the
// floor plan and the mark panel say alike.
#pragma once

#include "site/PanelFilter.h"
#include "site/PanelRecords.h"

namespace site {

/// The same question again costs little while nothing has changed. Operations throw DataError.
/// Thread: the site's.
class IPanelCounts {
public:
    virtual ~IPanelCounts() = default;

    /// Every photo that isn't deleted, hidden ones included: in the order of floors; places by
    /// project, then by their text, each with a photo. The reference lasts until the next call.
    [[nodiscard]] virtual const std::vector<PanelFloor>& Photos(const PanelFilter& filter) = 0;
    /// Shown issues: in the order of the floors, those of several projects beside each other. The
    /// reference lasts until the next call.
    [[nodiscard]] virtual const std::vector<PanelIssueFloor>& Issues(const PanelFilter& filter) = 0;
    /// The shown photos of a mark, latest change first.
    [[nodiscard]] virtual std::vector<qint32> PhotosOfMark(const PanelFilter& filter,
                                                           qint32 markId) = 0;
};

} // namespace site
