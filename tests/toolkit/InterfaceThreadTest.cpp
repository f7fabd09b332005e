// The way from any thread to the one of the interface.
#include "toolkit/InterfaceThread.h"

#include <QCoreApplication>
#include <QString>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

using toolkit::CallOnInterfaceThread;
using toolkit::IsInterfaceThread;

TEST(InterfaceThread, CallsLaterAndInOrderOnItsOwnThread) {
    std::vector<int> called;
    bool everElsewhere = false;
    const auto call = [&](int number) {
        called.push_back(number);
        everElsewhere = everElsewhere || !IsInterfaceThread();
    };
    bool workerIsInterface = true;
    std::thread worker([&] {
        workerIsInterface = IsInterfaceThread();
        for (int i = 0; i < 3; ++i) {
            CallOnInterfaceThread([&call, i] { call(i); });
        }
    });
    worker.join();
    CallOnInterfaceThread([&call] { call(3); });
    EXPECT_TRUE(called.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(called, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_FALSE(everElsewhere);
    EXPECT_FALSE(workerIsInterface);
}

// Many hand-overs at once: what is told ends on the interface thread, which the checker of threads
// sees too.
TEST(InterfaceThread, WhatIsHandedOverIsReadAndEndsOnTheInterfaceThread) {
    constexpr int kWorkers = 4;
    constexpr int kEach = 200;
    const std::thread::id home = std::this_thread::get_id();
    int read = 0;
    int endedElsewhere = 0;
    struct Told {
        QString text;
        std::thread::id home;
        int* endedElsewhere;
        Told(const QString& what, std::thread::id thread, int* counter)
            : text(what), home(thread), endedElsewhere(counter) {}
        Told(const Told&) = delete;
        Told& operator=(const Told&) = delete;
        ~Told() { *endedElsewhere += std::this_thread::get_id() == home ? 0 : 1; }
    };
    std::vector<std::thread> workers;
    for (int worker = 0; worker < kWorkers; ++worker) {
        workers.emplace_back([&] {
            for (int i = 0; i < kEach; ++i) {
                auto told = std::make_shared<const Told>(QString::number(i), home, &endedElsewhere);
                CallOnInterfaceThread(
                    [&read, told = std::move(told)] { read += told->text.isEmpty() ? 0 : 1; });
            }
        });
    }
    while (read < kWorkers * kEach) {
        QCoreApplication::processEvents();
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    EXPECT_EQ(endedElsewhere, 0);
}

} // namespace
