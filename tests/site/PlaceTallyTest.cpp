// The counts that the database keeps are those that counting gives, whatever changed the photos.
#include "site/sqlite/PlaceTally.h"

#include "site/sqlite/BimPhotos.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Migrations.h"
#include "site/sqlite/PicPanel.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/bulk/BulkSite.h"
#include "tests/site/TempSite.h"

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

QString Listed(Database& db, const QString& sql) {
    QString lines;
    db.ForEach(sql, {}, [&](const Statement& row) {
        for (int column = 0; column < 7; ++column) {
            lines += row.Text(column) + u'|';
        }
        lines += u'\n';
    });
    return lines;
}

const QString kTally = u"bim_place_tally JOIN bim_place USING (place, ppid)"_s;

void ExpectTallyIsRight(Database& db) {
    const QString order = u" ORDER BY ppid, floor_sort, pos_text, position_key, mark_id"_s;
    EXPECT_EQ(
        Listed(db, u"SELECT ppid, floor_sort, pos_text, position_key, mark_id, floor, n FROM "_s +
                       kTally + order),
        Listed(db, u"SELECT ppid, floor_sort, pos_text, CASE WHEN floor = '' THEN '' ELSE"
                   " position_key END AS position_key, mark_id, floor, count(*) FROM bim_photo"
                   " WHERE status = 0 GROUP BY 1, 2, 3, 4, 5"_s +
                       order));
    const QString byTime = u" ORDER BY ppid, modified, id"_s;
    EXPECT_EQ(Listed(db, u"SELECT ppid, modified, id, mark_id, floor, pos_text, position_key FROM"
                         " bim_place_photo JOIN bim_place USING (place, ppid)"_s +
                             byTime),
              Listed(db, u"SELECT ppid, modified, id, mark_id, floor, pos_text, CASE WHEN floor ="
                         " '' THEN '' ELSE position_key END FROM bim_photo WHERE status = 0"_s +
                             byTime));
    EXPECT_EQ(Listed(db, u"SELECT ppid, floor_sort, pos_text, position_key, mark_id, floor, n FROM"
                         " bim_hidden_tally JOIN bim_place USING (place, ppid)"_s +
                             order),
              Listed(db, u"SELECT ppid, floor_sort, pos_text, CASE WHEN floor = '' THEN '' ELSE"
                         " position_key END AS position_key, mark_id, floor, count(*) FROM"
                         " bim_photo WHERE status <> 0 GROUP BY 1, 2, 3, 4, 5"_s +
                             order));
}

/// Three photos at one place, one elsewhere, one nowhere.
class TallySite : public TempSite {
public:
    TallySite() {
        ppid = writer.AddProject(u"一号楼"_s);
        writer.AddPosition({ppid, u"2"_s, u"A"_s, u"1"_s, u"two"_s, true});
        writer.AddPosition({ppid, u"-1"_s, u"B"_s, u"1"_s, u"low"_s, true});
        for (const QString& key : {u"two"_s, u"two"_s, u"two"_s, u"low"_s, QString()}) {
            ids.push_back(Add(key));
        }
    }

    qint32 Add(const QString& key) {
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"a.jpg"_s;
        photo.positionKey = key;
        photo.markId = 1;
        photo.uploader = u"zhang"_s;
        photo.uploadTime = 1700000000 + qint64(ids.size());
        return writer.FilePhoto(photo, {{}, "jpeg"});
    }
    [[nodiscard]] int CountAt(const QString& key, qint32 mark = 1) {
        return folder.Db()
            .Value(
                u"SELECT coalesce(sum(n), 0) FROM %1 WHERE position_key = ? AND mark_id = ?"_s.arg(
                    kTally),
                {key, mark})
            .toInt();
    }

    [[nodiscard]] int HiddenAt(const QString& key, qint32 mark = 1) {
        return folder.Db()
            .Value(u"SELECT coalesce(sum(n), 0) FROM bim_hidden_tally JOIN bim_place USING (place,"
                   " ppid) WHERE position_key = ? AND mark_id = ?"_s,
                   {key, mark})
            .toInt();
    }

