// The client's progress window.
#pragma once

#include <QString>

namespace KX_DATA {

/// Thread: user interface.
class IExProgress {
public:
    virtual ~IExProgress() = default;

    virtual void Close() = 0;
    /// `parent`: id of a window, 0 for none.
    virtual void Create(quint64 parent, const QString& name) = 0;
    virtual void Show() = 0;
    virtual void SetTitle(const QString& title) = 0;
    virtual void SetRange(qint32 count) = 0;
    virtual void SetPos(qint32 done) = 0;
};

} // namespace KX_DATA
