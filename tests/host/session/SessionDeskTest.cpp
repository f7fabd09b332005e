#include "host/session/SessionDesk.h"
#include "site/transfer/RunningTransfer.h"

#include <QStringList>

#include <atomic>

#include <gtest/gtest.h>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Stays until it is told to stop.
void StayUntilStopped(const site::TransferPlace& place) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    never.wait(lock, place.stop, [] { return false; });
}

} // namespace

TEST(SessionDesk, DoesWorkOnlyWhileAFolderIsOpen) {
    SessionDesk desk;
    int done = 0;
    const auto count = [&](const site::TransferPlace&) { ++done; };
    EXPECT_FALSE(desk.Run(count));
    EXPECT_FALSE(desk.Start(count));
    desk.Open(u"/data"_s);
    EXPECT_TRUE(desk.Run([&](const site::TransferPlace& place) {
        EXPECT_EQ(place.dataFolder, u"/data"_s);
        count(place);
    }));
    EXPECT_TRUE(desk.Start(count));
    desk.Close();
    EXPECT_EQ(done, 2);
    EXPECT_FALSE(desk.Run(count));
    EXPECT_EQ(desk.DataFolder(), QString());
}

TEST(SessionDesk, MessagesFromBeforeThereIsAWindowComeWithIt) {
    SessionDesk desk;
    desk.Report(MessageLevel::Warning, u"移到一边"_s);
    QStringList seen;
    const auto sink = [&](MessageLevel, const QString& text) { seen << text; };
    desk.SetMessageSink(sink);
    EXPECT_EQ(seen, QStringList{u"移到一边"_s});
    desk.Report(MessageLevel::Info, u"第二条"_s);
    desk.SetMessageSink({});
    desk.SetMessageSink(sink);
    EXPECT_EQ(seen, (QStringList{u"移到一边"_s, u"第二条"_s})) << "each once";
}

TEST(SessionDesk, ClosingEndsWhatRunsAndWaitsForIt) {
    SessionDesk desk;
    desk.Open(u"/data"_s);
    std::atomic<int> ended{0};
    const auto stay = [&](const site::TransferPlace& place) {
        StayUntilStopped(place);
        ++ended;
    };
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(desk.Start(stay));
    }
    std::atomic<bool> running{false};
    const std::jthread caller([&] {
        desk.Run([&](const site::TransferPlace& place) {
            running = true;
            stay(place);
        });
    });
    while (!running) {
        std::this_thread::yield();
    }
    desk.Close();
    EXPECT_EQ(ended, 6);
}

TEST(SessionDesk, WhatRunsAfterAFolderWasOpenedAgainIsNotStopped) {
    SessionDesk desk;
    desk.Open(u"/first"_s);
    desk.Close();
    desk.Open(u"/second"_s);
    EXPECT_TRUE(desk.Run(
        [](const site::TransferPlace& place) { EXPECT_FALSE(place.stop.stop_requested()); }));
}

TEST(SessionDesk, ASinkThatWasTakenAwayIsNotCalledAnyMore) {
    SessionDesk desk;
    std::vector<QString> told;
    desk.SetMessageSink([&](MessageLevel, const QString& text) { told.push_back(text); });
    const std::jthread reporter([&] {
        for (int i = 0; i < 1000; ++i) {
            desk.Report(MessageLevel::Info, u"x"_s);
        }
    });
    desk.SetMessageSink([](MessageLevel, const QString&) {});
    const size_t then = told.size();
    desk.Report(MessageLevel::Error, u"y"_s);
    EXPECT_EQ(told.size(), then);
}

TEST(SessionDesk, ManyThreadsMayStartWhileItCloses) {
    for (int round = 0; round < 50; ++round) {
        SessionDesk desk;
        desk.Open(u"/data"_s);
        std::atomic<int> started{0};
        std::atomic<int> ended{0};
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < 4; ++i) {
                threads.emplace_back(
                    [&] { started += desk.Start([&](const site::TransferPlace&) { ++ended; }); });
            }
            desk.Close();
        }
        desk.Close();
        EXPECT_EQ(started, ended);
    }
}

TEST(RunningTransfer, WakesWhoeverWaitsOnceAtItsEnd) {
    site::RunningTransfer transfer;
    int woken = 0;
    transfer.WhenDone([&] { ++woken; });
    EXPECT_FALSE(transfer.WaitDone(0));
    transfer.NoteTotal(10);
    transfer.NoteBytes(4);
    EXPECT_EQ(transfer.Bytes(), 4);
    EXPECT_EQ(transfer.Total(), 10);
    std::jthread([&] { transfer.Finish(); }).join();
    EXPECT_TRUE(transfer.WaitDone(0));
    EXPECT_EQ(woken, 1);
    transfer.WhenDone([&] { ++woken; });
    EXPECT_EQ(woken, 2) << "at once, since it has ended";
}

} // namespace host
