#include "site/blobs/FileStore.h"
#include "tests/site/IssueSite.h"

#include <gmock/gmock.h>

namespace site {
namespace {

using sitetest::IssueSite;
using testing::ElementsAre;
using namespace Qt::StringLiterals;

/// The sentence with which pictures are refused; nothing has changed then.
QString RefusalOf(IssueSite& site, const std::vector<KX_DATA::QuestionPicRecord>& pics) {
    const qint64 free = site.Count(u"upload"_s);
    try {
        (void)site.Issues().AddRectifyPics({site.ppid}, site.questionId, pics, site.wang);
        ADD_FAILURE() << "taken";
    } catch (const DataError& error) {
        EXPECT_TRUE(site.Rectification().pics.empty());
        EXPECT_EQ(site.Rectification().rectifierName, QString());
        EXPECT_EQ(site.Count(u"upload"_s), free);
        EXPECT_EQ(site.Count(u"file WHERE kind = 9"_s), free);
        return error.Text();
    }
    return {};
}

TEST(IssuePics, UploadedPicturesBecomeTheRectificationsWithTheirOwnIds) {
    IssueSite site;
    const std::vector pics{site.Uploaded(u"g1"_s), site.Uploaded(u"g2"_s)};
    ASSERT_TRUE(site.Issues().AddRectifyPics({site.ppid}, site.questionId, pics, site.wang));
    const KX_DATA::RectifyRecord record = site.Rectification();
    ASSERT_EQ(record.pics.size(), 2U);
    EXPECT_EQ(record.pics[1].picId, u"g2"_s);
    EXPECT_EQ(record.pics[0].fileUuid, pics[0].fileUuid);
    EXPECT_EQ(record.pics[0].fileMd5, pics[0].fileMd5);
    EXPECT_EQ(record.pics[0].fileSize, 7);
    EXPECT_EQ(record.pics[0].thumbSize, 5);
    EXPECT_EQ(record.pics[0].uploaderName, u"wang"_s);
    EXPECT_EQ(record.pics[0].uploadTime, site.wang.at);
    EXPECT_EQ(record.rectifierName, u"wang"_s);
    EXPECT_EQ(site.Count(u"upload"_s), 0);
    EXPECT_THAT(site.History(), ElementsAre(u"wang 11 >g1.jpg、g2.jpg 2"_s, u"li 0 > 0"_s));
}

TEST(IssuePics, ARemovedPictureStandsInTheHistoryOfItsOwnIssueAlone) {
    IssueSite site;
    SiteWriter writer(site.folder);
    NewIssue second = site.Raised();
    second.ppid = site.other;
    writer.FileIssue(second); // so that issue and project have different numbers
    const QString own = writer.FileIssue(second);
    NewIssuePic picture = site.Picture(u"渗水.jpg"_s);
    picture.questionId = own;
    const QString picId = writer.FileIssuePic(site.other, picture, {{}, "wet"});
    ASSERT_TRUE(site.Issues().DeletePics({site.other}, {picId}, site.wang));
    const std::vector<IssueChange> lines = site.Issues().History(site.other, own);
    ASSERT_EQ(lines.size(), 2U) << "raised with its picture, and one picture less";
    EXPECT_EQ(lines[0].deed, IssueDeed::PicsRemoved);
    EXPECT_EQ(lines[0].oldText, u"渗水.jpg"_s);
    EXPECT_EQ(site.folder.Db().Value(u"SELECT ppid FROM change ORDER BY seq DESC LIMIT 1"_s),
              site.other);
    EXPECT_THAT(site.History(), ElementsAre(u"li 0 > 0"_s));
}

TEST(IssuePics, AreReadInPlaceOfWhatTheListHeld) {
    IssueSite site;
    std::vector<KX_DATA::QuestionPicRecord> pics(3);
    ASSERT_TRUE(site.Issues().Pics(site.ppid, site.questionId, pics));
    ASSERT_EQ(pics.size(), 1U);
    EXPECT_EQ(pics[0].picId, site.picId);
}

TEST(IssuePics, OnePictureWithoutItsFileKeepsAllOfThemOut) {
    IssueSite site;
    KX_DATA::QuestionPicRecord bad = site.Uploaded(u"g2"_s);
    bad.thumbUuid = u"nowhere"_s;
    EXPECT_EQ(RefusalOf(site, {site.Uploaded(u"g1"_s), bad}),
              u"图片“g2.jpg”的文件不在站点中，没有添加图片；请重新上传。"_s);
    bad = site.Uploaded(u"g3"_s);
    bad.fileMd5 = QString(32, u'0');
    EXPECT_NE(RefusalOf(site, {bad}), QString()) << "another file than the one that was meant";
    bad = site.Uploaded({});
    EXPECT_NE(RefusalOf(site, {bad}), QString());
}

TEST(IssuePics, AFileWhoseBytesAreGoneIsNotTaken) {
    IssueSite site;
    const KX_DATA::QuestionPicRecord pic = site.Uploaded(u"g1"_s);
    ASSERT_TRUE(QFile::remove(site.folder.Store().PathOf(pic.fileUuid)));
    EXPECT_NE(RefusalOf(site, {pic}), QString());
}

TEST(IssuePics, AFileThatBelongsToAPictureIsNotTakenForAnother) {
    IssueSite site;
    KX_DATA::QuestionPicRecord pic = site.Uploaded(u"g1"_s);
    ASSERT_TRUE(site.Issues().AddRectifyPics({site.ppid}, site.questionId, {pic}, site.wang));
    pic.picId = u"g2"_s;
    EXPECT_THROW((void)site.Issues().AddRectifyPics({site.ppid}, site.questionId, {pic}, site.wang),
                 DataError);
    EXPECT_EQ(site.Rectification().pics.size(), 1U);
}

TEST(IssuePics, ARemovedPictureLiesInTheBinWithItsFilesAndComesBack) {
    IssueSite site;
    ASSERT_TRUE(site.Issues().AddRectifyPics({site.ppid}, site.questionId, {site.Uploaded(u"g1"_s)},
                                             site.wang));
    EXPECT_FALSE(site.Issues().DeletePics({site.ppid}, {u"g1"_s}, site.wang))
        << "it is one of the rectification";
    ASSERT_TRUE(
        site.Issues().DeleteRectifyPics({site.ppid}, site.questionId, {u"g1"_s}, site.wang));
    EXPECT_TRUE(site.Rectification().pics.empty());
    EXPECT_EQ(site.folder.Store().NamesInBin().size(), 2U);
    EXPECT_EQ(site.History().front(), u"wang 12 g1.jpg> 1"_s);
    const BinEntry entry = site.engine.Bin().List().front();
    EXPECT_EQ(entry.kind, BinKind::IssuePic);
    EXPECT_EQ(entry.title, u"g1.jpg"_s);
    EXPECT_EQ(entry.ppid, site.ppid);
    EXPECT_EQ(site.engine.Bin().Restore({entry.id}), 1);
    ASSERT_EQ(site.Rectification().pics.size(), 1U);
    EXPECT_TRUE(site.folder.Store().NamesInBin().empty());
}

TEST(IssuePics, APictureThatIsGoneAndOneOfAnotherIssueStopTheRemovalOfAll) {
    IssueSite site;
    EXPECT_FALSE(site.Issues().DeletePics({site.ppid}, {site.picId, u"gone"_s}, site.wang));
    EXPECT_FALSE(site.Issues().DeletePics({site.other}, {site.picId}, site.wang));
    EXPECT_FALSE(
        site.Issues().DeleteRectifyPics({site.ppid}, site.questionId, {site.picId}, site.wang));
    std::vector<KX_DATA::QuestionPicRecord> pics;
    ASSERT_TRUE(site.Issues().Pics(site.ppid, site.questionId, pics));
    EXPECT_EQ(pics.size(), 1U);
    EXPECT_TRUE(site.engine.Bin().List().empty());
    EXPECT_TRUE(site.Issues().DeletePics({site.ppid}, {site.picId}, site.wang));
    EXPECT_EQ(site.History().front(), u"wang 8 裂缝.jpg> 1"_s);
    EXPECT_EQ(site.Detail().updaterName, u"wang"_s);
}

TEST(IssuePics, APictureWaitsInTheBinForItsIssueAndBothComeBackInAnyOrder) {
    IssueSite site;
    ASSERT_TRUE(site.Issues().DeletePics({site.ppid}, {site.picId}, site.wang));
    const qint64 picture = site.engine.Bin().List().front().id;
    ASSERT_EQ(site.engine.Bin().DeleteIssues({site.ppid}, {site.questionId}, site.wang), 1);
    const qint64 issue = site.engine.Bin().List().front().id;
    try {
        (void)site.engine.Bin().Restore({picture});
        ADD_FAILURE() << "restored";
    } catch (const DataError& error) {
        EXPECT_TRUE(error.Text().contains(u"请先恢复问题"_s)) << error.Text().toStdString();
    }
    EXPECT_EQ(site.engine.Bin().Restore({picture, issue}), 2);
    EXPECT_EQ(site.Count(u"issue_pic"_s), 1);
    EXPECT_EQ(site.History().front(), u"wang 8 裂缝.jpg> 1"_s) << "the history came back too";
}

TEST(IssuePics, TheIdOfARemovedPictureIsNotGivenAgain) {
    IssueSite site;
    ASSERT_EQ(site.engine.Bin().DeleteIssues({site.ppid}, {site.questionId}, site.wang), 1);
    SiteWriter writer(site.folder);
    NewIssuePic pic = site.Picture(u"b.jpg"_s);
    pic.questionId = writer.FileIssue(site.Raised());
    writer.FileIssuePic(site.ppid, pic, {{}, "b"});
    EXPECT_EQ(site.engine.Bin().Restore({site.engine.Bin().List().front().id}), 1);
    EXPECT_EQ(site.Count(u"issue_pic"_s), 2);
}

TEST(IssuePics, APictureThatIsFiledLaterThanItsIssueIsALineOfTheHistory) {
    IssueSite site;
    NewIssuePic pic = site.Picture(u"c.jpg"_s);
    pic.uploadTime += 5;
    SiteWriter(site.folder).FileIssuePic(site.ppid, pic, {{}, "c"});
    EXPECT_THAT(site.History(), ElementsAre(u"li 7 >c.jpg 1"_s, u"li 0 > 0"_s));
}

} // namespace
} // namespace site
