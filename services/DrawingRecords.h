// PDF drawings: checkpoints, their pictures and comments.
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace KX_DATA {

/// One picture of a checkpoint.
struct DrawingPicRef {
    qint32 picId = 0;
    qint32 value1 = 0;
    qint32 value2 = 0;
    QString uuid;
};

/// One checkpoint of a drawing.
struct DrawingRecord {
    QString remark;
    qint32 checkpointNo = 0;
    qint32 value2 = 0;
    QString description;
    qint32 markColor = 0; ///< 0xBBGGRR
    QString markName;
    std::pair<qint64, qint64> position;              ///< passed through to the checkpoint editor
    std::vector<std::pair<QString, QString>> labels; ///< id, name
    std::vector<DrawingPicRef> pics;
    QString updateTime;
    QString audioUuid; ///< empty: no voice note
};

/// Detail of one photo of a checkpoint.
struct CheckpointPicDetail {
    QString name;
    QString description;
    QString text1;
    QString text2;
    qint32 value1 = 0;
    QString text3;
    QString uploader;
    QString uploadTime;
    QString updater;
    QString updateTime;
};

/// One comment on a checkpoint.
struct CheckpointComment {
    qint32 exists = 0; ///< non-zero for a comment that exists
    qint32 value1 = 0;
    QString text; ///< user name, full-width colon, content
    qint64 commentId = 0;
    qint64 time = 0; ///< seconds since 1970
    qint32 value2 = 0;
};

/// What an edited checkpoint becomes.
struct CheckpointEdit {
    qint32 checkpointId = 0;
    qint64 position1 = 0; ///< passed through unchanged, as position2
    qint64 position2 = 0;
    QString description;
    qint32 markId = 0;
    QString remark;
    std::vector<QString> labelNames; ///< filled from the checkpoint: names; sent: ids
};

/// The drawing that is open in the host. The fields behind these are the host's.
struct CurrentDrawing {
    qint32 drawingId = -1; ///< -1: none is open
    QString drawingName;
};

} // namespace KX_DATA
