// The line of labels on a toast.
#pragma once

#include <QString>

#include <vector>

namespace reminder {

/// Labels behind each other with ";" between them, as many as have room on about 26 half-width
/// characters; what has none is "...", with nothing behind it. A label's width is its number of
/// bytes in code page 936, given by `widthOf`.
[[nodiscard]] QString LabelLine(const std::vector<QString>& labels,
                                int (*widthOf)(const QString& label));

} // namespace reminder
