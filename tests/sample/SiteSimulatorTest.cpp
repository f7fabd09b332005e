#include "sample/SiteSimulator.h"

#include "site/DataError.h"
#include "site/sqlite/Database.h"
#include "tests/sample/PhoneSite.h"
#include "tests/support/FileSizeLimit.h"

#include <QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace sampletest {

using namespace Qt::StringLiterals;
using sample::SimulatedItem;
using sample::SimulatedKind;
using sample::SiteSimulator;
using testing::AnyOf;
using testing::Each;

namespace {

constexpr int kRound = 7; ///< until the kinds begin again

std::vector<SimulatedItem> Steps(SiteSimulator& simulator, int count) {
    std::vector<SimulatedItem> items;
    for (int at = 0; at < count; ++at) {
        items.push_back(simulator.Step());
    }
    return items;
}

int CountOf(const std::vector<SimulatedItem>& items, SimulatedKind kind) {
    return int(std::count_if(items.begin(), items.end(),
                             [&](const SimulatedItem& item) { return item.kind == kind; }));
}

/// A fault of a step; nothing if it went well.
std::optional<site::Fault> FaultOfStep(SiteSimulator& simulator) {
    try {
        simulator.Step();
    } catch (const site::DataError& error) {
        return error.GetFault();
    }
    return std::nullopt;
}

/// Pictures that nobody has to draw, each told from the others.
sample::PictureSource CountedPictures(int& taken) {
    return [&taken] { return "picture " + QByteArray::number(++taken); };
}

} // namespace

TEST(SiteSimulator, EachKindComesInTurn) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, CountedPictures(taken));
    const auto items = Steps(simulator, 2 * kRound);
    EXPECT_EQ(CountOf(items, SimulatedKind::Photo), 8);
    EXPECT_EQ(CountOf(items, SimulatedKind::VoiceNote), 2);
    EXPECT_EQ(CountOf(items, SimulatedKind::Issue), 4);
    EXPECT_EQ(site.Count(u"bim_photo"_s), 10);
    EXPECT_EQ(site.Count(u"issue"_s), 4);
    EXPECT_EQ(site.Count(u"bim_photo WHERE audio_uuid <> ''"_s), 2);
    EXPECT_EQ(site.Count(u"bim_photo"_s) + site.Count(u"issue_pic"_s), taken);
    site.ExpectWhole();
}

TEST(SiteSimulator, WhatItTellsIsWhatIsThereInThatOrder) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, CountedPictures(taken));
    QStringList photos;
    QStringList issues;
    for (const SimulatedItem& item : Steps(simulator, kRound)) {
        if (item.kind == SimulatedKind::Issue) {
            issues << item.questionId + u'|' + item.title + u'|' + item.person;
        } else {
            photos << QString::number(item.picId) + u'|' + item.title + u'|' + item.person;
        }
        EXPECT_THAT(item.place.toStdString(), testing::EndsWith("轴"));
    }
    EXPECT_EQ(site.Texts(u"SELECT id || '|' || name || '|' || uploader FROM bim_photo ORDER BY"
                         " id"_s),
              photos);
    EXPECT_EQ(site.Texts(u"SELECT question_id || '|' || theme || '|' || creator FROM issue ORDER"
                         " BY id"_s),
              issues);
}

TEST(SiteSimulator, ItIsPeopleOfTheSiteWhoMayFileAndNeverTheSameTwiceRunning) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, CountedPictures(taken));
    std::set<QString> people;
    QString last;
    for (const SimulatedItem& item : Steps(simulator, 3 * kRound)) {
        EXPECT_NE(item.person, last);
        last = item.person;
        people.insert(item.person);
    }
    EXPECT_EQ(people, (std::set<QString>{u"王工"_s, u"李工"_s, u"刘监理"_s}));
}

