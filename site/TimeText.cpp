#include "site/TimeText.h"

#include <QDateTime>

namespace site {

using namespace Qt::StringLiterals;

QString TimeText(qint64 seconds) {
    return seconds == 0 ? QString()
                        : QDateTime::fromSecsSinceEpoch(seconds).toString(u"yyyy-MM-dd HH:mm"_s);
}

} // namespace site
