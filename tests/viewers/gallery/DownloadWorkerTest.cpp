// One worker by itself.
#include "viewers/DownloadWorker.h"

#include "base/PictureLog.h"
#include "base/Status.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

#include <QFileInfo>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// A transfer whose sizes and states come from lists.
class DownloadWorker : public testing::Test {
protected:
    DownloadWorker() {
        host.paths.root = folder.Path();
        id = toolkit::RegisterWindow(&window, [this](const toolkit::WindowEvent& event) {
            const auto& key = static_cast<const gallery::KeyPayload*>(event.payload)->key;
            EXPECT_EQ(key, (gallery::DownloadKey{7, gallery::DownloadKind::Picture}));
            events.emplace_back(event.number, int(event.second));
            return 0;
        });
        host.files.stored[u"u"_s] = "bytes";
    }
    ~DownloadWorker() override {
        gallery::JoinDownloadWorkers();
        toolkit::UnregisterWindow(id);
    }

    void Run(const QString& uuid = u"u"_s) {
        gallery::StartDownloadWorker(
            {id, u"server"_s, uuid, folder.Path(u"u.jpg"_s), {7, gallery::DownloadKind::Picture}});
        gallery::JoinDownloadWorkers();
        toolkit::DeliverPostedEvents();
    }

    support::ScriptedHost host;
    support::TempFolder folder;
    support::ManualClock clock;
    QWidget window;
    toolkit::WindowId id = toolkit::kNoWindow;
    std::vector<std::pair<int, int>> events;
};

} // namespace

TEST_F(DownloadWorker, LooksEveryThreeHundredMillisecondsAndSettlesAtTheEnd) {
    Run();
    EXPECT_THAT(clock.Sleeps(), ElementsAre(300, 100));
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 0)));
    EXPECT_EQ(folder.Read(u"u.jpg"_s), "bytes");
}

TEST_F(DownloadWorker, AFileThatIsThereNeedsNoTransfer) {
    folder.Write(u"u.jpg"_s, "there");
    Run();
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 0)));
    EXPECT_TRUE(clock.Sleeps().empty());
    EXPECT_EQ(host.Log().CountOf("StartDownload"), 0);
}

TEST_F(DownloadWorker, AnEmptyUuidEndsWithItsStatus) {
    Run(QString());
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 31)));
}

TEST_F(DownloadWorker, AFileWithoutBytesIsFetchedAgain) {
    folder.Write(u"u.jpg"_s, "");
    Run();
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 0)));
    EXPECT_EQ(folder.Read(u"u.jpg"_s), "bytes");
}

TEST_F(DownloadWorker, WhatIsNoUuidFailsWithoutAWordToTheService) {
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder.Path(u"module.log"_s));
    for (const QString& text : {u"../secret"_s, u"a/b"_s, u"照片"_s, QString(QChar(u'\0'))}) {
        host.files.stored[text] = "bytes";
        events.clear();
        Run(text);
        EXPECT_THAT(events, ElementsAre(std::pair(1030, 32))) << text.toStdString();
    }
    EXPECT_EQ(host.Log().CountOf("StartDownload"), 0);
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"u.jpg"_s)));
    EXPECT_TRUE(folder.Read(u"module.log"_s).contains(",UUID=../secret, "));
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
}

TEST_F(DownloadWorker, AFailureEndsWithItsStatus) {
    Run(u"unknown"_s);
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 32)));
    events.clear();
    host.script.FailNext("GetDownloadState");
    Run();
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 32)));
}

TEST_F(DownloadWorker, TheRecordHasServerUuidPathAndKindTwo) {
    Run();
    EXPECT_THAT(host.Log().LinesOf({"StartDownload"}),
                ElementsAre("StartDownload(uuid=u,kind=2,server=server)"));
}

TEST_F(DownloadWorker, AnEventThatFindsNoWindowIsDropped) {
    toolkit::UnregisterWindow(id);
    Run();
    EXPECT_TRUE(events.empty());
}

TEST_F(DownloadWorker, ThePercentIsToldFromThePassBehindTheOneInWhichTheSizeComes) {
    host.files.stored[u"u"_s] = QByteArray(200, 'x');
    host.files.looksWhileRunning = 2;
    Run();
    EXPECT_THAT(clock.Sleeps(), ElementsAre(300, 300, 300, 100));
    EXPECT_EQ(host.Log().CountOf("GetFileSize"), 1);
    EXPECT_THAT(events, ElementsAre(std::pair(1031, 50), std::pair(1031, 50), std::pair(1030, 0)));
}

TEST_F(DownloadWorker, AFileOfOneByteHasASizeToo) {
    host.files.stored[u"u"_s] = "x";
    host.files.looksWhileRunning = 1;
    Run();
    EXPECT_EQ(host.Log().CountOf("GetFileSize"), 1);
    EXPECT_THAT(events, ElementsAre(std::pair(1031, 0), std::pair(1030, 0)));
}

TEST_F(DownloadWorker, ASizeThatIsNotKnownYetIsAskedForAgain) {
    host.script.FailNext("GetFileSize");
    host.files.looksWhileRunning = 1;
    Run();
    EXPECT_EQ(host.Log().CountOf("GetFileSize"), 2);
    EXPECT_THAT(events, ElementsAre(std::pair(1030, 0)));
}
