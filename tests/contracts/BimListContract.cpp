// IVeskPicMng: the list of BIM photos and what one of them is.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;

class BimLists : public Contract {};
ON_EVERY_SITE(BimLists);

TEST_P(BimLists, ARowTellsEverythingOfItsPhoto) {
    site->AddLabel(u"返工"_s);
    const qint32 label = site->AddLabel(u"渗漏"_s).toInt();
    const QString key = Position(u"3"_s, u"B"_s, u"7"_s, u"K37"_s);
    site::NewBimPhoto photo;
    photo.ppid = first;
    photo.fileName = u"外墙.jpg"_s;
    photo.description = u"东侧"_s;
    photo.positionKey = key;
    photo.markId = 2;
    photo.state = 1;
    photo.status = 1;
    photo.uploader = u"zhang"_s;
    photo.uploadTime = 1700000000;
    photo.updater = u"wang"_s;
    photo.updateTime = 1700000600;
    photo.labelIds = {label};
    const qint32 picId = site->AddPhoto(photo, "jpeg", "amr");

    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    ASSERT_EQ(on.pics->QueryBimPics(Filter(), {}, result, rows), kServiceOk);
    ASSERT_EQ(rows.size(), 1U);
    const KX_DATA::BimPicRow& row = rows[0];
    EXPECT_EQ(row.picId, picId);
    EXPECT_EQ(row.ppid, first);
    EXPECT_EQ(row.fileName, u"外墙.jpg"_s);
    EXPECT_EQ(row.description, u"东侧"_s);
    EXPECT_EQ(row.floor, u"3"_s);
    EXPECT_EQ(row.axisX, u"B"_s);
    EXPECT_EQ(row.axisY, u"7"_s);
    EXPECT_EQ(row.posText, u"B/7"_s);
    EXPECT_EQ(row.positionKey, u"K37"_s);
    EXPECT_NE(row.posValid, 0);
    EXPECT_EQ(row.markId, 2);
    EXPECT_EQ(row.status, 1);
    EXPECT_EQ(row.rectifyText, u"整改中"_s);
    EXPECT_THAT(row.labelNames, ElementsAre(u"渗漏"_s));
    EXPECT_EQ(row.uploaderName, u"zhang"_s);
    EXPECT_EQ(row.uploadTime, u"2023-11-15 06:13"_s);
    EXPECT_EQ(row.updaterName, u"wang"_s);
    EXPECT_EQ(row.updateTime, u"2023-11-15 06:23"_s);
    EXPECT_FALSE(row.text8.isEmpty());
    EXPECT_FALSE(row.text9.isEmpty());
}

TEST_P(BimLists, APhotoThatNobodyChangedHasNoUpdaterAndOneWithoutAPlaceNoFloor) {
    Photo();
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    ASSERT_EQ(on.pics->QueryBimPics(Filter(), {}, result, rows), kServiceOk);
    EXPECT_EQ(rows[0].updaterName, QString());
    EXPECT_EQ(rows[0].updateTime, QString());
    EXPECT_EQ(rows[0].floor, QString());
    EXPECT_EQ(rows[0].posText, QString());
    EXPECT_EQ(rows[0].text9, QString());
    EXPECT_TRUE(rows[0].labelNames.empty());
}

TEST_P(BimLists, AnInvalidPlaceIsTold) {
    const QString gone = site->AddPosition({first, u"3"_s, u"B"_s, u"8"_s, u"K38"_s, false});
    Photo([&](site::NewBimPhoto& photo) { photo.positionKey = gone; });
    EXPECT_EQ(BimRows()[0].posValid, 0);
    EXPECT_EQ(BimRows()[0].floor, u"3"_s);
}

TEST_P(BimLists, PagesCountFromOneAndTellTheTotals) {
    for (int i = 0; i < 7; ++i) {
        Photo();
    }
    const std::vector<KX_DATA::BimPicRow> all = BimRows();
    KX_DATA::PageRequest request{3, 3, u"ppid"_s, u"asc"_s};
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    ASSERT_EQ(on.pics->QueryBimPics(Filter(), request, result, rows), kServiceOk);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].picId, all[6].picId);
    EXPECT_EQ(result.totalCount, 7);
    EXPECT_EQ(result.pageCount, 3);
    for (const qint32 page : {0, -1, 4, 2147483647}) {
        request.page = page;
        ASSERT_EQ(on.pics->QueryBimPics(Filter(), request, result, rows), kServiceOk);
        EXPECT_TRUE(rows.empty()) << page;
        EXPECT_EQ(result.totalCount, 7);
        EXPECT_EQ(result.pageCount, 3);
    }
    request = {1, 0, u"ppid"_s, u"asc"_s};
    ASSERT_EQ(on.pics->QueryBimPics(Filter(), request, result, rows), kServiceOk);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(result.totalCount, 7);
    EXPECT_EQ(result.pageCount, 0);
}

