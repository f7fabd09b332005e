#include "console/ConsoleLayout.h"

#include <algorithm>

namespace {

constexpr int kTop = 10;
constexpr int kLeftEdge = 10;
constexpr int kFilterHeightLine = 24;
/// Gap before each control of the filter line: where the kinds of photos leave the choice open, the
/// house's own; for issues the told ones.
constexpr std::array<int, kFilterControls> kPhotoGaps = {0, 4, 4, 4, 8, 4, 4, 4, 8, 4};
constexpr std::array<int, kFilterControls> kIssueGaps = {0, 3, 0, 3, 3, 3, 1, 1, 3, 3};

/// The keyword box takes what the line leaves, within these limits; for issues it keeps its size.
constexpr int kKeywordLeast = 180;
constexpr int kKeywordMost = 420;

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

int KeywordWidth(const ConsoleLayoutRequest& request, int left) {
    const int search = kPhotoGaps[kSearchButton] + request.filters[kSearchButton].width();
    const int right = request.client.width() - kGridRightGap - search;
    return std::clamp(right - left, kKeywordLeast, kKeywordMost);
}

void PlaceFilters(const ConsoleLayoutRequest& request, ConsoleLayout& layout) {
    const bool issues = request.mode == kModeIssue;
    const auto& gaps = issues ? kIssueGaps : kPhotoGaps;
    // For issues the project box keeps the screen position that it had at creation as its left
    // edge; required as is.
    int x = issues ? request.projectBox.left() : kLeftEdge;
    for (size_t i = 0; i < kFilterControls; ++i) {
        if (issues && i == kLabelBox)
            continue;
        QSize size = issues && i == kProjectBox ? request.projectBox.size() : request.filters[i];
        x += gaps[i];
        if (!issues && i == kKeywordBox)
            size.setWidth(KeywordWidth(request, x));
        const int centring = issues ? 0 : std::max(0, (kFilterHeightLine - size.height()) / 2);
        layout.filters[i] = QRect(QPoint(x, kTop + centring), size);
        x += size.width();
    }
}

void PlaceActions(const ConsoleLayoutRequest& request, ConsoleLayout& layout) {
    int x = kActionX;
    for (size_t i = 0; i < kActionButtons; ++i) {
        if (!request.actionCounts[i])
            continue;
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
    PlaceFilters(request, layout);
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

std::array<bool, kActionButtons> CountedActions(ConsoleMode mode, bool mayDelete,
                                                bool mayShowHide) {
    if (mode == kModeIssue)
        return {false, true, true, true};
    return {true, mayDelete, mayShowHide, mayShowHide};
}
