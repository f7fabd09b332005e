// The strip on a gallery's pane: thumbnails as they come, and its slides.
#pragma once

#include "viewers/GalleryPictures.h"
#include "viewers/GallerySurface.h"
#include "viewers/ItemRange.h"
#include "viewers/SlideRunner.h"

#include <QString>

class QPainter;

namespace gallery {

class PictureStage;

/// Shows the cells of the visible items as far as their thumbnails are there; one that comes is
/// painted then. Decodes nothing itself; looks at the files before a paint, not in it.
///
/// Works on a gallery's state, pictures and surface, which outlive it. Thread: user interface.
/// Owned by its gallery.
class StripStage final {
public:
    /// @param big  whose next picture comes before the thumbnails.
    StripStage(GalleryState& state, GalleryPictures& pictures, IGallerySurface& surface,
               PictureStage& big)
        : m_state(state), m_pictures(pictures), m_surface(surface), m_big(big) {}

    /// File of the picture that stands under every band.
    void SetDefaultPicture(const QString& path) { m_defaultPath = path; }

    /// Has what the strip lacks decoded, once there is a window.
    void Prepare();
    void Repaint();
    /// The visible range may be another one: slides to it if that is due, then repaints.
    void Change();
    /// A decoder has done a thumbnail.
    void OnThumbReady();
    /// All cells are complete when this returns: for a picture of the pane.
    void Complete();

    /// Changes nothing; leaves the painter clipped.
    void Paint(QPainter& painter) const;
    [[nodiscard]] bool IsSliding() const { return m_slides.IsRunning(); }

private:
    void LookAtFiles(const ItemRange& range);
    void Slide();
    [[nodiscard]] QImage RenderRow(const ItemRange& range) const;

    GalleryState& m_state;
    GalleryPictures& m_pictures;
    IGallerySurface& m_surface;
    PictureStage& m_big;
    QString m_defaultPath;
    SlideRunner m_slides;
};

} // namespace gallery
