// What the mark panel read at last, as long as nobody has changed the data.
#pragma once

#include "site/IPanelCounts.h"
#include "site/sqlite/Database.h"

#include <optional>

namespace site {

/// The panel asks for the same rows several times: list, tree, what is ticked; so does the plan,
/// for those without limits. References last until the next call. Operations throw DataError.
/// Thread: the database's.
class PanelCache final : public IPanelCounts {
public:
    explicit PanelCache(Database& owner) : m_database(owner) {}

    [[nodiscard]] const std::vector<PanelFloor>& Photos(const PanelFilter& filter) override;
    [[nodiscard]] const std::vector<PanelIssueFloor>& Issues(const PanelFilter& filter) override;
    [[nodiscard]] std::vector<qint32> PhotosOfMark(const PanelFilter& filter,
                                                   qint32 markId) override;

private:
    template <typename Rows> struct Kept {
        PanelFilter filter;
        std::optional<quint64> state; ///< of the data
        Rows rows;
    };
    template <typename Rows, typename Read>
    const Rows& Refreshed(Kept<Rows>& kept, ChangeKind kind, const PanelFilter& filter, Read read);

    Database& m_database;
    Kept<std::vector<PanelFloor>> m_photos;
    Kept<std::vector<PanelFloor>> m_limitedPhotos;
    Kept<std::vector<PanelIssueFloor>> m_issues;
};

} // namespace site
