// Reads the setup of a data folder, list by list.
#pragma once

#include "site/Records.h"
#include "site/SetupState.h"

namespace site {

class Database;

[[nodiscard]] std::vector<SetupProject> ReadSetupProjects(Database& database);
[[nodiscard]] std::vector<SetupWorkset> ReadSetupWorksets(Database& database);
[[nodiscard]] std::vector<SetupPerson> ReadSetupPeople(Database& database);
[[nodiscard]] std::vector<SetupMark> ReadSetupMarks(Database& database);
[[nodiscard]] std::vector<SetupLabel> ReadSetupLabels(Database& database);
[[nodiscard]] SetupGrid ReadSetupGrid(Database& database, const SetupProject& project);

} // namespace site
