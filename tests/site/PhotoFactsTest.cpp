// What photos tell of their taking, and the files that they were made of.
#include "site/IPhotoFacts.h"

#include "site/FileKinds.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Bin.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QCryptographicHash>

#include <gmock/gmock.h>

namespace site {

using namespace Qt::StringLiterals;
using hosttest::TempSite;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr qint64 kDeletedAt = 4'000'000'000;

PhotoFacts WholeFacts() {
    return {1'710'224'736, u"Maker Model 7"_s, 31.2304, -121.4737, 271.5};
}

QString Md5Of(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

class FactSite : public TempSite {
public:
    FactSite() : engine(folder), writer(folder) {
        ppid = writer.AddProject(u"一号楼"_s);
        other = writer.AddProject(u"二号楼"_s);
        const qint32 drawing = writer.AddDrawing(ppid, u"首层"_s);
        NewCheckpoint checkpoint;
        checkpoint.drawingId = drawing;
        point = writer.AddCheckpoint(ppid, checkpoint);
    }
    [[nodiscard]] NewBimPhoto Photo(const PhotoFacts& facts = WholeFacts()) const {
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"墙.jpg"_s;
        photo.uploader = u"li"_s;
        photo.uploadTime = 1'800'000'000;
        photo.facts = facts;
        photo.original = {{}, "heic"};
        photo.originalName = u"墙.HEIC"_s;
        return photo;
    }
    qint32 File(const NewBimPhoto& photo) { return writer.FilePhoto(photo, {{}, "jpeg"}); }
    qint32 FileOnPoint() {
        NewPdfPhoto photo;
        photo.checkpointId = point;
        photo.fileName = u"梁.jpg"_s;
        photo.facts = WholeFacts();
        photo.original = {{}, "tiff"};
        photo.originalName = u"梁.tif"_s;
        return writer.FilePdfPhoto(ppid, photo, {{}, "other jpeg"});
    }
    [[nodiscard]] PhotoDetails Of(qint32 picId) {
        const auto found = engine.PhotoFacts().Of({ppid, other}, {picId});
        EXPECT_EQ(found.size(), 1u);
        return found.empty() ? PhotoDetails{} : found.front();
    }
    [[nodiscard]] qint64 Rows(const QString& table) {
        return folder.Db().Value(u"SELECT count(*) FROM "_s + table).toLongLong();
    }

    SqliteSite engine;
    SiteWriter writer;
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 point = 0;
};

} // namespace

TEST(PhotoFacts, ComeBackAsTheyWereFiledWithPhotosOfBothKinds) {
    FactSite site;
    const qint32 bim = site.File(site.Photo());
    const qint32 pdf = site.FileOnPoint();
    const auto found = site.engine.PhotoFacts().Of({site.ppid}, {pdf, bim});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].picId, pdf);
    EXPECT_EQ(found[0].originalName, u"梁.tif"_s);
    EXPECT_TRUE(found[0].isOfDrawing);
    EXPECT_FALSE(found[1].isOfDrawing);
    EXPECT_EQ(found[1].picId, bim);
    EXPECT_EQ(found[1].ppid, site.ppid);
    EXPECT_EQ(found[1].name, u"墙.jpg"_s);
    EXPECT_EQ(found[1].uploader, u"li"_s);
    EXPECT_EQ(found[1].filed, 1'800'000'000);
    EXPECT_EQ(found[1].facts, WholeFacts());
    EXPECT_EQ(found[1].originalName, u"墙.HEIC"_s);
    EXPECT_TRUE(site.folder.Store().Has(found[1].originalUuid));
    EXPECT_TRUE(site.folder.Store().Has(found[1].uuid));
}

TEST(PhotoFacts, OfAPageAreReadAtOnce) {
    FactSite site;
    std::vector<qint32> ids;
    for (int number = 0; number < 40; ++number) {
        ids.insert(ids.begin(), site.File(site.Photo()));
    }
    const qint64 before = site.folder.Db().StatementsRun();
    const auto found = site.engine.PhotoFacts().Of({site.ppid}, ids);
    EXPECT_LE(site.folder.Db().StatementsRun() - before, 8);
    ASSERT_EQ(found.size(), 40u);
    EXPECT_EQ(found.front().picId, ids.front());
    EXPECT_EQ(found.back().picId, ids.back());
}

TEST(PhotoFacts, WhatIsNotKnownStaysUnknown) {
    FactSite site;
    NewBimPhoto photo = site.Photo({});
    photo.original = {};
    const PhotoDetails plain = site.Of(site.File(photo));
    EXPECT_EQ(plain.facts, PhotoFacts{});
    EXPECT_EQ(plain.originalUuid, QString());
    EXPECT_EQ(plain.originalName, QString()) << "a name without a file";
    EXPECT_EQ(site.Rows(u"photo_fact"_s), 0);
    photo.facts.camera = u"Model"_s;
    const PhotoDetails camera = site.Of(site.File(photo));
    EXPECT_EQ(camera.facts, photo.facts);
}

TEST(PhotoFacts, ThoseThatCannotBeAreRefusedAndNothingIsStored) {
    FactSite site;
    PhotoFacts half = WholeFacts();
    half.longitude = std::nullopt;
    PhotoFacts far = WholeFacts();
    far.latitude = 90.5;
    PhotoFacts round = WholeFacts();
    round.direction = 360;
    PhotoFacts none = WholeFacts();
    none.direction = std::nan("");
    for (const PhotoFacts& facts : {half, far, round, none}) {
        EXPECT_THROW(site.File(site.Photo(facts)), DataError);
    }
    EXPECT_EQ(site.Rows(u"bim_photo"_s) + site.Rows(u"file"_s), 0);
}

TEST(PhotoFacts, ThoseOfOtherProjectsAndOfNobodyArePassedOver) {
    FactSite site;
    const qint32 picId = site.File(site.Photo());
    EXPECT_THAT(site.engine.PhotoFacts().Of({site.other}, {picId}), IsEmpty());
    EXPECT_THAT(site.engine.PhotoFacts().Of({site.ppid}, {picId + 1, 0, -1}), IsEmpty());
    EXPECT_THAT(site.engine.PhotoFacts().Of({site.ppid}, {}), IsEmpty());
}

TEST(PhotoFacts, APhotoIsFoundByItsPictureAndByWhatThatWasMadeOf) {
    FactSite site;
    const qint32 bim = site.File(site.Photo());
    const qint32 pdf = site.FileOnPoint();
    for (const QByteArray& bytes : {QByteArray("jpeg"), QByteArray("heic")}) {
        EXPECT_EQ(site.writer.FindPhotoByMd5(site.ppid, Md5Of(bytes)), bim);
        EXPECT_EQ(site.writer.FindPdfPhotoByMd5(site.ppid, Md5Of(bytes)), 0);
        EXPECT_EQ(site.writer.FindPhotoByMd5(site.other, Md5Of(bytes)), 0);
    }
    for (const QByteArray& bytes : {QByteArray("other jpeg"), QByteArray("tiff")}) {
        EXPECT_EQ(site.writer.FindPdfPhotoByMd5(site.ppid, Md5Of(bytes)), pdf);
        EXPECT_EQ(site.writer.FindPhotoByMd5(site.ppid, Md5Of(bytes)), 0);
    }
}

TEST(PhotoFacts, GoToTheBinWithThePhotoAndComeBackWithIt) {
    FactSite site;
    const qint32 bim = site.File(site.Photo());
    const qint32 pdf = site.FileOnPoint();
    const QString original = site.Of(bim).originalUuid;
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {bim}, {u"li"_s, kDeletedAt});
    site.engine.Bin().DeletePdfPhotos(site.ppid, {pdf}, {u"li"_s, kDeletedAt});
    EXPECT_EQ(site.Rows(u"photo_fact"_s) + site.Rows(u"file"_s), 0);
    EXPECT_FALSE(site.folder.Store().Has(original));
    EXPECT_EQ(site.folder.Store().NamesInBin().size(), 4u);
    EXPECT_EQ(site.writer.FindPhotoByMd5(site.ppid, Md5Of("heic")), 0);
    for (const BinEntry& entry : site.engine.Bin().List()) {
        EXPECT_EQ(site.engine.Bin().Restore({entry.id}), 1);
    }
    EXPECT_EQ(site.Of(bim).facts, WholeFacts());
    EXPECT_EQ(site.Of(bim).originalUuid, original);
    EXPECT_TRUE(site.folder.Store().Has(original));
    EXPECT_EQ(site.Of(pdf).originalName, u"梁.tif"_s);
    EXPECT_EQ(site.writer.FindPhotoByMd5(site.ppid, Md5Of("heic")), bim);
}

