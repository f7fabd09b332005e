// How many photos there are somewhere, and how that is said everywhere in the same way.
#pragma once

#include <QString>

namespace host {

/// Every photo that isn't deleted is in one of the two.
struct PhotoCount {
    int shown = 0;
    int hidden = 0; ///< of status "隐藏": they have no flag and aren't opened from the plan

    [[nodiscard]] int Total() const { return shown + hidden; }
    PhotoCount& operator+=(const PhotoCount& other);
    PhotoCount& operator-=(const PhotoCount& other);
    bool operator==(const PhotoCount&) const = default;
};

/// "7", or "1,000 + 3 隐藏".
[[nodiscard]] QString CountText(const PhotoCount& count);
/// "照片 7 张", or "照片 7 + 3 隐藏".
[[nodiscard]] QString PhotosText(const PhotoCount& count);

} // namespace host
