// The cells of the strip as they look now, where they lie and in a row of their own.
#pragma once

#include "viewers/GalleryPainter.h"

#include <QSize>

#include <vector>

namespace gallery {

/// The cells of a range, each where it lies in the pane; none of no range.
[[nodiscard]] std::vector<Cell> CellsOf(const GalleryState& state, const ItemRange& range);

/// Cells side by side along the strip, from 0, 0 on, whether they are visible or not.
struct CellRow {
    std::vector<Cell> cells;
    QSize size; ///< of all of them
};
[[nodiscard]] CellRow RowOf(const GalleryState& state, const ItemRange& range);

} // namespace gallery
