#include "console/ConsoleLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

/// A console of its least size with controls of plain sizes.
ConsoleLayoutRequest Request(ConsoleMode mode, QSize client = QSize(1085, 845)) {
    ConsoleLayoutRequest request;
    request.client = client;
    request.mode = mode;
    request.filters = {QSize(144, 24), QSize(112, 24), QSize(104, 24), QSize(96, 24),
                       QSize(54, 24),  QSize(104, 24), QSize(8, 24),   QSize(104, 24),
                       QSize(236, 24), QSize(64, 24)};
    request.projectBox = QRect(210, 10, 144, 24);
    request.radio = QSize(90, 18);
    request.action = QSize(46, 24);
    request.actionCounts = {true, true, true, true};
    request.pagingBar = QSize(320, 35);
    return request;
}

/// Right of a rectangle as a position: the first pixel behind it.
int RightOf(const QRect& rect) {
    return rect.x() + rect.width();
}

int BottomOf(const QRect& rect) {
    return rect.y() + rect.height();
}

TEST(ConsoleLayout, RadioButtonsStand75AboveTheBottom) {
    const ConsoleLayout layout = LayoutConsole(Request(kModeBim));
    EXPECT_EQ(layout.bimRadio, QRect(8, 770, 90, 18));
    EXPECT_EQ(layout.pdfRadio, QRect(100, 770, 90, 18));
}

TEST(ConsoleLayout, ActionsStand55AboveTheBottomIn50Steps) {
    const ConsoleLayout layout = LayoutConsole(Request(kModeBim));
    EXPECT_THAT(layout.actions, ElementsAre(QRect(10, 790, 46, 24), QRect(60, 790, 46, 24),
                                            QRect(110, 790, 46, 24), QRect(160, 790, 46, 24)));
}

TEST(ConsoleLayout, AnActionThatDoesNotCountTakesNoPlace) {
    ConsoleLayoutRequest request = Request(kModeBim);
    request.actionCounts = {true, false, true, true};
    const ConsoleLayout layout = LayoutConsole(request);
    EXPECT_THAT(layout.actions, ElementsAre(QRect(10, 790, 46, 24), QRect(), QRect(60, 790, 46, 24),
                                            QRect(110, 790, 46, 24)));
}

TEST(ConsoleLayout, ThePagingBarEndsAtTheRightEdgeAbove20OfStatusBar) {
    EXPECT_EQ(LayoutConsole(Request(kModeBim)).pagingBar, QRect(765, 790, 320, 35));
    EXPECT_EQ(LayoutConsole(Request(kModeIssue)).pagingBar, QRect(765, 790, 320, 35));
}

TEST(ConsoleLayout, TheGridLeavesALineForTheRadioButtonsOfPhotos) {
    for (const ConsoleMode mode : {kModeBim, kModePdf}) {
        const QRect grid = LayoutConsole(Request(mode)).grid;
        EXPECT_EQ(grid.topLeft(), QPoint(10, 40));
        EXPECT_EQ(RightOf(grid), 1070);
        EXPECT_EQ(BottomOf(grid), 770);
    }
}

TEST(ConsoleLayout, TheGridOfIssuesReachesDownToThePagingBar) {
    EXPECT_EQ(BottomOf(LayoutConsole(Request(kModeIssue)).grid), 790);
}

TEST(ConsoleLayout, TheStatusBarFillsTheLast20) {
    EXPECT_EQ(LayoutConsole(Request(kModePdf)).statusBar, QRect(0, 825, 1085, 20));
}

TEST(ConsoleLayout, EverythingMovesWithTheEdgesItBelongsTo) {
    const ConsoleLayout layout = LayoutConsole(Request(kModeBim, QSize(1500, 1000)));
    EXPECT_EQ(layout.bimRadio.topLeft(), QPoint(8, 925));
    EXPECT_EQ(layout.actions[kDownloadButton].topLeft(), QPoint(10, 945));
    EXPECT_EQ(layout.pagingBar.topLeft(), QPoint(1180, 945));
    EXPECT_EQ(layout.grid, QRect(10, 40, 1475, 885));
    EXPECT_EQ(layout.statusBar, QRect(0, 980, 1500, 20));
}

