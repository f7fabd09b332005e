#include "tour/TourWords.h"

#include <gtest/gtest.h>

namespace tour {
namespace {

using namespace Qt::StringLiterals;

TEST(TourWords, TheFolderIsNamedAndTheScreenMayBeScaled) {
    const TourWords words = ReadTourWords({u"--tour"_s, u"out"_s, u"--tour-scale=2"_s});
    EXPECT_EQ(words.folder, u"out"_s);
    EXPECT_EQ(words.scale, 2);
    EXPECT_TRUE(words.error.isEmpty());
    EXPECT_EQ(ReadTourWords({u"--tour=out"_s}).scale, 1);
}

TEST(TourWords, TheRestIsTheClients) {
    const TourWords words = ReadTourWords(
        {u"--data"_s, u"d"_s, u"--tour"_s, u"out"_s, u"--user=李"_s, u"--transfers"_s, u"fail"_s});
    EXPECT_TRUE(words.error.isEmpty()) << words.error.toStdString();
    EXPECT_EQ(words.folder, u"out"_s);
    EXPECT_EQ(words.client.dataFolder, u"d"_s);
    EXPECT_EQ(words.client.userName, u"李"_s);
    EXPECT_EQ(words.client.transfers.fault, site::TransferFault::InTheMiddle);
}

TEST(TourWords, WithoutAFolderThereIsNoWalk) {
    EXPECT_TRUE(ReadTourWords({}).error.contains(u"--tour"_s));
    EXPECT_TRUE(ReadTourWords({u"--tour"_s}).error.contains(u"--tour"_s));
    EXPECT_TRUE(ReadTourWords({u"--tour="_s}).error.contains(u"--tour"_s));
    EXPECT_TRUE(ReadTourWords({u"--tour"_s, u"--user"_s, u"李"_s}).error.contains(u"--tour"_s));
}

TEST(TourWords, ScalesThatDontExistAreErrors) {
    for (const QString& scale : {u"0"_s, u"5"_s, u"two"_s}) {
        const TourWords words = ReadTourWords({u"--tour"_s, u"out"_s, u"--tour-scale"_s, scale});
        EXPECT_TRUE(words.error.contains(scale)) << qPrintable(words.error);
    }
    EXPECT_TRUE(ReadTourWords({u"--tour=out"_s, u"--tour-scale=4"_s}).error.isEmpty());
}

TEST(TourWords, TheWalkAndItsScreenAreNamed) {
    EXPECT_EQ(ReadTourWords({u"--tour=out"_s}).walk, WalkKind::Sample);
    const TourWords own = ReadTourWords(
        {u"--tour=out"_s, u"--tour-walk"_s, u"own"_s, u"--tour-screen"_s, u"1366x768"_s});
    EXPECT_TRUE(own.error.isEmpty()) << qPrintable(own.error);
    EXPECT_EQ(own.walk, WalkKind::OwnSite);
    EXPECT_EQ(own.screen, QSize(1366, 768));
    EXPECT_TRUE(ReadTourWords({u"--tour=out"_s, u"--tour-walk=far"_s}).error.contains(u"far"_s));
    for (const QString& size : {u"1366"_s, u"axb"_s, u"1366x"_s, u"10x10"_s}) {
        const TourWords words = ReadTourWords({u"--tour=out"_s, u"--tour-screen"_s, size});
        EXPECT_TRUE(words.error.contains(size)) << qPrintable(words.error);
    }
}

TEST(TourWords, AWordThatTheClientDoesntKnowIsAnError) {
    EXPECT_TRUE(ReadTourWords({u"--tour"_s, u"out"_s, u"--dta"_s}).error.contains(u"--dta"_s));
    EXPECT_TRUE(ReadTourWords({u"import"_s, u"--tour"_s, u"out"_s}).error.contains(u"import"_s));
}

TEST(TourWords, HelpWinsOverWhatIsMissing) {
    const TourWords words = ReadTourWords({u"--help"_s});
    EXPECT_TRUE(words.wantsHelp);
    EXPECT_TRUE(words.error.isEmpty());
    EXPECT_FALSE(ReadTourWords({u"--tour"_s, u"out"_s}).wantsHelp);
    EXPECT_TRUE(TourHelpText().contains(u"--tour-scale"_s));
}

} // namespace
} // namespace tour
