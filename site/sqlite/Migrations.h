// The numbered steps by which a database reaches the present schema.
#pragma once

#include <QString>

#include <vector>

namespace site {

class Database;

/// The schema that this client reads and writes.
inline constexpr int kSchemaVersion = 13;

/// Statements of each step, in order; statements_i lead to version i + 1.
[[nodiscard]] std::vector<std::vector<QString>> SchemaSteps();

/// Brings the database to kSchemaVersion, each step in a transaction of its own; two processes may
/// do it at the same time. Throws DataError: Newer for a later version, Damaged for a database
/// that is no site's. @param now  seconds since 1970, noted with each step.
void Migrate(Database& database, qint64 now);

} // namespace site
