// The open project, its drawing, the ticked marks, the table of marks, the view.
#pragma once

#include "host/services/SiteService.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"

namespace host {

/// All over the session. Thread: user interface.
class ProjCacheHandle final : public KX_DATA::IProjCacheHandle, private SiteService {
public:
    using SiteService::SiteService;

    /// A copy, which holds until the same thread asks again. Thread: any.
    const KX_DATA::ProjectRecord* GetProjectRecord() override;
    void GetCurrentDrawing(KX_DATA::CurrentDrawing& drawing) override;
    qint32 GetProjectMajor() override;
};

class ProjModelHandle final : public KX_DATA::IProjModelHandle, private SiteService {
public:
    using SiteService::SiteService;

    const KX_DATA::ShownPicMarks& GetShownPicMarks() override;
    const KX_DATA::ShownIssueMarks& GetShownIssueMarks() override;

private:
    std::shared_ptr<const TickedPhotos> m_ticked; ///< what m_picMarks was made of
    KX_DATA::ShownPicMarks m_picMarks;
    KX_DATA::ShownIssueMarks m_noIssueMarks;
};

/// Both handles exist with or without an open project.
class ProjCacheMng final : public KX_DATA::IProjCacheMng {
public:
    explicit ProjCacheMng(const Surroundings& surroundings)
        : m_project(surroundings), m_model(surroundings) {}

    KX_DATA::IProjCacheHandle* GetCurrentProject() override { return &m_project; }
    KX_DATA::IProjModelHandle* GetCurrentModel() override { return &m_model; }

private:
    ProjCacheHandle m_project;
    ProjModelHandle m_model;
};

class LocalCacheData final : public KX_DATA::IKXLocalCacheData, private SiteService {
public:
    using SiteService::SiteService;

    bool GetMarkTable(std::map<qint32, KX_DATA::MarkRecord>& table) override;
    bool GetMarkInfo(qint32 markId, KX_DATA::MarkRecord& record) override;
};

class HoopsModuleMng final : public KX_DATA::IKXHoopsModuleMng, private SiteService {
public:
    using SiteService::SiteService;

    KX_DATA::IKXView* GetView() override;
};

} // namespace host
