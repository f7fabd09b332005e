// Where the controls of the console lie.
#pragma once

#include "console/ConsoleMode.h"

#include <QRect>
#include <QSize>

#include <array>
#include <vector>

/// Controls of the filter line, in the order in which they stand.
enum FilterControl {
    kProjectBox,
    kMarkBox,
    kLabelBox,
    kStatusBox,
    kNoLimitBox,
    kStartDate,
    kDateDash,
    kEndDate,
    kKeywordBox,
    kSearchButton,
    kFilterControls
};

/// Action buttons below the grid, in their order.
enum ActionButton { kDownloadButton, kDeleteButton, kShowButton, kHideButton, kActionButtons };

/// Everything that the layout depends on. Sizes and positions are device-independent pixels of the
/// dialog's client area.
struct ConsoleLayoutRequest {
    QSize client;
    ConsoleMode mode = kModeBim;
    std::array<QSize, kFilterControls> filters; ///< size of each control
    QRect projectBox;                           ///< place of the project box at creation, top 10
    QSize radio;                                ///< of "BIM模型照片"; both take it
    QSize action;                               ///< of "下载"; all four take it
    std::array<bool, kActionButtons> actionCounts{}; ///< buttons that take a place
    QSize pagingBar;
};

struct ConsoleLayout {
    std::array<QRect, kFilterControls> filters; ///< null rectangle: not placed by this kind
    QRect bimRadio;
    QRect pdfRadio;
    std::array<QRect, kActionButtons> actions; ///< null rectangle: takes no place
    QRect pagingBar;
    QRect grid;
    QRect statusBar;
};

/// A pure function of the request; a client area too small gives rectangles of no size.
[[nodiscard]] ConsoleLayout LayoutConsole(const ConsoleLayoutRequest& request);

using FilterSizes = std::array<QSize, kFilterControls>;

/// Sizes of the filter controls for the screen on which the console is made: the natural ones, or,
/// where the line for issues would reach past the window, narrower lists and keyword box.
/// @param left   where the line for issues begins in the client area
/// @param width  of the client area at its least
[[nodiscard]] FilterSizes FilterSizesFor(const FilterSizes& natural, int left, int width);

/// Which action buttons take a place.
[[nodiscard]] std::array<bool, kActionButtons> CountedActions(ConsoleMode mode, bool mayDelete,
                                                              bool mayShowHide);
