// A clock that a test turns by hand.
#pragma once

#include "toolkit/Clock.h"

#include <mutex>
#include <vector>

namespace support {

/// The clock in use while it lives. Sleeping turns it on and returns at once. Thread: any.
class ManualClock final : public toolkit::IClock {
public:
    /// 2026-03-05 12:00:00 in the tests' zone unless said otherwise.
    explicit ManualClock(qint64 nowSeconds = 1772683200);
    ~ManualClock() override;
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    void Advance(int milliseconds);
    void Set(qint64 nowSeconds);
    /// How long each sleep was to take, in order, milliseconds.
    [[nodiscard]] std::vector<int> Sleeps() const;

    qint64 NowSeconds() override;
    void SleepMilliseconds(int milliseconds) override;

private:
    mutable std::mutex m_mutex;
    qint64 m_milliseconds;
    std::vector<int> m_sleeps;
    toolkit::IClock* m_before;
};

} // namespace support