    SiteWriter writer{folder};
    qint32 ppid = 0;
    std::vector<qint32> ids;
};

/// What the ninth step brought.
void DropDrawingColumns(Database& db) {
    for (const QString& trigger :
         {u"drawing_revision"_s, u"drawing_given"_s, u"checkpoint_given"_s}) {
        db.Exec(u"DROP TRIGGER "_s + trigger);
    }
    for (const QString& column : {u"pages"_s, u"last_number"_s, u"revision"_s}) {
        db.Exec(u"ALTER TABLE drawing DROP COLUMN "_s + column);
    }
    db.Exec(u"ALTER TABLE checkpoint DROP COLUMN page"_s);
}

/// What versions of the schema after this one brought.
void DropTallies(Database& db, int version) {
    DropDrawingColumns(db);
    QStringList triggers{u"hide"_s, u"unhide"_s, u"rehide"_s};
    QStringList tables{u"bim_hidden_tally"_s, u"change"_s,    u"filing"_s,        u"comment"_s,
                       u"given_id"_s,         u"component"_s, u"issue_history"_s, u"upload"_s};
    if (version < 3) {
        triggers << u"add"_s << u"remove"_s << u"move"_s;
        tables << u"bim_place_photo"_s << u"bim_place_tally"_s << u"bim_place"_s;
    }
    for (const QString& trigger : triggers) {
        db.Exec(u"DROP TRIGGER bim_place_"_s + trigger);
    }
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s}) {
        db.Exec(u"DROP TRIGGER %1_rich_add"_s.arg(table));
        db.Exec(u"DROP TRIGGER %1_rich_move"_s.arg(table));
        db.Exec(u"DROP TRIGGER %1_fact_gone"_s.arg(table));
    }
    tables << u"photo_fact"_s << u"rich_file"_s << u"rich_version"_s << u"rich_text"_s;
    for (const QString& table : tables) {
        db.Exec(u"DROP TABLE "_s + table);
    }
    db.Exec(u"DROP INDEX issue_by_code"_s);
    db.Exec(u"DROP TRIGGER issue_pic_given"_s);
    for (const QString& table : {u"bim_photo"_s, u"pdf_photo"_s, u"checkpoint"_s, u"issue"_s}) {
        db.Exec(u"DROP TRIGGER %1_revision"_s.arg(table));
        db.Exec(u"ALTER TABLE %1 DROP COLUMN revision"_s.arg(table));
    }
    for (const QString& column :
         {u"project DROP COLUMN archived"_s, u"workset DROP COLUMN archived"_s,
          u"person DROP COLUMN active"_s, u"mark DROP COLUMN place"_s}) {
        db.Exec(u"ALTER TABLE "_s + column);
    }
    if (version == 3) {
        db.Exec(u"DELETE FROM bim_place WHERE place NOT IN (SELECT place FROM bim_place_tally)"_s);
    }
}

} // namespace

