// Rich text documents kept beside photos and issues.
#pragma once

#include "services/Factories.h"

#include <QString>

#include <vector>

namespace KX_DATA {

/// One file of a rich text. Kinds 1 and 3 are fetched for display.
struct RichAttachment {
    QString name;
    QString md5;
    QString uuid;
    qint32 size = 0; ///< bytes
    qint32 kind = 0;
};

/// One rich text as it stands on the server.
struct RichTextMsg {
    QString docName; ///< main file; empty: no text was ever saved
    /// Of the last save, seconds since 1970; a new record holds the present time.
    qint64 updateTime = GetPresentSeconds();
    QString editorName;  ///< empty: nobody saved yet
    QString versionText; ///< a different text means that somebody else has saved
    QString stateText;
    std::vector<RichAttachment> attachments;
};

/// Names one rich text.
struct RichTextKey {
    QString objectId;
    qint32 subId = 0;
    qint32 ownerId = 0;
    qint32 projectId = 0;
    qint32 objectType = 0;
};

} // namespace KX_DATA
