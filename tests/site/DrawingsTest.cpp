// Drawings and where their checkpoints lie: numbers, places, names, removal and its way back.
#include "site/IDrawings.h"

#include "site/IBin.h"
#include "site/IChanges.h"
#include "site/IComments.h"
#include "site/IPdfPhotos.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"
#include "tests/support/WaitFor.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kMadeAt = 1'700'000'000;

/// A drawing of two pages in the first of two projects, and one without a file.
struct DrawingSite : TempSite {
    DrawingSite() {
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        writer.AddMark(1, u"质量"_s, 0x0000FF);
        drawing = writer.AddDrawing(ppid, u"首层"_s, {{}, "%PDF-1.4"}, 2);
        bare = writer.AddDrawing(ppid, u"二层"_s);
    }
    [[nodiscard]] IDrawings& On() { return engine.Drawings(); }
    CheckpointFlag Set(const DrawingPlace& place = {}, qint32 number = 0) {
        const auto flag = On().AddCheckpoint({ppid}, drawing, place, number, by);
        EXPECT_TRUE(flag.has_value());
        return flag.value_or(CheckpointFlag{});
    }
    qint32 AddPhoto(qint32 checkpoint, qint32 status = 0) {
        NewPdfPhoto photo;
        photo.checkpointId = checkpoint;
        photo.fileName = u"a.jpg"_s;
        photo.uploader = u"wang"_s;
        photo.uploadTime = kMadeAt;
        photo.status = status;
        return writer.FilePdfPhoto(ppid, photo, {{}, "jpeg"});
    }
    [[nodiscard]] std::vector<CheckpointFlag> Flags() {
        return On().Flags({ppid}, drawing).value_or(std::vector<CheckpointFlag>{});
    }
    [[nodiscard]] qint64 Found(const QString& keyword) {
        ListFilter filter;
        filter.ppids = {ppid};
        filter.keyword = keyword;
        return engine.PdfPhotos().PageOf(filter, {{}, 1, 30}).total;
    }
    [[nodiscard]] bool Stored(const QString& uuid) { return folder.Store().Has(uuid); }

    SiteWriter writer{folder};
    SqliteSite engine{folder};
    const Signature by{u"li"_s, kMadeAt};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 drawing = 0;
    qint32 bare = 0;
};

/// The sentence of what is refused.
QString Refusal(const std::function<void()>& work) {
    try {
        work();
    } catch (const DataError& error) {
        EXPECT_EQ(error.GetFault(), Fault::Refused) << error.what();
        return error.Text();
    }
    ADD_FAILURE() << "nothing was refused";
    return {};
}

} // namespace

TEST(Drawings, AreListedWithTheirFilePagesAndCheckpoints) {
    DrawingSite site;
    site.Set();
    site.Set();
    const std::vector<DrawingEntry> list = site.On().List(site.ppid);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].id, site.drawing);
    EXPECT_EQ(list[0].ppid, site.ppid);
    EXPECT_EQ(list[0].name, u"首层"_s);
    EXPECT_TRUE(site.Stored(list[0].fileUuid));
    EXPECT_EQ(list[0].pages, 2);
    EXPECT_EQ(list[0].checkpoints, 2);
    EXPECT_EQ(list[1].fileUuid, QString());
    EXPECT_EQ(list[1].pages, 0);
    EXPECT_EQ(list[1].checkpoints, 0);
    EXPECT_TRUE(site.On().List(site.other).empty());
    EXPECT_EQ(site.On().Drawing({site.other, site.ppid}, site.bare)->name, u"二层"_s);
    EXPECT_FALSE(site.On().Drawing({site.other}, site.bare));
}

TEST(Drawings, OneOfANameThatTheProjectHasIsRefusedAndLeavesNoFile) {
    DrawingSite site;
    const auto stored = [&] {
        return site.folder.Db().Value(u"SELECT count(*) FROM file"_s).toInt();
    };
    const int before = stored();
    const QString text = Refusal([&] {
        site.writer.AddDrawing(site.ppid, u"首层"_s, {{}, "%PDF-1.7"}, 1);
    });
    EXPECT_TRUE(text.contains(u"已有名为“首层”的图纸"_s)) << text.toStdString();
    EXPECT_FALSE(Refusal([&] { site.writer.AddDrawing(site.ppid, u" "_s); }).isEmpty());
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(site.On().List(site.ppid).size(), 2U);
    EXPECT_NE(site.writer.AddDrawing(site.other, u"首层"_s), 0) << "another project may";
}

