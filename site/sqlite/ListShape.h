// The three lists of the console as tables: names, search fields, orders.
#pragma once

#include "site/ListFilter.h"

#include <QString>

#include <vector>

namespace site {

/// An order that can be asked for by name; its index holds ppid, these columns, and the id.
struct SortShape {
    QString field; ///< as in PageRequest
    QString index;
    std::vector<QString> columns; ///< without the id, empty for the order of the ids
};

struct ListShape {
    ListKind kind;
    QString table;
    QString searchTable;
    QString tally;
    QString prefix;                     ///< of the names of its indexes
    qint64 firstId;                     ///< ids of this list are not below it
    std::vector<QString> searchFields;  ///< columns of the search table
    std::vector<QString> searchColumns; ///< columns of the table that fill them, same order
    std::vector<SortShape> sorts;       ///< the first is the default
};

[[nodiscard]] const ListShape& ShapeOf(ListKind kind);
/// The default order for an unknown field.
[[nodiscard]] const SortShape& SortOf(const ListShape& shape, const QString& field);

} // namespace site
