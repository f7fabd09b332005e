// What the tables of a site's setup have beyond names: orders, archives, who is blocked.
#pragma once

#include "site/IBin.h"

#include <QString>

#include <vector>

namespace site {

class Database;

/// The step that adds them. Whoever had all other rights may set up from then on, else the first
/// person.
[[nodiscard]] std::vector<QString> SetupSchema();

/// The text by which a floor of the project is sorted: as its people ordered it, else by
/// FloorSortKey.
[[nodiscard]] QString SortKeyOfFloor(Database& database, qint32 ppid, const QString& floor);

/// Floor, axes and order of a photo or issue that comes back, as the site has them now.
void RefreshPlace(Database& database, BinKind kind, qint64 id);

/// Of the floor with this place (from 0 on) among those that people have ordered. Floors that come
/// to such a project otherwise stand behind them.
[[nodiscard]] QString OrderedFloorKey(int place, const QString& floor);

} // namespace site
