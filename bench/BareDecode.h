// What any viewer pays at least: decoding a file to the size in which it is shown.
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

namespace bench {

/// One decode: the whole file scaled, then cut.
struct DecodeOrder {
    QString path;
    QSize size; ///< of the scaled whole
    QRect cut;  ///< of the scaled picture; empty: all of it
};

/// Milliseconds of one scaled decode by Qt's own reader.
[[nodiscard]] double BareDecode(const DecodeOrder& order);
/// Milliseconds of all of them, shared by as many threads as there are cores.
[[nodiscard]] double BareDecodes(const std::vector<DecodeOrder>& orders);

} // namespace bench
