// Folders of the client: caches, logs, the module's images.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXPathMng.h"
#include "site/IClientFolders.h"

namespace host {

/// Folders of the site's client, made where they are missing, with a separator at the end; empty
/// without an open site. Thread: any.
class FolderService : protected SiteService {
public:
    using SiteService::SiteService;

protected:
    /// `what` is the operation in Chinese, for the log.
    [[nodiscard]] QString Made(const QString& what, const SessionDesk::Ask& ask) const;
    [[nodiscard]] QString CacheOf(const QString& what, qint32 ppid,
                                  site::IClientFolders::Cache cache) const;
    [[nodiscard]] QString RichText(const QString& what, const QString& key) const;
};

/// Caches lie in the data folder, one for each project; they are other folders than the store.
/// Without an open data folder all folders are empty.
class PathMng final : public KX_DATA::IKXPathMng, private FolderService {
public:
    using FolderService::FolderService;

    const QString& GetPicFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetThumbFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetAttachFolder(QString& folder, qint32 ppid, const QString& name) override;
    const QString& GetWorkFolder(QString& folder) override;
};

class CommonPathMng final : public KX_DATA::ICommonPathMng, private FolderService {
public:
    using FolderService::FolderService;

    const QString& GetLogFolder(QString& folder) override;
};

class VeskPathTool final : public KX_DATA::IVeskPathTool, private FolderService {
public:
    using FolderService::FolderService;

    void GetRichFolder(QString& folder) override;
    /// A key that is no plain name has no folder.
    void GetAttachFolder(QString& folder, const QString& key) override;
    void GetOpenFolder(QString& folder) override;
};

} // namespace host
