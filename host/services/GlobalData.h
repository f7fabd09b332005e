// Projects and worksets for the whole client.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXGlobalData.h"

namespace host {

/// Over the session. Thread: user interface.
class GlobalData final : public KX_DATA::IKXGlobalData, private SiteService {
public:
    using SiteService::SiteService;

    void GetClientVersionText(QString& text) override;
    void GetGroupName(QString& name, qint32 groupId) override;
    bool IsTNReminderEnabled() override;
    bool IsWorksetMode() override;
    void GetOpenProjectIds(std::vector<qint32>& ids) override;
    void GetWorksetProjects(std::vector<KX_DATA::WorksetProject>& projects) override;
    const QString& GetProjectName(QString& name, qint32 ppid) override;
};

} // namespace host
