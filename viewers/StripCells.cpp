#include "viewers/StripCells.h"

namespace gallery {

namespace {

Cell CellOf(const GalleryItem& item) {
    Cell cell;
    cell.rect = item.thumbRect;
    cell.state = item.picState;
    cell.percent = item.picProgress;
    cell.fileThere = item.fileThere;
    if (item.thumbDC) {
        cell.picture = item.thumbDC->Bitmap();
    }
    return cell;
}

} // namespace

std::vector<Cell> CellsOf(const GalleryState& state, const ItemRange& range) {
    std::vector<Cell> cells;
    for (int i = range.first; !range.IsNone() && i <= range.last; ++i) {
        cells.push_back(CellOf(state.items[size_t(i)]));
        if (i == state.currentIndex) {
            cells.back().frame = CellFrame::Current;
        } else if (i == state.hoverIndex) {
            cells.back().frame = CellFrame::Hover;
        }
    }
    return cells;
}

CellRow RowOf(const GalleryState& state, const ItemRange& range) {
    CellRow row{CellsOf(state, range), {}};
    const StripShape& strip = state.strip;
    const int count = int(row.cells.size());
    for (int i = 0; i < count; ++i) {
        const int start = i * strip.CellLength();
        const QPoint corner = strip.horizontal ? QPoint(start, 0) : QPoint(0, start);
        row.cells[size_t(i)].rect =
            ThumbRectOf(QRect(corner, QSize(strip.cellWidth, strip.cellHeight)));
    }
    row.size = strip.horizontal ? QSize(count * strip.cellWidth, strip.cellHeight)
                                : QSize(strip.cellWidth, count * strip.cellHeight);
    return row;
}

} // namespace gallery