TEST(PlaceTally, CountsAPhotoAsSoonAsItIsFiled) {
    TallySite site;
    EXPECT_EQ(site.CountAt(u"two"_s), 3);
    site.Add(u"two"_s);
    EXPECT_EQ(site.CountAt(u"two"_s), 4);
    EXPECT_EQ(site.CountAt(QString()), 1);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, AHiddenPhotoIsCountedApartAndOneShownAgainWithTheOthers) {
    TallySite site;
    SqliteSite engine(site.folder);
    IBimPhotos& photos = engine.BimPhotos();
    photos.SetStatus(site.ppid, {site.ids[0], site.ids[3]}, 1);
    EXPECT_EQ(site.CountAt(u"two"_s), 2);
    EXPECT_EQ(site.HiddenAt(u"two"_s), 1);
    EXPECT_EQ(site.HiddenAt(u"low"_s), 1);
    ExpectTallyIsRight(site.folder.Db());
    photos.SetStatus(site.ppid, {site.ids[0], site.ids[0]}, 0);
    EXPECT_EQ(site.CountAt(u"two"_s), 3);
    EXPECT_EQ(site.HiddenAt(u"two"_s), 0);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, ThePlaceGoesWithItsLastPhotoAndComesBackOutOfTheBin) {
    TallySite site;
    Bin bin(site.folder.Db(), site.folder.Store());
    ASSERT_EQ(bin.DeleteBimPhotos({site.ppid}, {site.ids[3]}, {u"li"_s, 1800000000}), 1);
    EXPECT_EQ(
        site.folder.Db().Value(u"SELECT count(*) FROM %1 WHERE floor = '-1'"_s.arg(kTally)).toInt(),
        0);
    ASSERT_EQ(bin.Restore({bin.List().front().id}), 1);
    EXPECT_EQ(site.CountAt(u"low"_s), 1);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, AnEditMovesThePhotoToItsNewMarkAndPlace) {
    TallySite site;
    SqliteSite engine(site.folder);
    IBimPhotos& photos = engine.BimPhotos();
    KX_DATA::BimPicUpdate update;
    update.picId = site.ids[0];
    update.fileName = u"b.jpg"_s;
    update.positionKey = u"low"_s;
    update.markId = 7;
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000000}), Saved::Yes);
    EXPECT_EQ(site.CountAt(u"two"_s), 2);
    EXPECT_EQ(site.CountAt(u"low"_s, 7), 1);
    update.status = 1;
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000001}), Saved::Yes);
    EXPECT_EQ(site.CountAt(u"low"_s, 7), 0);
    EXPECT_EQ(site.HiddenAt(u"low"_s, 7), 1);
    ExpectTallyIsRight(site.folder.Db());
    update.positionKey = u"two"_s;
    update.markId = 8;
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000001}), Saved::Yes);
    EXPECT_EQ(site.HiddenAt(u"low"_s, 7), 0);
    EXPECT_EQ(site.HiddenAt(u"two"_s, 8), 1);
    update.markId = 7;
    update.status = 0;
    update.positionKey.clear();
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000002}), Saved::Yes);
    EXPECT_EQ(site.CountAt(QString(), 7), 1);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, AHiddenPhotoGoesWithItsDeletionAndComesBackHidden) {
    TallySite site;
    SqliteSite(site.folder).BimPhotos().SetStatus(site.ppid, {site.ids[3]}, 1);
    Bin bin(site.folder.Db(), site.folder.Store());
    ASSERT_EQ(bin.DeleteBimPhotos({site.ppid}, {site.ids[3]}, {u"li"_s, 1800000000}), 1);
    EXPECT_EQ(site.HiddenAt(u"low"_s), 0);
    ExpectTallyIsRight(site.folder.Db());
    ASSERT_EQ(bin.Restore({bin.List().front().id}), 1);
    EXPECT_EQ(site.HiddenAt(u"low"_s), 1);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, AChangeThatIsUndoneLeavesTheCounts) {
    TallySite site;
    {
        Transaction transaction(site.folder.Db());
        SqliteSite(site.folder).BimPhotos().SetStatus(site.ppid, {site.ids[0]}, 1);
    }
    EXPECT_EQ(site.CountAt(u"two"_s), 3);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, PhotosWithoutAFloorShareOnePlaceWhateverTheirKey) {
    TallySite site;
    site.Add(u"a key that no position has"_s);
    EXPECT_EQ(site.CountAt(QString()), 2);
    ExpectTallyIsRight(site.folder.Db());
}

TEST(PlaceTally, IsRightAfterABulkFilling) {
    TempSite site;
    bulk::FillBulkSite(site.folder, {2000, 0, 0, 3, 60});
    ExpectTallyIsRight(site.folder.Db());
    EXPECT_GT(site.folder.Db().Value(u"SELECT sum(n) FROM bim_place_tally"_s).toInt(), 1500);
}

