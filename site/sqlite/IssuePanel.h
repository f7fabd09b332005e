// What the mark panel offers of the shown issues: floors with their issues.
#pragma once

#include "site/PanelFilter.h"

namespace site {

class Database;

struct PanelIssue {
    QString questionId;
    QString theme;
    QString posText; ///< where on the floor, as it was written: "3-B轴"
    QString component;
    qint32 markId = 0;
};

/// Issues of one project on one floor.
struct PanelIssueFloor {
    QString name; ///< may be empty
    qint32 ppid = 0;
    std::vector<PanelIssue> issues; ///< by place, then by age
};

/// In the order of the floors, those of several projects beside each other. Throws DataError.
/// Thread: the database's.
[[nodiscard]] std::vector<PanelIssueFloor> ReadIssuePanel(Database& database,
                                                          const PanelFilter& filter);

} // namespace site
