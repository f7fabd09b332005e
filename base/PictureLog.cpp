#include "base/PictureLog.h"

#include "toolkit/Clock.h"
#include "toolkit/GbkText.h"
#include "toolkit/KXTools.h"

#include <QFile>

#include <mutex>

namespace ZelvorNRQ_KXVeskPicture {

using namespace Qt::StringLiterals;

namespace {

struct LogState {
    std::mutex lock; ///< guards the file and `path`
    QString path;
    int cycle = 0;
};

LogState& State() {
    // Never destroyed: workers may still write while the process ends.
    static auto* state = new LogState;
    return *state;
}

} // namespace

void SetLogFilePath(const QString& path) {
    LogState& state = State();
    const std::lock_guard lock(state.lock);
    state.path = path;
}

const QString& LogFilePath() {
    return State().path;
}

void WriteLog(const QString& text) {
    LogState& state = State();
    const std::lock_guard lock(state.lock);
    const QString time = KXTools::SecondText(toolkit::Clock().NowSeconds());
    const std::string line = toolkit::ToGbk(u"["_s + time + u"] "_s + text + u"\r\n"_s);
    QFile file(state.path);
    if (state.path.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return;
    }
    file.write(line.data(), qint64(line.size()));
}

void ClearLog() {
    LogState& state = State();
    const std::lock_guard lock(state.lock);
    QFile file(state.path);
    if (!state.path.isEmpty()) {
        static_cast<void>(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    }
}

void LogProjectChange(const QString* projectName, qint32 ppid) {
    LogState& state = State();
    if (state.cycle == 0) {
        ClearLog();
    }
    state.cycle = (state.cycle + 1) % 3;
    if (projectName == nullptr) {
        return;
    }
    WriteLog(u"**********工程名:"_s + *projectName + u" PPID:"_s + QString::number(ppid) +
             u"**********"_s);
}

void ResetLogCycle() {
    State().cycle = 0;
}

} // namespace ZelvorNRQ_KXVeskPicture
