// A slide, frame after frame.
#include "viewers/SlideRunner.h"

#include <gtest/gtest.h>

#include <vector>

using gallery::SlideRunner;
using gallery::SlideScene;

namespace {

SlideScene Scene(int distance, bool ofPicture) {
    SlideScene scene;
    scene.slide.bounds = QRect(1, 2, 30, 40);
    scene.slide.distance = distance;
    scene.ofPicture = ofPicture;
    return scene;
}

/// The offsets of all its frames.
std::vector<int> FramesOf(SlideRunner& runner) {
    std::vector<int> offsets;
    do {
        offsets.push_back(runner.OfPicture()->offset);
    } while (runner.Advance());
    return offsets;
}

} // namespace

TEST(SlideRunner, NothingSlidesToBeginWith) {
    SlideRunner runner;
    EXPECT_FALSE(runner.IsRunning());
    EXPECT_EQ(runner.OfPicture(), nullptr);
    EXPECT_EQ(runner.OfStrip(), nullptr);
    EXPECT_TRUE(runner.Bounds().isEmpty());
    EXPECT_FALSE(runner.Advance());
}

TEST(SlideRunner, ItGoesThroughTheFramesAndEndsExactlyOnTarget) {
    SlideRunner runner;
    runner.Start(Scene(103, true));
    EXPECT_EQ(runner.Bounds(), QRect(1, 2, 30, 40));
    EXPECT_EQ(FramesOf(runner), gallery::SlideOffsets(103));
    EXPECT_FALSE(runner.IsRunning());
    EXPECT_EQ(runner.OfPicture(), nullptr);
    EXPECT_TRUE(runner.Bounds().isEmpty());
}

TEST(SlideRunner, ADistanceWithoutATenthIsOneFrame) {
    SlideRunner runner;
    runner.Start(Scene(7, true));
    EXPECT_EQ(FramesOf(runner), std::vector<int>{7});
}

TEST(SlideRunner, TheSceneIsOfThePictureOrOfTheStrip) {
    SlideRunner runner;
    runner.Start(Scene(50, false));
    EXPECT_EQ(runner.OfPicture(), nullptr);
    ASSERT_NE(runner.OfStrip(), nullptr);
    EXPECT_EQ(runner.OfStrip()->offset, 0);
    ASSERT_TRUE(runner.Advance());
    EXPECT_EQ(runner.OfStrip()->offset, 5);
}

TEST(SlideRunner, AnotherSlideBeginsAtItsOwnFirstFrame) {
    SlideRunner runner;
    runner.Start(Scene(50, true));
    ASSERT_TRUE(runner.Advance());
    runner.Start(Scene(100, true));
    EXPECT_EQ(runner.OfPicture()->offset, 0);
    EXPECT_EQ(FramesOf(runner).size(), 11U);
    runner.Start(Scene(100, true));
    runner.Stop();
    EXPECT_FALSE(runner.IsRunning());
    EXPECT_FALSE(runner.Advance());
}
