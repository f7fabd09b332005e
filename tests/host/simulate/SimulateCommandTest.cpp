#include "host/app/SimulateCommand.h"

#include "host/app/StopSignals.h"
#include "site/sqlite/Database.h"
#include "tests/host/import/TestPictures.h"
#include "tests/sample/PhoneSite.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QTextStream>

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using importtest::Picture;
using sampletest::PhoneSite;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// Nobody waits; what was to be waited for is kept.
class Simulated : public testing::Test {
protected:
    int Run(host::SimulateRequest request) {
        if (request.project.isEmpty()) {
            request.project = u"滨江花园"_s;
        }
        m_lines.clear();
        m_faults.clear();
        QTextStream out(&m_lines);
        QTextStream err(&m_faults);
        return host::RunSimulateCommand(site.Site(), request,
                                        {source.get_token(),
                                         [this](milliseconds time) {
                                             waits.push_back(time);
                                             return onWait && onWait();
                                         }},
                                        out, err);
    }
    /// The pictures of a folder, and as fast as can be.
    [[nodiscard]] host::SimulateRequest Fast(int count) const {
        return {{}, host::kFastest, photos.Path(), count};
    }
    [[nodiscard]] QStringList Lines() const { return m_lines.split(u'\n', Qt::SkipEmptyParts); }
    [[nodiscard]] QString Sum() const { return Lines().value(Lines().size() - 1); }
    [[nodiscard]] QString Faults() const { return m_faults; }

    PhoneSite site;
    support::TempFolder photos;
    std::vector<milliseconds> waits;
    std::function<bool()> onWait;
    std::stop_source source;

private:
    QString m_lines;
    QString m_faults;
};

TEST_F(Simulated, PrintsALineForEachItemAndTheCountsAtTheEnd) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    ASSERT_EQ(Run(Fast(7)), 0) << Faults().toStdString();
    ASSERT_EQ(Lines().size(), 8);
    EXPECT_TRUE(Lines()[0].startsWith(u"12:00:00  "_s)) << Lines()[0].toStdString();
    EXPECT_TRUE(Lines()[1].contains(u"  语音照片  "_s)) << Lines()[1].toStdString();
    EXPECT_TRUE(Lines()[2].contains(u"  问题  "_s)) << Lines()[2].toStdString();
    EXPECT_EQ(Sum(), u"共提交 7 条：照片 5 张（其中 1 张带语音），问题 2 个（图片 %1 张）。"_s.arg(
                         site.Count(u"issue_pic"_s)));
    EXPECT_EQ(Faults(), QString());
    site.ExpectWhole();
}

TEST_F(Simulated, AnUnknownProjectIsAnsweredWithWhatExists) {
    EXPECT_EQ(Run({u"海外"_s, 1, {}, 1}), 2);
    EXPECT_EQ(Faults(), u"没有名为“海外”的工程。现有工程：滨江花园、空地。\n"_s);
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(site.Count(u"bim_photo"_s), 0);
}

TEST_F(Simulated, AFolderThatIsNotThereOrHasNoPhotosIsAnsweredWithItsName) {
    EXPECT_EQ(Run({{}, 1, photos.Path(u"weg"_s), 1}), 2);
    EXPECT_EQ(Faults(), u"没有这个文件夹：%1\n"_s.arg(photos.Path(u"weg"_s)));
    photos.Write(u"a.png"_s, Picture("png", 1));
    EXPECT_EQ(Run(Fast(1)), 2);
    EXPECT_EQ(Faults(), u"文件夹里没有 JPEG 照片：%1\n"_s.arg(photos.Path()));
}

TEST_F(Simulated, ASiteWithoutPeopleHasNobodyWhoFiles) {
    site.folder.Db().Exec(u"DELETE FROM person"_s);
    EXPECT_EQ(Run({{}, 1, {}, 1}), 2);
    EXPECT_TRUE(Faults().contains(u"还没有用户"_s)) << Faults().toStdString();
}

TEST_F(Simulated, ThePhotosOfTheFolderComeInTurnAndBadOnesAreToldOnce) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    photos.Write(u"b.jpeg"_s, "no picture");
    photos.Write(u"c.JPG"_s, Picture("jpeg", 2));
    photos.Write(u"d.jpg"_s, Picture("png", 3));
    photos.Write(u"e.txt"_s, "text");
    ASSERT_EQ(Run(Fast(2)), 0);
    // The second photo begins behind those that were left out.
    ASSERT_EQ(Run(Fast(14)), 0);
    const QStringList told = Lines().filter(photos.Path());
    ASSERT_EQ(told.size(), 2) << Lines().join(u'\n').toStdString();
    EXPECT_TRUE(told[0].startsWith(photos.Path(u"b.jpeg"_s) + u"：内容不是图片"_s));
    EXPECT_EQ(told[1], photos.Path(u"d.jpg"_s) + u"：内容不是 JPEG，虽然扩展名是 .jpg"_s);
    EXPECT_TRUE(Sum().startsWith(u"共提交 14 条："_s)) << "nothing is lost over them";
    const QStringList filed = site.Texts(u"SELECT file_uuid FROM bim_photo ORDER BY id LIMIT 2"_s);
    EXPECT_EQ(site.Bytes(filed.value(0)), photos.Read(u"a.jpg"_s));
    EXPECT_EQ(site.Bytes(filed.value(1)), photos.Read(u"c.JPG"_s));
}

