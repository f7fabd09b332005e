// The system's clock, for who isn't given another.
#pragma once

#include <QtCore/qglobal.h>

namespace site {

/// Seconds since 1970. Thread: any.
[[nodiscard]] qint64 SystemSeconds();

} // namespace site