TEST(PlaceTally, AFolderOfAnEarlierSchemaIsCountedWhenItIsOpened) {
    for (const int version : {1, 2, 3}) {
        TempSite site;
        bulk::FillBulkSite(site.folder, {500, 0, 20, 2, 60});
        Database& db = site.folder.Db();
        DropTallies(db, version);
        if (version == 1) {
            db.Exec(u"DROP INDEX issue_panel"_s);
        } else if (version == 2) {
            // Its table had the same name and other columns.
            db.Exec(u"CREATE TABLE bim_place_tally (ppid INTEGER, floor TEXT, n INTEGER)"_s);
            db.Exec(
                u"CREATE TRIGGER bim_place_tally_add AFTER INSERT ON bim_photo BEGIN INSERT INTO"
                " bim_place_tally VALUES (new.ppid, new.floor, 1); END"_s);
        }
        db.Exec(u"DELETE FROM schema_version WHERE version > ?"_s, {version});
        DataFolder again(site.folder.Path());
        ASSERT_FALSE(again.Open().has_value());
        ExpectTallyIsRight(again.Db());
        again.Db().Exec(u"UPDATE bim_photo SET status = 1 - status"_s);
        ExpectTallyIsRight(again.Db());
    }
}

TEST(PicPanelFloors, CountedByTheTableAndByLookingAtThePhotosAreTheSame) {
    TempSite site;
    bulk::FillBulkSite(site.folder, {3000, 0, 0, 3, 60});
    PanelFilter all;
    all.ppids = {2, 1, 2};
    PanelFilter limited = all;
    limited.timed = true;
    limited.to = 4000000000;
    PicPanel panel(site.folder.Db());
    const auto counted = panel.Floors(all);
    const auto looked = panel.Floors(limited);
    ASSERT_EQ(counted.size(), looked.size());
    qint32 hidden = 0;
    for (size_t floor = 0; floor < counted.size(); ++floor) {
        EXPECT_EQ(counted[floor].name, looked[floor].name);
        ASSERT_EQ(counted[floor].places.size(), looked[floor].places.size());
        for (size_t place = 0; place < counted[floor].places.size(); ++place) {
            const PanelPlace& one = counted[floor].places[place];
            const PanelPlace& other = looked[floor].places[place];
            EXPECT_EQ(one.positionKey, other.positionKey);
            ASSERT_EQ(one.marks.size(), other.marks.size());
            for (size_t mark = 0; mark < one.marks.size(); ++mark) {
                EXPECT_EQ(one.marks[mark].markId, other.marks[mark].markId);
                EXPECT_EQ(one.marks[mark].count, other.marks[mark].count);
                EXPECT_EQ(one.marks[mark].hidden, other.marks[mark].hidden);
                hidden += one.marks[mark].hidden;
                EXPECT_TRUE(one.marks[mark].picIds.empty());
                EXPECT_EQ(other.marks[mark].picIds.size(), size_t(other.marks[mark].count));
            }
        }
    }
    EXPECT_GT(hidden, 100);
}

TEST(PicPanelFloors, HiddenPhotosAreCountedApartAndLikeTheOthersWithinTheLimits) {
    TallySite site;
    SqliteSite(site.folder)
        .BimPhotos()
        .SetStatus(site.ppid, {site.ids[0], site.ids[3], site.ids[4]}, 1);
    PicPanel panel(site.folder.Db());
    const auto floors = panel.Floors({{site.ppid}, {}, false, 0, 0});
    ASSERT_EQ(floors.size(), 3U);
    EXPECT_EQ(floors[0].places[0].marks[0].hidden, 1);
    EXPECT_FALSE(HasShownPhotos(floors[1]));
    EXPECT_EQ(floors[1].places[0].marks[0].hidden, 1);
    EXPECT_EQ(floors[2].places[0].marks[0].count, 2);
    EXPECT_EQ(floors[2].places[0].marks[0].hidden, 1);
    const auto late = panel.Floors({{site.ppid}, {}, true, 1700000003, 1800000000});
    ASSERT_EQ(late.size(), 2U);
    EXPECT_EQ(late[1].name, u"-1"_s);
    EXPECT_EQ(late[1].places[0].marks[0].hidden, 1);
    EXPECT_TRUE(panel.Floors({{site.ppid}, u"li"_s, false, 0, 0}).empty());
    EXPECT_EQ(panel.Floors({{site.ppid}, u"zhang"_s, false, 0, 0}).size(), 3U);
}

