#include "include/KXEvents.h"
#include "tests/support/ManualClock.h"
#include "tests/support/RecordingMainWindow.h"
#include "tests/support/RecordingSinks.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QFileInfo>
#include <QScreen>
#include <QTimer>
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

TEST(TestMain, TheScreenHoldsTheConsoleAtItsLeastSize) {
    const QSize screen = QApplication::primaryScreen()->availableSize();
    EXPECT_GE(screen.width(), 1085);
    EXPECT_GE(screen.height(), 845);
}

TEST(ManualClock, SleepingTurnsItOnAndIsRecorded) {
    support::ManualClock clock(100);
    toolkit::Clock().SleepMilliseconds(1500);
    toolkit::Clock().SleepMilliseconds(500);
    EXPECT_EQ(toolkit::Clock().NowSeconds(), 102);
    clock.Advance(999);
    EXPECT_EQ(toolkit::Clock().NowSeconds(), 102);
    EXPECT_THAT(clock.Sleeps(), ElementsAre(1500, 500));
}

TEST(TempFolder, HoldsWhatWasWrittenAndGoesWithItsObject) {
    QString path;
    {
        const support::TempFolder folder;
        path = folder.Write(u"a/b.txt"_s, "text");
        EXPECT_EQ(folder.Read(u"a/b.txt"_s), QByteArray("text"));
        EXPECT_TRUE(QFileInfo::exists(path));
    }
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(WaitFor, SeesWhatAnotherThreadDidWithoutAnEvent) {
    std::atomic<bool> done = false;
    std::jthread other([&] { done = true; });
    EXPECT_TRUE(support::WaitFor([&] { return done.load(); }));
}

TEST(WaitFor, RunsTimersAndDeletesWidgetsMeanwhile) {
    auto* widget = new QWidget;
    bool gone = false;
    QObject::connect(widget, &QObject::destroyed, [&] { gone = true; });
    QTimer::singleShot(0, widget, &QObject::deleteLater);
    EXPECT_TRUE(support::WaitFor([&] { return gone; }));
}

TEST(WaitFor, GivesUpAfterTheTimeout) {
    EXPECT_FALSE(support::WaitFor([] { return false; }, std::chrono::milliseconds(1)));
}

TEST(RecordingMainWindow, LogsALookupWithItsTextAndAPostWithItsNumbers) {
    using namespace ZelvorNRQ_KXVeskPicture;
    support::Script script;
    const support::RecordingMainWindow window(script);
    const QString text = u"F1-2-3"_s;
    toolkit::SendWindowEvent(toolkit::MainWindow(), WM_VESK_PIC_LOCATE, 0,
                             reinterpret_cast<quintptr>(&text));
    toolkit::PostWindowEvent(window.Id(), WM_VESK_PDF_LOCATE, 3, 17);
    toolkit::DeliverPostedEvents();
    EXPECT_THAT(script.log.Lines(), ElementsAre("MainWindow(event=7529,first=0,text=F1-2-3)",
                                                "MainWindow(event=7529,first=3,second=17)"));
}

TEST(ScriptedFiles, AStoredFileArrivesAndAnUnknownOneFails) {
    support::ScriptedHost host;
    const support::TempFolder folder;
    host.files.stored[u"uuid"_s] = "picture";
    KX_DATA::TransferResult result;
    host.files.DownloadFile(result, u"uuid"_s, folder.Path(u"a.jpg"_s), 5, true, 0);
    EXPECT_NE(result.success, 0);
    EXPECT_EQ(folder.Read(u"a.jpg"_s), QByteArray("picture"));
    host.files.DownloadFile(result, u"other"_s, folder.Path(u"b.jpg"_s), 5, true, 0);
    EXPECT_EQ(result.success, 0);
}

TEST(ScriptedPaths, FoldersEndWithTheirSeparatorAndExist) {
    support::ScriptedHost host;
    QString folder;
    EXPECT_EQ(host.paths.GetPicFolder(folder, 1, u"示例工程"_s), host.folder.Path(u"1/pics/"_s));
    EXPECT_TRUE(QFileInfo(folder).isDir());
}
