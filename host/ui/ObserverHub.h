// The client's registry of observers.
#pragma once

#include "include/KXFrameObs.h"

#include <vector>

namespace host {

/// Hands what happens in the client to whoever registered under its name. Observers stay their
/// makers'; they must be gone from use before the module is unloaded. Thread: user interface.
class ObserverHub final : public KXFRAME::IKXObserverHub {
public:
    void Reserved1() override {}
    void Reserved2() override {}
    /// A null observer, or one that is known already, changes nothing.
    void AddObserver(KXFRAME::IBaseObs* observer) override;

    /// Tells all observers named "ProjChange", in the order in which they came.
    void TellProjectChange() const;
    /// Asks the first observer named "ViewBimPic"; false without one.
    bool ViewBimPic(qint32 ppid, const QString& floor, const QString& positionKey,
                    qint32 markId) const;
    /// The same for an issue.
    bool LocateIssue(qint32 ppid, const QString& questionId) const;
    /// Tells that observer that a pick of components has ended.
    bool TellPickEnded(bool confirmed) const;
    void Clear() { m_observers.clear(); }
    [[nodiscard]] std::size_t Count() const { return m_observers.size(); }

private:
    [[nodiscard]] KXFRAME::IViewBimPicObs* Viewer() const;

    std::vector<KXFRAME::IBaseObs*> m_observers;
};

} // namespace host
