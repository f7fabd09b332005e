// What issues ask about components of the model, and their QR codes.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXReportDataMng.h"
#include "services/ITNQRCodeMng.h"

namespace host {

/// Of the open projects. Thread: user interface.
class ReportDataMng final : public KX_DATA::IKXReportDataMng, private SiteService {
public:
    using SiteService::SiteService;

    /// By handle and floor; a component that isn't there is no failure.
    qint32 GetComponentInfo(const KX_DATA::ComponentInfoQuery& query,
                            std::vector<KX_DATA::ComponentInfo>& components) override;
};

/// Thread: user interface.
class TNQRCodeMng final : public KX_DATA::ITNQRCodeMng, private SiteService {
public:
    using SiteService::SiteService;

    /// "kxissue:1:<ppid>:<uuid>", another one at each call: a code says which issue is meant only
    /// as long as the issue keeps it, so it tells nothing that could become wrong. 0 for a project
    /// that isn't open.
    qint32 CreateQRCode(const KX_DATA::QRCodeQuery& query, QString& text) override;
};

} // namespace host
