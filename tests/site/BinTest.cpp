#include "site/sqlite/Bin.h"

#include "site/blobs/FileStore.h"
#include "site/blobs/SetAside.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/Issues.h"
#include "site/sqlite/ListQuery.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

const qint64 kNow = QDateTime::currentSecsSinceEpoch();

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
        return ListQuery(folder.Db()).Fetch(ListKind::BimPhotos, filter, {{}, 1, 30}).total;
    }

    void Reconcile() {
        SetAside aside(folder.Path(), u"2026-11-22"_s);
        bin.Reconcile(aside);
        EXPECT_EQ(aside.Story(), QString());
    }
    /// The entry of the photo, changed in the table as a damaged or a later client's.
    [[nodiscard]] qint64 DeletedAs(const QString& column, const QVariant& value) {
        bin.DeleteBimPhotos({ppid}, {picId}, {u"li"_s, kNow});
        folder.Db().Exec(u"UPDATE bin SET %1 = ?"_s.arg(column), {value});
        return bin.List().front().id;
    }
    /// The sentence with which a restoration is refused; nothing has changed then.
    [[nodiscard]] QString RefusalOf(qint64 binId, Fault expected) {
        try {
            (void)bin.Restore({binId});
            ADD_FAILURE() << "restored";
        } catch (const DataError& error) {
            EXPECT_EQ(error.GetFault(), expected) << error.what();
            EXPECT_EQ(Count(u"bin"_s), 1);
            EXPECT_EQ(Count(u"bin_file"_s), 2);
            EXPECT_EQ(Count(u"bim_photo"_s) + Count(u"file"_s), 0);
            return error.Text();
        }
        return {};
    }

    Bin bin;
    qint32 ppid = 0;
    qint32 picId = 0;
};

} // namespace

TEST(Bin, ADeletedPhotoIsNeitherListedNorFoundNorInTheStore) {
    BinSite site;
    ASSERT_EQ(site.Hits(u"空鼓"_s), 1);
    EXPECT_EQ(site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow}), 1);
    EXPECT_EQ(site.Hits(u"空鼓"_s), 0);
    EXPECT_EQ(site.Hits({}), 0);
    EXPECT_EQ(site.Count(u"file"_s), 0);
    EXPECT_EQ(site.Count(u"bim_label"_s), 0);
    EXPECT_EQ(site.folder.Store().NamesInBin().size(), 2u);
}

TEST(Bin, ARestoredPhotoIsFoundAgainUnderItsOldId) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow});
    site.bin.Restore({site.bin.List().front().id});
    EXPECT_EQ(site.Hits(u"空鼓"_s), 1);
    EXPECT_EQ(site.folder.Db().Value(u"SELECT id FROM bim_photo"_s).toInt(), site.picId);
    EXPECT_EQ(site.Count(u"file"_s), 2);
    EXPECT_EQ(site.Count(u"bim_label"_s), 1);
    EXPECT_TRUE(site.folder.Store().NamesInBin().empty());
}

TEST(Bin, TheIdOfADeletedPhotoIsNotGivenAgain) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow});
    NewBimPhoto photo;
    photo.ppid = site.ppid;
    photo.fileName = u"b.jpg"_s;
    EXPECT_GT(SiteWriter(site.folder).FilePhoto(photo, {{}, "x"}), site.picId);
}

TEST(Bin, EntriesPastThirtyDaysGoAtTheNextOpening) {
    BinSite site;
    site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow});
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    site.folder.Db().Exec(u"UPDATE bin SET deleted_at = ?"_s, {now - kBinSeconds + 60});
    site.bin.PurgeOld(kNow);
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
    site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow});
    site.folder.Store().MoveFromBin(uuid); // as if the process had died after the commit
    site.Reconcile();
    EXPECT_FALSE(site.folder.Store().Has(uuid));
    site.bin.Restore({site.bin.List().front().id});
    site.folder.Store().MoveToBin(uuid);
    site.Reconcile();
    EXPECT_TRUE(site.folder.Store().Has(uuid));
}