TEST(ConsoleLayout, FiltersOfIssuesFollowEachOtherWithTheirGaps) {
    const ConsoleLayout layout = LayoutConsole(Request(kModeIssue));
    EXPECT_THAT(layout.filters,
                ElementsAre(QRect(210, 10, 144, 24), QRect(357, 10, 112, 24), QRect(),
                            QRect(472, 10, 96, 24), QRect(571, 10, 54, 24), QRect(628, 10, 104, 24),
                            QRect(733, 10, 8, 24), QRect(742, 10, 104, 24), QRect(849, 10, 236, 24),
                            QRect(1088, 10, 64, 24)));
}

TEST(ConsoleLayout, TheProjectBoxOfIssuesKeepsThePlaceThatItHadOnTheScreen) {
    ConsoleLayoutRequest request = Request(kModeIssue, QSize(1600, 900));
    request.projectBox = QRect(-300, 10, 150, 24);
    const ConsoleLayout layout = LayoutConsole(request);
    EXPECT_EQ(layout.filters[kProjectBox], QRect(-300, 10, 150, 24));
    EXPECT_EQ(layout.filters[kMarkBox].x(), -147);
}

TEST(ConsoleLayout, FiltersOfPhotosStandInOneLineWithoutOverlap) {
    for (const int width : {900, 1085, 1300, 2000}) {
        const ConsoleLayout layout = LayoutConsole(Request(kModeBim, QSize(width, 845)));
        EXPECT_EQ(layout.filters[0].topLeft(), QPoint(10, 10)) << width;
        for (size_t i = 1; i < kFilterControls; ++i) {
            EXPECT_EQ(layout.filters[i].y(), 10) << width;
            EXPECT_GT(layout.filters[i].x(), layout.filters[i - 1].right()) << width << ' ' << i;
        }
    }
}

TEST(ConsoleLayout, TheFilterLineOfPhotosEndsWithTheGridFromTheLeastWidthOn) {
    for (const int width : {900, 1085, 1200}) {
        const ConsoleLayout layout = LayoutConsole(Request(kModePdf, QSize(width, 845)));
        EXPECT_EQ(RightOf(layout.filters[kSearchButton]), RightOf(layout.grid)) << width;
    }
}

TEST(ConsoleLayout, TheKeywordBoxOfPhotosGrowsWithTheWindowUpToALimit) {
    const auto keywordWidth = [](int width) {
        return LayoutConsole(Request(kModeBim, QSize(width, 845))).filters[kKeywordBox].width();
    };
    EXPECT_EQ(keywordWidth(1185), keywordWidth(1085) + 100);
    EXPECT_EQ(keywordWidth(3000), 420);
    EXPECT_EQ(keywordWidth(400), 64);
}

TEST(ConsoleLayout, TheListsOfPhotosGiveWayOnANarrowScreen) {
    const ConsoleLayout narrow = LayoutConsole(Request(kModeBim, QSize(860, 845)));
    EXPECT_LT(narrow.filters[kProjectBox].width(), 144);
    EXPECT_EQ(narrow.filters[kStartDate].width(), 104);
    const ConsoleLayout tiny = LayoutConsole(Request(kModeBim, QSize(300, 845)));
    for (const FilterControl list : {kProjectBox, kMarkBox, kLabelBox, kStatusBox}) {
        EXPECT_EQ(tiny.filters[list].width(), 44) << list;
    }
}

TEST(ConsoleLayout, OnAScreenOf1366At200PercentTheSearchButtonIsInTheWindow) {
    constexpr int kClient = 1366 / 2 - 8; // less the frames
    const ConsoleLayout photos = LayoutConsole(Request(kModeBim, QSize(kClient, 348)));
    EXPECT_EQ(RightOf(photos.filters[kSearchButton]), kClient - 15);
    EXPECT_GE(photos.filters[kKeywordBox].width(), 64);
    EXPECT_EQ(photos.filters[kStartDate].width(), 104) << "a date needs its width";
    ConsoleLayoutRequest request = Request(kModeIssue, QSize(kClient, 348));
    request.filters = FilterSizesFor(request.filters, 10, kClient);
    request.projectBox = QRect(QPoint(10, 10), request.filters[kProjectBox]);
    EXPECT_EQ(RightOf(LayoutConsole(request).filters[kSearchButton]), kClient);
}

