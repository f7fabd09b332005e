// What the mark panel offers of the shown issues: floors with their issues.
#pragma once

#include "site/PanelFilter.h"
#include "site/PanelRecords.h"

namespace site {

class Database;

/// In the order of the floors, those of several projects beside each other. Throws DataError.
/// Thread: the database's.
[[nodiscard]] std::vector<PanelIssueFloor> ReadIssuePanel(Database& database,
                                                          const PanelFilter& filter);

} // namespace site
