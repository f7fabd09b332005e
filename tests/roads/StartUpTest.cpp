#include "host/app/StartUp.h"

#include "host/session/HostSession.h"
#include "site/ICatalogue.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"

#include <QFile>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

class StartUp : public testing::Test {
protected:
    host::CommandLine line;
    support::TempFolder folder;
    host::HostSession session;

    void SetUp() override {
        line.dataFolder = folder.Path(u"data"_s);
        line.sample = sample::SampleSize::None;
    }
};

TEST_F(StartUp, AFolderThatIsAFileIsToldAndNothingIsOpen) {
    folder.Write(u"data"_s, "not a folder");
    const host::StartResult result = host::OpenSite(session, line);
    EXPECT_FALSE(result.goOn);
    EXPECT_TRUE(result.fault.contains(line.dataFolder)) << result.fault.toStdString();
    EXPECT_FALSE(session.IsOpen());
}

TEST_F(StartUp, ADamagedDatabaseIsTold) {
    folder.Write(u"data/site.db"_s, QByteArray(8192, 'x'));
    const host::StartResult result = host::OpenSite(session, line);
    EXPECT_FALSE(result.goOn);
    EXPECT_FALSE(result.fault.isEmpty());
    EXPECT_EQ(folder.Read(u"data/site.db"_s), QByteArray(8192, 'x'));
}

TEST_F(StartUp, TheUserOfTheCommandLineIsSignedInAndRemembered) {
    static_cast<void>(MakeSmallSite(line.dataFolder));
    line.userName = u"李娜"_s;
    ASSERT_TRUE(host::OpenSite(session, line).goOn);
    ASSERT_TRUE(host::SignInUser(session, line).goOn);
    EXPECT_EQ(session.UserName(), u"李娜"_s);
    EXPECT_EQ(session.Site().Catalogue().Setting(u"lastUser"_s), u"李娜"_s);
}

TEST_F(StartUp, AnUnknownUserIsToldWhoIsKnown) {
    static_cast<void>(MakeSmallSite(line.dataFolder));
    line.userName = u"谁"_s;
    ASSERT_TRUE(host::OpenSite(session, line).goOn);
    const host::StartResult result = host::SignInUser(session, line);
    EXPECT_FALSE(result.goOn);
    EXPECT_TRUE(result.fault.contains(u"张伟、李娜"_s)) << result.fault.toStdString();
    EXPECT_TRUE(session.UserName().isEmpty());
}

TEST_F(StartUp, InAFolderWithoutASiteTheFirstUserMayDoEverything) {
    line.userName = u"王强"_s;
    ASSERT_TRUE(host::OpenSite(session, line).goOn);
    ASSERT_TRUE(host::SignInUser(session, line).goOn);
    EXPECT_EQ(session.UserName(), u"王强"_s);
    for (const qint32 right : {5, 21, 22, 38}) {
        EXPECT_TRUE(session.HasRight(right));
    }
}

TEST_F(StartUp, ASecondSessionOnTheSameFolderWorksToo) {
    static_cast<void>(MakeSmallSite(line.dataFolder));
    ASSERT_TRUE(host::OpenSite(session, line).goOn);
    host::HostSession second;
    EXPECT_TRUE(host::OpenSite(second, line).goOn);
    EXPECT_EQ(second.Site().Catalogue().Projects().size(), 2U);
}

} // namespace
} // namespace roads
