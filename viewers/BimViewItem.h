// One photo of the BIM photo viewer, and what is said of it.
#pragma once

#include "services/MarkGroups.h"
#include "services/PicRecords.h"
#include "viewers/PhotoSource.h"

#include <QString>

#include <string>
#include <vector>

/// The details of one photo, kept from its first showing on.
struct BimViewItem : gallery::PhotoDetail {
    qint32 picId = 0;
    qint32 ppid = 0;
    qint32 kind = 0;   ///< from the file entry, not read further
    qint32 loaded = 0; ///< 0 until the details have been fetched
};

namespace gallery {

/// "%s层 %s/%s" of floor and axes; empty without a floor.
[[nodiscard]] QString PositionOf(const KX_DATA::BimPicDetail& detail);
/// The names, each with a separator behind it.
[[nodiscard]] QString JoinLabels(const std::vector<KX_DATA::LabelEntry>& labels, QChar separator);
/// "name   (place/count)", places from 1.
[[nodiscard]] QString BimViewTitle(const QString& name, int index, int count);

/// The group of the marks in which a floor stands: "其他" for photos without one.
[[nodiscard]] QString FloorGroup(const QString& floor);
/// Removes photos that the view's marks at this place don't show; the others keep their order. A
/// place that the marks don't know, or that shows everything, keeps all.
/// @param group  FloorGroup in code page 936.
void KeepShown(std::vector<KX_DATA::PicFileEntry>& files, const KX_DATA::ShownPicMarks& shown,
               const std::string& group, qint32 markId);

} // namespace gallery
