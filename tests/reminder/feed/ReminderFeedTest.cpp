// Messages of the host on their way to the toasts: parsed at once, fetched on a thread.
#include "reminder/feed/ReminderFeed.h"

#include "base/PictureLog.h"
#include "reminder/feed/MessageText.h"
#include "tests/support/RecordingMainWindow.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/WaitFor.h"
#include "toolkit/GbkText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <semaphore>
#include <unistd.h>

using namespace Qt::StringLiterals;

using support::RunPendingEvents;
using support::WaitFor;
using testing::ElementsAre;

namespace {

std::string PicMessage(int picId, const QString& uuid = u"u-1"_s, int ppid = 1) {
    return toolkit::ToGbk(
        u"{\"ppid\":%1,\"markerId\":2,\"picId\":%2,\"intersectionId\":\"K7\",\"labels\":[],"
        "\"name\":\"甲.jpg\",\"pos\":\"B/7\",\"username\":\"李娜\",\"uuid\":\"%3\",\"floor\":"
        "\"1\"}"_s.arg(ppid)
            .arg(picId)
            .arg(uuid));
}

std::string IssueMessage(const QString& questionId, int ppid = 1) {
    return toolkit::ToGbk(
        u"{\"ppid\":%1,\"markerId\":2,\"username\":\"李娜\",\"questionId\":\"%2\","
        "\"questionName\":\"漏水\",\"pos\":\"墙\",\"handle\":\"4F\",\"uuid\":\"u-1\","
        "\"floor\":\"1\",\"compName\":\"墙-3\"}"_s.arg(ppid)
            .arg(questionId));
}

/// How often a thread of this process has gone to sleep.
int TimesWaited(int thread) {
    std::ifstream status("/proc/self/task/" + std::to_string(thread) + "/status");
    const std::string wanted = "voluntary_ctxt_switches:";
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(wanted, 0) == 0) {
            return std::stoi(line.substr(wanted.size()));
        }
    }
    return 0;
}

int CountThreads() {
    const auto tasks = std::filesystem::directory_iterator("/proc/self/task");
    return int(std::distance(begin(tasks), end(tasks)));
}

class Reminders : public testing::Test {
protected:
    Reminders() {
        host.files.stored[u"u-1"_s] = "jpeg";
        host.files.stored[u"u-2"_s] = "jpeg";
    }
    ~Reminders() override { End(); }
    void End() { feed.End(); }

    /// Events of a number that the host's window has got; 0: all.
    [[nodiscard]] int Events(int number) {
        const std::string wanted = "event=" + (number != 0 ? std::to_string(number) : "");
        int count = 0;
        for (const std::string& line : host.Log().LinesOf({"MainWindow"})) {
            count += line.find(wanted) != std::string::npos ? 1 : 0;
        }
        return count;
    }
    [[nodiscard]] bool WaitForEvents(int number, int count) {
        return WaitFor([&] { return Events(number) >= count; });
    }
    [[nodiscard]] int Downloads() { return int(host.Log().LinesOf({"DownloadFile"}).size()); }

    /// Holds the reminder thread in its next download until it is let go.
    struct Gate {
        std::binary_semaphore entered{0};
        std::binary_semaphore open{0};
    };
    void HoldDownloads() {
        host.script.During("DownloadFile", [this] {
            gate.entered.release();
            gate.open.acquire();
        });
    }

    support::ScriptedHost host;
    support::RecordingMainWindow window{host.script};
    Gate gate;
    reminder::ReminderFeed feed;
};

} // namespace

TEST_F(Reminders, AMessageIsFetchedAndTold) {
    feed.OnPicMessage(window.Id(), PicMessage(7));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    EXPECT_THAT(host.Log().LinesOf({"MainWindow"}),
                ElementsAre("MainWindow(event=7538,first=0,second=0)"));
    EXPECT_THAT(host.Log().LinesOf({"DownloadFile"}),
                ElementsAre("DownloadFile(uuid=u-1,kind=5,flag=false,value=0)"));
    const auto records = feed.TakeReady();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].picId, 7);
    EXPECT_EQ(records[0].userName, u"李娜"_s) << "in code page 936";
    EXPECT_TRUE(records[0].localFile.endsWith(u"/u-1.jpg"_s)) << records[0].localFile.toStdString();
    EXPECT_TRUE(feed.TakeReady().empty());
}

TEST_F(Reminders, AnIssueIsToldByItsOwnEvent) {
    feed.OnIssueMessage(window.Id(), IssueMessage(u"q1"_s));
    ASSERT_TRUE(WaitForEvents(reminder::kIssueMessageEvent, 1));
    EXPECT_EQ(Events(reminder::kPicMessageEvent), 0);
    EXPECT_EQ(feed.TakeReady().at(0).questionId, u"q1"_s);
}

