#include "viewers/GalleryPictures.h"

#include "toolkit/PictureFile.h"
#include "toolkit/PictureRects.h"
#include "toolkit/WaitCursor.h"
#include "toolkit/WindowRegistry.h"
#include "viewers/Decoders.h"

#include <cmath>
#include <optional>

namespace gallery {

namespace {

constexpr int kFrame = 1;       ///< of a thumbnail, on each side
constexpr int kThumbsKept = 48; ///< beyond each end of the visible range
constexpr qint64 kSlowPixels = 40'000'000;
/// Corners of decoded parts lie on whole blocks of JPEG files.
constexpr int kBlock = 8;

QSize ThumbSize(const GalleryItem& item, qreal ratio) {
    return DeviceSize(item.thumbRect.adjusted(kFrame, kFrame, -kFrame, -kFrame).size(), ratio);
}

bool LacksThumb(const GalleryItem& item, qreal ratio) {
    return item.picState == kOnDisk && !item.unreadable && !item.coverRect.isEmpty() &&
           (!item.thumbDC || item.thumbDC->DeviceSize() != ThumbSize(item, ratio));
}

void MarkUnreadable(GalleryItem& item) {
    item.unreadable = true;
    item.picSize = {};
    item.coverRect = {};
    item.thumbDC.reset();
}

void PutThumb(GalleryItem& item, QImage image, qreal ratio) {
    if (image.isNull()) {
        MarkUnreadable(item);
        return;
    }
    image.setDevicePixelRatio(ratio);
    item.thumbDC = std::make_shared<CKxMemDC>(image);
}

void FreeFarThumbs(std::vector<GalleryItem>& items, const ItemRange& range) {
    for (int i = 0; i < int(items.size()); ++i) {
        if (i < range.first - kThumbsKept || i > range.last + kThumbsKept)
            items[size_t(i)].thumbDC.reset();
    }
}

QRect WithMargin(const QRect& part, const QSize& whole) {
    const QRect wide =
        part.adjusted(-part.width() / 4, -part.height() / 4, part.width() / 4, part.height() / 4) &
        QRect(QPoint(0, 0), whole);
    const QPoint corner(wide.x() / kBlock * kBlock, wide.y() / kBlock * kBlock);
    return {corner, wide.bottomRight()};
}

} // namespace

QSize DeviceSize(const QSize& size, qreal ratio) {
    return {qRound(size.width() * ratio), qRound(size.height() * ratio)};
}

QSize GalleryPictures::SizeOf(GalleryItem& item) {
    if (item.picSize.isEmpty() && !item.unreadable && !item.picPath.isEmpty())
        item.picSize = toolkit::ReadPictureSize(item.picPath);
    return item.picSize;
}

QImage GalleryPictures::Big(GalleryItem& item, const QSize& size, qreal ratio) {
    std::optional<toolkit::WaitCursor> wait;
    if (qint64(item.picSize.width()) * item.picSize.height() > kSlowPixels)
        wait.emplace();
    QImage image = m_cache.Get(item.picPath, DeviceSize(size, ratio));
    if (image.isNull())
        MarkUnreadable(item);
    else
        image.setDevicePixelRatio(ratio);
    return image;
}

void GalleryPictures::LookAhead(GalleryState& state, int step, qreal ratio) {
    GalleryItem* next = state.ItemAt(state.currentIndex + step);
    if (next == nullptr || next->picState != kOnDisk)
        return;
    const QRect place = KXTools::FitRectToParent(state.bigArea, SizeOf(*next));
    if (place.isEmpty())
        return;
    const QSize size = place.size() - QSize(2 * kPictureMargin, 2 * kPictureMargin);
    m_cache.Prepare(next->picPath, DeviceSize(size, ratio));
}

bool GalleryPictures::LacksThumbs(const std::vector<GalleryItem>& items, const ItemRange& range,
                                  qreal ratio) {
    for (int i = range.first; !range.IsNone() && i <= range.last; ++i) {
        if (LacksThumb(items[size_t(i)], ratio))
            return true;
    }
    return false;
}

QImage GalleryPictures::ThumbFromBig(const GalleryItem& item, const QSize& deviceSize) const {
    const QImage big = m_cache.Find(item.picPath);
    if (big.isNull() || item.picSize.isEmpty())
        return {};
    const double x = double(big.width()) / item.picSize.width();
    const double y = double(big.height()) / item.picSize.height();
    const QRect part = QRectF(item.coverRect.x() * x, item.coverRect.y() * y,
                              item.coverRect.width() * x, item.coverRect.height() * y)
                           .toRect();
    if (part.width() < deviceSize.width() || part.height() < deviceSize.height())
        return {};
    return big.copy(part).scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void GalleryPictures::MakeThumbs(std::vector<GalleryItem>& items, const ItemRange& range,
                                 qreal ratio) {
    if (!LacksThumbs(items, range, ratio))
        return;
    std::vector<std::pair<int, std::shared_ptr<DecodeJob>>> jobs;
    for (int i = range.first; i <= range.last; ++i) {
        GalleryItem& item = items[size_t(i)];
        if (!LacksThumb(item, ratio))
            continue;
        const QImage image = ThumbFromBig(item, ThumbSize(item, ratio));
        if (!image.isNull()) {
            PutThumb(item, image, ratio);
            continue;
        }
        toolkit::PictureRequest request;
        request.path = item.picPath;
        request.part = item.coverRect;
        request.size = ThumbSize(item, ratio);
        jobs.emplace_back(i, std::make_shared<DecodeJob>(request));
    }
    // The decoders begin at the far end, this thread at the near one, until they meet.
    for (const auto& job : jobs)
        DecodeInBackground(job.second, Urgency::Wanted);
    for (const auto& job : jobs)
        PutThumb(items[size_t(job.first)], job.second->Get(), ratio);
    FreeFarThumbs(items, range);
}

QImage GalleryPictures::Default(const QString& path, const QSize& size, qreal ratio) {
    if (!m_defaultPicDC) {
        toolkit::PictureRequest request;
        request.path = path;
        request.part =
            KXTools::RectToCoverParent(QRect(QPoint(0, 0), size), toolkit::ReadPictureSize(path));
        request.size = DeviceSize(size, ratio);
        QImage image = request.part.isEmpty() ? QImage() : toolkit::DecodePicture(request);
        image.setDevicePixelRatio(ratio);
        m_defaultPicDC = std::make_unique<CKxMemDC>(image);
    }
    return m_defaultPicDC->Bitmap();
}

void GalleryPictures::StartSharp(const GalleryState& state, const QRect& part,
                                 toolkit::WindowId window) {
    const GalleryItem& item = *state.ItemAt(state.currentIndex);
    toolkit::PictureRequest request;
    request.path = item.picPath;
    request.part = WithMargin(part, item.picSize);
    request.size = DeviceSize(request.part.size(), state.zoom.scale).expandedTo({1, 1});
    m_sharpScale = state.zoom.scale;
    m_sharpJob = std::make_shared<DecodeJob>(
        request, [window] { toolkit::PostWindowEvent(window, kSharpPartReady); });
    DecodeInBackground(m_sharpJob, Urgency::Wanted);
}

PlacedImage GalleryPictures::Sharp(const GalleryState& state, toolkit::WindowId window,
                                   qreal ratio) {
    const ZoomView view = ViewOf(state, ratio);
    const QRect part = VisiblePart(state.zoom, view);
    if (part.isEmpty())
        return {};
    if (m_sharpJob && m_sharpScale != state.zoom.scale)
        ForgetSharp();
    if (!m_sharpJob)
        StartSharp(state, part, window);
    QImage image = m_sharpJob->GetIfDone();
    if (image.isNull())
        return {};
    image.setDevicePixelRatio(ratio);
    const QRect decoded = m_sharpJob->Request().part;
    const QPointF corner = ZoomedRect(state.zoom, view).topLeft();
    const QPointF offset(std::round(decoded.x() * m_sharpScale),
                         std::round(decoded.y() * m_sharpScale));
    if (!decoded.contains(part))
        StartSharp(state, part, window);
    return {QRectF(corner + offset / ratio, image.deviceIndependentSize()), image};
}

void GalleryPictures::ForgetSharp() {
    if (m_sharpJob)
        m_sharpJob->GiveUp();
    m_sharpJob.reset();
}

void GalleryPictures::Clear() {
    ForgetSharp();
    m_cache.Clear();
    m_defaultPicDC.reset();
}

} // namespace gallery
