#include "site/sqlite/SearchIndex.h"

#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QElapsedTimer>

namespace site {
namespace {

using namespace Qt::StringLiterals;
using hosttest::TempSite;

constexpr qint64 kBefore = 1'700'000'000;
const Signature kAlterer{u"li"_s, kBefore + 60};

/// A site whose records another program rewrites without telling the search index.
struct AlteredSite : TempSite {
    AlteredSite() { ppid = writer.AddProject(u"滨江花园"_s); }

    qint32 File(const QString& name) {
        NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = name;
        photo.uploader = u"li"_s;
        photo.uploadTime = kBefore;
        return writer.FilePhoto(photo, {{}, "jpeg"});
    }
    qint32 FilePdf(const QString& name) {
        NewCheckpoint point;
        point.drawingId = writer.AddDrawing(ppid, u"首层"_s);
        NewPdfPhoto photo;
        photo.checkpointId = writer.AddCheckpoint(ppid, point);
        photo.fileName = name;
        photo.uploader = u"li"_s;
        photo.uploadTime = kBefore;
        return writer.FilePdfPhoto(ppid, photo, {{}, "jpeg"});
    }
    void Alter(const QString& sql) {
        Database other(folder.DatabasePath(), 500);
        other.Exec(sql);
    }
    Saved Save(qint32 picId, const QString& name, const QString& description = {}) {
        KX_DATA::BimPicUpdate update;
        update.picId = picId;
        update.fileName = name;
        update.description = description;
        return engine.BimPhotos().Update(ppid, update, kAlterer);
    }
    [[nodiscard]] ListFilter Having(const QString& keyword) const {
        ListFilter filter;
        filter.ppids = {ppid};
        filter.keyword = keyword;
        return filter;
    }
    /// Names of the photos that a search finds; their number is the total.
    [[nodiscard]] QStringList Found(const QString& keyword) {
        const auto page = engine.BimPhotos().PageOf(Having(keyword), {{}, 1, 30});
        QStringList names;
        for (const KX_DATA::BimPicRow& row : page.rows) {
            names << row.fileName;
        }
        EXPECT_EQ(page.total, names.size());
        return names;
    }

