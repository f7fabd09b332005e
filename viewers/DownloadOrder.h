// Which download of a gallery comes next.
#pragma once

#include "viewers/GalleryItem.h"
#include "viewers/ItemRange.h"

#include <optional>
#include <vector>

namespace gallery {

enum class DownloadKind : qint32 { Picture = 0, Audio = 1 };

/// Names one download of a gallery.
struct DownloadKey {
    qint32 index = 0; ///< place in the list; kExtraAudio: the note that belongs to no item
    DownloadKind kind = DownloadKind::Picture;
    bool operator==(const DownloadKey&) const = default;
};

inline constexpr qint32 kExtraAudio = -1;

/// The first waiting download in the order that serves what the user looks at: the current item,
/// the visible pictures, those behind them, those before them, then all notes. While there is no
/// visible range, the list's own order, pictures first. None if nothing waits.
[[nodiscard]] std::optional<DownloadKey> NextDownload(const std::vector<GalleryItem>& items,
                                                      const ItemRange& visible, int current);

/// Whether a visible picture is still to come, so that the strip must be painted again and again.
[[nodiscard]] bool AnyVisiblePending(const std::vector<GalleryItem>& items,
                                     const ItemRange& visible);

/// Whole percents of a download, truncated; `total` > 0 bytes.
[[nodiscard]] int PercentOf(qint32 bytes, qint32 total);

} // namespace gallery
