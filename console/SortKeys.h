// Which field of the service a header sorts by.
#pragma once

#include "console/ConsoleMode.h"

#include <QString>

/// Field of a column; the kind's default for columns that the table doesn't have.
[[nodiscard]] QString SortField(ConsoleMode mode, int column);
/// The field by which a kind is sorted until the user sorts otherwise, newest first.
[[nodiscard]] QString DefaultSortField(ConsoleMode mode);

/// Order of the next sort by a column in the given state (1 ascending, -1 descending, 0 none).
[[nodiscard]] QString SortOrderAfter(int columnState);
/// State of a column that is sorted in `order`.
[[nodiscard]] int ColumnStateOf(const QString& order);
