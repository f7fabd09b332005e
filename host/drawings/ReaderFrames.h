// What the client and the reader of drawings say to each other, over a pair of pipes.
#pragma once

#include "host/drawings/DrawingFault.h"

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QSize>
#include <QSizeF>

#include <optional>
#include <vector>

class QIODevice;

namespace host {

/// Sizes of a document's pages in points, 1/72 inch, as they lie after their own rotation.
using SheetPages = std::vector<QSizeF>;

/// A part of a page at a size.
struct RenderRequest {
    int page = 0; ///< from 0
    QSize full;   ///< of the whole page, pixels
    QRect clip;   ///< the part of it that is wanted, pixels

    bool operator==(const RenderRequest&) const = default;
};

/// What the client asks: a file to open, or a part of a page of the open one.
struct ReaderQuestion {
    QString path; ///< not empty: open this
    RenderRequest render;
};

/// What it is told: for each question one, in order.
struct ReaderAnswer {
    DrawingFault fault = DrawingFault::None;
    SheetPages pages; ///< of the file that was opened
    QImage image;     ///< RGB32 on white, of what was rendered
};

/// A frame is its length (32-bit, big-endian, without itself) and its content.
[[nodiscard]] QByteArray FrameOf(const ReaderQuestion& question);
[[nodiscard]] QByteArray FrameOf(const ReaderAnswer& answer);
/// The same straight onto a device, without a second copy of the picture. False: it doesn't take
/// all of it.
[[nodiscard]] bool SendFrame(const ReaderAnswer& answer, QIODevice& device);

/// Bytes of a frame with its length, as soon as its length is there; nothing before.
[[nodiscard]] std::optional<qint64> FrameSize(const QByteArray& bytes);
/// Longest frame that anybody sends; a longer one is no frame.
inline constexpr qint64 kLongestFrame = qint64(128) * 1024 * 1024;

/// Nothing for what is no such frame. `frame` begins with its length.
[[nodiscard]] std::optional<ReaderQuestion> ReadQuestion(const QByteArray& frame);
[[nodiscard]] std::optional<ReaderAnswer> ReadAnswer(const QByteArray& frame);

} // namespace host
