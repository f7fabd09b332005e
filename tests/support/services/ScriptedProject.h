// The open project, its view and its model as a test sets them.
#pragma once

#include "services/IKXReportDataMng.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "tests/support/Script.h"

#include <optional>

namespace support {

/// One object for the cache and for the two handles that it gives.
class ScriptedProjCacheMng final : public KX_DATA::IProjCacheMng,
                                   public KX_DATA::IProjCacheHandle,
                                   public KX_DATA::IProjModelHandle {
public:
    explicit ScriptedProjCacheMng(Script& script) : m_script(script) {}

    std::optional<KX_DATA::ProjectRecord> project; ///< empty: none is open
    KX_DATA::CurrentDrawing drawing;
    qint32 major = 0;
    KX_DATA::ShownPicMarks shownPicMarks;
    KX_DATA::ShownIssueMarks shownIssueMarks;

    KX_DATA::IProjCacheHandle* GetCurrentProject() override;
    KX_DATA::IProjModelHandle* GetCurrentModel() override;
    const KX_DATA::ProjectRecord* GetProjectRecord() override;
    void GetCurrentDrawing(KX_DATA::CurrentDrawing& target) override;
    qint32 GetProjectMajor() override;
    const KX_DATA::ShownPicMarks& GetShownPicMarks() override;
    const KX_DATA::ShownIssueMarks& GetShownIssueMarks() override;

private:
    Script& m_script;
};

/// The view and the service that gives it. A failing GetView gives none.
class ScriptedView final : public KX_DATA::IKXView, public KX_DATA::IKXHoopsModuleMng {
public:
    explicit ScriptedView(Script& script) : m_script(script) {}

    std::vector<KX_DATA::PickedComponent> picked;
    std::vector<KX_DATA::PicMarkGroup> picMarkers;
    std::vector<KX_DATA::IssueMarkGroup> issueMarkers;
    qint32 tool = 0;

    KX_DATA::IKXView* GetView() override;
    void GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) override;
    void SaveViewState(std::vector<qint32>& state) override;
    void RestoreViewState(const std::vector<qint32>& state) override;
    void SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) override;
    void SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) override;
    bool LocatePicture(const QString& positionKey, qint32 markId) override;
    bool LocateIssue(const QString& questionId) override;
    void ShowComponentProperties(qint32 ppid, const QString& floor, const QString& handle) override;
    qint32 GetViewTool() override;
    void SetViewTool(qint32 value) override;
    void BeginComponentPick() override;

private:
    Script& m_script;
};

class ScriptedKXReportDataMng final : public KX_DATA::IKXReportDataMng {
public:
    explicit ScriptedKXReportDataMng(Script& script) : m_script(script) {}

    std::vector<KX_DATA::ComponentInfo> components;

    qint32 GetComponentInfo(const KX_DATA::ComponentInfoQuery& query,
                            std::vector<KX_DATA::ComponentInfo>& list) override;

private:
    Script& m_script;
};

} // namespace support
