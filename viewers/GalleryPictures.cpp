#include "viewers/GalleryPictures.h"

#include "toolkit/media/PictureFile.h"
#include "toolkit/media/PictureRects.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/Decoders.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace gallery {

namespace {

constexpr int kFrame = 1;       ///< of a thumbnail, on each side
constexpr int kThumbsKept = 48; ///< beyond each end of the visible range
/// Corners of decoded parts lie on whole blocks of JPEG files.
constexpr int kBlock = 8;

QSize ThumbSize(const GalleryItem& item, qreal ratio) {
    return DeviceSize(item.thumbRect.adjusted(kFrame, kFrame, -kFrame, -kFrame).size(), ratio);
}

bool LacksThumb(const GalleryItem& item, qreal ratio) {
    return item.picState == kOnDisk && !item.unreadable && !item.coverRect.isEmpty() &&
           (!item.thumbDC || item.thumbDC->DeviceSize() != ThumbSize(item, ratio));
}

void PutThumb(GalleryItem& item, QImage image, qreal ratio) {
    if (image.isNull()) {
        MarkUnreadable(item);
        return;
    }
    image.setDevicePixelRatio(ratio);
    item.thumbDC = std::make_shared<CKxMemDC>(image);
}

toolkit::PictureRequest ThumbRequest(const GalleryItem& item, qreal ratio) {
    toolkit::PictureRequest request;
    request.path = item.picPath;
    request.part = item.coverRect;
    request.size = ThumbSize(item, ratio);
    return request;
}

/// Whether a job decodes the thumbnail that an item lacks.
bool Serves(const DecodeJob& job, const GalleryItem& item, qreal ratio) {
    const toolkit::PictureRequest& request = job.Request();
    return LacksThumb(item, ratio) && request.path == item.picPath &&
           request.part == item.coverRect && request.size == ThumbSize(item, ratio);
}

void FreeFarThumbs(std::vector<GalleryItem>& items, const ItemRange& range) {
    for (int i = 0; i < int(items.size()); ++i) {
        if (i < range.first - kThumbsKept || i > range.last + kThumbsKept) {
            items[size_t(i)].thumbDC.reset();
        }
    }
}

std::function<void()> PictureTeller(toolkit::WindowId window) {
    return [window] { toolkit::PostWindowEvent(window, kPictureReady); };
}

QRect WithMargin(const QRect& part, const QSize& whole) {
    const QRect wide =
        part.adjusted(-part.width() / 4, -part.height() / 4, part.width() / 4, part.height() / 4) &
        QRect(QPoint(0, 0), whole);
    const QPoint corner(wide.x() / kBlock * kBlock, wide.y() / kBlock * kBlock);
    return {corner, wide.bottomRight()};
}

} // namespace

void MarkUnreadable(GalleryItem& item) {
    item.unreadable = true;
    item.picSize = {};
    item.coverRect = {};
    item.thumbDC.reset();
}

SizeReader FileSizes(GalleryState& state) {
    return [&state](int index) {
        GalleryItem* item = state.ItemAt(index);
        // The file counts, not the state of its download; required as is.
        return item == nullptr ? QSize() : GalleryPictures::SizeOf(*item);
    };
}

QSize DeviceSize(const QSize& size, qreal ratio) {
    return {qRound(size.width() * ratio), qRound(size.height() * ratio)};
}

QSize GalleryPictures::SizeOf(GalleryItem& item) {
    if (item.picSize.isEmpty() && !item.unreadable && !item.picPath.isEmpty()) {
        item.picSize = toolkit::ReadPictureSize(item.picPath);
    }
    return item.picSize;
}

QImage GalleryPictures::AwaitBig(const GalleryItem& item, const QSize& size, qreal ratio) {
    QImage image = m_cache.Await(item.picPath, DeviceSize(size, ratio));
    image.setDevicePixelRatio(ratio);
    return image;
}

std::optional<QImage> GalleryPictures::WantBig(const GalleryItem& item, const QSize& size,
                                               qreal ratio, toolkit::WindowId window) {
    auto image = m_cache.Want(item.picPath, DeviceSize(size, ratio), PictureTeller(window));
    if (image) {
        image->setDevicePixelRatio(ratio);
    }
    return image;
}