TEST(Bin, AnUnknownKindIsListedAndRefusedWithASentence) {
    BinSite site;
    const qint64 binId = site.DeletedAs(u"kind"_s, 9);
    const QString text = site.RefusalOf(binId, Fault::Newer);
    EXPECT_TRUE(text.contains(u"外墙.jpg"_s) && text.contains(u"升级"_s)) << text.toStdString();
}

TEST(Bin, ADamagedEntryIsRefusedAndStays) {
    const QStringList damages = {
        u""_s,
        u"[{\"table\":"_s,
        u"[]"_s,
        u"[{\"table\":\"bim_photo\",\"rows\":[]},{\"table\":\"bim_label\",\"rows\":[]},"
        "{\"table\":\"file\",\"rows\":[]}]"_s,
    };
    for (const QString& damage : damages) {
        BinSite site;
        const qint64 binId = site.DeletedAs(u"content"_s, damage);
        const QString text = site.RefusalOf(binId, Fault::Damaged);
        EXPECT_TRUE(text.contains(u"外墙.jpg"_s) && text.contains(u"损坏"_s)) << text.toStdString();
    }
}

TEST(Bin, NamesFromAnEntryNeverReachAStatementUnchecked) {
    const std::vector<std::pair<QString, QString>> crafts = {
        {u"\"bim_label\""_s, u"\"person\""_s},
        {u"\"description\""_s, u"\"description) VALUES (1); DROP TABLE bim_photo; --\""_s},
        {u"\"mark_id\""_s, u"\"unheard_of\""_s},
        {u"\"uuid\":\""_s, u"\"uuid\":\"../../"_s},
    };
    for (const auto& [from, to] : crafts) {
        BinSite site;
        site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow});
        QString content = site.folder.Db().Value(u"SELECT content FROM bin"_s).toString();
        ASSERT_TRUE(content.contains(from)) << content.toStdString();
        site.folder.Db().Exec(u"UPDATE bin SET content = ?"_s, {content.replace(from, to)});
        const QString text = site.RefusalOf(site.bin.List().front().id, Fault::Damaged);
        EXPECT_TRUE(text.contains(u"损坏"_s)) << to.toStdString();
    }
}

TEST(Bin, WhereAFileBelongsIsAskedUnderTheWriteLock) {
    BinSite site;
    const QString uuid = site.folder.Db().Value(u"SELECT file_uuid FROM bim_photo"_s).toString();
    site.folder.Store().MoveToBin(uuid); // another process restores it: its row is written last
    site.folder.Db().Exec(u"DELETE FROM file WHERE uuid = ?"_s, {uuid});
    Database restorer(site.folder.DatabasePath(), 100);
    {
        Transaction restoring(restorer);
        restorer.Exec(u"INSERT INTO file VALUES (?, '', 5, 1, 1, 1)"_s, {uuid});
        SetAside aside(site.folder.Path(), u"2026-11-22"_s);
        EXPECT_THROW(site.bin.Reconcile(aside), DataError) << "decided on half of a restoration";
        restoring.Commit();
    }
    site.Reconcile();
    EXPECT_TRUE(site.folder.Store().Has(uuid));
}

TEST(Bin, AFileThatCannotBeMovedIsToldAndStays) {
    BinSite site;
    QStringList told;
    site.folder.SetTold([&](const QString& text) { told << text; });
    ASSERT_TRUE(QDir().rmdir(site.folder.BinPath()));
    QFile inTheWay(site.folder.BinPath());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const QString uuid = site.folder.Db().Value(u"SELECT file_uuid FROM bim_photo"_s).toString();
    EXPECT_EQ(site.bin.DeleteBimPhotos({site.ppid}, {site.picId}, {u"li"_s, kNow}), 1);
    EXPECT_TRUE(site.folder.Store().Has(uuid));
    ASSERT_EQ(told.size(), 2) << "picture and note";
    EXPECT_TRUE(told.join(u' ').contains(uuid)) << told[0].toStdString();
    ASSERT_TRUE(inTheWay.remove());
    site.Reconcile();
    EXPECT_EQ(site.folder.Store().NamesInBin().size(), 2U);
}

