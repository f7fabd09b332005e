// Data folders of earlier clients: what they hold is kept, and what came since works on it.
#include "site/sqlite/Migrations.h"

#include "site/IBin.h"
#include "site/IChanges.h"
#include "site/IComments.h"
#include "site/IDrawings.h"
#include "site/IIssues.h"
#include "site/IPhotoFacts.h"
#include "site/IRichTexts.h"
#include "site/RectifyStates.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;

/// A folder with a project, a setting, a drawing and a checkpoint, as a client of that schema left
/// it, opened by this one; `more` is a statement of that client's.
class OldSite {
public:
    explicit OldSite(int version, const QString& more = {}) {
        {
            Database old(m_dir.filePath(u"site.db"_s), 500);
            const auto steps = SchemaSteps();
            for (int step = 0; step < version; ++step) {
                for (const QString& statement : steps[size_t(step)]) {
                    old.Exec(statement);
                }
            }
            old.Exec(u"INSERT INTO schema_version VALUES (?, 0)"_s, {version});
            old.Exec(u"INSERT INTO project (ppid, name, major) VALUES (7, '一号楼', 1)"_s);
            old.Exec(u"INSERT INTO setting VALUES ('a', 'b')"_s);
            old.Exec(
                u"INSERT INTO drawing (id, ppid, name, file_uuid) VALUES (1, 7, '首层', '')"_s);
            old.Exec(
                u"INSERT INTO checkpoint (id, drawing_id, number, description, remark, mark_id,"
                " x, y, updated, audio_uuid) VALUES (1, 1, 4, '柱', '', 0, 250, 125, 0, '')"_s);
            if (!more.isEmpty()) {
                old.Exec(more);
            }
        }
        folder = std::make_unique<DataFolder>(m_dir.path());
        const auto fault = folder->Open();
        EXPECT_FALSE(fault.has_value()) << fault->text.toStdString();
    }
    Database& Db() { return folder->Db(); }

private:
    QTemporaryDir m_dir;

public:
    std::unique_ptr<DataFolder> folder;
};

} // namespace

TEST(Migrations, EveryFolderOfAnEarlierClientReachesThePresentSchemaWithAllThatItHolds) {
    for (int version = 1; version < kSchemaVersion; ++version) {
        OldSite site(version);
        EXPECT_EQ(site.Db().Value(u"SELECT max(version) FROM schema_version"_s).toInt(),
                  kSchemaVersion);
        EXPECT_EQ(SiteWriter(*site.folder).FindProject(u"一号楼"_s), 7) << version;
        EXPECT_EQ(site.Db().Value(u"SELECT value FROM setting"_s), QVariant(u"b"_s));
        EXPECT_EQ(site.Db().Value(u"SELECT description FROM checkpoint WHERE number = 4"_s),
                  QVariant(u"柱"_s));
        SiteWriter(*site.folder).AddProject(u"二号楼"_s);
        EXPECT_EQ(site.Db().Log().Since(0, 100).changes.back().kind, ChangeKind::Project);
    }
}

TEST(Migrations, ChangesOfACheckpointAreCountedFromTheSeventhOn) {
    OldSite site(6);
    const QString revision = u"SELECT revision FROM checkpoint WHERE number >= 4"_s;
    EXPECT_EQ(site.Db().Value(revision), QVariant(0LL));
    site.Db().Exec(u"UPDATE checkpoint SET number = 5"_s);
    EXPECT_EQ(site.Db().Value(revision), QVariant(1LL));
}

