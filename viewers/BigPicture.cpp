#include "viewers/BigPicture.h"

namespace gallery {

void BigPicture::Put(const QImage& image, const QRect& picRect) {
    m_held = {};
    m_freshRect = picRect;
    m_fresh = image.isNull() ? nullptr : std::make_unique<CKxMemDC>(image);
}

void BigPicture::Expire(const QRectF& place) {
    if (m_fresh) {
        m_held = {place, Image()};
    }
    m_fresh.reset();
}

void BigPicture::Clear() {
    m_fresh.reset();
    m_freshRect = {};
    m_held = {};
}

bool BigPicture::IsStretched(const QRect& picRect) const {
    return m_fresh != nullptr && m_freshRect.size() != picRect.size();
}

QImage BigPicture::Image() const {
    return m_fresh ? m_fresh->Bitmap() : QImage();
}

PlacedImage BigPicture::Shown(const QRectF& place) const {
    return m_fresh ? PlacedImage{place, Image()} : m_held;
}

} // namespace gallery
