#include "site/sqlite/PanelCache.h"

#include "site/sqlite/IssuePanel.h"

#include "site/sqlite/PicPanel.h"

namespace site {

template <typename Rows, typename Read>
const Rows& PanelCache::Refreshed(Kept<Rows>& kept, const PanelFilter& filter, Read read) {
    const Stamp now = m_database.ChangeStamp();
    if (!(kept.stamp == now && kept.filter == filter)) {
        // A read that fails leaves nothing that could be taken for its result.
        kept = {};
        kept.rows = read();
        kept.filter = filter;
        kept.stamp = now;
    }
    return kept.rows;
}

const std::vector<PanelFloor>& PanelCache::Photos(const PanelFilter& filter) {
    Kept<std::vector<PanelFloor>>& kept = filter.HasLimits() ? m_limitedPhotos : m_photos;
    return Refreshed(kept, filter, [&] { return PicPanel(m_database).Floors(filter); });
}

const std::vector<PanelIssueFloor>& PanelCache::Issues(const PanelFilter& filter) {
    return Refreshed(m_issues, filter, [&] { return ReadIssuePanel(m_database, filter); });
}

std::vector<qint32> PanelCache::PhotosOfMark(const PanelFilter& filter, qint32 markId) {
    return PicPanel(m_database).PicsOfMark(filter, markId);
}

} // namespace site
