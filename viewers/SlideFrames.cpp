#include "viewers/SlideFrames.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kSteps = 10;

QPoint Along(bool horizontal, int distance) {
    return horizontal ? QPoint(distance, 0) : QPoint(0, distance);
}

QSize Cells(const StripShape& strip, int count) {
    return strip.horizontal ? QSize(strip.cellWidth * count, strip.cellHeight)
                            : QSize(strip.cellWidth, strip.cellHeight * count);
}

/// The items of the range before that the new one lacks.
ItemRange Outgoing(const ItemRange& saved, const ItemRange& now) {
    ItemRange outgoing = saved;
    if (saved.first >= now.first && saved.first <= now.last) {
        outgoing.first = now.last + 1;
    } else if (saved.first < now.first && saved.last >= now.first) {
        outgoing.last = now.first - 1;
    }
    return outgoing;
}

} // namespace

QRect Slide::OldAt(int offset) const {
    return oldRect.translated(Along(horizontal, forward ? -offset : offset));
}

QRect Slide::NewAt(int offset) const {
    const int left = distance - offset;
    return newRect.translated(Along(horizontal, forward ? left : -left));
}

std::vector<int> SlideOffsets(int distance) {
    const int step = distance / kSteps;
    if (step <= 0) {
        return {distance};
    }
    std::vector<int> offsets;
    for (int offset = 0; offset <= distance;) {
        offsets.push_back(offset);
        offset += step;
        if (offset > distance && offset - distance < step) {
            offset = distance;
        }
    }
    return offsets;
}

Slide PictureSlide(const PictureSlideRequest& request) {
    Slide slide;
    slide.bounds = request.bigArea;
    slide.oldRect = request.oldRect;
    slide.newRect = request.newRect;
    slide.horizontal = request.horizontal;
    slide.forward = request.oldIndex < request.newIndex;
    const auto extent = [&](const QRect& rect) {
        return request.horizontal ? rect.width() : rect.height();
    };
    const int greater = std::max(extent(request.oldRect), extent(request.newRect));
    slide.distance = (extent(request.bigArea) - greater) / 2 + greater + 1;
    return slide;
}

std::optional<StripSlide> PlanStripSlide(const StripSlideRequest& request) {
    const ItemRange& saved = request.saved;
    const ItemRange& now = request.now;
    if (saved.IsNone() || now.IsNone() || saved.first == now.first) {
        return std::nullopt;
    }
    StripSlide plan;
    plan.outgoing = Outgoing(saved, now);
    if (plan.outgoing.IsNone()) {
        return std::nullopt;
    }
    const StripShape& strip = request.strip;
    const int visible = now.Count();
    const int leaving = plan.outgoing.Count();
    Slide& slide = plan.slide;
    slide.horizontal = strip.horizontal;
    slide.forward = saved.first < now.first;
    const int free = strip.Length() - strip.CellLength() * visible;
    slide.bounds =
        QRect(strip.inner.topLeft() + Along(strip.horizontal, free / 2), Cells(strip, visible));
    slide.newRect = slide.bounds;
    slide.oldRect = QRect(slide.bounds.topLeft(), Cells(strip, leaving));
    if (!slide.forward && visible - leaving >= 1) {
        slide.oldRect.translate(Along(strip.horizontal, (visible - leaving) * strip.CellLength()));
    }
    slide.distance = leaving * strip.CellLength();
    return plan;
}

} // namespace gallery
