// The kinds of thing that the console lists, by which viewers bring it back.
#pragma once

#include <QtCore/qglobal.h>

/// 0 before the first opening; the facade's kinds have the same values.
using ConsoleMode = qint32;

inline constexpr ConsoleMode kModeNone = 0;
inline constexpr ConsoleMode kModeBim = 1;
inline constexpr ConsoleMode kModePdf = 2;
inline constexpr ConsoleMode kModeIssue = 3;
