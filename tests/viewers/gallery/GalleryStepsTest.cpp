// From picture to picture: what the strip, the slide and the subclass make of each step.
#include "tests/support/WaitFor.h"
#include "tests/viewers/gallery/GalleryFixture.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using gallery::ItemRange;
using testing::ElementsAre;

class GalleryStepsTest : public GalleryFixture {
protected:
    void Key(Qt::Key key) { QTest::keyClick(Pane(), key); }
    void ClickButton(gallery::GalleryButton button) {
        QTest::mouseClick(Pane(), Qt::LeftButton, {}, State().buttons[button].rect.center());
    }
    void ClickThumb(int index) {
        QTest::mouseClick(Pane(), Qt::LeftButton, {}, ThumbMiddle(index));
    }
    /// Sleeps of slides since the last look, until the picture shows.
    int Frames() {
        EXPECT_TRUE(support::WaitFor([this] { return gallery->ShowsPicture(); }));
        const int frames = int(clock.Sleeps().size()) - m_seen;
        m_seen += frames;
        return frames;
    }

private:
    int m_seen = 0;
};

TEST_F(GalleryStepsTest, TheStepsMoveTheStripByTheirModes) {
    Open();
    SetItems(OnDisk(12));
    ASSERT_EQ(State().visible, (ItemRange{0, 3}));
    Key(Qt::Key_End);
    EXPECT_EQ(State().visible, (ItemRange{8, 11}));
    Key(Qt::Key_PageUp);
    EXPECT_EQ(State().visible, (ItemRange{4, 7}));
    EXPECT_EQ(State().currentIndex, 11);
    Key(Qt::Key_Left); // 10 lies outside: it comes first, as far as the list reaches
    EXPECT_EQ(State().currentIndex, 10);
    EXPECT_EQ(State().visible, (ItemRange{8, 11}));
    Key(Qt::Key_Home);
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
    for (int i = 0; i < 4; ++i) {
        Key(Qt::Key_Right);
    }
    EXPECT_EQ(State().visible, (ItemRange{1, 4})) << "the current one last";
    Key(Qt::Key_PageDown);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(State().visible, (ItemRange{8, 11}));
    Key(Qt::Key_Down);
    EXPECT_EQ(State().currentIndex, 5);
    EXPECT_EQ(State().visible, (ItemRange{2, 5}));
}

TEST_F(GalleryStepsTest, AKeyThatStepsNowhereTakesTheSlideFromTheNextChange) {
    Open();
    SetItems(OnDisk(5));
    static_cast<void>(Shown());
    ClickButton(gallery::kNextPic);
    EXPECT_GT(Frames(), 9);
    Key(Qt::Key_Home);
    EXPECT_GT(Frames(), 9);
    Key(Qt::Key_Left);
    EXPECT_EQ(State().currentIndex, 0);
    gallery->SelectPic(1, gallery::kCurrentLast);
    EXPECT_EQ(Frames(), 0);
    gallery->SelectPic(2, gallery::kCurrentLast);
    EXPECT_GT(Frames(), 9);
}

TEST_F(GalleryStepsTest, TheCurrentItemIsToldOnceForEveryChangeAndForEveryList) {
    Open();
    SetItems(OnDisk(5), 3);
    EXPECT_THAT(gallery->told, ElementsAre(3));
    gallery->SelectPic(3, gallery::kCurrentMiddle);
    gallery->SelectPic(-1, gallery::kCurrentMiddle);
    gallery->SelectPic(5, gallery::kCurrentMiddle);
    EXPECT_THAT(gallery->told, ElementsAre(3));
    gallery->SelectPic(4, gallery::kCurrentMiddle);
    EXPECT_THAT(gallery->told, ElementsAre(3, 4));
    gallery->SetPicItems({});
    EXPECT_THAT(gallery->told, ElementsAre(3, 4));
    EXPECT_EQ(State().currentIndex, 4);
    EXPECT_EQ(State().shownIndex, -1);
}

TEST_F(GalleryStepsTest, APictureThatComesAfterItsFailureIsShownWhenItIsChosen) {
    Open();
    std::vector<GalleryItem> items = OnDisk(3);
    items[1].picPath = folder.Path(u"pics/late.jpg"_s);
    items[1].picUuid = QString();
    SetItems(items);
    ASSERT_TRUE(WaitForDownloads());
    ASSERT_TRUE(support::WaitFor([this] { return State().items[1].picState == 4; }));
    Key(Qt::Key_Right);
    EXPECT_TRUE(SaysNoPicture());
    folder.Write(u"pics/late.jpg"_s, support::PngBytes(support::OneColour({300, 200}, Qt::green)));
    Key(Qt::Key_Right);
    Key(Qt::Key_Left);
    EXPECT_EQ(State().items[1].picState, 4);
    EXPECT_TRUE(support::IsNear(PixelAt(PictureMiddle()), Qt::green));
}

TEST_F(GalleryStepsTest, ThumbnailsInTheMiddleLeaveTheStripAlone) {
    Open();
    SetItems(OnDisk(12));
    ClickThumb(3); // forward on four cells: 3 is third, from 1 on
    EXPECT_EQ(State().visible, (ItemRange{1, 4}));
    ClickThumb(2); // second of the middle pair already
    EXPECT_EQ(State().visible, (ItemRange{1, 4}));
    ClickThumb(1);
    EXPECT_EQ(State().currentIndex, 1);
    EXPECT_EQ(State().visible, (ItemRange{0, 3}));
}

} // namespace
