// Photos: what the photo service delivers for the console, the viewers and the editors.
#pragma once

#include <QString>

#include <string>
#include <utility>
#include <vector>

namespace KX_DATA {

/// Status of a photo or an issue in the records.
inline constexpr qint32 kStatusShown = 0;
inline constexpr qint32 kStatusHidden = 1;

/// One reminder message, photo or issue alike.
struct PicMsgRecord {
    QString reserved; ///< never filled
    QString floor;
    QString userName;       ///< who uploaded the photo or raised the issue
    QString picName;        ///< photo messages only
    QString labelText;      ///< empty when the labels come as an array; photo messages only
    QString pos;            ///< position text shown to the user
    QString intersectionId; ///< position key; photo messages only
    QString uuid;           ///< the preview picture
    qint32 markerId = 0;
    qint32 picId = 0;  ///< photo messages only
    QString localFile; ///< path of the downloaded preview, set by the reminder thread
    qint32 ppid = 0;
    QString questionName; ///< issue messages only, as the three below
    QString questionId;
    QString handle; ///< of the model component
    QString compName;
    std::vector<QString> labelNames; ///< photo messages only
};

/// One BIM photo as a row of the console.
struct BimPicRow {
    QString posText; ///< the position behind the floor
    QString axisX;
    QString axisY;
    QString text3;
    QString description;
    qint32 picId = 0;
    QString floor; ///< empty: the photo has no position and can't be located
    QString text6;
    QString text7;
    qint32 posValid = 0; ///< 0: the position no longer exists in the model
    qint32 markId = 0;
    QString positionKey;
    QString text8;    ///< uuid of the photo's jpeg
    QString fileName; ///< with extension
    qint32 status = kStatusShown;
    std::vector<QString> labelNames;
    QString updaterName;
    QString updateTime; ///< as text
    qint64 updateStamp = 0;
    QString uploaderName;
    QString uploadTime; ///< as text
    qint64 uploadStamp = 0;
    QString text9; ///< second file text, handed on to the viewer list
    QString rectifyText;
    qint32 ppid = 0;
};

/// One label. Fields behind these two are the service's own.
struct LabelEntry {
    QString labelId;
    QString labelName;
};

/// One BIM photo with everything that its viewer and editor show.
struct BimPicDetail {
    qint32 picId = 0;
    qint32 ppid = 0;
    QString positionKey;
    QString axisX;
    QString axisY;
    QString description;
    QString floor; ///< empty: no position
    QString text5;
    qint32 markId = 0;
    QString markName;
    QString fileName;     ///< with extension
    qint32 markColor = 0; ///< 0xBBGGRR
    std::vector<LabelEntry> labels;
    QString uploaderName;
    qint64 uploadTime = 0; ///< seconds since 1970
    QString updaterName;
    qint64 updateTime = 0; ///< seconds since 1970
    qint32 status = kStatusShown;
};

/// The stored files of one photo.
struct PicFileEntry {
    qint32 picId = 0;
    qint32 value1 = 0;
    qint32 kind = 0;
    qint32 value2 = 0;
    qint64 value3 = 0;
    QString text1;
    QString text2;
    QString picUuid;
    QString text3;
    QString audioUuid; ///< AMR note; empty: none
};

/// One drawing photo as a row of the console.
struct PdfPicRecord {
    QString text1;           ///< uuid of the photo's jpeg
    qint32 drawingId = 0;    ///< id of the checkpoint point on the drawing
    qint32 checkpointNo = 0; ///< number of the point on the drawing
    QString description;
    qint32 markId = 0;
    qint32 checkpointId = 0; ///< id of the drawing that the photo lies on
    QString drawingName;
    qint32 picId = 0;
    QString fileName;
    qint32 status = kStatusShown;
    std::vector<LabelEntry> labels;
    QString updaterName;
    QString updateTime;
    QString uploaderName;
    QString uploadTime;
    QString text2; ///< second file text, handed on to the viewer list
    QString text3;
    QString rectifyText;
    qint32 ppid = 0;
};

/// One drawing photo; callers take the drawing from it.
struct PdfPicDetail {
    qint32 value1 = 0;
    std::vector<LabelEntry> entries;
    QString text1;
    QString text2;
    QString text3;
    qint32 drawingId = 0;
};

/// What an edited BIM photo becomes.
struct BimPicUpdate {
    QString description;
    qint32 picId = 0;
    QString positionKey;
    qint32 markId = 0;
    QString fileName; ///< with extension
    qint32 status = kStatusShown;
    std::vector<QString> labelIds;
    QString text1; ///< stays empty, as the two below
    QString text2;
    QString text3;
};

/// What an edited drawing photo becomes. Mark and labels belong to the checkpoint.
struct PdfPicUpdate {
    qint32 pointId = 0;
    QString description;
    qint32 picId = 0;
    qint32 drawingId = 0;
    QString fileName; ///< with extension
    qint32 status = kStatusShown;
};

/// A Y axis and the intersection that it forms with the X axis it was asked for.
using AxisYEntry = std::pair<QString, QString>; ///< name, position key

/// One element of the list that the console hands to its photo viewer.
struct PicViewItem {
    qint32 picId = 0;
    qint32 ppid = 0;
    QString uuid;
    QString fileText;
    QString picName;
    QString positionKey;
    qint32 drawingId = 0;
    qint32 markId = 0;
    QString positionText;
    QString uploader;
    QString uploadTime;
    QString updater;
    QString updateTime;
    QString labelText;
    QString description;
    QString rectifyText;
};

} // namespace KX_DATA