TEST_F(Reminders, VoidMessagesLeaveTheThreadUntouched) {
    feed.OnPicMessage(window.Id(), {});
    feed.OnIssueMessage(window.Id(), {});
    feed.OnPicMessage(window.Id(), "{");
    feed.OnPicMessage(window.Id(), PicMessage(7, u"u-1"_s, 99));
    feed.OnIssueMessage(window.Id(), IssueMessage(u"q"_s, 99));
    End();
    RunPendingEvents();
    EXPECT_EQ(Events(0), 0);
    EXPECT_TRUE(feed.TakeReady().empty());
}

TEST_F(Reminders, ALargerMessageIsVoidBeforeItIsParsed) {
    const auto filledTo = [](size_t bytes, std::string message) {
        return std::string(bytes - message.size(), ' ') + message;
    };
    for (const size_t bytes : {reminder::kMostBytes + 1, size_t(10) << 20}) {
        feed.OnPicMessage(window.Id(), filledTo(bytes, PicMessage(7)));
        feed.OnIssueMessage(window.Id(), filledTo(bytes, IssueMessage(u"q1"_s)));
    }
    EXPECT_TRUE(host.Log().LinesOf({"GetOpenProjectIds"}).empty());
    feed.OnPicMessage(window.Id(), filledTo(reminder::kMostBytes, PicMessage(8)));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    const auto records = feed.TakeReady();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].picId, 8);
}

TEST_F(Reminders, AnEmptyTextAsksNobodyForAnything) {
    feed.OnPicMessage(window.Id(), {});
    feed.OnIssueMessage(window.Id(), {});
    EXPECT_TRUE(host.Log().Lines().empty());
}

TEST_F(Reminders, AMessageOfAProjectThatIsNotOpenYieldsNoPopup) {
    feed.OnPicMessage(window.Id(), PicMessage(6, u"u-1"_s, 99));
    feed.OnPicMessage(window.Id(), PicMessage(7));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    const auto records = feed.TakeReady();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].picId, 7);
}

TEST_F(Reminders, WhileIssueRemindersAreOffAMessageOnlyWakes) {
    host.global.issueReminders = false;
    feed.OnIssueMessage(window.Id(), IssueMessage(u"q1"_s));
    ASSERT_TRUE(WaitForEvents(reminder::kIssueMessageEvent, 1)) << "an empty event all the same";
    EXPECT_TRUE(feed.TakeReady().empty());
    EXPECT_EQ(Downloads(), 0);
    feed.OnPicMessage(window.Id(), PicMessage(7));
    EXPECT_TRUE(WaitFor([this] { return Downloads() == 1; })) << "photos go on";
}

TEST_F(Reminders, TwoInQuickSuccessionLeadToAtMostTwoEvents) {
    HoldDownloads();
    feed.OnPicMessage(window.Id(), PicMessage(1));
    gate.entered.acquire();
    feed.OnPicMessage(window.Id(), PicMessage(2, u"u-2"_s));
    gate.open.release();
    gate.entered.acquire();
    gate.open.release();
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 2));
    std::vector<qint32> ids;
    for (const KX_DATA::PicMsgRecord& record : feed.TakeReady()) {
        ids.push_back(record.picId);
    }
    EXPECT_EQ(ids, (std::vector<qint32>{1, 2})) << "the first drains both";
    EXPECT_TRUE(feed.TakeReady().empty());
    End();
    RunPendingEvents();
    EXPECT_EQ(Events(reminder::kPicMessageEvent), 2);
}

TEST_F(Reminders, OfManyOneAfterTheOtherNoneIsLostAndTheirOrderIsKept) {
    constexpr int kRounds = 5;
    constexpr int kMessages = 50;
    int next = 0;
    for (int round = 0; round < kRounds; ++round) {
        for (int message = 0; message < kMessages; ++message) {
            feed.OnPicMessage(window.Id(), PicMessage(round * kMessages + message));
        }
        std::vector<KX_DATA::PicMsgRecord> taken;
        ASSERT_TRUE(WaitFor([&] {
            for (auto& record : feed.TakeReady()) {
                taken.push_back(record);
            }
            return taken.size() >= kMessages;
        })) << "round "
            << round;
        for (const auto& record : taken) {
            ASSERT_EQ(record.picId, next++);
        }
    }
    EXPECT_EQ(next, kRounds * kMessages);
}

TEST_F(Reminders, TheKindOfTheLastMessageTellsOfTheWholeBatch) {
    HoldDownloads();
    feed.OnPicMessage(window.Id(), PicMessage(1));
    gate.entered.acquire();
    feed.OnIssueMessage(window.Id(), IssueMessage(u"q"_s));
    gate.open.release();
    ASSERT_TRUE(WaitForEvents(reminder::kIssueMessageEvent, 1));
    EXPECT_EQ(Events(reminder::kPicMessageEvent), 0);
    gate.open.release();
    gate.entered.acquire();
}

