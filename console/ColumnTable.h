// The columns of the three kinds, and which of them are hidden.
#pragma once

#include "console/ConsoleMode.h"

#include <QString>

#include <vector>

/// One column as the grid gets it.
struct ColumnSpec {
    QString caption;
    int width = 0;         ///< device-independent pixels
    bool centred = false;  ///< the cells; headers always are
    bool locked = false;   ///< the user can't change the width
    bool sortable = false; ///< a click on the header sorts
    int stretch = 0;       ///< share of the room that a wide window leaves; 0: none
};

/// Columns of a kind, in their order; those of BIM photos for an unknown kind.
[[nodiscard]] const std::vector<ColumnSpec>& ConsoleColumns(ConsoleMode mode);

/// What the hidden columns depend on.
struct ColumnRights {
    bool edit = false;
    bool remove = false;
    bool showHide = false;
    bool worksetMode = false;
};

/// Indexes of the columns that a kind hides, each once, in ascending order.
[[nodiscard]] std::vector<int> HiddenColumns(ConsoleMode mode, const ColumnRights& rights);

/// First column of the row icons; the five stand in the order of RowCommand.
[[nodiscard]] int FirstIconColumn(ConsoleMode mode);
/// Column of the status text.
[[nodiscard]] int StatusColumn(ConsoleMode mode);

/// Column of the check box and of the running number, in every kind.
inline constexpr int kCheckColumn = 0;
inline constexpr int kIndexColumn = 1;
inline constexpr int kMarkColumn = 2;
inline constexpr int kNameColumn = 3;
inline constexpr int kProjectColumn = 4;
