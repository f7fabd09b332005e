#include "bench/PeakMemory.h"

#include <QFile>

namespace bench {

using namespace Qt::StringLiterals;

double PeakMegabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
        }
    }
    return 0;
}

} // namespace bench
