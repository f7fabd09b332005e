// The order of a list to which a file adds.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace host {

/// All of `present` and of `named`, each once: those that both have in the order of `named`, in the
/// places that they had; a new one behind its neighbour in `named`, or before the next that is
/// known, or at the end if none is. Both hold no name twice.
[[nodiscard]] QStringList MergedOrder(const QStringList& present, const QStringList& named);

/// Where a floor is as its name says: "3", "3F", "F3", "3层", "三层" are 3, "-1", "B1", "负一层",
/// "地下1层" are -1; nothing for others ("屋面", "2#3F").
[[nodiscard]] std::optional<double> FloorHeight(const QString& name);

/// The same for floors: where all that is named is new and says its height, it stands by its
/// height.
[[nodiscard]] QStringList MergedFloors(const QStringList& present, const QStringList& named);

struct MisplacedFloor {
    QString floor;
    QString below; ///< which stands below it, and is higher
};
/// Floors that stand above one that is higher by its name; those whose names say no height don't
/// count. Empty: from low to high.
[[nodiscard]] std::vector<MisplacedFloor> MisplacedFloors(const QStringList& floors);

} // namespace host
