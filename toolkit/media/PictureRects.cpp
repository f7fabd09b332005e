#include "toolkit/media/PictureRects.h"

#include <algorithm>
#include <cmath>

namespace KXTools {

namespace {

constexpr int kLeastSide = 11;

QRect Centred(const QRect& place, const QSize& size) {
    return {QPoint(place.x() + (place.width() - size.width()) / 2,
                   place.y() + (place.height() - size.height()) / 2),
            size};
}

int Rounded(double value) {
    return int(std::lround(value));
}

} // namespace

QRect FitRectToParent(const QRect& parent, const QSize& image) {
    if (parent.isEmpty() || image.isEmpty()) {
        return {};
    }
    const double scale =
        std::min(double(parent.width()) / image.width(), double(parent.height()) / image.height());
    return Centred(parent, {std::max(kLeastSide, Rounded(image.width() * scale)),
                            std::max(kLeastSide, Rounded(image.height() * scale))});
}

QRect RectToCoverParent(const QRect& target, const QSize& image) {
    if (target.isEmpty() || image.isEmpty()) {
        return {};
    }
    const double scale =
        std::max(double(target.width()) / image.width(), double(target.height()) / image.height());
    const QSize part(std::clamp(Rounded(target.width() / scale), 1, image.width()),
                     std::clamp(Rounded(target.height() / scale), 1, image.height()));
    return Centred(QRect(QPoint(0, 0), image), part);
}

} // namespace KXTools
