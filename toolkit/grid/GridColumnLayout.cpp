#include "toolkit/grid/GridColumnLayout.h"

#include <algorithm>

namespace toolkit {

std::vector<int> LayoutGridColumns(const std::vector<GridColumnRequest>& columns, int available) {
    int used = 0;
    int shares = 0;
    for (const GridColumnRequest& column : columns) {
        if (!column.visible) {
            continue;
        }
        used += column.width;
        shares += std::max(column.share, 0);
    }
    int room = std::max(available - used, 0);
    std::vector<int> widths;
    widths.reserve(columns.size());
    for (const GridColumnRequest& column : columns) {
        int extra = 0;
        // Each takes its part of what is left, so that rounding never loses a pixel.
        if (column.visible && column.share > 0) {
            extra = room * column.share / shares;
            room -= extra;
            shares -= column.share;
        }
        widths.push_back(column.width + extra);
    }
    return widths;
}

} // namespace toolkit
