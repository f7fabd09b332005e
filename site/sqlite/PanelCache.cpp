#include "site/sqlite/PanelCache.h"

#include "site/sqlite/IssuePanel.h"
#include "site/sqlite/PicPanel.h"

namespace site {

template <typename Rows, typename Read>
const Rows& PanelCache::Refreshed(Kept<Rows>& kept, ChangeKind kind, const PanelFilter& filter,
                                  Read read) {
    m_database.Log().CatchUp();
    const quint64 now = m_database.Log().StateOf({kind, ChangeKind::Place}, filter.ppids);
    if (kept.state != now || !(kept.filter == filter)) {
        // A read that fails leaves nothing that could be taken for its result.
        kept = {};
        kept.rows = read();
        kept.filter = filter;
        kept.state = now;
    }
    return kept.rows;
}

const std::vector<PanelFloor>& PanelCache::Photos(const PanelFilter& filter) {
    Kept<std::vector<PanelFloor>>& kept = filter.HasLimits() ? m_limitedPhotos : m_photos;
    return Refreshed(kept, ChangeKind::BimPhoto, filter,
                     [&] { return PicPanel(m_database).Floors(filter); });
}

const std::vector<PanelIssueFloor>& PanelCache::Issues(const PanelFilter& filter) {
    return Refreshed(m_issues, ChangeKind::Issue, filter,
                     [&] { return ReadIssuePanel(m_database, filter); });
}

std::vector<qint32> PanelCache::PhotosOfMark(const PanelFilter& filter, qint32 markId) {
    return PicPanel(m_database).PicsOfMark(filter, markId);
}

} // namespace site
