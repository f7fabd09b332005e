#include "services/Factories.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

using Ids = std::vector<qint32>;

} // namespace

TEST(BimFilter, EmptyProjectsMatchNothing) {
    ServiceSite site;
    site.AddPhoto([](site::NewBimPhoto&) {});
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.projectIds.clear();
    EXPECT_TRUE(site.PhotoIds(filter).empty());
}

TEST(BimFilter, OnlyTheProjectsAskedForAreListed) {
    ServiceSite site;
    const qint32 one = site.AddPhoto([](site::NewBimPhoto&) {});
    const qint32 two = site.AddPhoto([&](site::NewBimPhoto& photo) { photo.ppid = site.second; });
    KX_DATA::PicQueryFilter filter = site.Filter();
    EXPECT_EQ(site.PhotoIds(filter), (Ids{one}));
    filter.projectIds = {site.second, site.first};
    EXPECT_EQ(site.PhotoIds(filter), (Ids{one, two}));
    filter.projectIds = {4711};
    EXPECT_TRUE(site.PhotoIds(filter).empty());
}

TEST(BimFilter, MarkZeroIsNoLimitAndAnUnknownMarkIsOne) {
    ServiceSite site;
    const qint32 one = site.AddPhoto([](site::NewBimPhoto&) {});
    const qint32 two = site.AddPhoto([](site::NewBimPhoto& photo) { photo.markId = 99; });
    KX_DATA::PicQueryFilter filter = site.Filter();
    EXPECT_EQ(site.PhotoIds(filter), (Ids{one, two}));
    filter.markId = 99;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{two}));
}

TEST(BimFilter, ALabelListsItsPhotosAndAnEmptyOneAll) {
    ServiceSite site;
    const qint32 label = site.writer->AddLabel(u"质量"_s);
    const qint32 one = site.AddPhoto([&](site::NewBimPhoto& photo) { photo.labelIds = {label}; });
    site.AddPhoto([](site::NewBimPhoto&) {});
    KX_DATA::PicQueryFilter filter = site.Filter();
    EXPECT_EQ(site.PhotoIds(filter).size(), 2u);
    filter.labelId = QString::number(label);
    EXPECT_EQ(site.PhotoIds(filter), (Ids{one}));
    filter.labelId = u"no label"_s;
    EXPECT_TRUE(site.PhotoIds(filter).empty());
}

TEST(BimFilter, TheStateIsNamedAsTheRowShowsItAndAllOrNothingIsNoLimit) {
    ServiceSite site;
    std::vector<QString> names;
    GetVeskPicMng()->GetStateNames(names);
    ASSERT_EQ(names.front(), u"全部"_s);
    for (qint32 state = 0; state + 1 < static_cast<qint32>(names.size()); ++state) {
        site.AddPhoto([&](site::NewBimPhoto& photo) { photo.state = state; });
    }
    KX_DATA::PicQueryFilter filter = site.Filter();
    for (size_t i = 1; i < names.size(); ++i) {
        filter.status = names[i];
        const auto rows = site.Photos(filter);
        ASSERT_EQ(rows.size(), 1u);
        EXPECT_EQ(rows[0].rectifyText, names[i]);
    }
    for (const QString& all : {u"全部"_s, u""_s}) {
        filter.status = all;
        EXPECT_EQ(site.PhotoIds(filter).size(), names.size() - 1);
    }
    filter.status = u"未知状态"_s;
    EXPECT_TRUE(site.PhotoIds(filter).empty());
}

TEST(BimFilter, TheDateIsThatOfTheLastChangeWithBothLimitsInclusive) {
    ServiceSite site;
    const qint32 uploaded =
        site.AddPhoto([](site::NewBimPhoto& photo) { photo.uploadTime = 1000; });
    const qint32 changed = site.AddPhoto([](site::NewBimPhoto& photo) {
        photo.uploadTime = 10;
        photo.updateTime = 2000;
        photo.updater = u"li"_s;
    });
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.noDateLimit = false;
    filter.startTime = 1000;
    filter.endTime = 2000;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{uploaded, changed}));
    filter.startTime = 1001;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{changed}));
    filter.startTime = 5;
    filter.endTime = 1999;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{uploaded}));
    filter.noDateLimit = true;
    EXPECT_EQ(site.PhotoIds(filter).size(), 2u);
}

TEST(BimFilter, HiddenPhotosAreListedBesideShownOnes) {
    ServiceSite site;
    site.AddPhoto([](site::NewBimPhoto& photo) { photo.status = 1; });
    site.AddPhoto([](site::NewBimPhoto&) {});
    EXPECT_EQ(site.PhotoIds(site.Filter()).size(), 2u);
}

