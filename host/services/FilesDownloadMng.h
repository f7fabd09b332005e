// Fetching one stored file into the cache.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXFilesMng.h"

namespace host {

/// On the interface thread the session's transferWait keeps the person informed meanwhile. A
/// failure is told in the client's message bar as well. Thread: any.
class FilesDownloadMng final : public KX_DATA::IKXFilesDownloadMng, private SiteService {
public:
    using SiteService::SiteService;

    void DownloadFile(KX_DATA::TransferResult& result, const QString& uuid,
                      const QString& localPath, qint32 kind, bool flag, qint32 value) override;
};

} // namespace host
