// What a photo itself tells of its taking.
#pragma once

#include <QString>

#include <optional>

namespace site {

/// As the camera wrote it; nothing where it wrote nothing.
struct PhotoFacts {
    std::optional<qint64> taken; ///< seconds since 1970
    QString camera;              ///< maker and model
    /// Degrees, WGS 84, north and east above 0; both or none.
    std::optional<double> latitude;
    std::optional<double> longitude;
    std::optional<double> direction; ///< where it looks, degrees from north over east, below 360

    [[nodiscard]] bool IsEmpty() const {
        return !taken && camera.isEmpty() && !latitude && !longitude && !direction;
    }
    bool operator==(const PhotoFacts& other) const = default;
};

} // namespace site
