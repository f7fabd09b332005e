#include "toolkit/windows/PopupPlaces.h"

#include "toolkit/Look.h"

#include <algorithm>

namespace toolkit {

namespace {

constexpr int kGap = 2 * kStep;

int Fitting(int room, int size) {
    return std::max((room - kGap) / (size + kGap), 1);
}

} // namespace

int PopupCapacity(const QRect& screen, const QSize& toast) {
    return Fitting(screen.height(), toast.height()) * Fitting(screen.width(), toast.width());
}

QRect PopupPlace(const QRect& screen, const QSize& toast, int index) {
    const int rows = Fitting(screen.height(), toast.height());
    const int column = index / rows;
    const int row = index % rows;
    const int right = screen.x() + screen.width() - kGap - column * (toast.width() + kGap);
    const int bottom = screen.y() + screen.height() - kGap - row * (toast.height() + kGap);
    return {QPoint(right - toast.width(), bottom - toast.height()), toast};
}

} // namespace toolkit
