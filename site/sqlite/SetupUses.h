// What keeps an entry of a site's setup from being removed.
#pragma once

#include <QString>

namespace site {

class Database;

/// For a person: "照片 32 张、问题 4 个"; empty: nothing uses it. What lies in the bin counts too.
[[nodiscard]] QString UsesOfProject(Database& database, qint32 ppid);
[[nodiscard]] QString UsesOfPerson(Database& database, qint32 id);
[[nodiscard]] QString UsesOfMark(Database& database, qint32 id);
[[nodiscard]] QString UsesOfLabel(Database& database, qint32 id);
[[nodiscard]] QString UsesOfFloorNamed(Database& database, qint32 ppid, const QString& floor);
[[nodiscard]] QString UsesOfPosition(Database& database, const QString& positionKey);

} // namespace site