TEST_P(BimLists, AnEmptyListIsASuccessThatReplacesWhatWasThere) {
    KX_DATA::PageResult result{1, 2, 3};
    std::vector<KX_DATA::BimPicRow> rows(2);
    EXPECT_EQ(on.pics->QueryBimPics(Filter(), {}, result, rows), kServiceOk);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(result.totalCount, 0);
    EXPECT_EQ(result.pageCount, 0);
}

TEST_P(BimLists, ADetailTellsEverythingOfItsPhotoAndReplacesWhatWasThere) {
    const QString label = site->AddLabel(u"渗漏"_s);
    const QString key = Position(u"3"_s, u"B"_s, u"7"_s, u"K37"_s);
    const qint32 picId = Photo([&](site::NewBimPhoto& photo) {
        photo.description = u"东侧"_s;
        photo.positionKey = key;
        photo.markId = 2;
        photo.updater = u"wang"_s;
        photo.updateTime = 1700000600;
        photo.labelIds = {label.toInt()};
    });
    KX_DATA::BimPicDetail detail;
    detail.labels = {{u"x"_s, u"y"_s}};
    detail.text5 = u"old"_s;
    ASSERT_EQ(on.pics->GetBimPicDetail(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.picId, picId);
    EXPECT_EQ(detail.ppid, first);
    EXPECT_EQ(detail.positionKey, u"K37"_s);
    EXPECT_EQ(detail.axisX, u"B"_s);
    EXPECT_EQ(detail.axisY, u"7"_s);
    EXPECT_EQ(detail.floor, u"3"_s);
    EXPECT_EQ(detail.description, u"东侧"_s);
    EXPECT_EQ(detail.markId, 2);
    EXPECT_EQ(detail.markName, u"安全"_s);
    EXPECT_EQ(detail.markColor, 0x00ff00);
    EXPECT_EQ(detail.fileName, u"a.jpg"_s);
    ASSERT_EQ(detail.labels.size(), 1U);
    EXPECT_EQ(detail.labels[0].labelId, label);
    EXPECT_EQ(detail.labels[0].labelName, u"渗漏"_s);
    EXPECT_EQ(detail.uploaderName, u"zhang"_s);
    EXPECT_EQ(detail.uploadTime, 1700000000);
    EXPECT_EQ(detail.updaterName, u"wang"_s);
    EXPECT_EQ(detail.updateTime, 1700000600);
    EXPECT_EQ(detail.status, 0);
    EXPECT_EQ(detail.text5, QString());
}

TEST_P(BimLists, TheDetailOfAPhotoThatNobodyChangedHasItsUploadTwice) {
    KX_DATA::BimPicDetail detail;
    ASSERT_EQ(on.pics->GetBimPicDetail(first, Photo(), detail), kServiceOk);
    EXPECT_EQ(detail.updateTime, detail.uploadTime);
    EXPECT_EQ(detail.updaterName, QString());
}

TEST_P(BimLists, HiddenUnknownAndForeignPhotosHaveNoDetailAndLeaveTheRecordAlone) {
    const qint32 picId = Photo();
    const qint32 hidden = Photo([](site::NewBimPhoto& photo) { photo.status = 1; });
    KX_DATA::BimPicDetail detail;
    detail.picId = kUntouched;
    EXPECT_NE(on.pics->GetBimPicDetail(first, hidden, detail), kServiceOk);
    EXPECT_NE(on.pics->GetBimPicDetail(first, kNobody, detail), kServiceOk);
    EXPECT_NE(on.pics->GetBimPicDetail(first, 0, detail), kServiceOk);
    EXPECT_NE(on.pics->GetBimPicDetail(site->second, picId, detail), kServiceOk);
    EXPECT_EQ(detail.picId, kUntouched);
}

TEST_P(BimLists, FilesComeInTheOrderOfTheIdsWithoutThoseThatNobodyKnows) {
    const qint32 one = Photo();
    site::NewBimPhoto voiced;
    voiced.ppid = first;
    voiced.fileName = u"b.jpg"_s;
    const qint32 two = site->AddPhoto(voiced, "jpeg", "amr");
    std::vector<KX_DATA::PicFileEntry> files(1);
    ASSERT_EQ(on.pics->GetPicFiles({two, kNobody, one}, files), kServiceOk);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].picId, two);
    EXPECT_EQ(files[1].picId, one);
    EXPECT_EQ(files[0].picUuid, BimRows()[1].text8);
    EXPECT_EQ(files[0].audioUuid, BimRows()[1].text9);
    EXPECT_EQ(files[1].audioUuid, QString());
    ASSERT_EQ(on.pics->GetPicFiles({}, files), kServiceOk);
    EXPECT_TRUE(files.empty());
}