TEST(BimFilter, ThePresetKeyIsAPositionKeyAndThePhotoIdNeverLimits) {
    ServiceSite site;
    site.writer->AddPosition({site.first, u"3"_s, u"A"_s, u"1"_s, u"key-1"_s, true});
    const qint32 there =
        site.AddPhoto([](site::NewBimPhoto& photo) { photo.positionKey = u"key-1"_s; });
    const qint32 other = site.AddPhoto([](site::NewBimPhoto&) {});
    KX_DATA::PicQueryFilter filter = site.Filter();
    filter.picId = there;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{there, other}));
    filter.presetKey = u"key-1"_s;
    EXPECT_EQ(site.PhotoIds(filter), (Ids{there}));
    filter.markId = 2;
    EXPECT_TRUE(site.PhotoIds(filter).empty());
}

TEST(BimFilter, ARowTellsThePhotoWhole) {
    ServiceSite site;
    const qint32 one = site.writer->AddLabel(u"质量"_s);
    const qint32 two = site.writer->AddLabel(u"进度"_s);
    site.writer->AddPosition({site.first, u"-1"_s, u"A"_s, u"12"_s, u"key-1"_s, false});
    site::NewBimPhoto photo = site.UsualPhoto();
    photo.fileName = u"外墙.JPG"_s;
    photo.description = u"空鼓"_s;
    photo.positionKey = u"key-1"_s;
    photo.updater = u"li"_s;
    photo.updateTime = 1700003600;
    photo.labelIds = {two, one};
    const qint32 id = site.writer->FilePhoto(photo, {{}, "jpeg"}, {{}, "amr"});
    const auto rows = site.Photos(site.Filter());
    ASSERT_EQ(rows.size(), 1u);
    const KX_DATA::BimPicRow& row = rows[0];
    EXPECT_EQ(row.picId, id);
    EXPECT_EQ(row.ppid, site.first);
    EXPECT_EQ(row.fileName, u"外墙.JPG"_s);
    EXPECT_EQ(row.floor, u"-1"_s);
    EXPECT_EQ(row.posText, u"A/12"_s);
    EXPECT_EQ(row.posValid, 0);
    EXPECT_EQ(row.positionKey, u"key-1"_s);
    EXPECT_EQ(row.labelNames, (std::vector<QString>{u"质量"_s, u"进度"_s}));
    EXPECT_EQ(row.uploadTime, u"2023-11-15 06:13"_s);
    EXPECT_EQ(row.updateTime, u"2023-11-15 07:13"_s);
    EXPECT_EQ(row.updaterName, u"li"_s);
    EXPECT_EQ(row.uploaderName, u"zhang"_s);
    EXPECT_FALSE(row.text8.isEmpty());
    EXPECT_FALSE(row.text9.isEmpty()); // the voice note
    EXPECT_NE(row.text8, row.text9);
}

TEST(BimFilter, APhotoThatNobodyChangedHasNeitherUpdaterNorUpdateTime) {
    ServiceSite site;
    site.AddPhoto([](site::NewBimPhoto&) {});
    const auto rows = site.Photos(site.Filter());
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].updaterName, QString());
    EXPECT_EQ(rows[0].updateTime, QString());
    EXPECT_EQ(rows[0].posValid, 1); // no place, so none that could be wrong
}

TEST(BimFilter, APageBehindTheLastOneIsEmptyAndStillTellsTheTotal) {
    ServiceSite site;
    site.AddPhoto([](site::NewBimPhoto&) {});
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_EQ(GetVeskPicMng()->QueryBimPics(site.Filter(), {7, 30, u"pic_name"_s, u"asc"_s}, result,
                                            rows),
              KX_DATA::kServiceOk);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(result.totalCount, 1);
    EXPECT_EQ(result.pageCount, 1);
}

TEST(BimFilter, WithoutADataFolderTheQueryFails) {
    ServiceSite site;
    const KX_DATA::PicQueryFilter filter = site.Filter();
    site.writer.reset();
    site.session.Close();
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_NE(GetVeskPicMng()->QueryBimPics(filter, {}, result, rows), KX_DATA::kServiceOk);
}

TEST(BimFilter, AFailingStatementIsTheFailureValueAndAMessageForThePerson) {
    ServiceSite site;
    support::FolderOf(site.session).Db().Exec(u"ALTER TABLE bim_tally RENAME TO away"_s);
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_NE(GetVeskPicMng()->QueryBimPics(site.Filter(), {}, result, rows), KX_DATA::kServiceOk);
    ASSERT_EQ(site.messages.size(), 1u);
    EXPECT_TRUE(site.messages[0].startsWith(u"查询BIM模型照片失败："_s));
}

} // namespace host
