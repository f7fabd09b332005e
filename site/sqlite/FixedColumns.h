// The limits of a list to one place, as columns.
#pragma once

#include "site/ListFilter.h"

#include <QVariant>

namespace site {

struct FixedColumns {
    std::vector<std::pair<QString, QVariant>> values;
    QString index; ///< begins with ppid and the first of them

    [[nodiscard]] bool IsEmpty() const { return values.empty(); }
};

[[nodiscard]] FixedColumns FixedOf(ListKind kind, const ListFilter& filter);

} // namespace site
