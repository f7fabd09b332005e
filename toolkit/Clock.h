// The present time and sleeping, behind a seam that tests can turn by hand.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QtCore/qglobal.h>

namespace toolkit {

/// Thread: any.
class TOOLKIT_EXPORT IClock {
public:
    virtual ~IClock() = default;

    /// Seconds since 1970.
    virtual qint64 NowSeconds() = 0;
    virtual void SleepMilliseconds(int milliseconds) = 0;
};

/// The clock in use; the system's unless replaced.
[[nodiscard]] TOOLKIT_EXPORT IClock& Clock();
/// Replaces the clock, null for the system's. Gives the one before. The clock stays the caller's.
TOOLKIT_EXPORT IClock* SetClock(IClock* clock);

} // namespace toolkit