void GalleryPictures::LookAhead(GalleryState& state, int step, qreal ratio,
                                toolkit::WindowId window) {
    GalleryItem* next = state.ItemAt(state.currentIndex + step);
    if (next == nullptr || next->picState != kOnDisk) {
        return;
    }
    const QRect place = KXTools::FitRectToParent(state.bigArea, SizeOf(*next));
    if (place.isEmpty()) {
        return;
    }
    const QSize size = place.size() - QSize(2 * kPictureMargin, 2 * kPictureMargin);
    m_cache.Prepare(next->picPath, DeviceSize(size, ratio), PictureTeller(window));
}

QImage GalleryPictures::ThumbFromBig(const GalleryItem& item, const QSize& deviceSize) const {
    const QImage big = m_cache.Find(item.picPath);
    if (big.isNull() || item.picSize.isEmpty()) {
        return {};
    }
    const double x = double(big.width()) / item.picSize.width();
    const double y = double(big.height()) / item.picSize.height();
    const QRect part = QRectF(item.coverRect.x() * x, item.coverRect.y() * y,
                              item.coverRect.width() * x, item.coverRect.height() * y)
                           .toRect();
    if (part.width() < deviceSize.width() || part.height() < deviceSize.height()) {
        return {};
    }
    return big.copy(part).scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// What is on its way and serves none of the range's items.
void GalleryPictures::GiveUpThumbs(const std::vector<GalleryItem>& items, const ItemRange& range,
                                   qreal ratio) {
    m_thumbs.remove_if([&](const std::shared_ptr<DecodeJob>& job) {
        for (int i = range.first; !range.IsNone() && i <= range.last; ++i) {
            if (Serves(*job, items[size_t(i)], ratio)) {
                return false;
            }
        }
        job->GiveUp();
        return true;
    });
}

void GalleryPictures::WantThumbs(std::vector<GalleryItem>& items, const ItemRange& range,
                                 qreal ratio, toolkit::WindowId window) {
    AskForThumbs(items, range, ratio, window, true);
}

void GalleryPictures::AskForThumbs(std::vector<GalleryItem>& items, const ItemRange& range,
                                   qreal ratio, toolkit::WindowId window, bool leaveBigOnes) {
    GiveUpThumbs(items, range, ratio);
    FreeFarThumbs(items, range);
    // What is handed in last is decoded first: the strip fills from its start.
    for (int i = range.last; !range.IsNone() && i >= range.first; --i) {
        GalleryItem& item = items[size_t(i)];
        const auto serves = [&](const auto& job) { return Serves(*job, item, ratio); };
        if (!LacksThumb(item, ratio) || std::any_of(m_thumbs.begin(), m_thumbs.end(), serves)) {
            continue;
        }
        const QImage image = ThumbFromBig(item, ThumbSize(item, ratio));
        if (!image.isNull()) {
            PutThumb(item, image, ratio);
        } else if (!leaveBigOnes || !m_cache.IsOnItsWay(item.picPath)) {
            AskForThumb(item, ratio, window);
        }
    }
}

void GalleryPictures::AskForThumb(const GalleryItem& item, qreal ratio, toolkit::WindowId window) {
    m_thumbs.push_front(std::make_shared<DecodeJob>(
        ThumbRequest(item, ratio), [window] { toolkit::PostWindowEvent(window, kThumbReady); }));
    DecodeInBackground(m_thumbs.front(), Urgency::Strip);
}

std::vector<int> GalleryPictures::TakeThumbs(std::vector<GalleryItem>& items, qreal ratio) {
    std::vector<int> changed;
    m_thumbs.remove_if([&](const std::shared_ptr<DecodeJob>& job) {
        if (!job->IsDone()) {
            return false;
        }
        for (size_t i = 0; i < items.size(); ++i) {
            if (!Serves(*job, items[i], ratio)) {
                continue;
            }
            PutThumb(items[i], job->GetIfDone(), ratio);
            changed.push_back(int(i));
        }
        return true;
    });
    return changed;
}

void GalleryPictures::AwaitThumbs(std::vector<GalleryItem>& items, const ItemRange& range,
                                  qreal ratio, toolkit::WindowId window) {
    AskForThumbs(items, range, ratio, window, false);
    // All decoders do them, the one too that has no time for thumbnails otherwise.
    for (const std::shared_ptr<DecodeJob>& job : m_thumbs) {
        DecodeInBackground(job, Urgency::Wanted);
    }
    for (const std::shared_ptr<DecodeJob>& job : m_thumbs) {
        static_cast<void>(job->Await());
    }
    static_cast<void>(TakeThumbs(items, ratio));
}

void GalleryPictures::WantDefault(const QString& path, const QSize& size, qreal ratio,
                                  toolkit::WindowId window) {
    if (m_default) {
        return;
    }
    toolkit::PictureRequest request;
    request.path = path;
    request.part =
        KXTools::RectToCoverParent(QRect(QPoint(0, 0), size), toolkit::ReadPictureSize(path));
    request.size = DeviceSize(size, ratio);
    m_defaultRatio = ratio;
    m_default = std::make_shared<DecodeJob>(request, PictureTeller(window));
    if (request.part.isEmpty()) {
        m_default->GiveUp();
    } else {
        DecodeInBackground(m_default, Urgency::Wanted);
    }
}

void GalleryPictures::AwaitDefault() {
    if (m_default) {
        static_cast<void>(AwaitDecoded(m_default));
    }
}

QImage GalleryPictures::Default() const {
    QImage image = m_default ? m_default->GetIfDone() : QImage();
    image.setDevicePixelRatio(m_defaultRatio);
    return image;
}

void GalleryPictures::StartSharp(const GalleryState& state, const QRect& part,
                                 toolkit::WindowId window) {
    const GalleryItem& item = *state.ItemAt(state.currentIndex);
    toolkit::PictureRequest request;
    request.path = item.picPath;
    request.part = WithMargin(part, item.picSize);
    request.size = DeviceSize(request.part.size(), state.zoom.scale);
    m_sharpScale = state.zoom.scale;
    m_sharpJob = std::make_shared<DecodeJob>(
        request, [window] { toolkit::PostWindowEvent(window, kSharpPartReady); });
    DecodeInBackground(m_sharpJob, Urgency::Wanted);
}

void GalleryPictures::WantSharp(const GalleryState& state, toolkit::WindowId window, qreal ratio) {
    const QRect part = VisiblePart(state.zoom, ViewOf(state, ratio));
    if (state.zoom.fit || part.isEmpty()) {
        return;
    }
    if (m_sharpJob && m_sharpScale != state.zoom.scale) {
        ForgetSharp();
    }
    if (m_sharpJob && (!m_sharpJob->IsDone() || m_sharpJob->Request().part.contains(part))) {
        return;
    }
    m_sharpBefore = std::move(m_sharpJob);
    StartSharp(state, part, window);
}

PlacedImage GalleryPictures::Sharp(const GalleryState& state, qreal ratio) const {
    const bool usable = m_sharpJob && m_sharpScale == state.zoom.scale;
    const bool before = usable && !m_sharpJob->IsDone();
    const std::shared_ptr<DecodeJob>& job = before ? m_sharpBefore : m_sharpJob;
    QImage image = usable && job ? job->GetIfDone() : QImage();
    if (image.isNull()) {
        return {};
    }
    image.setDevicePixelRatio(ratio);
    const QRect decoded = job->Request().part;
    const QPointF corner = ZoomedRect(state.zoom, ViewOf(state, ratio)).topLeft();
    const QPointF offset(std::round(decoded.x() * m_sharpScale),
                         std::round(decoded.y() * m_sharpScale));
    return {QRectF(corner + offset / ratio, image.deviceIndependentSize()), image};
}

void GalleryPictures::ForgetSharp() {
    if (m_sharpJob) {
        m_sharpJob->GiveUp();
    }
    m_sharpJob.reset();
    m_sharpBefore.reset();
}

void GalleryPictures::Clear() {
    ForgetSharp();
    for (const std::shared_ptr<DecodeJob>& job : m_thumbs) {
        job->GiveUp();
    }
    m_thumbs.clear();
    m_cache.Clear();
    if (m_default) {
        m_default->GiveUp();
    }
    m_default.reset();
}

} // namespace gallery
