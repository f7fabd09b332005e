#include "viewers/PictureStage.h"

#include "viewers/GalleryTimers.h"
#include "viewers/SlideLoop.h"

#include <cstdlib>
#include <utility>
#include <vector>

namespace gallery {

namespace {

constexpr int kRenderDelayMs = 1000;

} // namespace

void PictureStage::Clear() {
    m_big.Clear();
    m_bigIndex = -1;
    m_waiting.reset();
    m_travel = 1;
    m_jumped = true;
}

void PictureStage::Expire() {
    m_big.Expire(Place());
}

void PictureStage::Renew() {
    m_big.Clear();
    m_waiting.reset();
}

void PictureStage::Prepare() {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item == nullptr || m_state.picRect.isEmpty() || m_big.IsFresh()) {
        return;
    }
    if (const auto image = m_pictures.WantBig(*item, m_state.picRect.size(), m_surface.Ratio(),
                                              m_surface.Window())) {
        Put(*image);
    }
}

/// A null image: the file can't be decoded.
void PictureStage::Put(const QImage& image) {
    m_big.Put(image, m_state.picRect);
    m_bigIndex = m_state.currentIndex;
    if (!image.isNull()) {
        return;
    }
    m_waiting.reset();
    MarkUnreadable(*m_state.ItemAt(m_state.currentIndex));
    ComputePicRect(m_state, FileSizes(m_state));
}

void PictureStage::GoTo(int before) {
    const int step = m_state.currentIndex - before;
    m_travel = step > 0 ? 1 : -1;
    m_jumped = std::abs(step) > 1;
    m_pictures.ForgetSharp();
    m_pictures.GoTo(*m_state.ItemAt(m_state.currentIndex));
}

void PictureStage::Change() {
    m_waiting = PlanSlide();
    Repaint();
}

/// The old picture is the one that is seen: nobody decodes it again.
std::optional<SlideScene> PictureStage::PlanSlide() const {
    if (!SlidesPicture(m_state) || !m_surface.IsShown() || m_state.prevPicRect.isEmpty()) {
        return std::nullopt;
    }
    const PlacedImage seen = m_big.Shown(Place());
    if (seen.image.isNull()) {
        return std::nullopt;
    }
    // A picture that was left before it came isn't seen, the one before it is.
    const QRect oldRect =
        m_bigIndex == m_state.shownIndex ? m_state.prevPicRect : seen.place.toRect();
    SlideScene scene;
    scene.slide = PictureSlide({m_state.bigArea, oldRect, m_state.picRect, m_state.strip.horizontal,
                                m_state.shownIndex, m_state.currentIndex});
    scene.ofPicture = true;
    scene.oldImage = seen.image;
    return scene;
}

void PictureStage::SlideIfReady() {
    if (!m_waiting || !m_big.IsFresh()) {
        return;
    }
    SlideScene scene = *std::exchange(m_waiting, std::nullopt);
    // Meanwhile hidden, or looked at closely.
    if (!m_surface.IsShown() || !m_state.zoom.fit) {
        return;
    }
    scene.newImage = m_big.Image();
    RunSlide(m_slides, std::move(scene), m_surface);
}

/// The big area is about to be painted.
void PictureStage::NoteShown() {
    if (m_state.picRect.isEmpty()) {
        m_state.shownIndex = -1;
        return;
    }
    m_state.skipSlide = false;
    m_state.shownIndex = m_state.currentIndex;
    // A resize is shown cheaply first.
    if (m_big.IsStretched(m_state.picRect)) {
        m_surface.StartTimer(kRenderTimer, kRenderDelayMs);
    }
}

void PictureStage::Repaint() {
    Prepare();
    SlideIfReady();
    if (m_surface.IsShown()) {
        NoteShown();
    }
    m_surface.Repaint(m_state.bigArea);
}

void PictureStage::LookAhead() {
    // A jump and an opening have the decoders to themselves; of a step the next one is as likely.
    if (m_surface.IsShown() && (m_big.IsFresh() || !m_jumped)) {
        m_pictures.LookAhead(m_state, m_travel, m_surface.Ratio(), m_surface.Window());
    }
}

void PictureStage::OnPictureReady() {
    if (!m_big.IsFresh() && !m_state.picRect.isEmpty()) {
        Repaint();
    }
}

void PictureStage::Complete() {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item != nullptr && !m_state.picRect.isEmpty() && !m_big.IsFresh()) {
        Put(m_pictures.AwaitBig(*item, m_state.picRect.size(), m_surface.Ratio()));
    }
    m_waiting.reset();
    NoteShown();
}

void PictureStage::OnPlaced() {
    m_waiting.reset();
    m_state.zoom = ClampZoom(m_state.zoom, View());
    m_pictures.WantSharp(m_state, m_surface.Window(), m_surface.Ratio());
}

void PictureStage::SetZoom(const Zoom& zoom) {
    m_state.zoom = ClampZoom(zoom, View());
    if (zoom.fit) {
        m_pictures.ForgetSharp();
    } else {
        m_pictures.WantSharp(m_state, m_surface.Window(), m_surface.Ratio());
    }
    m_surface.Update(m_state.bigArea);
}

void PictureStage::OnSharpReady() {
    m_pictures.WantSharp(m_state, m_surface.Window(), m_surface.Ratio());
    m_surface.Update(m_state.bigArea);
}

void PictureStage::Paint(QPainter& painter) const {
    if (const SlideScene* scene = m_slides.OfPicture()) {
        PaintSlide(painter, m_state, *scene);
    } else if (m_state.picRect.isEmpty()) {
        PaintNoBigPicture(painter, m_state);
    } else {
        PaintPicture(painter);
    }
}

void PictureStage::PaintPicture(QPainter& painter) const {
    std::vector<PlacedImage> layers{m_big.Shown(Place())};
    if (!m_state.zoom.fit) {
        layers.push_back(m_pictures.Sharp(m_state, m_surface.Ratio()));
    }
    PaintBigPicture(painter, m_state, layers);
    PaintZoomLabel(painter, m_state);
}

} // namespace gallery
