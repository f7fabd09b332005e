#include "bench/PeakMemory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

/// A number of a process's status; 0 for a process that isn't there.
double StatusNumber(const QString& process, const QByteArray& name) {
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name + ':')) {
            return line.mid(name.size() + 1).trimmed().split(' ').first().toDouble();
        }
    }
    return 0;
}

} // namespace

double PeakMegabytes() {
    return StatusNumber(u"self"_s, "VmHWM") / 1024;
}

double PresentMegabytes() {
    return StatusNumber(u"self"_s, "VmRSS") / 1024;
}

double PeakMegabytesOfChildren() {
    double all = 0;
    for (const QString& process : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        if (qint64(StatusNumber(process, "PPid")) == QCoreApplication::applicationPid()) {
            all += StatusNumber(process, "VmHWM") / 1024;
        }
    }
    return all;
}

} // namespace bench
