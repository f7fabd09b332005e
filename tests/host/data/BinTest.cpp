#include "host/data/Bin.h"

#include "host/data/Database.h"
#include "host/data/FileStore.h"
#include "host/data/Issues.h"
#include "host/data/ListQuery.h"
#include "tests/host/data/TempSite.h"

#include <QDateTime>
#include <QFile>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

class BinSite : public TempSite {
public:
    BinSite() : bin(folder.Db(), folder.Store()) {
        SiteWriter writer(folder);
        ppid = writer.AddProject(u"一号楼"_s);
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"外墙.jpg"_s;
        photo.description = u"空鼓"_s;
        photo.labelIds = {writer.AddLabel(u"质量"_s)};
        picId = writer.FilePhoto(photo, {{}, "jpeg"}, {{}, "amr"});
    }

    [[nodiscard]] qint64 Count(const QString& table) {
        return folder.Db().Value(u"SELECT count(*) FROM "_s + table).toLongLong();
    }
    [[nodiscard]] qint64 Hits(const QString& keyword) {
        ListFilter filter;
        filter.ppids = {ppid};
        filter.keyword = keyword;
        return ListQuery(folder.Db()).Fetch(ListKind::kBimPhotos, filter, {}, 1, 30).total;
    }

    Bin bin;
    qint32 ppid = 0;
    qint32 picId = 0;
};

} // namespace

TEST(Bin, ADeletedPhotoIsNeitherListedNorFoundNorInTheStore) {
    BinSite site;
    ASSERT_EQ(site.Hits(u"空鼓"_s), 1);
    EXPECT_EQ(site.bin.DeleteBimPhotos({site.picId}, u"li"_s), 1);
    EXPECT_EQ(site.Hits(u"空鼓"_s), 0);
    EXPECT_EQ(site.Hits({}), 0);
    EXPECT_EQ(site.Count(u"file"_s), 0);
    EXPECT_EQ(site.Count(u"bim_label"_s), 0);
    EXPECT_EQ(site.folder.Store().NamesInBin().size(), 2u);
}

TEST(Bin, ARestoredPhotoIsFoundAgainUnderItsOldId) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.picId}, u"li"_s);
    site.bin.Restore({site.bin.List().front().id});
    EXPECT_EQ(site.Hits(u"空鼓"_s), 1);
    EXPECT_EQ(site.folder.Db().Value(u"SELECT id FROM bim_photo"_s).toInt(), site.picId);
    EXPECT_EQ(site.Count(u"file"_s), 2);
    EXPECT_EQ(site.Count(u"bim_label"_s), 1);
    EXPECT_TRUE(site.folder.Store().NamesInBin().empty());
}

TEST(Bin, TheIdOfADeletedPhotoIsNotGivenAgain) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.picId}, u"li"_s);
    NewBimPhoto photo;
    photo.ppid = site.ppid;
    photo.fileName = u"b.jpg"_s;
    EXPECT_GT(SiteWriter(site.folder).FilePhoto(photo, {{}, "x"}), site.picId);
}

TEST(Bin, EntriesPastThirtyDaysGoAtTheNextOpening) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.picId}, u"li"_s);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    site.folder.Db().Exec(u"UPDATE bin SET deleted_at = ?"_s, {now - kBinSeconds + 60});
    site.bin.PurgeOld();
    EXPECT_EQ(site.bin.List().size(), 1u);
    site.folder.Db().Exec(u"UPDATE bin SET deleted_at = ?"_s, {now - kBinSeconds - 60});
    site.folder.Close();
    ASSERT_FALSE(site.folder.Open().has_value());
    EXPECT_EQ(site.Count(u"bin"_s), 0);
    EXPECT_TRUE(site.folder.Store().NamesInBin().empty());
}

TEST(Bin, FilesThatACrashLeftInTheWrongPlaceFollowTheirRows) {
    BinSite site;
    const QString uuid = site.folder.Db().Value(u"SELECT file_uuid FROM bim_photo"_s).toString();
    site.bin.DeleteBimPhotos({site.picId}, u"li"_s);
    site.folder.Store().MoveFromBin(uuid); // as if the process had died after the commit
    site.bin.Reconcile();
    EXPECT_FALSE(site.folder.Store().Has(uuid));
    site.bin.Restore({site.bin.List().front().id});
    site.folder.Store().MoveToBin(uuid);
    site.bin.Reconcile();
    EXPECT_TRUE(site.folder.Store().Has(uuid));
}

TEST(Bin, DrawingPhotosOfAnotherProjectStay) {
    BinSite site;
    SiteWriter writer(site.folder);
    NewCheckpoint point;
    point.drawingId = writer.AddDrawing(site.ppid, u"一层平面"_s);
    NewPdfPhoto photo;
    photo.checkpointId = writer.AddCheckpoint(point);
    photo.fileName = u"p.jpg"_s;
    const qint32 picId = writer.FilePdfPhoto(photo, {{}, "x"});
    EXPECT_EQ(site.bin.DeletePdfPhotos(site.ppid + 1, {picId}, u"li"_s), 0);
    EXPECT_EQ(site.bin.DeletePdfPhotos(site.ppid, {picId}, u"li"_s), 1);
    EXPECT_EQ(site.bin.Restore({site.bin.List().front().id}), 1);
    EXPECT_EQ(site.Count(u"pdf_photo"_s), 1);
}

TEST(Bin, AnIssueComesBackWithPicturesAndRectification) {
    BinSite site;
    SiteWriter writer(site.folder);
    NewIssue issue;
    issue.ppid = site.ppid;
    issue.theme = u"裂缝"_s;
    issue.rectifier = u"wang"_s;
    issue.rectifyText = u"已修补"_s;
    const QString questionId = writer.FileIssue(issue, {{}, "amr"});
    writer.FileIssuePic({questionId, false, u"a.jpg"_s, u"li"_s, 1}, {{}, "one"});
    writer.FileIssuePic({questionId, true, u"b.jpg"_s, u"li"_s, 1}, {{}, "two"}, {{}, "small"});
    const qint64 files = site.Count(u"file"_s);

    EXPECT_EQ(site.bin.DeleteIssues({questionId}, u"li"_s), 1);
    EXPECT_EQ(site.Count(u"issue_pic"_s) + site.Count(u"rectification"_s), 0);
    EXPECT_EQ(site.bin.List().front().title, u"裂缝"_s);
    EXPECT_EQ(site.bin.Restore({site.bin.List().front().id}), 1);

    EXPECT_EQ(site.Count(u"file"_s), files);
    KX_DATA::RectifyRecord record;
    ASSERT_TRUE(Issues(site.folder.Db()).Rectification(questionId, record));
    EXPECT_EQ(record.rectifyText, u"已修补"_s);
    ASSERT_EQ(record.pics.size(), 1u);
    EXPECT_NE(record.pics[0].fileMd5, record.pics[0].thumbMd5);
}

TEST(Bin, UnknownEntriesArePassedOver) {
    BinSite site;
    EXPECT_EQ(site.bin.Restore({4711}), 0);
    site.bin.Purge({4711});
    EXPECT_EQ(site.bin.DeleteIssues({u"nothing"_s}, u"li"_s), 0);
    EXPECT_TRUE(site.bin.List().empty());
}

} // namespace host
