// Records of places: versions, who sees them, what becomes of them with their checkpoint.
#include "site/IRichTexts.h"

#include "tests/site/RichSite.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

#include <set>
#include <thread>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using sitetest::kSavedAt;
using sitetest::RichSite;
using testing::ElementsAre;

/// The same folder, opened by a second client.
struct OtherRichClient {
    explicit OtherRichClient(const RichSite& site) : folder(site.folder.Path()) {
        EXPECT_FALSE(folder.Open({500, false}).has_value());
        engine = std::make_unique<SqliteSite>(folder);
    }
    DataFolder folder;
    std::unique_ptr<SqliteSite> engine;
};

/// All that is kept of records, to see that nothing has changed.
QStringList Kept(RichSite& site) {
    QStringList lines;
    for (const QString& sql : {u"SELECT 'text', id, state, newest FROM rich_text"_s,
                               u"SELECT 'version', id, number, text FROM rich_version"_s,
                               u"SELECT 'file', version_id, name, uuid FROM rich_file"_s,
                               u"SELECT 'stored', kind, owner, uuid FROM file"_s,
                               u"SELECT 'free', 0, 0, uuid FROM upload"_s,
                               u"SELECT 'photo', id, state, revision FROM bim_photo"_s}) {
        site.folder.Db().ForEach(sql, {}, [&](const Statement& row) {
            lines << u"%1 %2 %3 %4"_s.arg(row.Text(0), row.Text(1), row.Text(2), row.Text(3));
        });
    }
    return lines;
}

} // namespace

TEST(RichTexts, APlaceThatNobodySavedHasNoDocumentAndTheStateOfItsNewestPhoto) {
    RichSite site;
    EXPECT_EQ(site.Newest(site.Two()).state, kStateOpen) << "no photo, the first state";
    site.Photo(u"two"_s, kStateDone);
    site.Photo(u"two"_s, kStateInProgress);
    site.Photo(u"two"_s, kStateNotNeeded, 2);
    site.Photo(u"roof"_s, kStateNotNeeded);
    site.PdfPhoto(site.point, kStateInProgress);
    site.PdfPhoto(site.point, kStateNotNeeded);
    site.PdfPhoto(site.otherPoint, kStateDone);
    const RichVersion none = site.Newest(site.Two());
    EXPECT_EQ(none.state, kStateInProgress);
    EXPECT_EQ(none.number, 0);
    EXPECT_EQ(none.text, QString());
    EXPECT_EQ(none.docName, QString());
    EXPECT_EQ(none.person, QString());
    EXPECT_TRUE(none.files.empty());
    EXPECT_EQ(site.Newest(site.OnPoint()).state, kStateNotNeeded);
    EXPECT_TRUE(site.Texts().Versions({site.ppid}, site.Two())->empty());
    EXPECT_FALSE(site.Texts().Version({site.ppid}, site.Two(), 0));
}

TEST(RichTexts, ASaveIsTheRecordWithItsPersonTimeStateAndFiles) {
    RichSite site;
    const RichFile page = site.Upload(u"p.html"_s);
    const RichFile sheet = site.Upload(u"量测.xlsx"_s, 2, "sheet");
    const auto saved =
        site.Texts().Save({site.ppid}, site.Two(), {{}, u"doc"_s, kStateDone, {}, {page, sheet}},
                          {u"wang"_s, kSavedAt + 5});
    ASSERT_TRUE(saved);
    const RichVersion read = site.Newest(site.Two());
    EXPECT_EQ(read.number, 1);
    EXPECT_EQ(read.text, saved->text);
    EXPECT_FALSE(read.text.isEmpty());
    EXPECT_EQ(read.docName, u"doc"_s);
    EXPECT_EQ(read.state, kStateDone);
    EXPECT_EQ(read.person, u"wang"_s);
    EXPECT_EQ(read.at, kSavedAt + 5);
    ASSERT_EQ(read.files.size(), 2U);
    EXPECT_EQ(read.files[1].name, u"量测.xlsx"_s);
    EXPECT_EQ(read.files[1].uuid, sheet.uuid);
    EXPECT_EQ(read.files[1].md5, sheet.md5);
    EXPECT_EQ(read.files[1].size, 5);
    EXPECT_EQ(read.files[1].kind, 2);
    EXPECT_EQ(site.Newest(AtIntersection(site.ppid, u"two"_s, 2)).number, 0) << "of another mark";
    EXPECT_EQ(site.Newest(AtIntersection(site.ppid, u"roof"_s, 1)).number, 0);
}

