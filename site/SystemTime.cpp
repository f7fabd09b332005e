#include "site/SystemTime.h"

#include <QDateTime>

namespace site {

qint64 SystemSeconds() {
    return QDateTime::currentSecsSinceEpoch();
}

} // namespace site
