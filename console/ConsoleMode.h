// What the console's pages and rows have in common, whatever their kind.
#pragma once

#include "base/ConsoleMode.h"

/// Rows of one page.
inline constexpr int kConsolePageSize = 30;

/// What an icon of a row does.
enum class RowCommand : int { Edit = 1, Locate, Preview, Download, Delete };
