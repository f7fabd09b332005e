#include "tests/monkey/Faults.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <set>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

struct Allowed {
    const char* part;
    const char* reason;
};

constexpr std::array kAllowed = {
    Allowed{"This plugin does not support ", "the offscreen platform has no window manager"},
    Allowed{"no such table: bim_photo", "the neighbour took the photos away"},
};

constexpr size_t kLines = 30;
constexpr size_t kLineBytes = 320;

/// Plain memory: read by a process that is dying.
struct History {
    quint64 seed = 0;
    std::atomic<size_t> count = 0;
    std::array<std::array<char, kLineBytes>, kLines> lines{};
    std::FILE* file = nullptr;
};

History& TheHistory() {
    static auto* history = new History;
    return *history;
}

std::atomic<int> faults = 0;

void PrintStack() {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_print_stack_trace();
#endif
}

void OnMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    Q_UNUSED(context);
    if (Counts(type, message)) {
        TellFault(message);
    }
}

} // namespace

const char* ReasonToAllow(const QString& message) {
    for (const Allowed& row : kAllowed) {
        if (message.contains(QLatin1String(row.part))) {
            return row.reason;
        }
    }
    return nullptr;
}

bool Counts(QtMsgType type, const QString& message) {
    const bool grave = type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg;
    return grave && ReasonToAllow(message) == nullptr;
}

void OpenHistory(quint64 seed, const QString& file) {
    TheHistory().seed = seed;
    if (!file.isEmpty()) {
        TheHistory().file = std::fopen(file.toLocal8Bit().constData(), "w");
    }
}

void Note(const QString& line) {
    History& history = TheHistory();
    const QByteArray bytes = line.toUtf8();
    auto& slot = history.lines[history.count % kLines];
    std::snprintf(slot.data(), slot.size(), "%s", bytes.constData());
    ++history.count;
    if (history.file != nullptr) {
        std::fprintf(history.file, "%s\n", bytes.constData());
        std::fflush(history.file);
    }
}

void PrintHistory() {
    const History& history = TheHistory();
    const size_t count = history.count;
    std::fprintf(stderr, "\nmonkey: seed %llu, the last deeds:\n",
                 static_cast<unsigned long long>(history.seed));
    for (size_t at = count > kLines ? count - kLines : 0; at < count; ++at) {
        std::fprintf(stderr, "  %s\n", history.lines[at % kLines].data());
    }
    std::fflush(stderr);
}

void WatchMessages() {
    qInstallMessageHandler(OnMessage);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(PrintHistory);
#endif
}

void TellFault(const QString& what) {
    static std::mutex mutex;
    static std::set<QString> told;
    const std::lock_guard guard(mutex);
    ++faults;
    if (!told.insert(what).second) {
        return;
    }
    PrintHistory();
    std::fprintf(stderr, "monkey: FAULT: %s\n", qUtf8Printable(what));
    PrintStack();
    std::fflush(stderr);
}

int FaultCount() {
    return faults;
}

} // namespace monkey
