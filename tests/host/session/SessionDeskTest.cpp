#include "host/session/SessionDesk.h"
#include "site/transfer/RunningTransfer.h"

#include <QStringList>

#include <atomic>

#include <gtest/gtest.h>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Files that nobody asks for.
class NoBlobs final : public site::IBlobs {
public:
    site::TransferOutcome Fetch(const QString&, const QString&,
                                const site::TransferTerms&) override {
        return {};
    }
    [[nodiscard]] bool IsFetched(const QString&, const QString&) const override { return false; }
    qint64 SizeOf(const QString&, const site::Limits&) override { return -1; }
    KX_DATA::UploadResult Upload(const QString&, const site::TransferTerms&) override { return {}; }
};

/// Stays until it is told to stop.
void StayUntilStopped(const site::TransferTerms& terms) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    never.wait(lock, terms.limits.stop, [] { return false; });
}

} // namespace

TEST(SessionDesk, DoesWorkOnlyWhileAFolderIsOpen) {
    NoBlobs blobs;
    SessionDesk desk;
    int done = 0;
    const auto count = [&](site::IBlobs&, const site::TransferTerms&) { ++done; };
    EXPECT_FALSE(desk.Run(count));
    EXPECT_FALSE(desk.Start(count).stop_possible());
    desk.Open(blobs);
    EXPECT_TRUE(desk.Run([&](site::IBlobs& open, const site::TransferTerms& terms) {
        EXPECT_EQ(&open, &blobs);
        count(open, terms);
    }));
    EXPECT_TRUE(desk.Start(count).stop_possible());
    desk.Close();
    EXPECT_EQ(done, 2);
    EXPECT_FALSE(desk.Run(count));
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
    NoBlobs blobs;
    SessionDesk desk;
    desk.Open(blobs);
    std::atomic<int> ended{0};
    const auto stay = [&](site::IBlobs&, const site::TransferTerms& terms) {
        StayUntilStopped(terms);
        ++ended;
    };
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(desk.Start(stay).stop_possible());
    }
    std::atomic<bool> running{false};
    const std::jthread caller([&] {
        desk.Run([&](site::IBlobs& open, const site::TransferTerms& terms) {
            running = true;
            stay(open, terms);
        });
    });
    while (!running) {
        std::this_thread::yield();
    }
    desk.Close();
    EXPECT_EQ(ended, 6);
}

TEST(SessionDesk, WhatRunsAfterAFolderWasOpenedAgainIsNotStopped) {
    NoBlobs blobs;
    SessionDesk desk;
    desk.Open(blobs);
    desk.Close();
    desk.Open(blobs);
    EXPECT_TRUE(desk.Run([](site::IBlobs&, const site::TransferTerms& terms) {
        EXPECT_FALSE(terms.limits.stop.stop_requested());
    }));
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
        NoBlobs blobs;
        SessionDesk desk;
        desk.Open(blobs);
        std::atomic<int> started{0};
        std::atomic<int> ended{0};
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < 4; ++i) {
                threads.emplace_back([&] {
                    const auto work = [&](site::IBlobs&, const site::TransferTerms&) { ++ended; };
                    started += desk.Start(work).stop_possible();
                });
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