TEST(RichTexts, EveryVersionIsKeptWithItsOwnFiles) {
    RichSite site;
    const RichVersion first =
        site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
    NewRichVersion next = RichSite::Based(first.text, {site.Upload(u"2.html"_s)}, kStateDone);
    next.removed = {first.files[0].uuid, u"nowhere"_s};
    const RichVersion second = site.Save(site.Two(), next);
    const RichVersion third = site.Save(
        site.Two(), {second.text, u"doc"_s, kStateOpen, {}, {site.Upload(u"量测.xlsx"_s, 2)}});
    EXPECT_EQ(RichSite::Names(site.Newest(site.Two())), (QStringList{u"2.html"_s, u"量测.xlsx"_s}));
    const auto all = site.Texts().Versions({site.ppid}, site.Two());
    ASSERT_EQ(all->size(), 3U);
    EXPECT_EQ(all->at(0).text, third.text);
    EXPECT_EQ(all->at(1).state, kStateDone);
    EXPECT_EQ(all->at(2).number, 1);
    const auto old = site.Texts().Version({site.ppid}, site.Two(), 1);
    ASSERT_TRUE(old);
    EXPECT_EQ(old->text, first.text);
    EXPECT_EQ(RichSite::Names(*old), QStringList{u"1.html"_s});
    EXPECT_TRUE(site.folder.Store().Has(first.files[0].uuid));
    EXPECT_FALSE(site.Texts().Version({site.ppid}, site.Two(), 4));
    EXPECT_FALSE(site.Texts().Version({site.ppid}, site.Two(), -1));
}

TEST(RichTexts, AVersionIsBuiltOnTheOneThatItNamesWhateverWasSavedSince) {
    RichSite site;
    const RichVersion first =
        site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
    site.Save(site.Two(), RichSite::Based(first.text, {site.Upload(u"li.png"_s, 3)}));
    site.Save(site.Two(), RichSite::Based(first.text, {site.Upload(u"wang.png"_s, 3)}));
    EXPECT_EQ(RichSite::Names(site.Newest(site.Two())), (QStringList{u"1.html"_s, u"wang.png"_s}));
    site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"new.html"_s)}));
    EXPECT_EQ(RichSite::Names(site.Newest(site.Two())), QStringList{u"new.html"_s});
    EXPECT_EQ(site.Newest(site.Two()).number, 4);
}

TEST(RichTexts, TwoThatReadTheSameVersionSaveInEitherOrderAndBothVersionsAreThere) {
    for (const bool firstIsQuicker : {true, false}) {
        RichSite site;
        const OtherRichClient second(site);
        const RichVersion base =
            site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
        const NewRichVersion mine = RichSite::Based(base.text, {site.Upload(u"a.png"_s, 3)}, 1);
        const NewRichVersion theirs = RichSite::Based(base.text, {site.Upload(u"b.png"_s, 3)}, 2);
        const auto save = [&](bool isFirst) {
            IRichTexts& texts = isFirst ? site.Texts() : second.engine->RichTexts();
            return texts.Save({site.ppid}, site.Two(), isFirst ? mine : theirs,
                              {isFirst ? u"li"_s : u"wang"_s, kSavedAt});
        };
        const auto earlier = save(firstIsQuicker);
        const auto later = save(!firstIsQuicker);
        ASSERT_TRUE(earlier && later);
        EXPECT_NE(earlier->text, later->text) << "saved in one second";
        EXPECT_EQ(earlier->number, 2);
        EXPECT_EQ(later->number, 3);
        EXPECT_EQ(site.Newest(site.Two()).text, later->text);
        EXPECT_EQ(site.Newest(site.Two()).person, firstIsQuicker ? u"wang"_s : u"li"_s);
        EXPECT_EQ(site.Newest(site.Two()).files.size(), 2U) << "nothing is merged";
        EXPECT_EQ(site.Texts().Version({site.ppid}, site.Two(), 2)->text, earlier->text);
    }
}

