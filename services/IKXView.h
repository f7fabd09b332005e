// The 3D view.
#pragma once

#include "services/IssueRecords.h"
#include "services/MarkGroups.h"

namespace KX_DATA {

/// Drawing and locating of marks, picking of components. Thread: user interface.
class IKXView {
public:
    virtual ~IKXView() = default;

    virtual void GetPickedComponents(std::vector<PickedComponent>& components) = 0;
    virtual void SaveViewState(std::vector<qint32>& state) = 0;
    virtual void RestoreViewState(const std::vector<qint32>& state) = 0;
    virtual void SetVeskPicMarkers(const std::vector<PicMarkGroup>& groups) = 0;
    virtual void SetTNIssueMarkers(const std::vector<IssueMarkGroup>& groups) = 0;
    /// True if the mark was shown.
    virtual bool LocatePicture(const QString& positionKey, qint32 markId) = 0;
    /// True if the issue was shown.
    virtual bool LocateIssue(const QString& questionId) = 0;
    virtual void ShowComponentProperties(qint32 ppid, const QString& floor,
                                         const QString& handle) = 0;
    /// 0: none.
    virtual qint32 GetViewTool() = 0;
    virtual void SetViewTool(qint32 tool) = 0;
    virtual void BeginComponentPick() = 0;
};

class IKXHoopsModuleMng {
public:
    virtual ~IKXHoopsModuleMng() = default;

    /// Null while no view is open.
    virtual IKXView* GetView() = 0;
};

} // namespace KX_DATA
