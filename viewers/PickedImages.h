// Picture files that a person picks, and making one small.
#pragma once

#include <QString>

#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

struct PickedFile {
    QString fileName;  ///< with extension, without folder
    QString filePath;  ///< with each back-slash doubled
    QString extension; ///< from the last dot on; empty for a name without one
    double size = 0;   ///< bytes
};

/// Asks for picture files. Files that can be opened are added to `picked`, in the order chosen;
/// `occupied` is set if one couldn't. Cancelling changes nothing. Thread: user interface.
void PickImageFiles(std::vector<PickedFile>& picked, bool& occupied);

/// Writes a picture as JPEG of quality 30 in its own pixel size, upright, with the time, the place
/// and all else that the camera wrote of it. The source is left as it is, the target appears whole
/// or not at all. False: the source is no picture, or the target can't be written. Thread: any.
bool SaveReducedJpeg(const QString& source, const QString& target);

} // namespace ZelvorNRQ_KXVeskPicture