TEST(Drawings, ARenamedOneIsNamedSoOnItsPhotosAndInTheSearch) {
    DrawingSite site;
    site.AddPhoto(site.Set().id);
    const auto seen = site.On().Drawing({site.ppid}, site.drawing)->revision;
    EXPECT_EQ(site.On().Rename({site.ppid}, site.drawing, u"屋面"_s, site.by, seen), Saved::Yes);
    EXPECT_EQ(site.On().Drawing({site.ppid}, site.drawing)->name, u"屋面"_s);
    EXPECT_EQ(site.Found(u"屋面"_s), 1);
    EXPECT_EQ(site.Found(u"首层"_s), 0);
    EXPECT_EQ(site.On().Rename({site.ppid}, site.drawing, u"三层"_s, site.by, seen),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(site.On().Rename({site.other}, site.drawing, u"三层"_s, site.by), Saved::Gone);
    EXPECT_EQ(site.On().Rename({site.ppid}, site.drawing, u"屋面"_s, site.by), Saved::Yes)
        << "its own name is no other's";
    EXPECT_TRUE(Refusal([&] {
                    (void)site.On().Rename({site.ppid}, site.drawing, u"二层"_s, site.by);
                }).contains(u"二层"_s));
    EXPECT_EQ(site.Found(u"屋面"_s), 1);
}

TEST(Drawings, ACheckpointMoreIsNoChangeOfTheDrawing) {
    DrawingSite site;
    const auto seen = site.On().Drawing({site.ppid}, site.drawing)->revision;
    site.Set();
    EXPECT_EQ(site.On().Rename({site.ppid}, site.drawing, u"屋面"_s, site.by, seen), Saved::Yes);
}

TEST(Flags, TellNumberPlaceMarkAndWhatHangsOnThem) {
    DrawingSite site;
    const CheckpointFlag made = site.Set({1, 250, 1000}, 7);
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = made.id;
    edit.position1 = 250;
    edit.position2 = 1000;
    edit.markId = 1;
    ASSERT_EQ(site.engine.PdfPhotos().UpdateCheckpoint({site.ppid}, edit, site.by), Saved::Yes);
    site.AddPhoto(made.id);
    site.AddPhoto(made.id, 1);
    (void)site.engine.Comments().Add({site.ppid}, made.id, u"li：好"_s, site.by);
    site.writer.SetCheckpointVoice(site.ppid, made.id, {{}, "amr"});
    site.Set({}, 3);
    const std::vector<CheckpointFlag> flags = site.Flags();
    ASSERT_EQ(flags.size(), 2U);
    EXPECT_EQ(flags[0].number, 3) << "by number";
    EXPECT_EQ(flags[0].markName, QString());
    EXPECT_EQ(flags[0].markColor, kNoMarkColor);
    EXPECT_FALSE(flags[0].hasVoice);
    EXPECT_EQ(flags[1].id, made.id);
    EXPECT_EQ(flags[1].place, (DrawingPlace{1, 250, 1000}));
    EXPECT_EQ(flags[1].markId, 1);
    EXPECT_EQ(flags[1].markName, u"质量"_s);
    EXPECT_EQ(flags[1].markColor, 0x0000FF);
    EXPECT_EQ(flags[1].shownPhotos, 1);
    EXPECT_EQ(flags[1].photos, 2);
    EXPECT_EQ(flags[1].comments, 1);
    EXPECT_TRUE(flags[1].hasVoice);
    EXPECT_FALSE(site.On().Flags({site.other}, site.drawing));
    EXPECT_TRUE(site.On().Flags({site.ppid}, site.bare)->empty());
    EXPECT_EQ(site.On().DrawingOf({site.ppid}, made.id)->id, site.drawing);
    EXPECT_FALSE(site.On().DrawingOf({site.other}, made.id));
}

TEST(Flags, ANewOneBearsTheTimeAtWhichItWasSet) {
    DrawingSite site;
    const CheckpointFlag made = site.Set();
    KX_DATA::DrawingRecord before;
    ASSERT_TRUE(site.engine.PdfPhotos().Checkpoint({site.ppid}, made.id, before));
    EXPECT_EQ(site.On().MoveCheckpoint({site.ppid}, made.id, {0, 1, 1}, site.by), Saved::Yes);
    KX_DATA::DrawingRecord after;
    ASSERT_TRUE(site.engine.PdfPhotos().Checkpoint({site.ppid}, made.id, after));
    EXPECT_FALSE(before.updateTime.isEmpty());
    EXPECT_EQ(before.updateTime, after.updateTime) << "both by one signature";
}

TEST(Flags, ANewOneHasTheNextNumberWhichNoneOfTheDrawingEverHad) {
    DrawingSite site;
    EXPECT_EQ(site.Set().number, 1);
    EXPECT_EQ(site.Set({}, 9).number, 9);
    const CheckpointFlag ten = site.Set();
    EXPECT_EQ(ten.number, 10);
    ASSERT_TRUE(site.engine.Bin().DeleteCheckpoint({site.ppid}, ten.id, site.by));
    const CheckpointFlag next = site.Set();
    EXPECT_EQ(next.number, 11);
    EXPECT_GT(next.id, ten.id) << "nor its id: the bin may bring it back";
    EXPECT_TRUE(Refusal([&] { site.Set({}, 9); }).contains(u"已有检查点9"_s));
    EXPECT_EQ(site.Flags().size(), 3U);
    EXPECT_FALSE(site.On().AddCheckpoint({site.other}, site.drawing, {}, 0, site.by));
}

TEST(Flags, NumbersThatAreUsedUpAreRefused) {
    DrawingSite site;
    site.Set({}, std::numeric_limits<qint32>::max());
    EXPECT_TRUE(Refusal([&] { site.Set(); }).contains(u"已用完"_s));
    EXPECT_EQ(site.Set({}, 5).number, 5);
}

TEST(Flags, APlaceBeyondTheDrawingIsRefusedForANewOneAndAMovedOne) {
    DrawingSite site;
    const CheckpointFlag made = site.Set({0, 1, 2});
    for (const DrawingPlace& place :
         {DrawingPlace{-1, 0, 0}, {2, 0, 0}, {0, -1, 0}, {0, 1001, 0}, {0, 0, -1}, {0, 0, 1001}}) {
        EXPECT_TRUE(Refusal([&] { site.Set(place); }).contains(u"首层"_s));
        (void)Refusal(
            [&] { (void)site.On().MoveCheckpoint({site.ppid}, made.id, place, site.by); });
    }
    ASSERT_EQ(site.Flags().size(), 1U);
    EXPECT_EQ(site.Flags()[0].place, (DrawingPlace{0, 1, 2}));
    EXPECT_TRUE(site.On().AddCheckpoint({site.ppid}, site.bare, {99, 0, 0}, 0, site.by))
        << "of a drawing whose pages nobody knows";
}

TEST(Flags, AMovedOneLiesThereAndIsNotMovedOverWhatSomebodyElseDid) {
    DrawingSite site;
    const CheckpointFlag made = site.Set();
    IDrawings& drawings = site.On();
    EXPECT_EQ(drawings.MoveCheckpoint({site.ppid}, made.id, {1, 10, 20}, site.by, made.revision),
              Saved::Yes);
    EXPECT_EQ(site.Flags()[0].place, (DrawingPlace{1, 10, 20}));
    EXPECT_EQ(drawings.MoveCheckpoint({site.ppid}, made.id, {0, 1, 1}, site.by, made.revision),
              Saved::ChangedMeanwhile);
    EXPECT_EQ(drawings.MoveCheckpoint({site.other}, made.id, {0, 1, 1}, site.by), Saved::Gone);
    EXPECT_EQ(site.Flags()[0].place, (DrawingPlace{1, 10, 20}));
    KX_DATA::DrawingRecord record;
    ASSERT_TRUE(site.engine.PdfPhotos().Checkpoint({site.ppid}, made.id, record));
    EXPECT_EQ(record.position, (std::pair<qint64, qint64>(10, 20)));
}

TEST(RemovedCheckpoints, GoWithCommentsAndNoteAndComeBackWithThem) {
    DrawingSite site;
    const CheckpointFlag made = site.Set({1, 10, 20}, 4);
    const qint32 label = site.writer.AddLabel(u"消防"_s);
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = made.id;
    edit.labelNames = {QString::number(label)};
    ASSERT_EQ(site.engine.PdfPhotos().UpdateCheckpoint({site.ppid}, edit, site.by), Saved::Yes);
    (void)site.engine.Comments().Add({site.ppid}, made.id, u"li：好"_s, site.by);
    site.writer.SetCheckpointVoice(site.ppid, made.id, {{}, "amr"});
    KX_DATA::DrawingRecord before;
    ASSERT_TRUE(site.engine.PdfPhotos().Checkpoint({site.ppid}, made.id, before));
    IBin& bin = site.engine.Bin();
    EXPECT_FALSE(bin.DeleteCheckpoint({site.other}, made.id, site.by));
    EXPECT_TRUE(bin.DeleteCheckpoint({site.ppid}, made.id, site.by));
    EXPECT_FALSE(bin.DeleteCheckpoint({site.ppid}, made.id, site.by)) << "it is gone";
    EXPECT_TRUE(site.Flags().empty());
    EXPECT_FALSE(site.Stored(before.audioUuid));
    ASSERT_EQ(bin.List().size(), 1U);
    EXPECT_EQ(bin.List()[0].kind, BinKind::Checkpoint);
    EXPECT_EQ(bin.List()[0].title, u"首层 检查点4"_s);
    EXPECT_EQ(bin.List()[0].ppid, site.ppid);
    EXPECT_EQ(bin.Restore({bin.List()[0].id}), 1);
    KX_DATA::DrawingRecord after;
    ASSERT_TRUE(site.engine.PdfPhotos().Checkpoint({site.ppid}, made.id, after));
    EXPECT_EQ(after.checkpointNo, 4);
    EXPECT_EQ(after.labels, before.labels);
    EXPECT_TRUE(site.Stored(after.audioUuid));
    EXPECT_EQ(site.Flags()[0].comments, 1);
}

TEST(RemovedCheckpoints, OneWithPhotosStaysWithASentenceAlsoWhereTheyAreHidden) {
    DrawingSite site;
    const CheckpointFlag made = site.Set({}, 4);
    site.AddPhoto(made.id, 1);
    const QString text =
        Refusal([&] { site.engine.Bin().DeleteCheckpoint({site.ppid}, made.id, site.by); });
    EXPECT_EQ(text,
              u"“首层 检查点4”上还有 1 张照片，没有删除；请先把照片移到别的检查点，或删除照片。"_s);
    EXPECT_EQ(site.Flags().size(), 1U);
    EXPECT_FALSE(site.engine.Bin().DeleteCheckpoint({site.other}, made.id, site.by))
        << "what isn't there is no refusal";
}

TEST(RemovedCheckpoints, ANameIsNeverTakenForAPlaceholder) {
    DrawingSite site;
    ASSERT_EQ(site.On().Rename({site.ppid}, site.drawing, u"%2层"_s, site.by), Saved::Yes);
    const CheckpointFlag made = site.Set({}, 4);
    site.AddPhoto(made.id);
    EXPECT_EQ(Refusal([&] { site.Set({}, 4); }), u"图纸“%2层”上已有检查点4，没有增加。"_s);
    EXPECT_EQ(Refusal([&] { site.engine.Bin().DeleteCheckpoint({site.ppid}, made.id, site.by); }),
              u"“%2层 检查点4”上还有 1 张照片，没有删除；请先把照片移到别的检查点，或删除照片。"_s);
}

TEST(RemovedCheckpoints, APhotoInTheBinComesBackWithItsCheckpointAndNotWithout) {
    DrawingSite site;
    const CheckpointFlag made = site.Set();
    const qint32 photo = site.AddPhoto(made.id);
    IBin& bin = site.engine.Bin();
    ASSERT_EQ(bin.DeletePdfPhotos(site.ppid, {photo}, site.by), 1);
    const qint64 photoEntry = bin.List()[0].id;
    ASSERT_TRUE(bin.DeleteCheckpoint({site.ppid}, made.id, {u"li"_s, kMadeAt + 1}));
    const qint64 pointEntry = bin.List()[0].id;
    const QString text = Refusal([&] { bin.Restore({photoEntry}); });
    EXPECT_TRUE(text.startsWith(u"“a.jpg”所在的检查点已不存在，没有恢复"_s)) << text.toStdString();
    EXPECT_EQ(bin.List().size(), 2U);
    EXPECT_EQ(bin.Restore({photoEntry, pointEntry}), 2);
    EXPECT_EQ(site.Flags()[0].shownPhotos, 1);
    EXPECT_EQ(site.Found(u"a.jpg"_s), 1);
}

TEST(RemovedDrawings, OneWithCheckpointsStaysAndOneWithoutComesBackWithItsFile) {
    DrawingSite site;
    const CheckpointFlag made = site.Set();
    IBin& bin = site.engine.Bin();
    EXPECT_TRUE(Refusal([&] {
                    bin.DeleteDrawing({site.ppid}, site.drawing, site.by);
                }).contains(u"还有 1 个检查点"_s));
    ASSERT_TRUE(bin.DeleteCheckpoint({site.ppid}, made.id, site.by));
    EXPECT_FALSE(bin.DeleteDrawing({site.other}, site.drawing, site.by));
    const QString file = site.On().Drawing({site.ppid}, site.drawing)->fileUuid;
    ASSERT_TRUE(bin.DeleteDrawing({site.ppid}, site.drawing, {u"li"_s, kMadeAt + 1}));
    EXPECT_FALSE(site.Stored(file));
    EXPECT_EQ(bin.List()[0].kind, BinKind::Drawing);
    EXPECT_EQ(bin.List()[0].title, u"首层"_s);
    EXPECT_TRUE(Refusal([&] {
                    bin.Restore({bin.List()[1].id});
                }).startsWith(u"“首层 检查点1”所在的图纸已不存在"_s));
    const qint32 next = site.writer.AddDrawing(site.ppid, u"首层"_s);
    EXPECT_GT(next, site.bare);
    EXPECT_TRUE(Refusal([&] { bin.Restore({bin.List()[0].id}); }).contains(u"首层"_s))
        << "another one bears its name";
    ASSERT_EQ(site.On().Rename({site.ppid}, next, u"三层"_s, site.by), Saved::Yes);
    EXPECT_EQ(bin.Restore({bin.List()[1].id, bin.List()[0].id}), 2);
    EXPECT_TRUE(site.Stored(file));
    EXPECT_EQ(site.Flags().size(), 1U);
    EXPECT_EQ(site.On().Drawing({site.ppid}, site.drawing)->pages, 2);
}

TEST(Drawings, WhatOneClientDoesToADrawingAnotherIsTold) {
    DrawingSite site;
    DataFolder folder(site.folder.Path());
    ASSERT_FALSE(folder.Open({500, false}).has_value());
    SqliteSite second(folder);
    QStringList told;
    const auto listening = second.Changes().Subscribe([&](const Changes& changes) {
        for (const Change& change : changes) {
            told << u"%1 %2 %3 %4"_s.arg(static_cast<int>(change.kind))
                        .arg(change.ppid)
                        .arg(change.id)
                        .arg(change.person);
        }
    });
    const auto line = [&](ChangeKind kind, qint32 id) {
        return u"%1 %2 %3 li"_s.arg(static_cast<int>(kind)).arg(site.ppid).arg(id);
    };
    const qint32 point = site.Set().id;
    (void)site.On().MoveCheckpoint({site.ppid}, point, {0, 5, 5}, site.by);
    site.engine.Bin().DeleteCheckpoint({site.ppid}, point, site.by);
    (void)site.On().Rename({site.ppid}, site.drawing, u"屋面"_s, site.by);
    site.engine.Bin().DeleteDrawing({site.ppid}, site.drawing, site.by);
    ASSERT_TRUE(support::WaitFor([&] { return told.size() >= 5; }));
    EXPECT_EQ(
        told,
        (QStringList{line(ChangeKind::Checkpoint, point), line(ChangeKind::Checkpoint, point),
                     line(ChangeKind::Checkpoint, point), line(ChangeKind::Drawing, site.drawing),
                     line(ChangeKind::Drawing, site.drawing)}));
    EXPECT_EQ(second.Drawings().List(site.ppid).size(), 1U);
}

TEST(Drawings, AFaultInTheMiddleChangesNothing) {
    DrawingSite site;
    const CheckpointFlag made = site.Set();
    site.AddPhoto(made.id);
    site.folder.Db().Exec(u"CREATE TRIGGER broken BEFORE INSERT ON change BEGIN"
                          " SELECT RAISE(ABORT, 'broken'); END"_s);
    EXPECT_THROW(site.Set(), DataError);
    EXPECT_THROW((void)site.On().MoveCheckpoint({site.ppid}, made.id, {0, 5, 5}, site.by),
                 DataError);
    EXPECT_THROW((void)site.On().Rename({site.ppid}, site.drawing, u"屋面"_s, site.by), DataError);
    EXPECT_THROW(site.engine.Bin().DeleteDrawing({site.ppid}, site.bare, site.by), DataError);
    EXPECT_EQ(site.Flags().size(), 1U);
    EXPECT_EQ(site.Flags()[0].place, DrawingPlace{});
    EXPECT_EQ(site.On().List(site.ppid).size(), 2U);
    EXPECT_EQ(site.Found(u"首层"_s), 1);
}

} // namespace site
