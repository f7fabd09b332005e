#include "console/ConsoleLayout.h"

#include <algorithm>

namespace {

constexpr int kTop = 10;
constexpr int kLeftEdge = 10;
/// Gap before each control of the filter line: where the kinds of photos leave the choice open, the
/// house's own; for issues the told ones.
constexpr std::array<int, kFilterControls> kPhotoGaps = {0, 4, 4, 4, 8, 4, 4, 4, 8, 4};
constexpr std::array<int, kFilterControls> kIssueGaps = {0, 3, 0, 3, 3, 3, 1, 1, 3, 3};

/// The keyword box takes what the line leaves, within these limits; the lists give way to it on a
/// narrow screen. For issues all controls keep their sizes.
constexpr int kKeywordLeast = 96;
constexpr int kKeywordMost = 420;
constexpr int kListLeast = 72;
/// On a screen where "搜索" would still lie outside: an arrow that opens the list.
constexpr int kKeywordSqueezed = 64;
constexpr int kListSqueezed = 44;

constexpr int kRadioAboveBottom = 75;
constexpr int kBimRadioX = 8;
constexpr int kPdfRadioX = 100;
constexpr int kActionAboveBottom = 55;
constexpr int kActionX = 10;
constexpr int kActionStep = 50;
constexpr int kStatusHeight = 20;
constexpr int kGridTop = 40;
constexpr int kGridRightGap = 15;
constexpr int kRadioLine = 20;

QRect Normal(int left, int top, int right, int bottom) {
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

/// Takes from a list what is missing, as far as it can give.
void Narrow(QSize& size, int least, int& missing) {
    const int given = std::min(missing, std::max(0, size.width() - least));
    size.rwidth() -= given;
    missing -= given;
}

/// From each list in turn, down to what is legible; where that isn't enough, below it.
template <size_t count>
void NarrowLists(FilterSizes& sizes, const std::array<FilterControl, count>& lists, int& missing) {
    for (const int least : {kListLeast, kListSqueezed}) {
        for (const FilterControl list : lists) {
            Narrow(sizes[list], least, missing);
        }
    }
}

/// Sizes of the photos' filter line, fitted to the width of the client area.
FilterSizes FittedSizes(const ConsoleLayoutRequest& request) {
    FilterSizes sizes = request.filters;
    int spare = request.client.width() - kLeftEdge - kGridRightGap;
    for (size_t i = 0; i < kFilterControls; ++i) {
        spare -= kPhotoGaps[i] + (i == kKeywordBox ? 0 : sizes[i].width());
    }
    int missing = std::max(0, kKeywordLeast - spare);
    NarrowLists(sizes, std::array{kProjectBox, kMarkBox, kLabelBox, kStatusBox}, missing);
    sizes[kKeywordBox].setWidth(std::clamp(spare, kKeywordLeast, kKeywordMost));
    Narrow(sizes[kKeywordBox], kKeywordSqueezed, missing);
    return sizes;
}

void PlacePhotoFilters(const ConsoleLayoutRequest& request, ConsoleLayout& layout) {
    const FilterSizes sizes = FittedSizes(request);
    int x = kLeftEdge;
    for (size_t i = 0; i < kFilterControls; ++i) {
        x += kPhotoGaps[i];
        layout.filters[i] = QRect(QPoint(x, kTop), sizes[i]);
        x += sizes[i].width();
    }
}

void PlaceIssueFilters(const ConsoleLayoutRequest& request, ConsoleLayout& layout) {
    // The project box keeps the screen position that it had at creation as its left edge; required
    // as is.
    layout.filters[kProjectBox] = request.projectBox;
    int x = request.projectBox.left() + request.projectBox.width();
    for (size_t i = kMarkBox; i < kFilterControls; ++i) {
        if (i == kLabelBox) {
            continue;
        }
        x += kIssueGaps[i];
        layout.filters[i] = QRect(QPoint(x, kTop), request.filters[i]);
        x += request.filters[i].width();
    }
}

void PlaceActions(const ConsoleLayoutRequest& request, ConsoleLayout& layout) {
    int x = kActionX;
    for (size_t i = 0; i < kActionButtons; ++i) {
        if (!request.actionCounts[i]) {
            continue;
        }
        layout.actions[i] =
            QRect(QPoint(x, request.client.height() - kActionAboveBottom), request.action);
        x += kActionStep;
    }
}

} // namespace

ConsoleLayout LayoutConsole(const ConsoleLayoutRequest& request) {
    ConsoleLayout layout;
    const int right = request.client.width();
    const int bottom = request.client.height();
    if (request.mode == kModeIssue) {
        PlaceIssueFilters(request, layout);
    } else {
        PlacePhotoFilters(request, layout);
    }
    layout.bimRadio = QRect(QPoint(kBimRadioX, bottom - kRadioAboveBottom), request.radio);
    layout.pdfRadio = QRect(QPoint(kPdfRadioX, bottom - kRadioAboveBottom), request.radio);
    PlaceActions(request, layout);
    const QSize bar = request.pagingBar;
    layout.pagingBar =
        QRect(QPoint(right - bar.width(), bottom - kStatusHeight - bar.height()), bar);
    const int radioLine = request.mode == kModeIssue ? 0 : kRadioLine;
    layout.grid =
        Normal(kLeftEdge, kGridTop, right - kGridRightGap, layout.pagingBar.top() - radioLine);
    layout.statusBar = QRect(0, bottom - kStatusHeight, std::max(0, right), kStatusHeight);
    return layout;
}

FilterSizes FilterSizesFor(const FilterSizes& natural, int left, int width) {
    FilterSizes sizes = natural;
    int missing = left - width;
    for (size_t i = 0; i < kFilterControls; ++i) {
        missing += i == kLabelBox ? 0 : kIssueGaps[i] + sizes[i].width();
    }
    missing = std::max(0, missing);
    Narrow(sizes[kKeywordBox], kKeywordLeast, missing);
    NarrowLists(sizes, std::array{kProjectBox, kMarkBox, kStatusBox}, missing);
    Narrow(sizes[kKeywordBox], kKeywordSqueezed, missing);
    return sizes;
}

std::array<bool, kActionButtons> CountedActions(ConsoleMode mode, bool mayDelete,
                                                bool mayShowHide) {
    if (mode == kModeIssue) {
        return {false, true, true, true};
    }
    return {true, mayDelete, mayShowHide, mayShowHide};
}
