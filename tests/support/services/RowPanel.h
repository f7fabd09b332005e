// What a site's mark panel would show of the doubles' rows, and what is in use on them.
#pragma once

#include "services/EnvRecords.h"
#include "services/IssueRecords.h"
#include "services/MarkGroups.h"
#include "services/PicRecords.h"

#include <map>
#include <set>

namespace support {

using MarkTable = std::map<qint32, KX_DATA::MarkRecord>;

/// Whose shown photos and issues count.
struct PanelScope {
    std::vector<KX_DATA::WorksetProject> projects;
    QString person; ///< who made or changed at last; empty: everybody
    bool timed = false;
    qint64 from = 0; ///< both inclusive
    qint64 to = 0;
};

[[nodiscard]] std::vector<KX_DATA::PicFilterEntry>
PanelEntries(const std::vector<KX_DATA::BimPicRow>& rows, const PanelScope& scope);
[[nodiscard]] std::vector<KX_DATA::PicMarkGroup>
PanelGroups(const std::vector<KX_DATA::BimPicRow>& rows, const PanelScope& scope,
            const MarkTable& marks);
/// Newest first.
[[nodiscard]] std::vector<qint32> PanelPhotos(const std::vector<KX_DATA::BimPicRow>& rows,
                                              const PanelScope& scope, qint32 markId);
[[nodiscard]] std::vector<KX_DATA::IssueMarkGroup>
PanelGroups(const std::vector<KX_DATA::IssueRow>& rows, const PanelScope& scope);
[[nodiscard]] std::vector<KX_DATA::IssueFilterSource>
PanelEntries(const std::vector<KX_DATA::IssueRow>& rows, const PanelScope& scope);

/// By id, without marks that the table doesn't have; an empty table has all.
template <class Row>
[[nodiscard]] std::vector<qint32> MarksInUse(const std::vector<Row>& rows, const MarkTable& table) {
    std::set<qint32> marks;
    for (const Row& row : rows) {
        if (table.empty() || table.contains(row.markId)) {
            marks.insert(row.markId);
        }
    }
    return {marks.begin(), marks.end()};
}

/// Each label once, by its id; ids are numbers as a rule.
[[nodiscard]] std::vector<KX_DATA::LabelEntry> EachOnce(std::vector<KX_DATA::LabelEntry> labels);

} // namespace support
