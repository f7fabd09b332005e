// Places of the texts under a photo.
#include "viewers/PhotoBlockLayout.h"

#include <gtest/gtest.h>

namespace {

using gallery::LayoutPhotoBlock;

constexpr QSize kPane(803, 640); ///< columns of 159 and 158
constexpr int kTop = 560;

TEST(PhotoBlockLayout, TheBimViewersBlockStandsAsTold) {
    const gallery::PhotoBlockLayout at = LayoutPhotoBlock(kPane, gallery::BimViewerBlock());
    const int c = 159;
    EXPECT_EQ(at.top, kTop);
    EXPECT_EQ(at.separator, QRect(0, kTop, 803, 2));
    EXPECT_EQ(at.mark, QRect(5, kTop + 20, 80, 20));
    EXPECT_EQ(at.position, QRect(5, kTop + 50, 100, 14));
    EXPECT_EQ(at.uploader, QRect(c, kTop + 25, c - 10, 14));
    EXPECT_EQ(at.uploadTime, QRect(c, kTop + 50, c - 10, 14));
    EXPECT_EQ(at.updater, QRect(2 * c, kTop + 25, c - 10, 14));
    EXPECT_EQ(at.updateTime, QRect(2 * c, kTop + 50, c - 10, 14));
    EXPECT_EQ(at.labels, QRect(3 * c, kTop + 25, c - 10, 14));
    EXPECT_EQ(at.description, QRect(3 * c, kTop + 50, c - 10, 14));
    EXPECT_EQ(at.noteGroup, QRect(4 * c, kTop + 5, c, 70));
    EXPECT_EQ(at.noteButton, QPoint(4 * c + 5, kTop + 20));
    EXPECT_EQ(at.noteProgress, QRect(4 * c + 50, kTop + 50, c - 60, 5));
    EXPECT_EQ(at.noteStatus, QRect(4 * c + 50, kTop + 30, c - 60, 14));
}

TEST(PhotoBlockLayout, TheConsoleViewersBlockDiffersInItsColumns) {
    const gallery::PhotoBlockLayout at = LayoutPhotoBlock(kPane, gallery::ConsoleViewerBlock());
    const int c = 158;
    EXPECT_EQ(at.separator, QRect(0, kTop + 1, 803, 2));
    EXPECT_EQ(at.mark, QRect(5, kTop + 20, 80, 20));
    EXPECT_EQ(at.position, QRect(5, kTop + 50, c, 14));
    EXPECT_EQ(at.uploader, QRect(c + 5, kTop + 25, c - 10, 14));
    EXPECT_EQ(at.updateTime, QRect(2 * c + 5, kTop + 50, c - 10, 14));
    EXPECT_EQ(at.description, QRect(3 * c + 5, kTop + 50, c - 10, 14));
    EXPECT_EQ(at.noteGroup, QRect(4 * c, kTop + 5, c, 70));
    EXPECT_EQ(at.noteProgress, QRect(4 * c + 50, kTop + 50, c - 60, 5));
}

TEST(PhotoBlockLayout, ThePicturesTakeWhatIsAboveAndLeaveAColumnForStripAndReport) {
    const gallery::BimViewerPlaces places = gallery::PlaceBimViewer(kPane);
    EXPECT_EQ(places.bigArea, QRect(0, 0, 678, kTop));
    EXPECT_EQ(places.stripArea, QRect(QPoint(678, 35), QPoint(797, kTop - 6)));
    EXPECT_EQ(places.report, QRect(678, 5, 110, 25));
}

TEST(PhotoBlockLayout, APaneTooSmallHasNoStrip) {
    EXPECT_TRUE(gallery::PlaceBimViewer(QSize(100, 100)).stripArea.isEmpty());
    EXPECT_TRUE(gallery::PlaceBimViewer(QSize(0, 0)).bigArea.isEmpty());
}

} // namespace
