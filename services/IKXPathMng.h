// Folders of the client. Every folder ends with its separator, so that names are appended directly.
#pragma once

#include <QString>

namespace KX_DATA {

/// Cache folders of a project. Each operation fills and returns `folder`.
class IKXPathMng {
public:
    virtual ~IKXPathMng() = default;

    /// BIM photos and their voice notes.
    virtual const QString& GetPicFolder(QString& folder, qint32 ppid, const QString& name) = 0;
    /// Drawing photos and thumbnails.
    virtual const QString& GetThumbFolder(QString& folder, qint32 ppid, const QString& name) = 0;
    /// Pictures of issues and attachments.
    virtual const QString& GetAttachFolder(QString& folder, qint32 ppid, const QString& name) = 0;
    /// Fixed images of the module.
    virtual const QString& GetWorkFolder(QString& folder) = 0;
};

class ICommonPathMng {
public:
    virtual ~ICommonPathMng() = default;

    virtual const QString& GetLogFolder(QString& folder) = 0;
};

/// Folders of rich text. Each operation fills `folder`.
class IVeskPathTool {
public:
    virtual ~IVeskPathTool() = default;

    virtual void GetRichFolder(QString& folder) = 0;
    virtual void GetAttachFolder(QString& folder, const QString& key) = 0;
    /// From which attachments are opened.
    virtual void GetOpenFolder(QString& folder) = 0;
};

} // namespace KX_DATA
