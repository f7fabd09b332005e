// Times as the lists show them.
#pragma once

#include <QString>

namespace site {

/// Local time as "yyyy-MM-dd HH:mm"; empty for 0, which stands for "never". `seconds` since 1970.
[[nodiscard]] QString TimeText(qint64 seconds);

} // namespace site