TEST(SiteSimulator, PlacesMarksAndLabelsAreThoseOfTheSiteAndTheTimeIsItsOwn) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, CountedPictures(taken));
    Steps(simulator, 4 * kRound);
    EXPECT_THAT(site.Texts(u"SELECT DISTINCT position_key FROM bim_photo"_s),
                Each(AnyOf(u"key-1A-1"_s, u"key-2B-1"_s, u"key-1A3"_s, u"key-2B3"_s)));
    EXPECT_EQ(site.Texts(u"SELECT DISTINCT floor FROM issue ORDER BY floor"_s),
              QStringList({u"-1"_s, u"3"_s}));
    EXPECT_EQ(site.Texts(u"SELECT DISTINCT mark_id FROM bim_photo ORDER BY mark_id"_s),
              QStringList({u"1"_s, u"7"_s}));
    EXPECT_EQ(site.Texts(u"SELECT DISTINCT label_id FROM bim_label ORDER BY label_id"_s),
              QStringList({u"1"_s, u"2"_s}));
    for (const QString& time : {u"uploaded FROM bim_photo"_s, u"created FROM issue"_s}) {
        EXPECT_EQ(site.Texts(u"SELECT DISTINCT "_s + time),
                  QStringList(QString::number(kPhoneTime)));
    }
}

TEST(SiteSimulator, WhereAProjectHasNoFloorsThingsHangNowhere) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), {2, u"空地"_s, 1}, 1, CountedPictures(taken));
    for (const SimulatedItem& item : Steps(simulator, kRound)) {
        EXPECT_EQ(item.place, QString());
    }
    EXPECT_EQ(site.Texts(u"SELECT DISTINCT position_key || floor FROM bim_photo"_s),
              QStringList(QString()));
    EXPECT_EQ(site.Count(u"bim_photo WHERE ppid = 2"_s), 5);
}

TEST(SiteSimulator, DrawnPicturesAndNotesCanBeReadAfterwards) {
    PhoneSite site;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1);
    Steps(simulator, 3);
    const QStringList pictures =
        site.Texts(u"SELECT file_uuid FROM bim_photo UNION SELECT file_uuid FROM issue_pic"_s);
    EXPECT_GE(pictures.size(), 3);
    for (const QString& uuid : pictures) {
        const QByteArray bytes = site.Bytes(uuid);
        EXPECT_TRUE(bytes.startsWith("\xff\xd8\xff"));
        EXPECT_FALSE(QImage::fromData(bytes, "jpeg").isNull()) << uuid.toStdString();
    }
    const QStringList notes =
        site.Texts(u"SELECT audio_uuid FROM bim_photo WHERE audio_uuid <> ''"_s);
    ASSERT_EQ(notes.size(), 1);
    EXPECT_TRUE(site.Bytes(notes[0]).startsWith("#!AMR\n"));
}

TEST(SiteSimulator, WhileAnotherClientWritesNothingIsFiledAndThenTheSameItem) {
    PhoneSite site;
    int taken = 0;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, CountedPictures(taken));
    Steps(simulator, 2);
    const int before = taken;
    {
        const Writing other(site);
        EXPECT_EQ(FaultOfStep(simulator), site::Fault::Locked); // an issue
        EXPECT_EQ(FaultOfStep(simulator), site::Fault::Locked);
    }
    EXPECT_EQ(site.Count(u"issue"_s), 0);
    site.ExpectWhole();
    const SimulatedItem item = simulator.Step();
    EXPECT_EQ(item.kind, SimulatedKind::Issue);
    EXPECT_EQ(taken, before + item.pictures) << "no picture was lost over it";
    EXPECT_EQ(site.Count(u"issue_pic"_s), item.pictures);
}

TEST(SiteSimulator, AFullDiskLeavesNothingOfTheItem) {
    PhoneSite site;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1,
                            [] { return QByteArray(8'000'000, 'x'); });
    Steps(simulator, 2);
    {
        const support::FileSizeLimit full(6'000'000);    // the database has room
        EXPECT_TRUE(FaultOfStep(simulator).has_value()); // an issue
    }
    EXPECT_EQ(site.Count(u"issue"_s), 0);
    EXPECT_EQ(site.Count(u"file"_s), 3) << "two photos, a note";
    site.ExpectWhole();
    EXPECT_EQ(simulator.Step().kind, SimulatedKind::Issue) << "once there is room again";
    site.ExpectWhole();
}

TEST(SiteSimulator, WithoutAPictureNothingIsFiled) {
    PhoneSite site;
    SiteSimulator simulator(site.Site(), PhoneSite::Project(), 1, []() -> QByteArray {
        throw site::DataError(site::Fault::Missing, u"没有照片了"_s);
    });
    EXPECT_EQ(FaultOfStep(simulator), site::Fault::Missing);
    EXPECT_EQ(site.Count(u"bim_photo"_s), 0);
    EXPECT_EQ(site.StoredFiles(), 0);
}

} // namespace sampletest