TEST(Migrations, ACheckpointTakesCommentsFromTheEighthOn) {
    OldSite site(7);
    SqliteSite engine(*site.folder);
    ASSERT_TRUE(engine.Comments().Add({7}, 1, u"li：好"_s, {u"li"_s, 1'700'000'000}));
    EXPECT_EQ(engine.Comments().PageOf({7}, 1, 0, 50)->size(), 1U);
}

TEST(Migrations, ADrawingOfBeforeHasItsCheckpointsOnTheFirstPageAndNumbersGoOn) {
    OldSite site(8);
    SqliteSite engine(*site.folder);
    const auto flags = engine.Drawings().Flags({7}, 1);
    ASSERT_TRUE(flags && flags->size() == 1);
    EXPECT_EQ(flags->at(0).place, (DrawingPlace{0, 250, 125}));
    EXPECT_EQ(engine.Drawings().List(7)[0].pages, 0);
    const auto next = engine.Drawings().AddCheckpoint({7}, 1, {3, 0, 0}, 0, {u"li"_s, 5});
    ASSERT_TRUE(next);
    EXPECT_EQ(next->number, 5);
    EXPECT_GT(next->id, 1);
}

TEST(Migrations, AnIssueOfBeforeHasItsRaisingAsHistoryAndComesBackFromAnOldBin) {
    OldSite site(9);
    site.Db().Exec(u"INSERT INTO bin (kind, ppid, object_id, title, deleted_by, deleted_at,"
                   " content) VALUES (3, 7, 5, '裂缝', 'li', 4000000000, ?)"_s,
                   {uR"([{"table":"issue","rows":[{"id":5,"question_id":"q","ppid":7,
"theme":"裂缝","description":"","floor":"1","floor_sort":"1","pos_info":"","component_name":"",
"component_sub_name":"","component_handle":"","mark_id":1,"qr_code":"","voice_uuid":"","state":0,
"status":0,"creator":"li","created":100,"updater":"","updated":0,"modifier":"li","modified":100}]},
{"table":"rectification","rows":[]},{"table":"issue_pic","rows":[]},
{"table":"file","rows":[]}])"_s});
    SqliteSite engine(*site.folder);
    ASSERT_EQ(engine.Bin().Restore({engine.Bin().List().front().id}), 1);
    const auto lines = engine.Issues().History(7, u"q"_s);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].deed, IssueDeed::Raised);
    EXPECT_EQ(lines[0].person, u"li"_s);
    EXPECT_EQ(lines[0].at, 100);
}

TEST(Migrations, PhotosOfBeforeKeepTheirStatesUntilTheirPlaceIsSaved) {
    OldSite site(10,
                 u"INSERT INTO pdf_photo (id, ppid, checkpoint_id, drawing_id, drawing_name,"
                 " checkpoint_no, name, description, mark_id, file_uuid, state, status,"
                 " uploader, uploaded, updater, updated, modifier, modified) VALUES (5, 7, 1, 1,"
                 " '首层', 4, 'a.jpg', '', 0, '', 2, 0, 'li', 100, '', 0, 'li', 100)"_s);
    SqliteSite engine(*site.folder);
    const RichPlace place = AtCheckpoint(1);
    EXPECT_EQ(engine.RichTexts().Newest({7}, place)->state, kStateDone);
    ASSERT_TRUE(engine.RichTexts().Save({7}, place, {{}, {}, kStateInProgress, {}, {}},
                                        {u"li"_s, 1'700'000'000}));
    const QString tally = u"SELECT n FROM pdf_tally WHERE state = ?"_s;
    EXPECT_EQ(site.Db().Value(tally, {kStateDone}), QVariant(0LL));
    EXPECT_EQ(site.Db().Value(tally, {kStateInProgress}), QVariant(1LL));
}

TEST(Migrations, APhotoOfBeforeHasNoFactsAndThoseThatComeHave) {
    OldSite site(12);
    SqliteSite engine(*site.folder);
    NewBimPhoto photo;
    photo.ppid = 7;
    photo.fileName = u"a.jpg"_s;
    photo.facts.camera = u"Model"_s;
    const qint32 picId = SiteWriter(*site.folder).FilePhoto(photo, {{}, "x"});
    ASSERT_EQ(engine.PhotoFacts().Of({7}, {picId}).size(), 1U);
    EXPECT_EQ(engine.PhotoFacts().Of({7}, {picId})[0].facts.camera, u"Model"_s);
}

} // namespace site