TEST(Bin, DrawingPhotosOfAnotherProjectStay) {
    BinSite site;
    SiteWriter writer(site.folder);
    NewCheckpoint point;
    point.drawingId = writer.AddDrawing(site.ppid, u"一层平面"_s);
    NewPdfPhoto photo;
    photo.checkpointId = writer.AddCheckpoint(site.ppid, point);
    photo.fileName = u"p.jpg"_s;
    const qint32 picId = writer.FilePdfPhoto(site.ppid, photo, {{}, "x"});
    EXPECT_EQ(site.bin.DeletePdfPhotos(site.ppid + 1, {picId}, {u"li"_s, kNow}), 0);
    EXPECT_EQ(site.bin.DeletePdfPhotos(site.ppid, {picId}, {u"li"_s, kNow}), 1);
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
    writer.FileIssuePic(site.ppid, {questionId, false, u"a.jpg"_s, u"li"_s, 1}, {{}, "one"});
    writer.FileIssuePic(site.ppid, {questionId, true, u"b.jpg"_s, u"li"_s, 1}, {{}, "two"},
                        {{}, "small"});
    const qint64 files = site.Count(u"file"_s);

    EXPECT_EQ(site.bin.DeleteIssues({site.ppid}, {questionId}, {u"li"_s, kNow}), 1);
    EXPECT_EQ(site.Count(u"issue_pic"_s) + site.Count(u"rectification"_s), 0);
    EXPECT_EQ(site.bin.List().front().title, u"裂缝"_s);
    EXPECT_EQ(site.bin.Restore({site.bin.List().front().id}), 1);

    EXPECT_EQ(site.Count(u"file"_s), files);
    KX_DATA::RectifyRecord record;
    ASSERT_TRUE(SqliteSite(site.folder).Issues().Rectification({site.ppid}, questionId, record));
    EXPECT_EQ(record.rectifyText, u"已修补"_s);
    ASSERT_EQ(record.pics.size(), 1u);
    EXPECT_NE(record.pics[0].fileMd5, record.pics[0].thumbMd5);
}

TEST(Bin, UnknownEntriesArePassedOver) {
    BinSite site;
    EXPECT_EQ(site.bin.Restore({4711}), 0);
    site.bin.Purge({4711});
    EXPECT_EQ(site.bin.DeleteIssues({site.ppid}, {u"nothing"_s}, {u"li"_s, kNow}), 0);
    EXPECT_TRUE(site.bin.List().empty());
}

TEST(Bin, TheListSaysOfEachEntryWhatItWasAndWhoDeletedItWhere) {
    BinSite site;
    SiteWriter writer(site.folder);
    NewBimPhoto photo;
    photo.ppid = writer.AddProject(u"二号楼"_s);
    photo.fileName = u"屋面.jpg"_s;
    ASSERT_EQ(site.bin.DeleteBimPhotos({photo.ppid}, {writer.FilePhoto(photo, {{}, "jpeg"})},
                                       {u"li"_s, kNow}),
              1);
    const BinEntry entry = site.bin.List().front();
    EXPECT_EQ(entry.kind, BinKind::BimPhoto);
    EXPECT_NE(photo.ppid, static_cast<qint32>(entry.kind));
    EXPECT_EQ(entry.ppid, photo.ppid);
    EXPECT_EQ(entry.title, u"屋面.jpg"_s);
    EXPECT_EQ(entry.deletedBy, u"li"_s);
    EXPECT_EQ(entry.deletedAt, kNow);
}

} // namespace site
