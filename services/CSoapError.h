// What the services said when they last refused.
#pragma once

#include <QString>

namespace KX_DATA {

/// Thread: user interface.
class CSoapError {
public:
    virtual ~CSoapError() = default;

    /// The last text that a service returned; empty if there was none.
    virtual void GetLastError(QString& text) = 0;
};

} // namespace KX_DATA
