#include "tests/support/services/ScriptedProject.h"

#include "tests/support/ArgText.h"

namespace support {

KX_DATA::IProjCacheHandle* ScriptedProjCacheMng::GetCurrentProject() {
    return m_script.Call("GetCurrentProject") ? this : nullptr;
}

KX_DATA::IProjModelHandle* ScriptedProjCacheMng::GetCurrentModel() {
    return m_script.Call("GetCurrentModel") ? this : nullptr;
}

const KX_DATA::ProjectRecord* ScriptedProjCacheMng::GetProjectRecord() {
    return m_script.Call("GetProjectRecord") && project ? &*project : nullptr;
}

void ScriptedProjCacheMng::GetCurrentDrawing(KX_DATA::CurrentDrawing& target) {
    if (m_script.Call("GetCurrentDrawing")) {
        target = drawing;
    }
}

qint32 ScriptedProjCacheMng::GetProjectMajor() {
    return m_script.Call("GetProjectMajor") ? major : 0;
}

const KX_DATA::ShownPicMarks& ScriptedProjCacheMng::GetShownPicMarks() {
    m_script.Call("GetShownPicMarks");
    return shownPicMarks;
}

const KX_DATA::ShownIssueMarks& ScriptedProjCacheMng::GetShownIssueMarks() {
    m_script.Call("GetShownIssueMarks");
    return shownIssueMarks;
}

KX_DATA::IKXView* ScriptedView::GetView() {
    return m_script.Call("GetView") ? this : nullptr;
}

void ScriptedView::GetPickedComponents(std::vector<KX_DATA::PickedComponent>& components) {
    if (m_script.Call("GetPickedComponents")) {
        components = picked;
    }
}

void ScriptedView::SaveViewState(std::vector<qint32>& state) {
    if (m_script.Call("SaveViewState")) {
        state = {1};
    }
}

void ScriptedView::RestoreViewState(const std::vector<qint32>& state) {
    m_script.Call("RestoreViewState", {Arg("state", state)});
}

void ScriptedView::SetVeskPicMarkers(const std::vector<KX_DATA::PicMarkGroup>& groups) {
    m_script.Call("SetVeskPicMarkers", {Arg("groups", qint32(groups.size()))});
    picMarkers = groups;
}

void ScriptedView::SetTNIssueMarkers(const std::vector<KX_DATA::IssueMarkGroup>& groups) {
    m_script.Call("SetTNIssueMarkers", {Arg("groups", qint32(groups.size()))});
    issueMarkers = groups;
}

bool ScriptedView::LocatePicture(const QString& positionKey, qint32 markId) {
    return m_script.Call("LocatePicture", {Arg("position", positionKey), Arg("mark", markId)});
}

bool ScriptedView::LocateIssue(const QString& questionId) {
    return m_script.Call("LocateIssue", {Arg("id", questionId)});
}

void ScriptedView::ShowComponentProperties(qint32 ppid, const QString& floor,
                                           const QString& handle) {
    m_script.Call("ShowComponentProperties",
                  {Arg("ppid", ppid), Arg("floor", floor), Arg("handle", handle)});
}

qint32 ScriptedView::GetViewTool() {
    return m_script.Call("GetViewTool") ? tool : 0;
}

void ScriptedView::SetViewTool(qint32 value) {
    m_script.Call("SetViewTool", {Arg("tool", value)});
    tool = value;
}

void ScriptedView::BeginComponentPick() {
    m_script.Call("BeginComponentPick");
}

qint32 ScriptedKXReportDataMng::GetComponentInfo(const KX_DATA::ComponentInfoQuery& query,
                                                 std::vector<KX_DATA::ComponentInfo>& list) {
    if (!m_script.Call("GetComponentInfo",
                       {Arg("floor", query.floor), Arg("handle", query.componentHandle)})) {
        return 0;
    }
    list = components;
    return 1;
}

} // namespace support
