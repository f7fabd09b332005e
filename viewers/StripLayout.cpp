#include "viewers/StripLayout.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kPageButtonLength = 30;
constexpr int kBarSpace = 10;
constexpr int kCellLength = 100;
constexpr int kThumbMargin = 3;

ItemRange FromFirst(const RangeRequest& request, int visible) {
    ItemRange range{request.current, request.current + visible - 1};
    if (range.last > request.count - 1) {
        range.last = request.count - 1;
        range.first = range.last - visible + 1;
    }
    return range;
}

ItemRange ToLast(const RangeRequest& request, int visible) {
    const int first = std::max(request.current - visible + 1, 0);
    return {first, first + visible - 1};
}

/// An even strip has no middle cell: the one of the middle pair is taken that leaves more to see in
/// the direction of travel.
ItemRange AroundMiddle(const RangeRequest& request, int visible) {
    const int half = visible / 2;
    ItemRange range;
    if (visible % 2 == 0 && request.current <= request.shown) {
        range.last = std::min(request.current + half, request.count - 1);
        range.first = std::max(range.last - visible + 1, 0);
        if (range.first == 0) {
            range.last = visible - 1;
        }
        return range;
    }
    range.first = std::max(request.current - half, 0);
    range.last = std::min(range.first + visible - 1, request.count - 1);
    if (range.last == request.count - 1) {
        range.first = range.last - visible + 1;
    }
    return range;
}

ItemRange PageBack(const RangeRequest& request, int visible) {
    const int first = std::max(request.present.first - visible, 0);
    return {first, first + visible - 1};
}

ItemRange PageForward(const RangeRequest& request, int visible) {
    const int last = std::min(request.present.last + visible, request.count - 1);
    return {last - visible + 1, last};
}

ItemRange RawRange(const RangeRequest& request, int visible) {
    switch (request.mode) {
    case kCurrentFirst:
        return FromFirst(request, visible);
    case kCurrentLast:
        return ToLast(request, visible);
    case kPageBack:
        return PageBack(request, visible);
    case kPageForward:
        return PageForward(request, visible);
    default:
        return AroundMiddle(request, visible);
    }
}

} // namespace

int StripShape::Capacity() const {
    return CellLength() <= 0 || inner.isEmpty() ? 0 : Length() / CellLength();
}

StripShape ShapeOf(const QRect& stripArea) {
    StripShape shape;
    if (stripArea.isEmpty()) {
        return shape;
    }
    shape.horizontal = stripArea.width() >= stripArea.height();
    if (shape.horizontal) {
        shape.inner = stripArea.adjusted(kPageButtonLength, 0, -kPageButtonLength, -kBarSpace);
        shape.cellWidth = kCellLength;
        shape.cellHeight = shape.inner.height();
    } else {
        shape.inner = stripArea.adjusted(0, kPageButtonLength, -kBarSpace, -kPageButtonLength);
        shape.cellWidth = shape.inner.width();
        shape.cellHeight = kCellLength;
    }
    return shape;
}

ItemRange StripRange(const RangeRequest& request) {
    const int visible = std::min(request.count, request.capacity);
    if (visible <= 0) {
        return {};
    }
    const bool pages = request.mode == kPageBack || request.mode == kPageForward;
    if (pages && request.present.IsNone()) {
        return {};
    }
    const ItemRange range = RawRange(request, visible);
    return {std::max(range.first, 0), std::min(range.last, request.count - 1)};
}

bool MovesStrip(const RangeRequest& request) {
    if (!request.present.Contains(request.current)) {
        return true;
    }
    const int visible = std::min(request.count, request.capacity);
    if (request.mode != kCurrentMiddle || request.count <= visible) {
        return false;
    }
    const int place = request.current - request.present.first;
    const int half = visible / 2;
    const bool inMiddle = place == half || (visible % 2 == 0 && place == half - 1);
    return !inMiddle;
}

QRect StripCell(const StripShape& shape, int count, int place) {
    const int capacity = shape.Capacity();
    const int length = shape.CellLength();
    int start = place * length;
    if (count >= capacity) {
        start += (shape.Length() - length * std::min(count, capacity)) / 2;
    }
    const QSize size(shape.cellWidth, shape.cellHeight);
    if (shape.horizontal) {
        return {QPoint(shape.inner.x() + start, shape.inner.y()), size};
    }
    return {QPoint(shape.inner.x(), shape.inner.y() + start), size};
}

QRect ThumbRectOf(const QRect& cell) {
    return cell.adjusted(kThumbMargin, kThumbMargin, -kThumbMargin, -kThumbMargin);
}

} // namespace gallery
