// The fixed images that the client gives the module: buttons in four states, the default picture.
#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace host {

/// Device pixels for each pixel of a button's place: sharp at 200 %.
inline constexpr int kWorkPictureScale = 2;

struct WorkPicture {
    QString name; ///< of the file
    QImage image; ///< buttons: the frames normal, hover, pressed, disabled
};

/// Draws all seven from the vectors of this program. The frames of left and right buttons lie side
/// by side, those of up and down buttons below each other. Thread: any.
[[nodiscard]] std::vector<WorkPicture> DrawWorkPictures();

/// Draws them into a folder, which is made. False if one of them could not be written.
[[nodiscard]] bool WriteWorkPictures(const QString& folder);

} // namespace host
