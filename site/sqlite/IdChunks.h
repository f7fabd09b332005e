// Reading many rows by id through one prepared statement.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

namespace site {

class Database;
class Statement;

/// Places for ids in a statement made for ForEachOfIds; a page of the console fits.
inline constexpr qsizetype kIdChunk = 30;

/// "?, ?, ..." as often as a chunk has ids.
[[nodiscard]] QString IdMarks();
/// Runs `sql`, which has IdMarks() as its only places, for every chunk of the ids; rows come in no
/// order.
void ForEachOfIds(Database& database, const QString& sql, const std::vector<qint64>& ids,
                  const std::function<void(const Statement&)>& take);

} // namespace site
