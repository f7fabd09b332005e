// Folders of the client: caches, logs, the module's images.
#pragma once

#include "services/IKXPathMng.h"

namespace host {

/// Caches lie in the data folder, one for each project; they are other folders than the store.
/// Without an open data folder all folders are empty.
class PathMng final : public KX_DATA::IKXPathMng {
public:
    const QString& GetPicFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetThumbFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetAttachFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetWorkFolder(QString& folder) override;
};

class CommonPathMng final : public KX_DATA::ICommonPathMng {
public:
    const QString& GetLogFolder(QString& folder) override;
};

class VeskPathTool final : public KX_DATA::IVeskPathTool {
public:
    void GetRichFolder(QString& folder) override;
    /// A key that is no plain name has no folder.
    void GetAttachFolder(QString& folder, const QString& key) override;
    void GetOpenFolder(QString& folder) override;
};

} // namespace host
