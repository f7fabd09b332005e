// Numbered events of the console's window.
#pragma once

#include "include/KXEvents.h"

/// Sent by the grid after a page fetch, whatever became of it.
inline constexpr int WM_PIC_SEARCH_DONE = 1025;
/// Sent by the grid before a page fetch.
inline constexpr int WM_PIC_SEARCH_START = 1026;
/// Somebody changed a photo: tell the host, fetch the page again.
using ZelvorNRQ_KXVeskPicture::WM_PIC_MNG_REFRESH;
/// Select the photo of the preset.
inline constexpr int WM_PIC_MNG_SELECT = 1032;