TEST_P(BimLists, FilesOfAPlaceAreThoseOfItsShownPhotosOfTheMarkNewestFirst) {
    const QString key = Position(u"3"_s, u"B"_s, u"7"_s);
    const QString other = Position(u"3"_s, u"B"_s, u"8"_s);
    const auto at = [&](const QString& place, qint32 mark, qint32 status) {
        return Photo([&](site::NewBimPhoto& photo) {
            photo.positionKey = place;
            photo.markId = mark;
            photo.status = status;
        });
    };
    const qint32 older = at(key, 1, 0);
    at(key, 2, 0);
    at(key, 1, 1);
    at(other, 1, 0);
    const qint32 nowhere = at({}, 1, 0);
    const qint32 newer = at(key, 1, 0);
    std::vector<KX_DATA::PicFileEntry> files;
    ASSERT_EQ(on.pics->GetPicFilesByPosition(first, key, 1, files), kServiceOk);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].picId, newer);
    EXPECT_EQ(files[1].picId, older);
    ASSERT_EQ(on.pics->GetPicFilesByPosition(first, {}, 1, files), kServiceOk);
    ASSERT_EQ(files.size(), 1U) << "an empty key names what stands on no floor";
    EXPECT_EQ(files[0].picId, nowhere);
    ASSERT_EQ(on.pics->GetPicFilesByPosition(site->second, key, 1, files), kServiceOk);
    EXPECT_TRUE(files.empty());
    ASSERT_EQ(on.pics->GetPicFilesByPosition(first, u"unknown"_s, 1, files), kServiceOk);
    EXPECT_TRUE(files.empty());
}

TEST_P(BimLists, LabelsAndMarksInUseAreThoseThatPhotosCarryEachOnceInTheOrderOfTheirIds) {
    std::vector<KX_DATA::LabelEntry> labels(1);
    std::vector<qint32> marks{kUntouched};
    EXPECT_TRUE(on.pics->GetBimLabels(labels));
    EXPECT_TRUE(labels.empty());
    EXPECT_TRUE(on.pics->GetUsedBimMarks(marks));
    EXPECT_TRUE(marks.empty());
    const qint32 one = site->AddLabel(u"返工"_s).toInt();
    site->AddLabel(u"没人用"_s);
    const qint32 three = site->AddLabel(u"渗漏"_s).toInt();
    for (const qint32 mark : {2, 1, 2, 99}) {
        Photo([&](site::NewBimPhoto& photo) {
            photo.markId = mark;
            photo.labelIds = {three, one};
        });
    }
    ASSERT_TRUE(on.pics->GetBimLabels(labels));
    ASSERT_EQ(labels.size(), 2U);
    EXPECT_EQ(labels[0].labelName, u"返工"_s);
    EXPECT_EQ(labels[1].labelId, QString::number(three));
    ASSERT_TRUE(on.pics->GetUsedBimMarks(marks));
    EXPECT_THAT(marks, ElementsAre(1, 2)) << "a mark that the table doesn't know isn't offered";
}

class BimListFailures : public FailureContract {};
WHERE_READING_FAILS(BimListFailures);

TEST_P(BimListFailures, AQueryTellsItAndLeavesRowsAndTotalsAlone) {
    Photo();
    Fail({"QueryBimPics"});
    KX_DATA::PageResult result{1, 2, kUntouched};
    std::vector<KX_DATA::BimPicRow> rows(3);
    EXPECT_NE(on.pics->QueryBimPics(Filter(), {}, result, rows), kServiceOk);
    EXPECT_EQ(rows.size(), 3U);
    EXPECT_EQ(result.pageCount, kUntouched);
}

TEST_P(BimListFailures, ADetailTellsItAndLeavesTheRecordAlone) {
    const qint32 picId = Photo();
    Fail({"GetBimPicDetail"});
    KX_DATA::BimPicDetail detail;
    detail.picId = kUntouched;
    EXPECT_NE(on.pics->GetBimPicDetail(first, picId, detail), kServiceOk);
    EXPECT_EQ(detail.picId, kUntouched);
}

TEST_P(BimListFailures, FilesTellItAndLeaveTheListAlone) {
    const qint32 picId = Photo();
    Fail({"GetPicFiles", "GetPicFilesByPosition"});
    std::vector<KX_DATA::PicFileEntry> files(2);
    EXPECT_NE(on.pics->GetPicFiles({picId}, files), kServiceOk);
    EXPECT_NE(on.pics->GetPicFilesByPosition(first, {}, 1, files), kServiceOk);
    EXPECT_EQ(files.size(), 2U);
}

TEST_P(BimListFailures, LabelsAndMarksInUseTellItAndLeaveTheListsAlone) {
    Photo();
    Fail({"GetBimLabels", "GetUsedBimMarks"});
    std::vector<KX_DATA::LabelEntry> labels(2);
    std::vector<qint32> marks{kUntouched};
    EXPECT_FALSE(on.pics->GetBimLabels(labels));
    EXPECT_FALSE(on.pics->GetUsedBimMarks(marks));
    EXPECT_EQ(labels.size(), 2U);
    EXPECT_THAT(marks, ElementsAre(kUntouched));
}

} // namespace contracts
