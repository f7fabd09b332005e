// How long the site's work may take, and who may end it before.
#pragma once

#include "site/DataError.h"

#include <chrono>
#include <optional>
#include <stop_token>
#include <utility>

namespace site {

/// How long a question may take, and who may end it before.
struct Limits {
    /// For each question anew, and for files from one block to the next; zero: as long as it takes.
    std::chrono::milliseconds deadline{0};
    /// May be told to stop by any thread.
    std::stop_token stop;
};

/// Work in steps, none of which can be ended in its middle: limits are looked at between them.
/// Thread: one.
class LimitedSteps final {
public:
    explicit LimitedSteps(Limits limits) : m_limits(std::move(limits)) {}

    /// A step is done. False: the work has to end, here and from now on.
    [[nodiscard]] bool Next();
    /// Takes this step longer, no longer than it may take; negative: as long as that, for ever
    /// without a deadline. Told to stop it returns at once.
    void Wait(std::chrono::milliseconds time) const;
    /// TooSlow or Cancelled, once Next was false.
    [[nodiscard]] std::optional<Fault> Passed() const { return m_passed; }

private:
    using Clock = std::chrono::steady_clock;

    Limits m_limits;
    Clock::time_point m_begin = Clock::now();
    std::optional<Fault> m_passed;
};

} // namespace site
