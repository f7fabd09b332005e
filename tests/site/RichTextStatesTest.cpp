// The state of a place: its photos have it, those that come later take it, and all counts follow.
#include "site/sqlite/RichTextSql.h"
#include "tests/site/RichSite.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using sitetest::kSavedAt;
using sitetest::RichSite;

QString TallyText(Database& db, const QString& sql) {
    QString lines;
    db.ForEach(sql, {}, [&](const Statement& row) {
        lines += u"%1|%2|%3|%4\n"_s.arg(row.Text(0), row.Text(1), row.Text(2), row.Text(3));
    });
    return lines;
}

void ExpectTalliesCount(RichSite& site) {
    for (const QString& kind : {u"bim"_s, u"pdf"_s}) {
        EXPECT_EQ(
            TallyText(site.folder.Db(), u"SELECT ppid, mark_id, state, n FROM %1_tally WHERE"
                                        " n <> 0 ORDER BY 1, 2, 3"_s.arg(kind)),
            TallyText(site.folder.Db(), u"SELECT ppid, mark_id, state, count(*) FROM"
                                        " %1_photo GROUP BY 1, 2, 3 ORDER BY 1, 2, 3"_s.arg(kind)));
    }
}

KX_DATA::BimPicUpdate Moved(qint32 picId, const QString& key, qint32 markId) {
    KX_DATA::BimPicUpdate update;
    update.picId = picId;
    update.fileName = u"照片.jpg"_s;
    update.positionKey = key;
    update.markId = markId;
    return update;
}

void Move(RichSite& site, const KX_DATA::BimPicUpdate& update) {
    EXPECT_EQ(site.engine.BimPhotos().Update(site.ppid, update, {u"li"_s, kSavedAt + 100}),
              Saved::Yes);
}

} // namespace

TEST(RichTextStates, ASaveSetsTheStateOfAllPhotosOfThePlaceAndOfNoOther) {
    RichSite site;
    const qint32 shown = site.Photo(u"two"_s);
    const qint32 hidden = site.Photo(u"two"_s, kStateInProgress);
    site.engine.BimPhotos().SetStatus(site.ppid, {hidden}, 1);
    const qint32 ofOtherMark = site.Photo(u"two"_s, kStateOpen, 2);
    const qint32 elsewhere = site.Photo(u"roof"_s);
    const qint32 onPoint = site.PdfPhoto(site.point);
    site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    EXPECT_EQ(site.StateOf(shown), kStateDone);
    EXPECT_EQ(site.StateOf(hidden), kStateDone);
    EXPECT_EQ(site.StateOf(ofOtherMark), kStateOpen);
    EXPECT_EQ(site.StateOf(elsewhere), kStateOpen);
    EXPECT_EQ(site.StateOf(onPoint), kStateOpen);
    ExpectTalliesCount(site);
    ListFilter filter;
    filter.ppids = {site.ppid};
    filter.state = kStateDone;
    const auto page = site.engine.BimPhotos().PageOf(filter, {{}, 1, 30});
    ASSERT_EQ(page.total, 2);
    EXPECT_EQ(page.rows[0].rectifyText, u"已整改"_s);
    EXPECT_EQ(page.rows[0].updaterName, QString()) << "it is the place that was changed";
}

TEST(RichTextStates, PhotosOfACheckpointFollowItsRecord) {
    RichSite site;
    const qint32 first = site.PdfPhoto(site.point);
    const qint32 other = site.PdfPhoto(site.otherPoint);
    site.Save(site.OnPoint(), RichSite::Based({}, {}, kStateInProgress));
    EXPECT_EQ(site.StateOf(first), kStateInProgress);
    EXPECT_EQ(site.StateOf(other), kStateOpen);
    EXPECT_EQ(site.StateOf(site.PdfPhoto(site.point)), kStateInProgress) << "filed later";
    KX_DATA::PdfPicUpdate update;
    update.picId = other;
    update.fileName = u"照片.jpg"_s;
    update.pointId = site.point;
    EXPECT_EQ(site.engine.PdfPhotos().Update(site.ppid, update, {u"li"_s, 9}), Saved::Yes);
    EXPECT_EQ(site.StateOf(other), kStateInProgress) << "moved there";
    update.pointId = site.otherPoint;
    EXPECT_EQ(site.engine.PdfPhotos().Update(site.ppid, update, {u"li"_s, 9}), Saved::Yes);
    EXPECT_EQ(site.StateOf(other), kStateInProgress) << "a place without a record keeps it";
    ExpectTalliesCount(site);
}

TEST(RichTextStates, APhotoTakesTheStateWhereItIsFiledAndWhereItIsMovedTo) {
    RichSite site;
    site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    const qint32 filed = site.Photo(u"two"_s, kStateInProgress);
    EXPECT_EQ(site.StateOf(filed), kStateDone);
    const qint32 byPlace = site.Photo(u"roof"_s);
    const qint32 byMark = site.Photo(u"two"_s, kStateOpen, 2);
    const qint32 byBoth = site.Photo({}, kStateOpen, 2);
    for (const qint32 photo : {byPlace, byMark, byBoth}) {
        EXPECT_EQ(site.StateOf(photo), kStateOpen);
        Move(site, Moved(photo, u"two"_s, 1));
        EXPECT_EQ(site.StateOf(photo), kStateDone);
        ExpectTalliesCount(site);
    }
    Move(site, Moved(byPlace, u"roof"_s, 1));
    EXPECT_EQ(site.StateOf(byPlace), kStateDone) << "there is no record that says otherwise";
    ExpectTalliesCount(site);
}

