// What is filed into a site: positions, photos, drawings, issues, and where their files come from.
#pragma once

#include "site/PhotoFacts.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace site {

/// Where the bytes of a new file come from: a path, or the bytes themselves if the path is empty.
struct FileSource {
    QString path;
    QByteArray bytes;
};

struct NewPosition {
    qint32 ppid = 0;
    QString floor;
    QString axisX;
    QString axisY;
    QString positionKey; ///< unique over all projects; empty: one is made
    bool valid = true;   ///< false: no longer in the model
};

/// People are login names. Times are seconds since 1970, 0 in `updateTime`: never changed.
struct NewBimPhoto {
    qint32 ppid = 0;
    QString fileName; ///< with extension
    QString description;
    QString positionKey; ///< of a position of the project; empty: no floor, no axes
    qint32 markId = 0;   ///< may be unknown to the mark table
    qint32 state = 0;    ///< rectification state, see RectifyStates.h
    qint32 status = 0;   ///< 0 shown, 1 hidden
    QString uploader;
    qint64 uploadTime = 0;
    QString updater;
    qint64 updateTime = 0;
    std::vector<qint32> labelIds;
    PhotoFacts facts{};
    FileSource original{};  ///< the file as it came, if the picture was made of it
    QString originalName{}; ///< its name; empty without one
    QString onceMd5{};      ///< filed only if no photo has it, see IIntake.h; empty: filed anyway
};

/// Mark and labels are those of the checkpoint.
struct NewPdfPhoto {
    qint32 checkpointId = 0;
    QString fileName;
    QString description;
    qint32 state = 0;
    qint32 status = 0;
    QString uploader;
    qint64 uploadTime = 0;
    QString updater;
    qint64 updateTime = 0;
    PhotoFacts facts{}; ///< these four as those of a BIM photo
    FileSource original{};
    QString originalName{};
    QString onceMd5{};
};

struct NewCheckpoint {
    qint32 drawingId = 0;
    qint32 number = 0;
    QString description;
    QString remark;
    qint32 markId = 0;
    int page = 0; ///< of the drawing, from 0 on
    qint64 x = 0; ///< where it lies on the page, thousandths of its width and height
    qint64 y = 0;
    qint64 updateTime = 0;
    std::vector<qint32> labelIds;
};

struct NewIssue {
    qint32 ppid = 0;
    QString questionId; ///< empty: one is made
    QString theme;
    QString description;
    QString floor;
    QString posInfo;
    QString componentName;
    QString componentSubName;
    QString componentHandle;
    qint32 markId = 0;
    qint32 state = 0;
    qint32 status = 0;
    QString creator;
    qint64 createTime = 0;
    QString updater;
    qint64 updateTime = 0; ///< 0: never changed
    QString qrCode;
    QString rectifyText; ///< with an empty rectifier there is no rectification
    QString rectifier;
};

/// A picture of an issue, or of its rectification.
struct NewIssuePic {
    QString questionId;
    bool rectification = false;
    QString fileName;
    QString uploader;
    qint64 uploadTime = 0;
};

} // namespace site
