// The EXIF block of a JPEG, as libexif reads it.
#pragma once

#include <QByteArray>

#include <libexif/exif-data.h>

#include <memory>

namespace host {

struct ExifDeleter {
    void operator()(ExifData* data) const { exif_data_unref(data); }
};
using ExifOwned = std::unique_ptr<ExifData, ExifDeleter>;

/// Null without a block. Thread: any.
[[nodiscard]] ExifOwned LoadExif(const QByteArray& jpeg);

/// Text of a tag; empty if it is missing or no text.
[[nodiscard]] QByteArray ExifTextOf(ExifContent* directory, ExifTag tag);

} // namespace host
