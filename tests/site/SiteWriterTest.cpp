#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "tests/site/TempSite.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

namespace {

struct Filed {
    qint32 ppid = 0;
    qint32 picId = 0;
};

Filed FileOne(DataFolder& folder, const QByteArray& bytes) {
    SiteWriter writer(folder);
    Filed filed;
    filed.ppid = writer.AddProject(u"一号楼"_s);
    NewPosition position{filed.ppid, u"3"_s, u"A"_s, u"2"_s, u"k1"_s, true};
    if (writer.FindPosition(filed.ppid, u"3"_s, u"A"_s, u"2"_s).isEmpty()) {
        writer.AddPosition(position);
    }
    NewBimPhoto photo;
    photo.ppid = filed.ppid;
    photo.fileName = u"外墙.jpg"_s;
    photo.positionKey = u"k1"_s;
    photo.uploader = u"zhang"_s;
    photo.uploadTime = 1700000000;
    photo.labelIds = {writer.AddLabel(u"质量"_s)};
    filed.picId = writer.FilePhoto(photo, {{}, bytes});
    return filed;
}

QString UuidOf(DataFolder& folder, qint32 picId) {
    return folder.Db().Value(u"SELECT file_uuid FROM bim_photo WHERE id = ?"_s, {picId}).toString();
}

} // namespace

TEST(SiteWriter, AFiledPhotoHasItsRowItsFileAndItsMd5) {
    TempSite site;
    const QByteArray bytes("picture");
    const Filed filed = FileOne(site.folder, bytes);

    QFile stored(site.folder.Store().PathOf(UuidOf(site.folder, filed.picId)));
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
    EXPECT_EQ(stored.readAll(), bytes);
    const QString md5 =
        QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
    SiteWriter writer(site.folder);
    EXPECT_EQ(writer.FindPhotoByMd5(filed.ppid, md5), filed.picId);
    EXPECT_EQ(writer.FindPhotoByMd5(filed.ppid + 1, md5), 0);
}

TEST(SiteWriter, ABatchThatIsNotCommittedLeavesNeitherRowsNorFiles) {
    TempSite site;
    QString uuid;
    {
        SiteWriter writer(site.folder);
        writer.BeginBatch();
        const qint32 ppid = writer.AddProject(u"二号楼"_s);
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"a.jpg"_s;
        uuid = UuidOf(site.folder, writer.FilePhoto(photo, {{}, "x"}));
        ASSERT_TRUE(site.folder.Store().Has(uuid));
    }
    EXPECT_FALSE(site.folder.Store().Has(uuid));
    EXPECT_TRUE(SiteWriter(site.folder).IsEmpty());
}

TEST(SiteWriter, WhatIsToBeThereOnceIsFiledOnceAndLeavesNoFilesTheSecondTime) {
    TempSite site;
    const Filed filed = FileOne(site.folder, "picture");
    const auto fileRows = [&] {
        return site.folder.Db().Value(u"SELECT COUNT(*) FROM file"_s).toInt();
    };
    NewBimPhoto photo;
    photo.ppid = filed.ppid;
    photo.fileName = u"b.jpg"_s;
    photo.original = {{}, "original"};
    photo.originalName = u"b.heic"_s;
    photo.onceMd5 =
        QString::fromLatin1(QCryptographicHash::hash("original", QCryptographicHash::Md5).toHex());
    SiteWriter writer(site.folder);
    const qint32 first = writer.FilePhoto(photo, {{}, "view"});
    EXPECT_GT(first, filed.picId);
    const int rows = fileRows();
    writer.BeginBatch();
    photo.onceMd5.clear();
    const qint32 anyway = writer.FilePhoto(photo, {{}, "view"});
    EXPECT_GT(anyway, first);
    const auto stored = [&] {
        int count = 0;
        QDirIterator below(site.folder.StorePath(), QDir::Files, QDirIterator::Subdirectories);
        while (below.hasNext()) {
            count += below.next().contains(u"/incoming/"_s) ? 0 : 1;
        }
        return count;
    };
    const int before = stored();
    photo.onceMd5 =
        QString::fromLatin1(QCryptographicHash::hash("picture", QCryptographicHash::Md5).toHex());
    EXPECT_EQ(writer.FilePhoto(photo, {{}, "picture"}, {{}, "voice"}), 0);
    EXPECT_EQ(stored(), before);
    writer.CommitBatch();
    EXPECT_TRUE(site.folder.Store().Has(UuidOf(site.folder, anyway)));
    EXPECT_EQ(fileRows(), rows + 2);
}

TEST(SiteWriter, NotesOfABatchStayUntilItsCommitIsOnTheDisk) {
    TempSite site;
    const auto notes = [&] {
        int count = 0;
        QDirIterator below(site.folder.StorePath() + u"/incoming"_s, QDir::Files,
                           QDirIterator::Subdirectories);
        while (below.hasNext()) {
            count += below.next().endsWith(u".pid"_s) ? 0 : 1;
        }
        return count;
    };
    SiteWriter writer(site.folder);
    writer.BeginBatch();
    NewBimPhoto photo;
    photo.ppid = writer.AddProject(u"一号楼"_s);
    photo.fileName = u"a.jpg"_s;
    writer.FilePhoto(photo, {{}, "x"}, {{}, "y"});
    EXPECT_EQ(notes(), 2);
    writer.CommitBatch();
    EXPECT_EQ(notes(), 0);
}

TEST(SiteWriter, APhotoWhoseNameIsAPathIsRefusedAndLeavesNoFile) {
    TempSite site;
    SiteWriter writer(site.folder);
    NewBimPhoto photo;
    photo.ppid = writer.AddProject(u"一号楼"_s);
    photo.fileName = u"../a.jpg"_s;
    EXPECT_THROW(writer.FilePhoto(photo, {{}, "x"}), DataError);
    photo.fileName = u"a.jpg"_s;
    photo.ppid = 99; // no such project
    EXPECT_THROW(writer.FilePhoto(photo, {{}, "x"}), DataError);
    int files = 0;
    QDirIterator below(site.folder.StorePath(), QDir::Files, QDirIterator::Subdirectories);
    while (below.hasNext()) {
        files += below.next().endsWith(u".pid"_s) ? 0 : 1;
    }
    EXPECT_EQ(files, 0);
}

TEST(SiteWriter, NamesThatAreThereAreUsedAgain) {
    TempSite site;
    SiteWriter writer(site.folder);
    EXPECT_EQ(writer.AddProject(u"一号楼"_s), writer.AddProject(u"一号楼"_s));
    EXPECT_EQ(writer.AddLabel(u"质量"_s), writer.AddLabel(u"质量"_s));
    EXPECT_EQ(writer.AddUser(u"li"_s, {5}), writer.AddUser(u"li"_s, {21}));
}

} // namespace site
