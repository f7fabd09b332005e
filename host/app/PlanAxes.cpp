#include "host/app/PlanAxes.h"

#include "host/session/HostSession.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/IChanges.h"

#include <algorithm>

namespace host {

namespace {

bool IsOfPlaces(const site::Change& change) {
    return change.kind == site::ChangeKind::Anything || change.kind == site::ChangeKind::Place ||
           change.kind == site::ChangeKind::Project;
}

/// False where a service fails; what came until then stands in `axes`.
bool ReadAxes(qint32 ppid, const QString& floor, PlanAxes::Axes& axes) {
    KX_DATA::IVeskPicMng& photos = *GetVeskPicMng();
    std::vector<QString> axesX;
    bool isWhole = photos.GetFloorAxesX(ppid, floor, axesX) == KX_DATA::kServiceOk;
    for (const QString& axisX : axesX) {
        axes.emplace_back(axisX, std::vector<KX_DATA::AxisYEntry>());
        isWhole =
            photos.GetFloorAxesY(ppid, floor, axisX, axes.back().second) == KX_DATA::kServiceOk &&
            isWhole;
    }
    return isWhole;
}

} // namespace

PlanAxes::PlanAxes(const HostSession& session)
    : m_changes(session.Site().Changes().Subscribe([this](const site::Changes& changes) {
          if (std::any_of(changes.begin(), changes.end(), IsOfPlaces)) {
              Forget();
          }
      })) {}

void PlanAxes::Forget() {
    m_floors.clear();
    m_axes.clear();
}

bool PlanAxes::Floors(qint32 ppid, std::vector<QString>& floors) {
    const auto kept = m_floors.find(ppid);
    if (kept != m_floors.end()) {
        floors = kept->second;
        return true;
    }
    floors.clear();
    if (GetVeskPicMng()->GetProjectFloors(ppid, floors) != KX_DATA::kServiceOk) {
        return false;
    }
    m_floors.emplace(ppid, floors);
    return true;
}

const PlanAxes::Axes& PlanAxes::Of(qint32 ppid, const QString& floor) {
    const auto kept = m_axes.find({ppid, floor});
    if (kept != m_axes.end()) {
        return kept->second;
    }
    Axes axes;
    if (ReadAxes(ppid, floor, axes)) {
        return m_axes.emplace(std::pair(ppid, floor), std::move(axes)).first->second;
    }
    m_unkept = std::move(axes);
    return m_unkept;
}

} // namespace host
