// The big picture on a gallery's pane: from what the decoders give to what is seen.
#pragma once

#include "viewers/BigPicture.h"
#include "viewers/GalleryPictures.h"
#include "viewers/GallerySurface.h"
#include "viewers/SlideRunner.h"

#include <optional>

class QPainter;

namespace gallery {

/// Shows the current item's picture once the decoders have it; until then the one before stays
/// where it was, and a slide waits too. Decodes nothing itself.
///
/// Works on a gallery's state, pictures and surface, which outlive it. Thread: user interface.
/// Owned by its gallery.
class PictureStage final {
public:
    PictureStage(GalleryState& state, GalleryPictures& pictures, IGallerySurface& surface)
        : m_state(state), m_pictures(pictures), m_surface(surface) {}

    /// Nothing is held any more; the next step leads forward. For another list, another window.
    void Clear();
    /// The picture has to be rendered again; until then it stays as it is seen now.
    void Expire();
    /// The current item's file is another one: what was rendered counts no more.
    void Renew();
    /// Asks the decoders for the current picture, before all else; takes it if it is there.
    void Prepare();

    /// The state's item is another one than `before`, with its place computed: what is prepared for
    /// others is given up.
    void GoTo(int before);
    /// Shows the current item, after a slide where one is due.
    void Change();
    void Repaint();
    /// Has the picture that the user is likely to step to next decoded.
    void LookAhead();
    /// A decoder has done one.
    void OnPictureReady();
    /// Picture and places are complete when this returns: for a picture of the pane.
    void Complete();

    /// Places were computed anew.
    void OnPlaced();
    void SetZoom(const Zoom& zoom);
    /// A decoder has done the sharp part of a zoomed picture.
    void OnSharpReady();
    [[nodiscard]] ZoomView View() const { return ViewOf(m_state, m_surface.Ratio()); }

    /// Changes nothing.
    void Paint(QPainter& painter) const;
    [[nodiscard]] bool IsSliding() const { return m_slides.IsRunning(); }
    /// Whether the current picture is what a paint shows now, not the one before it.
    [[nodiscard]] bool ShowsPicture() const { return m_big.IsFresh() && !IsSliding(); }

private:
    [[nodiscard]] QRectF Place() const { return ZoomedRect(m_state.zoom, View()); }
    void PaintPicture(QPainter& painter) const;
    void Put(const QImage& image);
    void NoteShown();
    [[nodiscard]] std::optional<SlideScene> PlanSlide() const;
    void SlideIfReady();

    GalleryState& m_state;
    GalleryPictures& m_pictures;
    IGallerySurface& m_surface;
    BigPicture m_big;
    int m_bigIndex = -1;                 ///< item whose picture `m_big` holds
    std::optional<SlideScene> m_waiting; ///< a slide whose new picture isn't there yet
    SlideRunner m_slides;
    int m_travel = 1;     ///< direction in which the user steps
    bool m_jumped = true; ///< to where nobody could foresee, as the first picture is
};

} // namespace gallery
