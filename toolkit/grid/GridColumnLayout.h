// How wide the grid's columns are in a view of a given width.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <vector>

namespace toolkit {

struct GridColumnRequest {
    int width = 0; ///< least width, device-independent pixels
    int share = 0; ///< of the free room; 0: the column keeps its width
    bool visible = true;
};

/// Shares the room that the visible columns leave free; too little room leaves all at their least
/// width.
///
/// @param available   width of the view, device-independent pixels.
/// @return            one width per column, also for hidden ones. The visible ones fill the view
///                    exactly if any of them has a share and there is room.
/// Thread: any. Touches no window.
[[nodiscard]] TOOLKIT_EXPORT std::vector<int>
LayoutGridColumns(const std::vector<GridColumnRequest>& columns, int available);

} // namespace toolkit
