#include "viewers/StripStage.h"

#include "viewers/PictureStage.h"
#include "viewers/SlideLoop.h"
#include "viewers/StripCells.h"

#include <QFileInfo>
#include <QPainter>

#include <utility>

namespace gallery {

void StripStage::LookAtFiles(const ItemRange& range) {
    for (int i = range.first; !range.IsNone() && i <= range.last; ++i) {
        GalleryItem& item = m_state.items[size_t(i)];
        item.fileThere = item.picState != kOnDisk || QFileInfo::exists(item.picPath);
    }
    const GalleryItem* first = m_state.ItemAt(m_state.visible.first);
    if (first != nullptr && !first->thumbRect.isEmpty()) {
        m_pictures.WantDefault(m_defaultPath, first->thumbRect.size(), m_surface.Ratio(),
                               m_surface.Window());
    }
}

void StripStage::Prepare() {
    if (m_surface.Window() == toolkit::kNoWindow || m_state.stripArea.isEmpty()) {
        return;
    }
    LookAtFiles(m_state.visible);
    // The next step comes before the strip: its thumbnails wait while a picture is wanted.
    m_big.LookAhead();
    m_pictures.WantThumbs(m_state.items, m_state.visible, m_surface.Ratio(), m_surface.Window());
}

void StripStage::Repaint() {
    Prepare();
    m_surface.Repaint(m_state.stripArea);
}

void StripStage::Change() {
    Slide();
    Repaint();
}

void StripStage::OnThumbReady() {
    for (const int index : m_pictures.TakeThumbs(m_state.items, m_surface.Ratio())) {
        if (m_state.visible.Contains(index)) {
            m_surface.Update(m_state.items[size_t(index)].thumbRect);
        }
    }
}

void StripStage::Complete() {
    LookAtFiles(m_state.visible);
    m_pictures.AwaitDefault();
    m_pictures.AwaitThumbs(m_state.items, m_state.visible, m_surface.Ratio(), m_surface.Window());
}

/// The last of a paint: nobody needs the painter's clip behind it.
void StripStage::Paint(QPainter& painter) const {
    painter.setClipRect(m_state.stripArea, Qt::IntersectClip);
    PaintStrip(painter, m_state, CellsOf(m_state, m_state.visible), m_pictures.Default());
    if (const SlideScene* scene = m_slides.OfStrip()) {
        PaintSlide(painter, m_state, *scene);
    }
}

QImage StripStage::RenderRow(const ItemRange& range) const {
    const CellRow row = RowOf(m_state, range);
    return RenderCells(row.cells, m_pictures.Default(), row.size, m_surface.Ratio());
}

/// The cells slide as they look now: one whose thumbnail isn't there yet gets it afterwards.
void StripStage::Slide() {
    if (!std::exchange(m_state.stripSlidePending, false)) {
        return;
    }
    const auto plan = PlanStripSlide({m_state.strip, m_state.prevVisible, m_state.visible});
    if (!plan || !m_surface.IsShown()) {
        return;
    }
    Prepare();
    // What came while nobody looked at the events.
    static_cast<void>(m_pictures.TakeThumbs(m_state.items, m_surface.Ratio()));
    SlideScene scene;
    scene.slide = plan->slide;
    scene.oldImage = RenderRow(plan->outgoing);
    scene.newImage = RenderRow(m_state.visible);
    RunSlide(m_slides, std::move(scene), m_surface);
}

} // namespace gallery