    SiteWriter writer{folder};
    SqliteSite engine{folder};
    qint32 ppid = 0;
};

TEST(SearchIndex, OfFewAndOfManyRowsThoseWithOtherWordsAreFound) {
    AlteredSite site;
    std::vector<qint64> ids;
    for (int number = 0; number < 120; ++number) {
        ids.push_back(site.File(u"裂缝%1 IMG.jpg"_s.arg(number)));
    }
    Database& database = site.folder.Db();
    EXPECT_TRUE(RowsWithOtherWords(database, ListKind::BimPhotos, ids).empty());
    site.Alter(u"UPDATE bim_photo SET name = '渗水.jpg' WHERE id = %1"_s.arg(ids[7]));
    site.Alter(u"UPDATE bim_photo SET description = '新' WHERE id = %1"_s.arg(ids[9]));
    const std::set<qint64> altered{ids[7], ids[9]};
    EXPECT_EQ(RowsWithOtherWords(database, ListKind::BimPhotos, ids), altered);
    ids.resize(10);
    EXPECT_EQ(RowsWithOtherWords(database, ListKind::BimPhotos, ids), altered);
    EXPECT_TRUE(RowsWithOtherWords(database, ListKind::BimPhotos, {}).empty());
    EXPECT_TRUE(RowsWithOtherWords(database, ListKind::BimPhotos, {4711}).empty()) << "no row";
}

TEST(SearchIndex, APhotoWhoseTextGrewBehindItIsSaved) {
    AlteredSite site;
    const qint32 picId = site.File(u"a.jpg"_s);
    site.Alter(u"UPDATE bim_photo SET description = '墙面空鼓，需要返工并重新验收'"_s);
    EXPECT_EQ(site.Save(picId, u"b.jpg"_s), Saved::Yes);
    EXPECT_EQ(site.Found(u"b.jp"_s), QStringList{u"b.jpg"_s});
    EXPECT_TRUE(site.Found(u"a.jp"_s).isEmpty());
}

TEST(SearchIndex, APhotoWhoseTextGrewBehindItIsDeletedAndComesBackAsItIs) {
    AlteredSite site;
    const qint32 picId = site.File(u"a.jpg"_s);
    site.Alter(u"UPDATE bim_photo SET description = '墙面空鼓，需要返工并重新验收'"_s);
    EXPECT_EQ(site.engine.Bin().DeleteBimPhotos({site.ppid}, {picId}, kAlterer), 1);
    EXPECT_TRUE(site.Found(u"a.jp"_s).isEmpty());
    EXPECT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Found(u"返工"_s), QStringList{u"a.jpg"_s});
}

TEST(SearchIndex, TheWordsOfBeforeAreForgottenAmongOtherPhotosToo) {
    AlteredSite site;
    site.File(u"墙1.jpg"_s);
    const qint32 picId = site.File(u"墙2.jpg"_s);
    site.Alter(u"UPDATE bim_photo SET name = '柱2.jpg' WHERE name = '墙2.jpg'"_s);
    EXPECT_EQ(site.Save(picId, u"梁.jpg"_s), Saved::Yes);
    EXPECT_EQ(site.Found(u"墙"_s), QStringList{u"墙1.jpg"_s});
    EXPECT_EQ(site.Found(u"梁"_s), QStringList{u"梁.jpg"_s});
    EXPECT_TRUE(site.Found(u"柱"_s).isEmpty());
}

TEST(SearchIndex, OneThatRefusesIsFilledAnewWithWhatAllPhotosSay) {
    AlteredSite site;
    const qint32 picId = site.File(u"a.jpg"_s);
    site.File(u"b.jpg"_s);
    site.Alter(u"UPDATE bim_photo SET description = '墙面空鼓，需要返工并重新验收'"_s);
    EXPECT_EQ(site.engine.Bin().DeleteBimPhotos({site.ppid}, {picId}, kAlterer), 1);
    EXPECT_EQ(site.Found(u"返工"_s), QStringList{u"b.jpg"_s});
    EXPECT_EQ(site.Found(u".jp"_s), QStringList{u"b.jpg"_s});
}

TEST(SearchIndex, DrawingPhotosAndIssuesTheSame) {
    AlteredSite site;
    const qint32 picId = site.FilePdf(u"a.jpg"_s);
    NewIssue issue;
    issue.ppid = site.ppid;
    issue.theme = u"裂缝"_s;
    issue.creator = u"li"_s;
    const QString questionId = site.writer.FileIssue(issue);
    site.Alter(u"UPDATE pdf_photo SET drawing_name = '地下二层机房平面图（修改版）'"_s);
    site.Alter(u"UPDATE issue SET theme = '梁底混凝土蜂窝麻面，钢筋外露'"_s);
    KX_DATA::PdfPicUpdate update;
    update.picId = picId;
    update.fileName = u"b.jpg"_s;
    EXPECT_EQ(site.engine.PdfPhotos().Update(site.ppid, update, kAlterer), Saved::Yes);
    EXPECT_EQ(site.engine.PdfPhotos().PageOf(site.Having(u"机房"_s), {{}, 1, 30}).total, 1);
    EXPECT_EQ(site.engine.PdfPhotos().PageOf(site.Having(u"首层"_s), {{}, 1, 30}).total, 0);
    EXPECT_EQ(site.engine.Bin().DeletePdfPhotos(site.ppid, {picId}, kAlterer), 1);
    EXPECT_EQ(site.engine.PdfPhotos().PageOf(site.Having(u"机房"_s), {{}, 1, 30}).total, 0);
    EXPECT_EQ(site.engine.Bin().DeleteIssues({site.ppid}, {questionId}, kAlterer), 1);
    EXPECT_EQ(site.engine.Issues().PageOf(site.Having(u"裂"_s), {{}, 1, 30}).total, 0);
}

TEST(SearchIndex, ATextWithoutEndIsForgottenAsQuicklyAsItIsTaken) {
    AlteredSite site;
    const qint32 picId = site.File(u"a.jpg"_s);
    ASSERT_EQ(site.Save(picId, u"a.jpg"_s, u"墙"_s + QString(60'000, u'宽')), Saved::Yes);
    ASSERT_EQ(site.Found(u"墙宽"_s).size(), 1);
    QElapsedTimer watch;
    watch.start();
    EXPECT_EQ(site.Save(picId, u"b.jpg"_s), Saved::Yes);
    EXPECT_LT(watch.elapsed(), 2000) << "compared word by word it takes 15 s";
    EXPECT_TRUE(site.Found(u"墙宽"_s).isEmpty());
    EXPECT_TRUE(site.Found(u"a.jp"_s).isEmpty());
    EXPECT_EQ(site.Found(u"b.jp"_s).size(), 1);
}

TEST(SearchIndex, ATextWithoutEndWhoseTwoEndsChangedBehindItIsForgottenToo) {
    for (const QString& altered : {u"'新' || description"_s, u"description || '新'"_s}) {
        AlteredSite site;
        const qint32 picId = site.File(u"a.jpg"_s);
        ASSERT_EQ(site.Save(picId, u"a.jpg"_s, u"墙"_s + QString(6'000, u'宽')), Saved::Yes);
        site.Alter(u"UPDATE bim_photo SET description = "_s + altered);
        EXPECT_EQ(site.Save(picId, u"b.jpg"_s), Saved::Yes);
        EXPECT_TRUE(site.Found(u"墙宽"_s).isEmpty());
        EXPECT_TRUE(site.Found(u"a.jp"_s).isEmpty());
        EXPECT_EQ(site.Found(u"b.jp"_s).size(), 1);
    }
}

TEST(SearchIndex, APhotoThatItDoesNotHaveIsSavedAndThenFound) {
    AlteredSite site;
    const qint32 picId = site.File(u"a.jpg"_s);
    site.Alter(u"INSERT INTO bim_text (bim_text) VALUES ('delete-all')"_s);
    EXPECT_TRUE(site.Found(u"a.jp"_s).isEmpty());
    EXPECT_EQ(site.Save(picId, u"a.jpg"_s), Saved::Yes);
    EXPECT_EQ(site.Found(u"a.jp"_s), QStringList{u"a.jpg"_s});
}

} // namespace
} // namespace site
