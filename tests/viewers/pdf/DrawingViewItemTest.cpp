// What the drawing photo viewer says, and which picture follows a deleted one.
#include "viewers/DrawingViewItem.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

std::vector<DrawingViewItem> Pictures(const std::vector<qint32>& ids) {
    std::vector<DrawingViewItem> items;
    for (const qint32 id : ids) {
        items.emplace_back().picId = id;
    }
    return items;
}

KX_DATA::CheckpointPicDetail Detail() {
    KX_DATA::CheckpointPicDetail detail;
    detail.name = u"a.jpg"_s;
    detail.description = u"d"_s;
    detail.uploader = u"张三"_s;
    detail.uploadTime = u"1"_s;
    detail.updater = u"李四"_s;
    detail.updateTime = u"2"_s;
    return detail;
}

TEST(DrawingViewItem, TakesTheDetailsOverAndCountsAsLoaded) {
    DrawingViewItem item;
    item.picId = 5;
    gallery::Load(item, Detail());
    EXPECT_EQ(item.picId, 5);
    EXPECT_EQ(item.loaded, 1);
    EXPECT_EQ(item.name, u"a.jpg");
    EXPECT_EQ(item.description, u"d");
    EXPECT_EQ(item.uploader, u"张三");
    EXPECT_EQ(item.uploadTime, u"1");
    EXPECT_EQ(item.updater, u"李四");
    EXPECT_EQ(item.updateTime, u"2");
}

TEST(DrawingViewItem, APictureNeverChangedHasNoUpdater) {
    KX_DATA::CheckpointPicDetail detail = Detail();
    detail.updateTime = detail.uploadTime;
    DrawingViewItem item;
    gallery::Load(item, detail);
    EXPECT_EQ(item.uploader, u"张三");
    EXPECT_TRUE(item.updater.isEmpty());
    EXPECT_TRUE(item.updateTime.isEmpty());
}

TEST(DrawingViewItem, TheTitleCountsFromOne) {
    EXPECT_EQ(gallery::DrawingViewTitle(7, u"a%1.jpg"_s, 1, 3), u"检查点7 - a%1.jpg   (2/3)");
}

TEST(DrawingViewItem, EveryLabelHasABlankBehindItAndEveryBlankOfTheTipIsALineFeed) {
    KX_DATA::DrawingRecord record;
    record.labels = {{u"1"_s, u"裂缝"_s}, {u"2"_s, u"二 层"_s}};
    EXPECT_EQ(gallery::LabelLine(record), u"裂缝 二 层 ");
    EXPECT_EQ(gallery::LabelTip(record), u"裂缝\n二\n层\n");
}

TEST(DrawingViewItem, ThePictureInItsPlaceFollowsADeletedOne) {
    auto items = Pictures({1, 2, 3});
    EXPECT_EQ(gallery::RemovePicture(items, 2), 3);
    EXPECT_EQ(items.size(), 2U);
}

TEST(DrawingViewItem, TheFirstPictureFollowsADeletedLastOne) {
    auto items = Pictures({1, 2, 3});
    EXPECT_EQ(gallery::RemovePicture(items, 3), 1);
}

TEST(DrawingViewItem, NoPictureFollowsTheOnlyOne) {
    auto items = Pictures({1});
    EXPECT_EQ(gallery::RemovePicture(items, 1), -1);
    EXPECT_TRUE(items.empty());
    EXPECT_EQ(gallery::RemovePicture(items, 1), -1);
}

TEST(DrawingViewItem, APictureThatIsNotThereLeavesTheOthers) {
    auto items = Pictures({4, 5});
    EXPECT_EQ(gallery::RemovePicture(items, 9), 4);
    EXPECT_EQ(items.size(), 2U);
}

TEST(DrawingViewItem, TheEditorBeginsWithWhatTheCheckpointHas) {
    KX_DATA::DrawingRecord record;
    record.position = {11, 22};
    record.description = u"d"_s;
    record.remark = u"r"_s;
    record.labels = {{u"1"_s, u"裂缝"_s}, {u"2"_s, u"二层"_s}};
    const KX_DATA::CheckpointEdit edit = gallery::EditOf(101, record);
    EXPECT_EQ(edit.checkpointId, 101);
    EXPECT_EQ(edit.position1, 11);
    EXPECT_EQ(edit.position2, 22);
    EXPECT_EQ(edit.description, u"d");
    EXPECT_EQ(edit.remark, u"r");
    EXPECT_THAT(edit.labelNames, ElementsAre(u"裂缝"_s, u"二层"_s));
}

} // namespace
