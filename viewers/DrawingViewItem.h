// One picture of the drawing photo viewer, and what is said of it and of its checkpoint.
#pragma once

#include "services/DrawingRecords.h"

#include <QString>

#include <vector>

/// The details of one picture, kept from its first showing on.
struct DrawingViewItem {
    qint32 picId = 0;
    qint32 loaded = 0; ///< 0 until the details have been fetched
    QString name;
    QString uploader;
    QString uploadTime;
    QString updater; ///< empty, as the time, for a picture that was never changed
    QString updateTime;
    QString description;
};

namespace gallery {

/// Takes the details over; the item counts as loaded.
void Load(DrawingViewItem& item, const KX_DATA::CheckpointPicDetail& detail);

/// "检查点no - name   (place/count)", places from 1.
[[nodiscard]] QString DrawingViewTitle(qint32 checkpointNo, const QString& name, int index,
                                       int count);

/// The names of a checkpoint's labels, each with a blank behind it.
[[nodiscard]] QString LabelLine(const KX_DATA::DrawingRecord& record);
/// The same, every blank a line feed.
[[nodiscard]] QString LabelTip(const KX_DATA::DrawingRecord& record);

/// Takes a picture out; gives the one that is shown next: that in its place, behind the last one
/// the first, -1 if none is left.
qint32 RemovePicture(std::vector<DrawingViewItem>& items, qint32 picId);

/// What the editor of a checkpoint begins with.
[[nodiscard]] KX_DATA::CheckpointEdit EditOf(qint32 drawingId,
                                             const KX_DATA::DrawingRecord& record);

} // namespace gallery
