#include "tests/monkey/Watchdog.h"

#include "tests/monkey/Faults.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

namespace monkey {
namespace {

using namespace Qt::StringLiterals;

/// As a thread that waits for what never comes.
void NeverAnswer() {
    OpenHistory(12, {});
    Note(u"#1 click"_s);
    const Watchdog watchdog(1);
    std::mutex mutex;
    std::condition_variable never;
    std::unique_lock lock(mutex);
    never.wait(lock, [] { return false; });
}

TEST(WatchdogDeathTest, EndsAProcessThatDoesNotAnswerAndTellsWhatWasDone) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(NeverAnswer(), "no answer for 1 s[^#]*seed 12[^#]*#1 click");
}

TEST(Watchdog, LetsAThreadBeThatAnswersUntilItsEnd) {
    Watchdog watchdog(3600);
    watchdog.Beat();
}

} // namespace
} // namespace monkey
