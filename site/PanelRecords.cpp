#include "site/PanelRecords.h"

#include <algorithm>

namespace site {

bool HasShownPhotos(const PanelPlace& place) {
    return std::any_of(place.marks.begin(), place.marks.end(),
                       [](const PanelMark& mark) { return mark.count > 0; });
}

bool HasShownPhotos(const PanelFloor& floor) {
    return std::any_of(floor.places.begin(), floor.places.end(),
                       [](const PanelPlace& place) { return HasShownPhotos(place); });
}

} // namespace site