TEST(PhotoFacts, NumbersThatAreNotKnownComeBackFromTheBinAsUnknown) {
    FactSite site;
    const qint32 bim = site.File(site.Photo({}));
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {bim}, {u"li"_s, kDeletedAt});
    site.engine.Bin().Restore({site.engine.Bin().List().front().id});
    EXPECT_EQ(site.Of(bim).facts, PhotoFacts{});
    EXPECT_EQ(site.Of(bim).originalName, u"墙.HEIC"_s);
}

TEST(PhotoFacts, APurgeEndsTheOriginalToo) {
    FactSite site;
    const qint32 bim = site.File(site.Photo());
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {bim}, {u"li"_s, kDeletedAt});
    site.engine.Bin().Purge({site.engine.Bin().List().front().id});
    EXPECT_THAT(site.folder.Store().NamesInBin(), IsEmpty());
    EXPECT_EQ(site.Rows(u"bin_file"_s), 0);
}

TEST(PhotoFacts, AnEntryOfAnEarlierClientComesBackWithoutFacts) {
    FactSite site;
    NewBimPhoto photo = site.Photo({});
    photo.original = {};
    const qint32 bim = site.File(photo);
    site.engine.Bin().DeleteBimPhotos({site.ppid}, {bim}, {u"li"_s, kDeletedAt});
    const QString section = u"{\"rows\":[],\"table\":\"photo_fact\"},"_s;
    const QString content = site.folder.Db().Value(u"SELECT content FROM bin"_s).toString();
    ASSERT_TRUE(content.contains(section)) << content.toStdString();
    QString earlier = content;
    site.folder.Db().Exec(u"UPDATE bin SET content = ?"_s, {earlier.remove(section)});
    EXPECT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Of(bim).name, u"墙.jpg"_s);
}

TEST(PhotoFacts, AnOpeningOfTheFolderKnowsTheOriginals) {
    FactSite site;
    const qint32 bim = site.File(site.Photo());
    const QString original = site.Of(bim).originalUuid;
    // Beside the one that is open, whose parts stand on it to the end.
    DataFolder again(site.folder.Path());
    ASSERT_FALSE(again.Open({500, true}).has_value());
    EXPECT_TRUE(again.Store().Has(original));
    SqliteSite engine(again);
    EXPECT_EQ(engine.PhotoFacts().Of({site.ppid}, {bim}).front().originalUuid, original);
}

} // namespace site
