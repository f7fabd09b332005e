// Picture files: their size, and decoding no more of them than is shown. Upright by the camera's
// orientation everywhere; told by content, not by name; the first frame of an animation.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

#include <atomic>

namespace toolkit {

/// Width and height as shown upright, from the file's header. Empty for a file that isn't there, is
/// no picture of a known kind, or is too large to be opened (JPEG files are reduced while they are
/// read and have no such limit). Thread: any.
[[nodiscard]] TOOLKIT_EXPORT QSize ReadPictureSize(const QString& path);

struct PictureRequest {
    QString path;
    QRect part;                       ///< upright image pixels; empty: the whole picture
    QSize size;                       ///< of the result in pixels, not empty
    QColor background{250, 250, 250}; ///< under what is transparent
};

/// The part at the size, in the format of screens (RGB32). JPEG files are reduced by the decoder
/// first, then scaled smoothly; memory follows the result, not the file. A file that breaks off
/// gives what there is of it.
///
/// @param stop  set by another thread, ends the decoding early with a useless result; may be null.
/// @return      null if the file can't be decoded. Thread: any.
[[nodiscard]] TOOLKIT_EXPORT QImage DecodePicture(const PictureRequest& request,
                                                  const std::atomic<bool>* stop = nullptr);

/// The whole picture in its own size, as it stands in the file (transparency stays). Null if it
/// can't be decoded. Thread: any.
[[nodiscard]] TOOLKIT_EXPORT QImage DecodeWholePicture(const QString& path);

/// Sees what is decoded where; for tests.
class IDecodeWatch {
public:
    virtual ~IDecodeWatch() = default;

    /// A decoding begins, on the thread that does it and waits for this. Of a whole picture only
    /// the path is told. Thread: any.
    virtual void OnDecode(const PictureRequest& request) = 0;
};
/// Null: nobody sees it. Gives the one before. Thread: any, while nothing is decoded.
TOOLKIT_EXPORT IDecodeWatch* SetDecodeWatch(IDecodeWatch* watch);

} // namespace toolkit
