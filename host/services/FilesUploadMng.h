// Taking files into the store.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXFilesMng.h"

namespace host {

/// One file at a time, as its callers do. Thread: any.
class FilesUploadMng final : public KX_DATA::IKXFilesUploadMng, private SiteService {
public:
    using SiteService::SiteService;

    bool UploadFile(const std::vector<KX_DATA::UploadItem>& items, qint32 count,
                    KX_DATA::UploadResult& result, QString& errorText) override;
};

} // namespace host