TEST(RichTextStates, APhotoThatChangesPlaceAndMarkAtOnceTakesNothingOnTheWay) {
    RichSite site;
    site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    const qint32 photo = site.Photo(u"roof"_s);
    Move(site, Moved(photo, u"two"_s, 2));
    EXPECT_EQ(site.StateOf(photo), kStateOpen) << "it never was at the place of mark 1";
}

TEST(RichTextStates, APhotoOutOfTheBinTakesWhatWasSavedMeanwhile) {
    RichSite site;
    const qint32 photo = site.Photo(u"two"_s);
    const qint32 onPoint = site.PdfPhoto(site.point);
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {photo}, {u"li"_s, 1});
    site.engine.Bin().DeletePdfPhotos(site.ppid, {onPoint}, {u"li"_s, 1});
    site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    site.Save(site.OnPoint(), RichSite::Based({}, {}, kStateNotNeeded));
    std::vector<qint64> entries;
    for (const BinEntry& entry : site.engine.Bin().List()) {
        entries.push_back(entry.id);
    }
    ASSERT_EQ(site.engine.Bin().Restore(entries), 2);
    EXPECT_EQ(site.StateOf(photo), kStateDone);
    EXPECT_EQ(site.StateOf(onPoint), kStateNotNeeded);
    ExpectTalliesCount(site);
}

TEST(RichTextStates, PhotosWithoutAFloorAreOnePlaceWhateverKeyTheyHave) {
    RichSite site;
    const qint32 keyless = site.Photo({}, kStateInProgress);
    const qint32 astray = site.Photo(u"gone"_s, kStateNotNeeded);
    const RichPlace nowhere = AtIntersection(site.ppid, {}, 1);
    EXPECT_EQ(site.Newest(nowhere).state, kStateNotNeeded);
    site.Save(nowhere, RichSite::Based({}, {}, kStateDone));
    EXPECT_EQ(site.StateOf(keyless), kStateDone);
    EXPECT_EQ(site.StateOf(astray), kStateDone);
    EXPECT_EQ(site.StateOf(site.Photo(u"gone"_s)), kStateDone) << "filed later";
    EXPECT_EQ(site.StateOf(site.Photo(u"two"_s)), kStateOpen);
    site.Save(AtIntersection(site.ppid, u"gone"_s, 1), RichSite::Based({}, {}, kStateInProgress));
    EXPECT_EQ(site.StateOf(keyless), kStateDone);
    EXPECT_EQ(site.StateOf(site.Photo(u"gone"_s)), kStateInProgress) << "its own record first";
    ExpectTalliesCount(site);
}

TEST(RichTextStates, ManyPhotosAreOneLineOfTheFeed) {
    RichSite site;
    site.writer.BeginBatch();
    for (int count = 0; count < 201; ++count) {
        site.Photo(u"two"_s);
    }
    site.writer.CommitBatch();
    const qint64 mark = site.engine.Changes().Mark();
    site.Save(site.Two(), RichSite::Based({}, {}, kStateDone));
    const Changes told = site.engine.Changes().Since(mark, 1000).changes;
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0].kind, ChangeKind::BimPhoto);
    EXPECT_EQ(told[0].id, 0);
    EXPECT_EQ(told[1].kind, ChangeKind::RichText);
    EXPECT_EQ(site.Count(u"bim_photo WHERE state = 2"_s), 201);
    ExpectTalliesCount(site);
}

TEST(RichTextStates, EveryStatementFindsItsRowsByAnIndex) {
    RichSite site;
    std::vector<QString> statements{RichListSql(2), RichUuidsSql()};
    for (const RichPlace& place :
         {site.Two(), AtIntersection(site.ppid, {}, 1), RichPlace{site.ppid, {}, 0, site.point}}) {
        const RichPhotos photos = RichPhotosOf(place);
        for (const QString& sql :
             {NewestStateSql(photos), OtherStatesSql(photos), SetStatesSql(photos)}) {
            statements.push_back(sql);
        }
    }
    for (QString sql : statements) {
        sql.replace(u"?"_s, u"'1'"_s);
        int steps = 0;
        site.folder.Db().ForEach(u"EXPLAIN QUERY PLAN "_s + sql, {}, [&](const Statement& row) {
            ++steps;
            EXPECT_FALSE(row.Text(3).startsWith(u"SCAN"_s))
                << row.Text(3).toStdString() << " in " << sql.toStdString();
        });
        EXPECT_GT(steps, 0) << sql.toStdString();
    }
}

TEST(RichTextStates, WhatATriggerLooksForItFindsByAnIndex) {
    RichSite site;
    int triggers = 0;
    site.folder.Db().ForEach(
        u"SELECT sql FROM sqlite_master WHERE type = 'trigger' AND name LIKE '%\\_rich\\_%'"
        " ESCAPE '\\'"_s,
        {}, [&](const Statement& trigger) {
            ++triggers;
            const QString text = trigger.Text(0);
            QString asked = text.mid(text.indexOf(u"SELECT"_s));
            asked = asked.left(asked.indexOf(u"), new.state"_s));
            for (const QString& column :
                 {u"ppid"_s, u"position_key"_s, u"mark_id"_s, u"floor"_s, u"checkpoint_id"_s}) {
                asked.replace(u"new."_s + column, u"'1'"_s);
            }
            QStringList plan;
            site.folder.Db().ForEach(u"EXPLAIN QUERY PLAN "_s + asked, {},
                                     [&](const Statement& row) { plan << row.Text(3); });
            ASSERT_FALSE(plan.isEmpty()) << text.toStdString();
            EXPECT_TRUE(plan[0].startsWith(u"SEARCH rich_text USING"_s)) << plan[0].toStdString();
            EXPECT_TRUE(plan[0].contains(u"mark_id=?"_s)) << plan[0].toStdString();
        });
    EXPECT_EQ(triggers, 4);
}

} // namespace site
