// Texts and lists of the BIM photo viewer.
#include "viewers/BimViewItem.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using KX_DATA::PicFileEntry;
using KX_DATA::ShownPicMarks;
using testing::ElementsAre;

std::vector<PicFileEntry> FilesOf(std::initializer_list<qint32> ids) {
    std::vector<PicFileEntry> files;
    for (const qint32 id : ids) {
        files.emplace_back();
        files.back().picId = id;
    }
    return files;
}

std::vector<qint32> IdsOf(const std::vector<PicFileEntry>& files) {
    std::vector<qint32> ids;
    for (const PicFileEntry& file : files) {
        ids.push_back(file.picId);
    }
    return ids;
}

std::vector<qint32> Shown(const ShownPicMarks& marks, const std::string& group = "1",
                          qint32 markId = 7) {
    std::vector<PicFileEntry> files = FilesOf({1, 2, 3});
    gallery::KeepShown(files, marks, group, markId);
    return IdsOf(files);
}

ShownPicMarks Marks(const QString& second, std::vector<KX_DATA::ShownPicItem> items) {
    ShownPicMarks marks;
    marks["1"][second][7] = std::move(items);
    return marks;
}

TEST(BimViewRules, APositionIsNamedByFloorAndAxes) {
    KX_DATA::BimPicDetail detail;
    detail.floor = u"-1"_s;
    detail.axisX = u"3"_s;
    detail.axisY = u"B"_s;
    EXPECT_EQ(gallery::PositionOf(detail), u"-1层 3/B"_s);
    detail.floor.clear();
    EXPECT_EQ(gallery::PositionOf(detail), QString());
}

TEST(BimViewRules, TextsOfARecordAreNeverTakenForPlaceholders) {
    KX_DATA::BimPicDetail detail;
    detail.floor = u"%2"_s;
    detail.axisX = u"%3"_s;
    detail.axisY = u"B"_s;
    EXPECT_EQ(gallery::PositionOf(detail), u"%2层 %3/B"_s);
    EXPECT_EQ(gallery::BimViewTitle(u"%2.jpg"_s, 0, 5), u"%2.jpg   (1/5)"_s);
}

TEST(BimViewRules, LabelsStandWithASeparatorBehindEach) {
    const std::vector<KX_DATA::LabelEntry> labels = {{u"1"_s, u"裂缝"_s}, {u"2"_s, u"渗漏"_s}};
    EXPECT_EQ(gallery::JoinLabels(labels, u' '), u"裂缝 渗漏 "_s);
    EXPECT_EQ(gallery::JoinLabels(labels, u'\n'), u"裂缝\n渗漏\n"_s);
    EXPECT_EQ(gallery::JoinLabels({}, u' '), QString());
}

TEST(BimViewRules, TheTitleCountsFromOne) {
    EXPECT_EQ(gallery::BimViewTitle(u"墙.jpg"_s, 1, 3), u"墙.jpg   (2/3)"_s);
}

TEST(BimViewRules, PhotosWithoutAFloorStandInTheGroupOfTheOthers) {
    EXPECT_EQ(gallery::FloorGroup(QString()), u"其他"_s);
    EXPECT_EQ(gallery::FloorGroup(u"B1"_s), u"B1"_s);
}

TEST(BimViewRules, OnlyPhotosThatTheMarksShowStayInTheirOrder) {
    EXPECT_THAT(Shown(Marks(QString(), {{"a", 3}, {"a", 1}})), ElementsAre(1, 3));
}

TEST(BimViewRules, APlaceThatTheMarksDoNotKnowIsShownInFull) {
    EXPECT_THAT(Shown({}), ElementsAre(1, 2, 3));
    EXPECT_THAT(Shown(Marks(u"二级"_s, {{"a", 3}})), ElementsAre(1, 2, 3));
    EXPECT_THAT(Shown(Marks(QString(), {{"a", 3}}), "2"), ElementsAre(1, 2, 3));
    EXPECT_THAT(Shown(Marks(QString(), {{"a", 3}}), "1", 8), ElementsAre(1, 2, 3));
}

TEST(BimViewRules, AMarkWithoutPhotosOfItsOwnIsShownInFull) {
    EXPECT_THAT(Shown(Marks(QString(), {})), ElementsAre(1, 2, 3));
}

std::vector<gallery::PhotoEntry> Photos(const std::vector<qint32>& ids) {
    std::vector<gallery::PhotoEntry> photos;
    for (const qint32 id : ids) {
        photos.push_back({id, 0, {}, {}});
    }
    return photos;
}

TEST(BimViewRules, TheWantedPhotoIsFoundByItsId) {
    const std::vector<gallery::PhotoEntry> photos = Photos({5, 6, 7});
    EXPECT_EQ(gallery::IndexOfPhoto(photos, 7), 2);
    EXPECT_EQ(gallery::IndexOfPhoto(photos, 8), 0);
    EXPECT_EQ(gallery::IndexOfPhoto(photos, -1), 0);
    EXPECT_EQ(gallery::IndexOfPhoto(Photos({4, -1}), -1), 0);
    EXPECT_EQ(gallery::IndexOfPhoto({}, 7), 0);
}

TEST(BimViewRules, OfTwoEntriesOfOnePhotoTheLastIsWanted) {
    EXPECT_EQ(gallery::IndexOfPhoto(Photos({5, 7, 6, 7, 8}), 7), 3);
}

} // namespace
