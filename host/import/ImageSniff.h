// What kind of picture the bytes of a file are, and whether they are all there.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace host {

enum class ImageKind { None, Jpeg, Png, Bmp, Gif, Heic, Tiff, WebP };

/// By the first bytes; needs at most the first 32. Thread: any.
[[nodiscard]] ImageKind SniffImage(QByteArrayView head);

/// False for a file that ends before its picture does: walks the segments, chunks or blocks to the
/// end mark. What stands behind the end mark doesn't matter (phones append to their pictures).
/// Kinds that the system's libraries read are never whole here. Thread: any.
[[nodiscard]] bool ReachesItsEnd(ImageKind kind, QByteArrayView bytes);

} // namespace host
