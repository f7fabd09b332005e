#include "bench/StatementTrace.h"

#include <sqlite3.h>

#include <chrono>

namespace bench {

namespace {

std::vector<TracedStatement> g_trace;
bool g_on = true;

int OnStatement(unsigned type, void* context, void* statement, void* text) {
    static_cast<void>(context);
    const char* comment = static_cast<const char*>(text);
    // Triggers report themselves as comments.
    if (!g_on || type != SQLITE_TRACE_STMT || (comment[0] == '-' && comment[1] == '-')) {
        return 0;
    }
    auto* prepared = static_cast<sqlite3_stmt*>(statement);
    char* expanded = sqlite3_expanded_sql(prepared);
    g_trace.push_back({sqlite3_db_handle(prepared), expanded != nullptr ? expanded : ""});
    sqlite3_free(expanded);
    return 0;
}

int OnConnection(sqlite3* connection, const char** error, const sqlite3_api_routines* api) {
    static_cast<void>(error);
    static_cast<void>(api);
    return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, OnStatement, nullptr);
}

void RunStatement(const TracedStatement& traced) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(traced.connection, traced.sql.c_str(), -1, &statement, nullptr) !=
        SQLITE_OK) {
        return;
    }
    const int columns = sqlite3_column_count(statement);
    if (sqlite3_stmt_readonly(statement) != 0) {
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int column = 0; column < columns; ++column) {
                static_cast<void>(sqlite3_column_text(statement, column));
            }
        }
    }
    sqlite3_finalize(statement);
}

} // namespace

void StartTracing() {
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(OnConnection));
}

std::vector<TracedStatement> TakeTrace() {
    std::vector<TracedStatement> taken;
    taken.swap(g_trace);
    return taken;
}

double ReplayMilliseconds(const std::vector<TracedStatement>& statements) {
    using Clock = std::chrono::steady_clock;
    g_on = false;
    const Clock::time_point start = Clock::now();
    for (const TracedStatement& statement : statements) {
        RunStatement(statement);
    }
    const std::chrono::duration<double, std::milli> spent = Clock::now() - start;
    g_on = true;
    return spent.count();
}

} // namespace bench