TEST(ConsoleLayout, FiltersOfPhotosFollowEachOtherWithTheirGaps) {
    // Wide enough for the natural size of each but the keyword box, which takes what is left.
    EXPECT_THAT(LayoutConsole(Request(kModeBim, QSize(1185, 845))).filters,
                ElementsAre(QRect(10, 10, 144, 24), QRect(158, 10, 112, 24),
                            QRect(274, 10, 104, 24), QRect(382, 10, 96, 24), QRect(486, 10, 54, 24),
                            QRect(544, 10, 104, 24), QRect(652, 10, 8, 24), QRect(664, 10, 104, 24),
                            QRect(776, 10, 326, 24), QRect(1106, 10, 64, 24)));
}

TEST(ConsoleLayout, AWindowTooSmallGivesRectanglesOfNoSize) {
    const ConsoleLayout layout = LayoutConsole(Request(kModeBim, QSize(0, 0)));
    EXPECT_EQ(layout.grid.size(), QSize(0, 0));
    EXPECT_EQ(layout.statusBar.size(), QSize(0, 20));
}

TEST(CountedActions, PhotosCountByTheRights) {
    for (const ConsoleMode mode : {kModeBim, kModePdf}) {
        EXPECT_THAT(CountedActions(mode, true, true), ElementsAre(true, true, true, true));
        EXPECT_THAT(CountedActions(mode, false, true), ElementsAre(true, false, true, true));
        EXPECT_THAT(CountedActions(mode, true, false), ElementsAre(true, true, false, false));
        EXPECT_THAT(CountedActions(mode, false, false), ElementsAre(true, false, false, false));
    }
}

TEST(CountedActions, IssuesCountAllButTheDownloadWhateverTheRights) {
    EXPECT_THAT(CountedActions(kModeIssue, false, false), ElementsAre(false, true, true, true));
    EXPECT_THAT(CountedActions(kModeIssue, true, true), ElementsAre(false, true, true, true));
}

TEST(ConsoleLayout, OnAWideScreenTheControlsKeepTheirNaturalSizes) {
    const FilterSizes natural = Request(kModeIssue).filters;
    EXPECT_EQ(FilterSizesFor(natural, 210, 1358), natural);
}

TEST(ConsoleLayout, OnANarrowScreenTheLineForIssuesEndsWithTheWindow) {
    ConsoleLayoutRequest request = Request(kModeIssue, QSize(845, 448));
    request.filters = FilterSizesFor(request.filters, 18, 845);
    request.projectBox = QRect(QPoint(18, 10), request.filters[kProjectBox]);
    EXPECT_EQ(RightOf(LayoutConsole(request).filters[kSearchButton]), 845);
    EXPECT_EQ(request.filters[kKeywordBox].width(), 121) << "the keyword box gives first";
    EXPECT_EQ(request.filters[kStartDate].width(), 104) << "a date needs its width";
}

TEST(ConsoleLayout, OnAScreenTooNarrowForAllListsKeepTheirArrow) {
    const FilterSizes sizes = FilterSizesFor(Request(kModeIssue).filters, 210, 300);
    EXPECT_EQ(sizes[kKeywordBox].width(), 64);
    EXPECT_EQ(sizes[kProjectBox].width(), 44);
}

TEST(ConsoleLayout, AListThatIsNarrowerThanTheLeastAnywayGivesNothing) {
    FilterSizes natural = Request(kModeIssue).filters;
    natural[kProjectBox].setWidth(40);
    natural[kMarkBox].setWidth(44);
    const FilterSizes sizes = FilterSizesFor(natural, 210, 300);
    EXPECT_EQ(sizes[kProjectBox].width(), 40);
    EXPECT_EQ(sizes[kMarkBox].width(), 44);
}

} // namespace