TEST(RichTexts, ManyThatSaveAtOnceGetAVersionEach) {
    RichSite site;
    const QString folder = site.folder.Path();
    const RichPlace place = site.Two();
    const auto saveTen = [&](const QString& person) {
        DataFolder own(folder);
        EXPECT_FALSE(own.Open({20'000, false}).has_value());
        SqliteSite engine(own);
        for (int count = 0; count < 10; ++count) {
            const auto base = engine.RichTexts().Newest({place.ppid}, place);
            EXPECT_TRUE(engine.RichTexts().Save({place.ppid}, place,
                                                RichSite::Based(base->text, {}, count % 4),
                                                {person, kSavedAt}));
        }
    };
    {
        const std::jthread wang([&] { saveTen(u"wang"_s); });
        const std::jthread zhao([&] { saveTen(u"zhao"_s); });
    }
    std::set<QString> texts;
    std::set<int> numbers;
    const auto versions = site.Texts().Versions({site.ppid}, place);
    for (const RichVersion& version : *versions) {
        texts.insert(version.text);
        numbers.insert(version.number);
    }
    EXPECT_EQ(versions->size(), 20U);
    EXPECT_EQ(texts.size(), 20U);
    EXPECT_EQ(*numbers.begin(), 1);
    EXPECT_EQ(*numbers.rbegin(), 20);
}

TEST(RichTexts, TheFirstSaveOfTwoClientsIsTwoVersionsOfOneRecord) {
    RichSite site;
    const OtherRichClient second(site);
    site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
    const NewRichVersion theirs = RichSite::Based({}, {site.Upload(u"2.html"_s)});
    const auto later =
        second.engine->RichTexts().Save({site.ppid}, site.OnPoint(), theirs, {u"wang"_s, kSavedAt});
    ASSERT_TRUE(later);
    EXPECT_EQ(later->number, 2);
    EXPECT_EQ(site.Count(u"rich_text"_s), 1);
}

TEST(RichTexts, ABaseThatThePlaceNeverHadIsRefusedWithASentence) {
    RichSite site;
    const RichVersion elsewhere = site.Save(site.OnPoint(), RichSite::Based({}));
    site.Save(site.Two(), RichSite::Based({}));
    const QStringList before = Kept(site);
    for (const QString& base : {u"unknown"_s, elsewhere.text, u"1"_s, QString(100'000, u'长')}) {
        try {
            (void)site.Texts().Save({site.ppid}, site.Two(), RichSite::Based(base), {u"li"_s, 1});
            ADD_FAILURE() << "saved";
        } catch (const DataError& error) {
            EXPECT_EQ(error.GetFault(), Fault::Refused);
            EXPECT_TRUE(error.Text().contains(u"不属于这个位置"_s)) << error.Text().toStdString();
        }
    }
    EXPECT_EQ(Kept(site), before);
}

TEST(RichTexts, OnlyWhatHasAPageHasADocument) {
    RichSite site;
    const RichVersion state = site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    EXPECT_EQ(state.docName, QString()) << "an editor would look for the page";
    EXPECT_EQ(site.Newest(site.Two()).docName, QString());
    EXPECT_EQ(site.Newest(site.Two()).person, u"li"_s);
    site.Save(site.Two(), RichSite::Based(state.text, {site.Upload(u"p.html"_s)}));
    EXPECT_EQ(site.Newest(site.Two()).docName, u"doc"_s);
}

TEST(RichTexts, APlaceOfAnotherProjectAndOneThatIsNowhereAreGone) {
    RichSite site;
    IRichTexts& texts = site.Texts();
    const NewRichVersion version = RichSite::Based({});
    const Signature by{u"li"_s, kSavedAt};
    site.Save(site.Two(), version);
    site.Save(site.OnPoint(), version);
    const QStringList before = Kept(site);
    for (const RichPlace& place : {site.Two(), site.OnPoint(), AtCheckpoint(4711), AtCheckpoint(-1),
                                   AtIntersection(-1, u"two"_s, 1)}) {
        EXPECT_FALSE(texts.Newest({site.other}, place));
        EXPECT_FALSE(texts.Versions({site.other}, place));
        EXPECT_FALSE(texts.Version({site.other}, place, 1));
        EXPECT_FALSE(texts.Save({site.other}, place, version, by));
    }
    EXPECT_TRUE(texts.List({site.other}).empty());
    EXPECT_TRUE(texts.List({}).empty());
    for (const RichPlace& place :
         {AtIntersection(site.ppid, u"nowhere"_s, 1), AtIntersection(site.ppid, u"theirs"_s, 1),
          AtIntersection(site.ppid, u"two"_s, 4711), AtIntersection(site.ppid, u"two"_s, -1),
          AtIntersection(site.ppid, {}, 1), AtIntersection(site.ppid, QString(100'000, u'k'), 1)}) {
        EXPECT_FALSE(texts.Save({site.ppid}, place, version, by));
        EXPECT_EQ(site.Newest(place).number, 0) << "what may still come there has no record";
    }
    EXPECT_EQ(Kept(site), before);
}

TEST(RichTexts, APlaceThatTheModelHasNoLongerKeepsItsRecord) {
    RichSite site;
    site.Photo(u"two"_s);
    site.Save(site.Two(), RichSite::Based({}));
    site.folder.Db().Exec(u"UPDATE position SET axis_x = '9' WHERE position_key = 'two'"_s);
    EXPECT_EQ(site.Texts().List({site.ppid}).at(0).where, u"2层 9/B 质量"_s)
        << "the model knows better than its photos";
    site.folder.Db().Exec(u"DELETE FROM position WHERE position_key = 'two'"_s);
    EXPECT_EQ(site.Newest(site.Two()).number, 1);
    EXPECT_EQ(site.Texts().List({site.ppid}).at(0).where, u"2层 3/B 质量"_s);
    site.folder.Db().Exec(u"DELETE FROM bim_photo"_s);
    EXPECT_EQ(site.Save(site.Two(), RichSite::Based({})).number, 2);
}

TEST(RichTexts, TheListSaysWhereWhoAndHowOftenTheLastSavedFirst) {
    RichSite site;
    site.Photo({});
    const RichVersion first = site.Save(site.Two(), RichSite::Based({}));
    site.Save(AtIntersection(site.ppid, u"roof"_s, 0), RichSite::Based({}));
    site.Save(AtIntersection(site.ppid, {}, 1), RichSite::Based({}));
    site.Save(site.OnPoint(), RichSite::Based({}));
    const auto last = site.Texts().Save(
        {site.ppid}, site.Two(), RichSite::Based(first.text, {}, kStateDone), {u"wang"_s, 5});
    const std::vector<RichEntry> list = site.Texts().List({site.other, site.ppid});
    QStringList places;
    for (const RichEntry& entry : list) {
        places << entry.where;
        EXPECT_EQ(entry.place.ppid, site.ppid);
        EXPECT_EQ(site.Newest(entry.place).text, entry.last.text);
    }
    EXPECT_THAT(places,
                ElementsAre(u"2层 3/B 质量"_s, u"首层 检查点4"_s, u"无楼层 质量"_s, u"屋面 1/A"_s));
    EXPECT_EQ(list[0].place, site.Two());
    EXPECT_EQ(list[0].last.text, last->text);
    EXPECT_EQ(list[0].last.number, 2);
    EXPECT_EQ(list[0].last.person, u"wang"_s);
    EXPECT_EQ(list[0].last.at, 5) << "an earlier clock saved later";
    EXPECT_EQ(list[0].last.state, kStateDone);
    EXPECT_EQ(list[1].place.checkpointId, site.point);
}

TEST(RichTexts, ACheckpointTakesItsRecordIntoTheBinAndBringsItBack) {
    RichSite site;
    const RichVersion saved =
        site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"p.html"_s)}));
    ASSERT_TRUE(site.engine.Bin().DeleteCheckpoint({site.ppid}, site.point, {u"li"_s, 1}));
    EXPECT_FALSE(site.Texts().Newest({site.ppid}, site.OnPoint()));
    EXPECT_FALSE(site.Texts().Versions({site.ppid}, site.OnPoint()));
    EXPECT_FALSE(site.Texts().Version({site.ppid}, site.OnPoint(), 1));
    EXPECT_FALSE(site.Texts().Save({site.ppid}, site.OnPoint(), RichSite::Based({}), {u"li"_s, 1}));
    EXPECT_TRUE(site.Texts().List({site.ppid}).empty());
    EXPECT_EQ(site.Newest(AtCheckpoint(site.Point(4))).number, 0) << "it is another checkpoint";
    ASSERT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Newest(site.OnPoint()).text, saved.text);
    EXPECT_EQ(site.Texts().List({site.ppid}).size(), 1U);
    EXPECT_TRUE(site.folder.Store().Has(saved.files[0].uuid));
}

TEST(RichTexts, ACheckpointThatIsPurgedEndsItsRecordWithTheFilesOfAllVersions) {
    RichSite site;
    const RichVersion first =
        site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
    NewRichVersion next = RichSite::Based(first.text, {site.Upload(u"2.html"_s)});
    next.removed = {first.files[0].uuid};
    const RichVersion second = site.Save(site.OnPoint(), next);
    const RichVersion other =
        site.Save(AtCheckpoint(site.otherPoint), RichSite::Based({}, {site.Upload(u"3.html"_s)}));
    const RichFile free = site.Upload(u"4.html"_s);
    ASSERT_TRUE(site.engine.Bin().DeleteCheckpoint({site.ppid}, site.point, {u"li"_s, 1}));
    site.engine.Bin().Purge({site.engine.Bin().List().front().id});
    EXPECT_FALSE(site.folder.Store().Has(first.files[0].uuid));
    EXPECT_FALSE(site.folder.Store().Has(second.files[0].uuid));
    EXPECT_TRUE(site.folder.Store().Has(other.files[0].uuid));
    EXPECT_TRUE(site.folder.Store().Has(free.uuid)) << "somebody's upload of now";
    EXPECT_EQ(site.Count(u"rich_text"_s), 1);
    EXPECT_EQ(site.Count(u"rich_version"_s), 1);
    EXPECT_EQ(site.Count(u"rich_file"_s), 1);
    EXPECT_EQ(site.Count(u"file WHERE kind = 10"_s), 1);
    EXPECT_EQ(site.Count(u"upload"_s), 1);
    site.folder.Db().Exec(u"DELETE FROM rich_text"_s);
    const std::set<QString> before{first.text, second.text, other.text};
    EXPECT_FALSE(
        before.contains(site.Save(AtCheckpoint(site.otherPoint), RichSite::Based({})).text));
}

TEST(RichTexts, AnotherClientIsToldOfASaveAndReadsIt) {
    RichSite site;
    site.Photo(u"two"_s);
    const qint32 done = site.Photo(u"two"_s, kStateDone);
    const OtherRichClient second(site);
    Changes told;
    const auto listening = second.engine->Changes().Subscribe(
        [&](const Changes& changes) { told.insert(told.end(), changes.begin(), changes.end()); });
    site.Save(site.Two(), RichSite::Based({}));
    ASSERT_TRUE(support::WaitFor([&] { return !told.empty(); }));
    ASSERT_EQ(told.size(), 2U) << "a photo that had the state isn't told of";
    EXPECT_EQ(told[0].kind, ChangeKind::BimPhoto);
    EXPECT_EQ(told[0].id, done);
    EXPECT_EQ(told[0].person, u"li"_s);
    EXPECT_EQ(told[1].kind, ChangeKind::RichText);
    EXPECT_EQ(told[1].ppid, site.ppid);
    EXPECT_EQ(told[1].id, second.engine->RichTexts().List({site.ppid}).at(0).id);
    EXPECT_EQ(second.engine->RichTexts().Newest({site.ppid}, site.Two())->number, 1);
}

TEST(RichTexts, AFaultInTheMiddleChangesNothing) {
    for (const QString& where :
         {u"INSERT ON rich_version"_s, u"INSERT ON rich_file"_s, u"UPDATE ON rich_text"_s,
          u"UPDATE ON file"_s, u"DELETE ON upload"_s, u"UPDATE ON bim_photo"_s,
          u"INSERT ON change"_s}) {
        RichSite site;
        site.Photo(u"two"_s);
        site.Save(site.Two(), RichSite::Based({}));
        const RichFile file = site.Upload(u"p.html"_s);
        const QStringList before = Kept(site);
        site.folder.Db().Exec(
            u"CREATE TRIGGER broken BEFORE %1 BEGIN SELECT RAISE(ABORT, 'broken'); END"_s.arg(
                where));
        const NewRichVersion version =
            RichSite::Based(site.Newest(site.Two()).text, {file}, kStateDone);
        EXPECT_THROW((void)site.Texts().Save({site.ppid}, site.Two(), version, {u"li"_s, 2}),
                     DataError)
            << where.toStdString();
        EXPECT_EQ(Kept(site), before) << where.toStdString();
        site.folder.Db().Exec(u"DROP TRIGGER broken"_s);
        EXPECT_EQ(site.Save(site.Two(), version).number, 2);
    }
}

TEST(RichTexts, AFaultOfAPurgeLeavesTheRecordWithItsCheckpoint) {
    RichSite site;
    const RichVersion saved =
        site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"p.html"_s)}));
    ASSERT_TRUE(site.engine.Bin().DeleteCheckpoint({site.ppid}, site.point, {u"li"_s, 1}));
    const qint64 entry = site.engine.Bin().List().front().id;
    site.folder.Db().Exec(u"CREATE TRIGGER broken BEFORE DELETE ON bin BEGIN"
                          " SELECT RAISE(ABORT, 'broken'); END"_s);
    EXPECT_THROW(site.engine.Bin().Purge({entry}), DataError);
    site.folder.Db().Exec(u"DROP TRIGGER broken"_s);
    ASSERT_EQ(site.engine.Bin().Restore({entry}), 1);
    EXPECT_EQ(site.Newest(site.OnPoint()).text, saved.text);
    EXPECT_TRUE(site.folder.Store().Has(saved.files[0].uuid));
}

TEST(RichTexts, WhatASweepCantRemoveAtOnceGoesWithTheNextOpening) {
    RichSite site;
    const RichVersion saved =
        site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"p.html"_s)}));
    ASSERT_TRUE(site.engine.Bin().DeleteCheckpoint({site.ppid}, site.point, {u"li"_s, 1}));
    site.folder.Db().Exec(u"CREATE TRIGGER broken BEFORE DELETE ON upload BEGIN"
                          " SELECT RAISE(ABORT, 'broken'); END"_s);
    site.engine.Bin().Purge({site.engine.Bin().List().front().id});
    EXPECT_EQ(site.Count(u"upload"_s), 1);
    site.folder.Db().Exec(u"DROP TRIGGER broken"_s);
    ASSERT_FALSE(DataFolder(site.folder.Path()).Open({500, true}));
    EXPECT_EQ(site.Count(u"upload"_s), 0);
    EXPECT_EQ(site.Count(u"file WHERE kind = 9"_s), 0);
    EXPECT_FALSE(site.folder.Store().Has(saved.files[0].uuid));
}

} // namespace site
