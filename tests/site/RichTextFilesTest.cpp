// Files of the records of places: which are taken, what is believed of them, how long they stay.
#include "tests/site/RichSite.h"

namespace site {
namespace {

using namespace Qt::StringLiterals;
using sitetest::kSavedAt;
using sitetest::RichSite;

/// The sentence with which a save is refused; no version was made then and no file taken.
QString RefusalOf(RichSite& site, const NewRichVersion& version) {
    const qint64 versions = site.Count(u"rich_version"_s);
    const qint64 free = site.Count(u"upload"_s);
    const qint64 texts = site.Count(u"rich_text"_s);
    try {
        (void)site.Texts().Save({site.ppid}, site.Two(), version, {u"li"_s, kSavedAt});
        ADD_FAILURE() << "saved";
    } catch (const DataError& error) {
        EXPECT_EQ(site.Count(u"rich_version"_s), versions);
        EXPECT_EQ(site.Count(u"rich_text"_s), texts);
        EXPECT_EQ(site.Count(u"upload"_s), free);
        EXPECT_EQ(site.Count(u"file WHERE kind = 9"_s), free);
        EXPECT_LT(error.Text().size(), 300);
        return error.Text();
    }
    return {};
}

RichFile Named(RichFile file, const QString& name) {
    file.name = name;
    return file;
}

} // namespace

TEST(RichTextFiles, WhatTheCallerSaysOfMd5AndSizeIsNotBelieved) {
    RichSite site;
    RichFile file = site.Upload(u"p.html"_s, 1, "five!");
    const QString md5 = file.md5;
    file.md5 = QString(32, u'0');
    file.size = -4711;
    const RichVersion saved = site.Save(site.Two(), RichSite::Based({}, {file}));
    EXPECT_EQ(saved.files[0].md5, md5);
    EXPECT_EQ(saved.files[0].size, 5);
    EXPECT_EQ(site.Newest(site.Two()).files[0].md5, md5);
    EXPECT_EQ(site.Newest(site.Two()).files[0].size, 5);
}

TEST(RichTextFiles, AFileThatIsntInTheSiteKeepsTheWholeSaveOut) {
    RichSite site;
    const RichFile good = site.Upload(u"p.html"_s);
    for (const QString& uuid :
         {u"nowhere"_s, QString(), u"../../site.db"_s, QString(100'000, u'a')}) {
        const RichFile bad{u"图.png"_s, {}, uuid, 0, 3};
        EXPECT_EQ(RefusalOf(site, RichSite::Based({}, {good, bad})),
                  u"文件“图.png”不在站点中，没有保存富文本；请重新上传。"_s);
    }
    const RichFile lost = site.Upload(u"lost.png"_s);
    ASSERT_TRUE(QFile::remove(site.folder.Store().PathOf(lost.uuid)));
    EXPECT_TRUE(RefusalOf(site, RichSite::Based({}, {good, lost})).contains(u"lost.png"_s));
}

TEST(RichTextFiles, AFileOfAPhotoOrOfAnotherPlaceIsNotTaken) {
    RichSite site;
    const qint32 photo = site.Photo(u"two"_s);
    const QString picture = site.folder.Db()
                                .Value(u"SELECT file_uuid FROM bim_photo WHERE id = ?"_s, {photo})
                                .toString();
    EXPECT_NE(RefusalOf(site, RichSite::Based({}, {{u"a.jpg"_s, {}, picture, 0, 3}})), QString());
    const RichVersion elsewhere =
        site.Save(site.OnPoint(), RichSite::Based({}, {site.Upload(u"p.html"_s)}));
    EXPECT_NE(RefusalOf(site, RichSite::Based({}, elsewhere.files)), QString());
}

TEST(RichTextFiles, AFileOfAnOlderVersionIsTakenAgainAndOneThatIsThereGetsItsNewName) {
    RichSite site;
    const RichVersion first = site.Save(
        site.Two(), RichSite::Based({}, {site.Upload(u"1.html"_s), site.Upload(u"b.png"_s, 3)}));
    NewRichVersion without = RichSite::Based(first.text);
    without.removed = {first.files[0].uuid};
    const RichVersion second = site.Save(site.Two(), without);
    EXPECT_EQ(RichSite::Names(second), QStringList{u"b.png"_s});
    const RichVersion third =
        site.Save(site.Two(), RichSite::Based(second.text,
                                              {first.files[0], Named(first.files[1], u"c.png"_s)}));
    EXPECT_EQ(RichSite::Names(third), (QStringList{u"1.html"_s, u"c.png"_s}));
    EXPECT_EQ(RichSite::Names(*site.Texts().Version({site.ppid}, site.Two(), 1)),
              (QStringList{u"1.html"_s, u"b.png"_s}));
}

TEST(RichTextFiles, NamesThatLeadElsewhereOrAreTooLongAreRefusedWithASentence) {
    RichSite site;
    const RichFile file = site.Upload(u"p.html"_s);
    const QChar null(0);
    for (const QString& name :
         {QString(), u" "_s, u".."_s, u"."_s, u"a/b.png"_s, u"a\\b.png"_s, u"../b.png"_s,
          u"C:b.png"_s, u"a\nb.png"_s, u"a"_s + null + u"b.png"_s, QString(256, u'长'),
          QString(100'000, u'长')}) {
        const QString sentence = RefusalOf(site, RichSite::Based({}, {Named(file, name)}));
        EXPECT_TRUE(sentence.startsWith(u"文件名“"_s)) << sentence.toStdString();
        if (!name.isEmpty()) {
            NewRichVersion version = RichSite::Based({}, {file});
            version.docName = name;
            EXPECT_TRUE(RefusalOf(site, version).startsWith(u"文档名“"_s)) << name.toStdString();
        }
    }
    const QString longest(255, u'长');
    EXPECT_EQ(site.Save(site.Two(), RichSite::Based({}, {Named(file, longest)})).files[0].name,
              longest);
}

TEST(RichTextFiles, TooManyAndTooLargeFilesAreRefused) {
    RichSite site;
    const std::vector<RichFile> many(size_t(kMostRichFiles) + 1,
                                     RichFile{u"a"_s, {}, u"a"_s, 0, 3});
    EXPECT_TRUE(RefusalOf(site, RichSite::Based({}, many)).contains(u"1001"_s));
    const RichFile large = site.Upload(u"large.mp4"_s, 2);
    site.folder.Db().Exec(u"UPDATE file SET size = ? WHERE uuid = ?"_s,
                          {kMostRichBytes + 1, large.uuid});
    EXPECT_TRUE(RefusalOf(site, RichSite::Based({}, {large})).contains(u"2 GB"_s));
}

TEST(RichTextFiles, FilesOfABaseCountToo) {
    RichSite site;
    RichVersion base = site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"p.html"_s)}));
    Database& db = site.folder.Db();
    const qint64 version = db.Value(u"SELECT id FROM rich_version"_s).toLongLong();
    for (qsizetype place = 1; place < kMostRichFiles; ++place) {
        db.Exec(u"INSERT INTO rich_file VALUES (?, ?, 'a', '', ?, 0, 3)"_s,
                {version, place, u"uuid-%1"_s.arg(place)});
    }
    base = site.Newest(site.Two());
    ASSERT_EQ(base.files.size(), size_t(kMostRichFiles));
    NewRichVersion next = RichSite::Based(base.text, {site.Upload(u"one more"_s)});
    EXPECT_TRUE(RefusalOf(site, next).contains(u"1001"_s));
    next.removed = {u"uuid-7"_s};
    EXPECT_EQ(site.Save(site.Two(), next).files.size(), size_t(kMostRichFiles));
}

TEST(RichTextFiles, APageWithoutADocumentsNameIsRefused) {
    RichSite site;
    NewRichVersion version = RichSite::Based({}, {site.Upload(u"p.html"_s)});
    version.docName.clear();
    EXPECT_TRUE(RefusalOf(site, version).contains(u"没有文档名"_s));
    version.added.clear();
    EXPECT_EQ(site.Save(site.Two(), version).number, 1) << "a state alone needs none";
}

TEST(RichTextFiles, AStateThatIsNoneIsRefused) {
    RichSite site;
    for (const qint32 state : {-1, 4, 4711}) {
        EXPECT_TRUE(RefusalOf(site, RichSite::Based({}, {}, state)).contains(u"整改情况"_s));
    }
}

TEST(RichTextFiles, WhatAVersionTookStaysThoughItIsOlderThanADay) {
    RichSite site;
    const RichVersion first =
        site.Save(site.Two(), RichSite::Based({}, {site.Upload(u"1.html"_s)}));
    NewRichVersion next = RichSite::Based(first.text, {site.Upload(u"2.html"_s)});
    next.removed = {first.files[0].uuid};
    const RichVersion second = site.Save(site.Two(), next);
    const RichFile lost = site.Upload(u"lost.html"_s);
    const qint64 now = site.folder.Now() + 25 * 3600;
    ASSERT_FALSE(DataFolder(site.folder.Path()).Open({500, true, [now] { return now; }}));
    EXPECT_FALSE(site.folder.Store().Has(lost.uuid));
    EXPECT_TRUE(site.folder.Store().Has(first.files[0].uuid));
    EXPECT_TRUE(site.folder.Store().Has(second.files[0].uuid));
    EXPECT_NE(RefusalOf(site, RichSite::Based({}, {lost})), QString()) << "who comes too late";
}

} // namespace site
