#include "viewers/GalleryPlaces.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kStepMargin = 10;
constexpr int kStepWidth = 50;
constexpr int kStepHeight = 90;
constexpr int kPageLength = 30;
constexpr int kBarGap = 5;
constexpr int kBarThickness = 5;
constexpr int kLeastThumb = 20;

QRect Below(const QRect& rect, int gap, int height) {
    return {rect.x(), rect.y() + rect.height() + gap, rect.width(), height};
}

QRect RightOf(const QRect& rect, int gap, int width) {
    return {rect.x() + rect.width() + gap, rect.y(), width, rect.height()};
}

} // namespace

bool SuitsStrip(GalleryButton button, const StripShape& strip) {
    if (button == kThumbLeft || button == kThumbRight) {
        return strip.horizontal;
    }
    return (button != kThumbUp && button != kThumbDown) || !strip.horizontal;
}

std::array<QRect, kGalleryButtons> ButtonPlaces(const QRect& bigArea, const StripShape& strip) {
    std::array<QRect, kGalleryButtons> places;
    const int stepTop = bigArea.y() + bigArea.height() / 2 - kStepHeight / 2;
    places[kPrevPic] = {bigArea.x() + kStepMargin, stepTop, kStepWidth, kStepHeight};
    places[kNextPic] = {bigArea.x() + bigArea.width() - kStepMargin - kStepWidth, stepTop,
                        kStepWidth, kStepHeight};
    const QRect& inner = strip.inner;
    if (strip.horizontal) {
        places[kThumbLeft] = {inner.x() - kPageLength, inner.y(), kPageLength, inner.height()};
        places[kThumbRight] = RightOf(inner, 0, kPageLength);
    } else {
        places[kThumbUp] = {inner.x(), inner.y() - kPageLength, inner.width(), kPageLength};
        places[kThumbDown] = Below(inner, 0, kPageLength);
    }
    return places;
}

QRect BarTrack(const StripShape& strip) {
    if (strip.inner.isEmpty()) {
        return {};
    }
    if (strip.horizontal) {
        const int quarter = strip.inner.width() / 4;
        return Below(strip.inner, kBarGap, kBarThickness).adjusted(quarter, 0, -quarter, 0);
    }
    const int quarter = strip.inner.height() / 4;
    return RightOf(strip.inner, kBarGap, kBarThickness).adjusted(0, quarter, 0, -quarter);
}

QRect BarThumb(const ThumbBar& bar) {
    if (bar.trackRect.isEmpty() || bar.maxPos == bar.minPos) {
        return bar.thumbRect;
    }
    const double range = double(bar.maxPos) - bar.minPos + 1;
    const int length = bar.horizontal ? bar.trackRect.width() : bar.trackRect.height();
    // Single precision in the products decides about a pixel in long lists; required as is.
    const auto startPart = float((bar.pos - bar.minPos) / range);
    const auto pagePart = float(bar.page / range);
    const int start = int(float(length) * startPart);
    const int extent = std::max(int(float(length) * pagePart), kLeastThumb);
    QRect thumb = bar.trackRect;
    if (bar.horizontal) {
        thumb.setX(thumb.x() + start);
        thumb.setWidth(extent);
    } else {
        thumb.setY(thumb.y() + start);
        thumb.setHeight(extent);
    }
    return thumb;
}

} // namespace gallery
