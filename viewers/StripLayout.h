// The strip of thumbnails: its cells, and which items they show. Positions are device-independent
// pixels of the pane.
#pragma once

#include "viewers/ItemRange.h"

#include <QRect>

namespace gallery {

/// Shape of the strip.
struct StripShape {
    QRect inner; ///< the area less the space of page buttons and indicator
    int cellWidth = 0;
    int cellHeight = 0;
    bool horizontal = false;

    /// Extents along the strip's axis.
    [[nodiscard]] int Length() const { return horizontal ? inner.width() : inner.height(); }
    [[nodiscard]] int CellLength() const { return horizontal ? cellWidth : cellHeight; }
    /// Number of whole cells that fit; 0 for an area too small.
    [[nodiscard]] int Capacity() const;
};

/// An area at least as wide as high holds a horizontal strip.
[[nodiscard]] StripShape ShapeOf(const QRect& stripArea);

/// Which item a new range is built around.
enum StripMode {
    kCurrentFirst = 0,
    kCurrentMiddle = 1,
    kCurrentLast = 2,
    kPageBack = 3,
    kPageForward = 4,
};

struct RangeRequest {
    StripMode mode = kCurrentMiddle;
    int count = 0;    ///< items in the list
    int capacity = 0; ///< cells in the strip
    int current = 0;
    int shown = -1;    ///< the picture painted last: tells in which direction the user moves
    ItemRange present; ///< the range before; the page modes start from it
};

/// The items that the strip shows. No items or no cell: none; a page mode without a present range
/// leaves it at none.
[[nodiscard]] ItemRange StripRange(const RangeRequest& request);

/// Whether the strip must be laid out again when `current` becomes the current item.
[[nodiscard]] bool MovesStrip(const RangeRequest& request);

/// One cell. `place` counts from 0 at the first visible item. A list that fills the strip stands
/// centred in it; a shorter one begins at its start.
[[nodiscard]] QRect StripCell(const StripShape& shape, int count, int place);
/// The thumbnail within its cell.
[[nodiscard]] QRect ThumbRectOf(const QRect& cell);

} // namespace gallery
