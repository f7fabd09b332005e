// What is told of one photo, in words.
#pragma once

#include <QSize>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace host {

/// As it is known; what isn't stays out.
struct PhotoTale {
    QString name;
    QString uploader;
    qint64 filed = 0; ///< seconds since 1970
    std::optional<qint64> taken;
    QString camera;
    std::optional<double> latitude; ///< degrees; both or none
    std::optional<double> longitude;
    std::optional<double> direction; ///< degrees from north over east
    QString originalName;            ///< empty: what is shown is what came
};

/// Captions with values, in their order.
struct PhotoInfo {
    QString title;
    std::vector<std::pair<QString, QString>> rows;
    QString originalName; ///< empty: there is no other file
};

/// @param size  of the picture in pixels; empty: it isn't known yet.
[[nodiscard]] PhotoInfo InfoOf(const PhotoTale& tale, const QSize& size);
/// What stands in a tip below the name; a line for what is known of time, camera, place and
/// direction. Empty if nothing is.
[[nodiscard]] QString TipOf(const PhotoTale& tale);

/// "31.230400°N, 121.473700°E", which map programs understand.
[[nodiscard]] QString PlaceText(double latitude, double longitude);
/// "271.5° 西": the nearest of the eight winds.
[[nodiscard]] QString DirectionText(double degrees);

} // namespace host
