// Rights by the names that people know them by, and the roles that bundle them.
#pragma once

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace host {

/// The rights in the order in which they are shown, the right to set up last.
[[nodiscard]] const std::vector<std::pair<qint32, QString>>& RightNames();

struct SetupRole {
    QString name;
    std::vector<qint32> rights; ///< ascending
};

/// From all rights to none.
[[nodiscard]] const std::vector<SetupRole>& Roles();
/// "自定义" for rights of no role.
[[nodiscard]] QString RoleOf(const std::vector<qint32>& rights);

/// The trades by their numbers from 1 on.
[[nodiscard]] const QStringList& TradeNames();

} // namespace host
