#include "site/transfer/TransferPool.h"

#include <atomic>
#include <latch>
#include <string>

#include <gtest/gtest.h>

namespace site {

namespace {

void WaitForStop(const std::stop_token& stop) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    never.wait(lock, stop, [] { return false; });
}

} // namespace

TEST(TransferPool, TakesWorkOnlyBetweenBeginAndEnd) {
    TransferPool pool;
    std::atomic<int> done{0};
    const auto count = [&](const std::stop_token&) { ++done; };
    EXPECT_FALSE(pool.Run(count));
    EXPECT_FALSE(pool.Start(count).stop_possible());
    pool.Begin();
    EXPECT_TRUE(pool.Run(count));
    EXPECT_TRUE(pool.Start(count).stop_possible());
    pool.End();
    EXPECT_EQ(done, 2);
    EXPECT_FALSE(pool.Run(count));
    EXPECT_FALSE(pool.Start(count).stop_possible());
    pool.Begin();
    EXPECT_TRUE(pool.Run(count));
}

TEST(TransferPool, WorkBeyondItsThreadsWaitsForItsTurn) {
    TransferPool pool(2);
    pool.Begin();
    std::latch arrived(2);
    std::latch go(1);
    std::string order;
    std::mutex orderLock;
    for (int i = 0; i < 2; ++i) {
        std::ignore = pool.Start([&](const std::stop_token&) {
            arrived.count_down();
            go.wait();
        });
    }
    arrived.wait();
    std::latch ended(3);
    for (const char name : {'a', 'b', 'c'}) {
        std::ignore = pool.Start([&, name](const std::stop_token&) {
            const std::lock_guard lock(orderLock);
            order += name;
            ended.count_down();
        });
    }
    EXPECT_FALSE(ended.try_wait()) << "both threads are taken";
    go.count_down();
    ended.wait();
    EXPECT_EQ(order.size(), 3U);
}

TEST(TransferPool, OneThreadServesInTheOrderOfAsking) {
    TransferPool pool(1);
    pool.Begin();
    std::string order;
    std::latch ended(4);
    for (const char name : {'a', 'b', 'c', 'd'}) {
        std::ignore = pool.Start([&, name](const std::stop_token&) {
            order += name;
            ended.count_down();
        });
    }
    ended.wait();
    EXPECT_EQ(order, "abcd");
}

TEST(TransferPool, WorkIsCancelledAloneWhereverItIs) {
    TransferPool pool(1);
    pool.Begin();
    std::latch running(1);
    std::latch ended(3);
    std::atomic<int> stopped{0};
    std::stop_source first = pool.Start([&](const std::stop_token& stop) {
        running.count_down();
        WaitForStop(stop);
        ++stopped;
        ended.count_down();
    });
    running.wait();
    std::stop_source second = pool.Start([&](const std::stop_token& stop) {
        stopped += stop.stop_requested() ? 10 : 0;
        ended.count_down();
    });
    std::ignore = pool.Start([&](const std::stop_token& stop) {
        stopped += stop.stop_requested() ? 100 : 0;
        ended.count_down();
    });
    second.request_stop(); // before its turn
    first.request_stop();
    ended.wait();
    EXPECT_EQ(stopped, 11);
}

TEST(TransferPool, TheEndStopsWhatRunsAndWhatWaitsAndEachRunsOnce) {
    TransferPool pool(2);
    pool.Begin();
    std::atomic<int> stopped{0};
    for (int i = 0; i < 7; ++i) {
        std::ignore = pool.Start([&](const std::stop_token& stop) {
            WaitForStop(stop);
            ++stopped;
        });
    }
    std::latch running(1);
    const std::jthread caller([&] {
        pool.Run([&](const std::stop_token& stop) {
            running.count_down();
            WaitForStop(stop);
            ++stopped;
        });
    });
    running.wait();
    pool.End();
    EXPECT_EQ(stopped, 8);
}

TEST(TransferPool, WhoIsToldToStopMayAskThePoolAgain) {
    TransferPool pool(1);
    pool.Begin();
    std::latch running(1);
    std::atomic<bool> refused{false};
    std::ignore = pool.Start([&](const std::stop_token& stop) {
        const std::stop_callback asks(stop, [&] { refused = !pool.Run([](const auto&) {}); });
        running.count_down();
        WaitForStop(stop);
    });
    running.wait();
    pool.End();
    EXPECT_TRUE(refused);
}

} // namespace site
