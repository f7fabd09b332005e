#include "site/sqlite/IssuePanel.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/PanelCondition.h"

#include <map>
#include <string>

namespace site {

using namespace Qt::StringLiterals;

std::vector<PanelIssueFloor> ReadIssuePanel(Database& database, const PanelFilter& filter) {
    std::map<std::pair<std::string, size_t>, PanelIssueFloor> floors;
    size_t place = 0;
    for (const qint32 ppid : DifferentProjects(filter)) {
        QVariantList values;
        const QString condition = PanelCondition(filter, ppid, values);
        PanelIssueFloor* floor = nullptr;
        std::string sortKey;
        const auto take = [&](const sqlite::RawRow& row) {
            if (floor == nullptr || row.Utf8(0) != sortKey) {
                sortKey = row.Utf8(0);
                floor = &floors[{sortKey, place}];
                floor->name = row.Text(1);
                floor->ppid = ppid;
            }
            floor->issues.push_back(
                {row.Text(2), row.Text(3), row.Text(4), row.Text(5), row.Int(6)});
        };
        database.Scan(u"SELECT floor_sort, floor, question_id, theme, pos_info, component_name,"
                      " mark_id FROM issue"_s +
                          sqlite::UseIndex(u"issue_panel"_s) + condition +
                          u" ORDER BY floor_sort, pos_info, id"_s,
                      values, take);
        ++place;
    }
    std::vector<PanelIssueFloor> read;
    read.reserve(floors.size());
    for (auto& [key, floor] : floors) {
        read.push_back(std::move(floor));
    }
    return read;
}

} // namespace site
