// Sees which statements run on the program's database connections, and runs them again through
// SQLite's own interface.
#pragma once

#include <string>
#include <vector>

struct sqlite3;

namespace bench {

/// One statement as it ran, with its values filled in.
struct TracedStatement {
    sqlite3* connection = nullptr;
    std::string sql;
};

/// Follows every connection opened after this call. Called once, before the first connection.
void StartTracing();
/// What ran since the last call, in order.
[[nodiscard]] std::vector<TracedStatement> TakeTrace();

/// Prepares, steps and finalises each reading statement on its own connection, every column taken
/// as text. Milliseconds for all of them; statements that change something are passed over.
[[nodiscard]] double ReplayMilliseconds(const std::vector<TracedStatement>& statements);

} // namespace bench