TEST_F(Reminders, WhatCouldNotBeFetchedGoesOnAndIsLogged) {
    const QString log = host.folder.Path(u"log"_s);
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(log);
    host.script.FailNext("DownloadFile");
    feed.OnPicMessage(window.Id(), PicMessage(7));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
    const auto records = feed.TakeReady();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_TRUE(records[0].localFile.endsWith(u"/u-1.jpg"_s)) << "whether or not it worked";
    EXPECT_TRUE(host.folder.Read(u"log"_s).contains("scripted failure"));
}

TEST_F(Reminders, AUuidThatIsNoNameIsNeverAskedForAndShowsNothing) {
    feed.OnPicMessage(window.Id(), PicMessage(7, u"../../x"_s));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    EXPECT_EQ(Downloads(), 0);
    EXPECT_EQ(feed.TakeReady().at(0).localFile, QString());
}

TEST_F(Reminders, TheFolderIsThatOfTheOpenProjectWhicheverTheMessageIsOf) {
    host.OpenWorkset({{1, u"一"_s}, {2, u"二"_s}});
    host.project.project = KX_DATA::ProjectRecord{u"一"_s, 1};
    feed.OnPicMessage(window.Id(), PicMessage(7, u"u-1"_s, 2));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    End();
    EXPECT_EQ(host.paths.lastProjectName, u"一"_s);
}

TEST_F(Reminders, WithoutAnOpenProjectTheFirstMessageEndsTheThreadForGood) {
    std::binary_semaphore asked{0};
    host.script.FailNext("GetProjectRecord"); // a project is open again from the next question on
    host.script.During("GetProjectRecord", [&asked] { asked.release(); });
    feed.OnPicMessage(window.Id(), PicMessage(1));
    asked.acquire();
    host.script.During("GetProjectRecord", {});
    feed.OnPicMessage(window.Id(), PicMessage(2));
    feed.OnIssueMessage(window.Id(), IssueMessage(u"q"_s));
    End();
    RunPendingEvents();
    EXPECT_EQ(Events(0), 0);
    EXPECT_EQ(Downloads(), 0);
    EXPECT_TRUE(feed.TakeReady().empty()) << "the batch is lost";
}

TEST_F(Reminders, WithNothingToDoTheThreadSleepsAndEachMessageWakesIt) {
    feed.OnPicMessage(window.Id(), PicMessage(1));
    ASSERT_TRUE(WaitForEvents(reminder::kPicMessageEvent, 1));
    const int before = Events(0);
    for (int number = 2; number <= 50; ++number) {
        feed.OnPicMessage(window.Id(), PicMessage(number));
        ASSERT_TRUE(WaitFor([&] { return Downloads() == number; })) << "a wake-up was lost";
    }
    End();
    RunPendingEvents();
    // Woken with an empty batch, then with the record: two passes for each.
    EXPECT_LE(Events(0) - before, 2 * 49);
    EXPECT_EQ(feed.TakeReady().size(), 50U);
}

TEST_F(Reminders, FastAsleepTheThreadIsWokenByTheNextMessage) {
    std::atomic<int> thread{0};
    std::atomic<int> before{0};
    std::atomic<int> downloads{0};
    host.script.During("DownloadFile", [&] {
        thread = gettid();
        before = TimesWaited(thread);
        ++downloads;
    });
    for (int number = 1; number <= 5; ++number) {
        feed.OnPicMessage(window.Id(), PicMessage(number));
        ASSERT_TRUE(WaitFor([&] { return downloads == number; })) << "message " << number;
        // It waits once for more to come, then for good.
        ASSERT_TRUE(WaitFor([&] { return TimesWaited(thread) >= before + 2; }));
    }
}

TEST_F(Reminders, TheEndDropsWhatIsLeftAndWaitsForTheDownloadThatRuns) {
    HoldDownloads();
    feed.OnPicMessage(window.Id(), PicMessage(1));
    gate.entered.acquire();
    feed.OnPicMessage(window.Id(), PicMessage(2));
    // Not before the end waits: else the second message may be fetched first, rightly.
    const int ending = gettid();
    std::atomic<int> before{-1};
    std::jthread opener([&] {
        EXPECT_TRUE(WaitFor([&] { return before >= 0 && TimesWaited(ending) > before; }));
        gate.open.release();
    });
    before = TimesWaited(ending);
    End();
    opener.join();
    const int threads = CountThreads();
    feed.OnPicMessage(window.Id(), PicMessage(3));
    EXPECT_EQ(CountThreads(), threads) << "none begins after the end";
    EXPECT_EQ(Downloads(), 1);
}

TEST_F(Reminders, AWindowThatIsGoneIsNotTold) {
    {
        QWidget gone;
        const toolkit::WindowId id =
            toolkit::RegisterWindow(&gone, [](const toolkit::WindowEvent&) { return 0; });
        HoldDownloads();
        feed.OnPicMessage(id, PicMessage(1));
        gate.entered.acquire();
        toolkit::UnregisterWindow(id);
        gate.open.release();
        ASSERT_TRUE(WaitFor([this] { return Downloads() == 1; }));
        End();
    }
    RunPendingEvents();
    EXPECT_EQ(feed.TakeReady().size(), 1U);
}