TEST(PicPanelFloors, UnderLimitsAMarkHasItsPhotosByTheirLastChange) {
    TallySite site;
    SqliteSite engine(site.folder);
    IBimPhotos& photos = engine.BimPhotos();
    KX_DATA::BimPicUpdate update;
    update.picId = site.ids[1];
    update.fileName = u"b.jpg"_s;
    update.positionKey = u"two"_s;
    update.markId = 1;
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000000}), Saved::Yes);
    PicPanel panel(site.folder.Db());
    PanelFilter filter{{site.ppid}, {}, true, 1700000000, 1800000000};
    const auto everything = panel.Floors(filter);
    ASSERT_EQ(everything.size(), 3U);
    EXPECT_EQ(everything[2].places[0].marks[0].picIds,
              (std::vector<qint32>{site.ids[0], site.ids[2], site.ids[1]}));
    filter.to = 1799999999;
    EXPECT_EQ(panel.Floors(filter)[2].places[0].marks[0].picIds,
              (std::vector<qint32>{site.ids[0], site.ids[2]}));
    filter.from = filter.to;
    EXPECT_TRUE(panel.Floors(filter).empty());
}

TEST(PicPanelFloors, APersonHasThePhotosThatThePersonChangedLast) {
    TallySite site;
    SqliteSite engine(site.folder);
    IBimPhotos& photos = engine.BimPhotos();
    KX_DATA::BimPicUpdate update;
    update.picId = site.ids[3];
    update.fileName = u"b.jpg"_s;
    update.positionKey = u"low"_s;
    update.markId = 1;
    ASSERT_EQ(photos.Update(site.ppid, update, {u"li"_s, 1800000000}), Saved::Yes);
    PicPanel panel(site.folder.Db());
    PanelFilter filter{{site.ppid}, u"li"_s, false, 0, 0};
    const auto floors = panel.Floors(filter);
    ASSERT_EQ(floors.size(), 1U);
    EXPECT_EQ(floors[0].name, u"-1"_s);
    EXPECT_EQ(floors[0].places[0].marks[0].picIds, std::vector<qint32>{site.ids[3]});
    filter.timed = true;
    filter.to = 1799999999;
    EXPECT_TRUE(panel.Floors(filter).empty());
}

// A million photos at ten thousand places: the other way round takes hours.
TEST(PlaceTally, ItIsFilledByGoingThroughThePhotosOnce) {
    TempSite site;
    Database& db = site.folder.Db();
    for (const QString& fill :
         {PlaceTallyFillSql().at(1), HiddenTallyFillSql().at(1),
          HiddenCountsSql(u" AND photo.ppid = 1 AND photo.modified BETWEEN 5 AND 9"_s)}) {
        QStringList steps;
        db.ForEach(u"EXPLAIN QUERY PLAN "_s + fill, {},
                   [&](const Statement& row) { steps << row.Text(3); });
        ASSERT_GE(steps.size(), 2) << fill.toStdString();
        EXPECT_TRUE(steps[0].contains(u" photo"_s)) << steps[0].toStdString();
        EXPECT_TRUE(steps[1].startsWith(u"SEARCH bim_place"_s)) << steps[1].toStdString();
        EXPECT_TRUE(steps[1].contains(u"floor=?"_s)) << steps[1].toStdString();
    }
}

} // namespace site