TEST_F(Simulated, WhereNoPhotoCanBeReadItEndsAsAFault) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1).chopped(40));
    EXPECT_EQ(Run(Fast(5)), 1);
    EXPECT_EQ(Faults(), u"文件夹里没有可以读取的 JPEG 照片：%1\n"_s.arg(photos.Path()));
    EXPECT_TRUE(Sum().startsWith(u"共提交 0 条："_s));
}

TEST_F(Simulated, WaitsBetweenItemsAsTheRateSays) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    ASSERT_EQ(Run({{}, 0.5, photos.Path(), 3}), 0);
    ASSERT_EQ(waits.size(), 2U) << "behind the last there is nothing to wait for";
    // The time of the work itself is part of it.
    EXPECT_GT(waits[0], seconds(60));
    EXPECT_LE(waits[0], seconds(120));
    EXPECT_GT(waits[1], seconds(180)) << "nobody waited for the first";
    waits.clear();
    ASSERT_EQ(Run(Fast(3)), 0);
    EXPECT_THAT(waits, testing::Each(testing::Le(milliseconds(1))));
}

TEST_F(Simulated, AnotherClientThatWritesIsWaitedForAndNothingIsLost) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    auto other = std::make_unique<sampletest::Writing>(site);
    int tries = 0;
    onWait = [&] {
        if (++tries == 3) {
            other.reset();
        }
        return false;
    };
    EXPECT_EQ(Run(Fast(3)), 0) << Faults().toStdString();
    EXPECT_EQ(Lines().filter(u"另一个客户端正在写入"_s).size(), 1) << "said once";
    EXPECT_TRUE(Sum().startsWith(u"共提交 3 条："_s));
    EXPECT_EQ(site.Count(u"bim_photo"_s) + site.Count(u"issue"_s), 3);
    site.ExpectWhole();
}

TEST_F(Simulated, StoppedWhileItWaitsForAnotherClientItEndsWithTheCounts) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    const sampletest::Writing other(site);
    onWait = [] { return true; };
    EXPECT_EQ(Run(Fast(3)), 0);
    EXPECT_TRUE(Sum().startsWith(u"共提交 0 条："_s));
}

TEST_F(Simulated, StoppedInTheMiddleOfAnItemNothingOfItStays) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1));
    int filed = 0;
    onWait = [&] {
        ++filed;
        return false;
    };
    site.onNow = [&] {
        if (filed == 2) {
            source.request_stop(); // just before the issue is begun
        }
    };
    EXPECT_EQ(Run(Fast(9)), 0);
    EXPECT_EQ(Faults(), QString()) << "what is stopped is no fault";
    EXPECT_TRUE(Sum().startsWith(u"共提交 2 条："_s)) << Sum().toStdString();
    EXPECT_EQ(site.Count(u"bim_photo"_s), 2);
    EXPECT_EQ(site.Count(u"issue"_s), 0);
    site.ExpectWhole();
}

TEST_F(Simulated, AFullDiskIsToldAndEndsIt) {
    photos.Write(u"a.jpg"_s, Picture("jpeg", 1, {2000, 1500}));
    ASSERT_GT(photos.Read(u"a.jpg"_s).size(), 20'000);
    int filed = 0;
    std::unique_ptr<support::FileSizeLimit> full;
    onWait = [&] {
        if (++filed == 2) {
            full = std::make_unique<support::FileSizeLimit>(10'000);
        }
        return false;
    };
    EXPECT_EQ(Run(Fast(5)), 1);
    full.reset();
    EXPECT_FALSE(Faults().isEmpty());
    EXPECT_TRUE(Sum().startsWith(u"共提交 2 条："_s)) << Sum().toStdString();
    EXPECT_EQ(site.Count(u"bim_photo"_s), 2);
    EXPECT_EQ(site.Count(u"issue"_s), 0);
    site.ExpectWhole();
}

TEST(StopSignals, TheFirstSignalAsksForTheStopAndEndsAWait) {
    for (const int number : {SIGINT, SIGTERM}) {
        host::StopSignals signalled;
        EXPECT_FALSE(signalled.WaitFor(milliseconds(0)));
        EXPECT_FALSE(signalled.Token().stop_requested());
        ASSERT_EQ(raise(number), 0);
        EXPECT_TRUE(signalled.WaitFor(seconds(60)));
        EXPECT_TRUE(signalled.Token().stop_requested());
    }
}

TEST(StopSignalsDeathTest, TheSecondSignalEndsTheProcess) {
    EXPECT_EXIT(
        {
            const host::StopSignals signalled;
            raise(SIGINT);
            raise(SIGINT);
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignalsDeathTest, GoneItLeavesSignalsAsTheyWere) {
    EXPECT_EXIT(
        {
            { const host::StopSignals signalled; }
            raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

} // namespace
