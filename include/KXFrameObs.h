// Observers that the module registers with the host; the host dispatches by their names.
#pragma once

#include <QString>

namespace KXFRAME {

/// Base of all observers.
class IBaseObs {
public:
    virtual ~IBaseObs() = default;

    virtual QString GetObsName() const = 0;
    virtual QString GetObsClassName() const = 0;
};

/// Registered under "ProjChange".
class IProjChangeObs {
public:
    virtual ~IProjChangeObs() = default;

    /// The current project has changed, possibly to none. Thread: user interface.
    virtual void OnProjChange() = 0;
};

/// Registered under "ViewBimPic".
class IViewBimPicObs {
public:
    virtual ~IViewBimPicObs() = default;

    virtual void ViewBimPic(const qint32* ppid, const QString& floor, const QString& positionKey,
                            qint32 markId) = 0;
    virtual void OpenIssueEdit(qint32 mode) = 0;
    virtual void LocateIssue(qint32 ppid, const QString& questionId) = 0;
};

/// The host's registry of observers. The module calls AddObserver alone.
class IKXObserverHub {
public:
    virtual void Reserved1() = 0;
    virtual void Reserved2() = 0;
    /// The observer stays the caller's.
    virtual void AddObserver(IBaseObs* observer) = 0;

protected:
    ~IKXObserverHub() = default;
};

} // namespace KXFRAME
