#include "toolkit/Clock.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace toolkit {

namespace {

class SystemClock final : public IClock {
public:
    qint64 NowSeconds() override {
        using std::chrono::system_clock;
        return std::chrono::duration_cast<std::chrono::seconds>(
                   system_clock::now().time_since_epoch())
            .count();
    }

    void SleepMilliseconds(int milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
};

IClock* TheSystemClock() {
    static SystemClock clock;
    return &clock;
}

std::atomic<IClock*> g_replacement{nullptr};

} // namespace

IClock& Clock() {
    IClock* replacement = g_replacement.load();
    return replacement != nullptr ? *replacement : *TheSystemClock();
}

IClock* SetClock(IClock* clock) {
    return g_replacement.exchange(clock);
}

} // namespace toolkit
