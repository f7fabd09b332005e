// Reading many rows by id through one prepared statement.
#pragma once

#include "site/sqlite/Database.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace site {

/// Places for ids in a statement made for ForEachOfIds; a page of the console fits.
inline constexpr qsizetype kIdChunk = 30;

/// "?, ?, ..." as often as a chunk has ids.
[[nodiscard]] QString IdMarks();
/// Runs `sql`, which has IdMarks() as its only places, for every chunk of the ids; rows come in no
/// order.
void ForEachOfIds(Database& database, const QString& sql, const std::vector<qint64>& ids,
                  const std::function<void(const Statement&)>& take);

/// One row for each id that has one, in the order of the ids. The first column of `sql` is the id;
/// `make` turns what is read into the row.
template <typename Make>
[[nodiscard]] auto RowsInOrder(Database& database, const QString& sql,
                               const std::vector<qint64>& ids, Make make) {
    using Row = decltype(make(std::declval<const Statement&>()));
    std::unordered_map<qint64, Row> found;
    ForEachOfIds(database, sql, ids,
                 [&](const Statement& read) { found.emplace(read.Int64(0), make(read)); });
    std::vector<Row> rows;
    rows.reserve(ids.size());
    for (const qint64 id : ids) {
        const auto row = found.find(id);
        if (row != found.end()) {
            rows.push_back(row->second);
        }
    }
    return rows;
}

} // namespace site
