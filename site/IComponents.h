// The components of the model: columns, beams, walls, with what a person may read of them.
#pragma once

#include "site/Records.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace site {

struct Component {
    qint32 ppid = 0;
    QString handle;      ///< one component of the project has it
    QString floor;       ///< empty: on none
    QString positionKey; ///< of the intersection at which it stands; may be empty
    QString name;
    QString subName; ///< what kind of `name` it is, may be empty
    QString kind;    ///< "柱", "梁", ...
    std::vector<std::pair<QString, QString>> properties; ///< captions with values, in their order
};

/// Operations throw DataError. Thread: the site's.
class IComponents {
public:
    virtual ~IComponents() = default;

    /// By intersections, then by handles; an unknown floor has none.
    [[nodiscard]] virtual std::vector<Component> OnFloor(qint32 ppid, const QString& floor) = 0;
    /// Nothing for an empty handle and for one that no component of that floor has.
    [[nodiscard]] virtual std::optional<Component> Find(qint32 ppid, const QString& floor,
                                                        const QString& handle) = 0;
};

} // namespace site
