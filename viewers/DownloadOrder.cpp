#include "viewers/DownloadOrder.h"

#include <array>

namespace gallery {

namespace {

struct Offer {
    DownloadKind kind = DownloadKind::Picture;
    ItemRange range;
};

bool Waits(const GalleryItem& item, DownloadKind kind) {
    return (kind == DownloadKind::Picture ? item.picState : item.audioState) == kWaiting;
}

std::optional<DownloadKey> FirstWaiting(const std::vector<GalleryItem>& items, const Offer& offer) {
    const int count = int(items.size());
    // A range with an end outside the list is left out whole.
    if (offer.range.IsNone() || offer.range.last >= count) {
        return std::nullopt;
    }
    for (int index = offer.range.first; index <= offer.range.last; ++index) {
        if (Waits(items[size_t(index)], offer.kind)) {
            return DownloadKey{index, offer.kind};
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<DownloadKey> NextDownload(const std::vector<GalleryItem>& items,
                                        const ItemRange& visible, int current) {
    constexpr auto picture = DownloadKind::Picture;
    constexpr auto audio = DownloadKind::Audio;
    const ItemRange all{0, int(items.size()) - 1};
    const std::array nearFirst{Offer{picture, {current, current}},
                               Offer{audio, {current, current}},
                               Offer{picture, visible},
                               Offer{picture, {visible.last, all.last}},
                               Offer{picture, {0, visible.first}},
                               Offer{audio, all}};
    const std::array inOrder{Offer{picture, all}, Offer{audio, all}};
    const Offer* begin = visible.IsNone() ? inOrder.data() : nearFirst.data();
    const size_t offers = visible.IsNone() ? inOrder.size() : nearFirst.size();
    for (size_t i = 0; i < offers; ++i) {
        if (const auto key = FirstWaiting(items, begin[i])) {
            return key;
        }
    }
    return std::nullopt;
}

int PercentOf(qint32 bytes, qint32 total) {
    // A hundred times the bytes of a large file need more than 32 bits.
    return int(qint64(bytes) * 100 / total);
}

bool AnyVisiblePending(const std::vector<GalleryItem>& items, const ItemRange& visible) {
    for (int index = visible.first; !visible.IsNone() && index <= visible.last; ++index) {
        const qint32 state = items.at(size_t(index)).picState;
        if (state == kWaiting || state == kDownloading) {
            return true;
        }
    }
    return false;
}

} // namespace gallery
