#include "host/ui/ObserverHub.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

void ObserverHub::AddObserver(KXFRAME::IBaseObs* observer) {
    const bool known =
        std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end();
    if (observer != nullptr && !known) {
        m_observers.push_back(observer);
    }
}

void ObserverHub::TellProjectChange() const {
    // A copy, since an observer may register another one.
    const std::vector<KXFRAME::IBaseObs*> told = m_observers;
    for (KXFRAME::IBaseObs* observer : told) {
        if (observer->GetObsName() != u"ProjChange"_s) {
            continue;
        }
        if (auto* onChange = dynamic_cast<KXFRAME::IProjChangeObs*>(observer)) {
            onChange->OnProjChange();
        }
    }
}

KXFRAME::IViewBimPicObs* ObserverHub::Viewer() const {
    for (KXFRAME::IBaseObs* observer : m_observers) {
        if (observer->GetObsName() != u"ViewBimPic"_s) {
            continue;
        }
        if (auto* viewer = dynamic_cast<KXFRAME::IViewBimPicObs*>(observer)) {
            return viewer;
        }
    }
    return nullptr;
}

bool ObserverHub::ViewBimPic(qint32 ppid, const QString& floor, const QString& positionKey,
                             qint32 markId) const {
    KXFRAME::IViewBimPicObs* viewer = Viewer();
    if (viewer != nullptr) {
        viewer->ViewBimPic(&ppid, floor, positionKey, markId);
    }
    return viewer != nullptr;
}

bool ObserverHub::LocateIssue(qint32 ppid, const QString& questionId) const {
    KXFRAME::IViewBimPicObs* viewer = Viewer();
    if (viewer != nullptr) {
        viewer->LocateIssue(ppid, questionId);
    }
    return viewer != nullptr;
}

bool ObserverHub::TellPickEnded(bool confirmed) const {
    KXFRAME::IViewBimPicObs* viewer = Viewer();
    if (viewer != nullptr) {
        viewer->OpenIssueEdit(confirmed ? 1 : 0);
    }
    return viewer != nullptr;
}

} // namespace host
