// Issues and their rectifications, and the component that an issue is raised against.
#pragma once

#include <QString>

#include <vector>

namespace KX_DATA {

/// One issue as a row of the console.
struct IssueRow {
    QString questionId; ///< UUID
    QString theme;
    QString description;
    QString floor;
    QString posInfo;
    QString compName;
    qint32 markId = 0;
    QString rectifyText;
    qint32 status = 0; ///< 0 shown, 1 hidden
    QString creatorName;
    qint64 createTime = 0; ///< seconds since 1970
    QString updaterName;
    qint64 updateTime = 0; ///< seconds since 1970
    qint32 ppid = 0;
};

/// One issue with everything that its viewer and editor show.
struct QuestionDetail {
    QString componentName;
    qint64 createTime = 0;
    QString creatorName;
    QString description;
    QString floor;
    QString componentHandle;
    qint32 markId = 0;
    qint64 updateTime = 0;
    QString updaterName;
    QString qrCode;
    QString questionId; ///< filled by the caller, the service leaves it alone
    QString questionName;
    qint32 value1 = 0;
    qint32 status = 0;
    QString componentSubName;
    QString voiceMd5;
    qint64 value2 = 0;
    QString voiceUuid;
    qint32 value3 = 0;
    qint32 voiceState = 0;
    qint32 ppid = 0; ///< filled by the caller
};

/// One picture of an issue or of a rectification.
struct QuestionPicRecord {
    QString picId; ///< a GUID, made by the module on upload
    QString fileName;
    QString uploaderName;
    qint64 uploadTime = 0;
    qint64 fileSize = 0;
    QString fileUuid;
    QString fileMd5;
    QString thumbUuid;
    QString thumbMd5;
    qint64 thumbSize = 0;
    QString text1;
};

/// The rectification of an issue.
struct RectifyRecord {
    QString questionId;
    QString rectifyText;
    qint64 value1 = 0;
    QString rectifierName;
    qint32 state = 0;
    std::vector<QuestionPicRecord> pics;
    QString voiceMd5;
    qint64 value2 = 0;
    QString voiceUuid;
    qint32 value3 = 0;
    qint32 voiceState = 0;
};

/// What an edited rectification becomes.
struct RectifySave {
    QString questionId;
    QString rectifyText;
    qint32 state = 0;
    QString text1; ///< stays empty, as text2
    qint64 value1 = 0;
    QString text2;
};

/// What an edited issue becomes.
struct IssueUpdate {
    QString description;
    QString questionId;
    qint32 markId = 0;
    QString questionName;
    qint32 status = 0;
    QString text1; ///< stays empty
    QString componentHandle;
    QString floor;
    QString qrCode;
};

/// What the QR code of an issue is made from.
struct QRCodeQuery {
    QString text2;
    QString text3;
    QString componentName;
    QString floor;
    QString componentHandle;
    QString componentSubName;
    QString majorWord;
    QString text1;
    qint32 ppid = 0;
};

/// One component picked in the 3D view.
struct PickedComponent {
    qint32 id = 0;
    QString floor;
    QString text1;
    QString text2;
    QString text3;
    QString componentName;
    QString componentHandle;
    QString componentSubName;
    QString text4;
};

/// Asks the report data for components: by handle and floor; id -1 and the lists mean "any".
struct ComponentInfoQuery {
    qint32 id = -1;
    QString componentHandle;
    QString floor;
    std::vector<qint32> ids;
    std::vector<QString> handles;
};

/// What the report data tell of one component.
struct ComponentInfo {
    QString componentHandle;
    QString componentSubName;
};

} // namespace KX_DATA
