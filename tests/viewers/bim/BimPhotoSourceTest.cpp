// Where the BIM photo viewer gets its photos from, and that it needs no more than such a source.
#include "viewers/BimPhotoSource.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"
#include "tests/viewers/support/SamplePictures.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using gallery::PhotoDetail;
using gallery::PhotoEntry;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BimPhotoSourceTest : public BimViewFixture {
protected:
    gallery::BimPhotoSource source{BimPlace{1, u"1"_s, u"K"_s, 1}};
};

/// Photos that no service knows.
class OwnPhotos final : public gallery::IPhotoSource {
public:
    bool listed = true;
    bool detailed = true;
    std::vector<PhotoEntry> photos;
    std::vector<qint32> asked; ///< for their details

    std::optional<std::vector<PhotoEntry>> List() override {
        return listed ? std::optional(photos) : std::nullopt;
    }
    std::optional<PhotoDetail> Detail(const PhotoEntry& photo) override {
        asked.push_back(photo.picId);
        PhotoDetail detail;
        detail.name = photo.picUuid + u".png"_s;
        detail.description = photo.audioUuid;
        return detailed ? std::optional(detail) : std::nullopt;
    }
    std::vector<GalleryItem> Files(const std::vector<PhotoEntry>& entries) override {
        std::vector<GalleryItem> items;
        for (const PhotoEntry& entry : entries) {
            items.push_back(gallery::FilesOf(entry, u"elsewhere/"_s));
        }
        return items;
    }
};

class OwnPhotosTest : public BimViewFixture {
protected:
    OwnPhotosTest() {
        own->photos = {{11, 0, u"one"_s, {}}, {12, 0, u"two"_s, u"note2"_s}};
        EXPECT_TRUE(Open());
        Log().Clear();
    }
    std::shared_ptr<OwnPhotos> own = std::make_shared<OwnPhotos>();
};

} // namespace

TEST_F(BimPhotoSourceTest, ListsThePhotosOfThePlaceInTheServicesOrder) {
    host.pics.files[1].kind = 7;
    const auto photos = source.List();
    ASSERT_TRUE(photos);
    ASSERT_EQ(photos->size(), 3U);
    EXPECT_EQ((*photos)[1].picId, 2);
    EXPECT_EQ((*photos)[1].kind, 7);
    EXPECT_EQ((*photos)[1].picUuid, host.pics.files[1].picUuid);
    EXPECT_EQ((*photos)[1].audioUuid, u"note2"_s);
    EXPECT_THAT(Log().LinesOf({"GetPicFilesByPosition"}),
                ElementsAre("GetPicFilesByPosition(ppid=1,position=K,mark=1)"));
}

TEST_F(BimPhotoSourceTest, APlaceWithoutPhotosIsAnEmptyListAndAFailureIsNone) {
    host.script.FailNext("GetPicFilesByPosition");
    EXPECT_FALSE(source.List());
    host.pics.files.clear();
    const auto photos = source.List();
    ASSERT_TRUE(photos);
    EXPECT_TRUE(photos->empty());
}

TEST_F(BimPhotoSourceTest, ADetailThatCannotBeFetchedIsNone) {
    host.script.FailNext("GetBimPicDetail");
    EXPECT_FALSE(source.Detail({2, 0, {}, {}}));
    const auto detail = source.Detail({2, 0, {}, {}});
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->name, u"照片2.jpg"_s);
    EXPECT_EQ(detail->posText, u"1层 3/B"_s);
    EXPECT_EQ(detail->uploadTime, u"2026-03-04 12:00:00"_s);
    EXPECT_EQ(detail->updater, u"li"_s);
    EXPECT_EQ(detail->updateTime, u"2026-03-05 11:00:00"_s);
    EXPECT_EQ(detail->labels.size(), 2U);
}

TEST_F(BimPhotoSourceTest, APhotoThatWasNeverChangedHasNoUpdater) {
    host.pics.bimPics[1].updateStamp = host.pics.bimPics[1].uploadStamp;
    const auto detail = source.Detail({2, 0, {}, {}});
    ASSERT_TRUE(detail);
    EXPECT_TRUE(detail->updater.isEmpty());
    EXPECT_TRUE(detail->updateTime.isEmpty());
    EXPECT_FALSE(detail->uploadTime.isEmpty());
}

TEST_F(BimPhotoSourceTest, FilesLieInTheProjectsFolderUnderTheirUuids) {
    const std::vector<GalleryItem> items =
        source.Files({{1, 0, u"abc"_s, u"def"_s}, {2, 0, u"../x"_s, {}}});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_TRUE(items[0].picPath.endsWith(u"1/pics/abc.jpg"_s)) << items[0].picPath.toStdString();
    EXPECT_TRUE(items[0].audioPath.endsWith(u"1/pics/def.amr"_s));
    EXPECT_EQ(items[0].picUuid, u"abc"_s);
    EXPECT_EQ(items[0].audioUuid, u"def"_s);
    EXPECT_EQ(items[0].picState, kWaiting);
    EXPECT_TRUE(items[1].picPath.isEmpty()) << "a uuid that leads out of the folder";
    EXPECT_TRUE(items[1].audioPath.isEmpty());
}

TEST_F(OwnPhotosTest, TheViewerShowsWhatAnySourceHas) {
    ASSERT_TRUE(Pane().LoadPhotos(own, 5, 12));
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Pane().Items()[1].ppid, 5);
    EXPECT_EQ(Pane().Widget()->windowTitle(), u"two.png   (2/2)"_s);
    EXPECT_EQ(Texts().descText->text(), u"描述：note2"_s) << "asked with its own entry";
    Press(Qt::Key_Left);
    EXPECT_EQ(Pane().Widget()->windowTitle(), u"one.png   (1/2)"_s);
    Press(Qt::Key_Right);
    EXPECT_THAT(own->asked, ElementsAre(12, 11)) << "each once";
    EXPECT_THAT(Log().LinesOf({"GetBimPicDetail", "GetPicFilesByPosition"}), IsEmpty());
}

TEST_F(OwnPhotosTest, AListThatFailsLeavesThePictureAndNoDetails) {
    own->listed = false;
    EXPECT_FALSE(Pane().LoadPhotos(own, 5, -1));
    EXPECT_TRUE(Pane().Items().empty());
    EXPECT_EQ(Pane().State().Count(), 3);
    Press(Qt::Key_Right);
    EXPECT_THAT(own->asked, IsEmpty());
}

TEST_F(OwnPhotosTest, ADetailThatFailsIsSaidAndAskedForAgain) {
    own->detailed = false;
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    ASSERT_TRUE(Pane().LoadPhotos(own, 5, 11));
    EXPECT_EQ(Pane().Items()[0].loaded, 0);
    own->detailed = true;
    Press(Qt::Key_Right);
    Press(Qt::Key_Left);
    EXPECT_EQ(Pane().Items()[0].loaded, 1);
    EXPECT_THAT(own->asked, ElementsAre(11, 12, 11));
}
