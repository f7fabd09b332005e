// Pictures of a building as a camera writes them, for the walk to import.
#pragma once

#include <QString>

namespace tour {

/// Writes `count` JPEG files "巡检_01.jpg", each with the time of its exposure and its camera (EXIF
/// 2.32), into a folder that is there. Answers how many of them stand. Thread: any.
[[nodiscard]] int WriteSitePhotos(const QString& folder, int count);

} // namespace tour
