// How the gallery is painted, and its slides.
#include "viewers/PicViewDlg.h"

#include "toolkit/Clock.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowRegistry.h"
#include "viewers/StripCells.h"

#include <QFileInfo>
#include <QPainter>

namespace {

constexpr int kRenderDelayMs = 1000;

} // namespace

qreal CPicViewDlg::Ratio() const {
    return m_pane ? m_pane->devicePixelRatio() : 1.0;
}

void CPicViewDlg::Repaint(const QRect& area) {
    if (!m_pane || area.isEmpty()) {
        return;
    }
    // A window that gets its new size is painted right afterwards.
    if (static_cast<gallery::GalleryPane*>(m_pane.data())->IsResizing()) {
        m_pane->update(area);
    } else {
        m_pane->repaint(area);
    }
}

void CPicViewDlg::EraseFreed(const QRect& oldBig, const QRect& oldStrip) {
    const QRegion kept = QRegion(m_state.bigArea) + m_state.stripArea;
    m_state.paintEnabled = false;
    for (const QRect& freed : (QRegion(oldBig) + oldStrip) - kept) {
        Repaint(freed);
    }
    m_state.paintEnabled = true;
    UpdateAreas();
}

void CPicViewDlg::UpdateAreas() {
    if (gallery::SlidesPicture(m_state)) {
        RunPictureSlide();
    }
    RepaintBig();
    RunStripSlide();
    RepaintStrip();
}

void CPicViewDlg::OnPictureTaken() {
    if (!m_state.paintEnabled) {
        return;
    }
    // A slide has its pictures.
    if (!m_slides.IsRunning()) {
        static_cast<void>(m_state.picRect.isEmpty() || CompleteBig());
        NoteShown();
    }
    CompleteStrip(m_state.visible);
}

void CPicViewDlg::OnPaint(QPainter& painter, const QRegion& region) const {
    const QRegion areas = QRegion(m_state.bigArea) + m_state.stripArea;
    for (const QRect& rest : m_state.paintEnabled ? region - areas : region) {
        painter.fillRect(rest, toolkit::Colors::Pane());
    }
    if (!m_state.paintEnabled) {
        return;
    }
    if (region.intersects(m_state.bigArea)) {
        PaintPictureArea(painter);
    }
    if (region.intersects(m_state.stripArea)) {
        PaintStripArea(painter);
    }
}

void CPicViewDlg::PaintPictureArea(QPainter& painter) const {
    if (const gallery::SlideScene* scene = m_slides.OfPicture()) {
        gallery::PaintSlide(painter, m_state, *scene);
    } else {
        PaintPicture(painter);
    }
}

void CPicViewDlg::PaintPicture(QPainter& painter) const {
    if (m_state.picRect.isEmpty()) {
        gallery::PaintNoBigPicture(painter, m_state);
        return;
    }
    std::vector<gallery::PlacedImage> layers{m_big.Shown(BigPlace())};
    if (!m_state.zoom.fit) {
        layers.push_back(m_pictures.Sharp(m_state, Ratio()));
    }
    gallery::PaintBigPicture(painter, m_state, layers);
    gallery::PaintZoomLabel(painter, m_state);
}

/// Where the big picture is drawn now.
QRectF CPicViewDlg::BigPlace() const {
    return gallery::ZoomedRect(m_state.zoom, gallery::ViewOf(m_state, Ratio()));
}

/// The current picture comes from the decoders, at once if they have done it already.
void CPicViewDlg::PrepareBig() {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item == nullptr || m_state.picRect.isEmpty() || m_big.IsFresh()) {
        return;
    }
    if (const auto image = m_pictures.WantBig(*item, m_state.picRect.size(), Ratio(), Id())) {
        PutBig(*image);
    }
}

/// The same now, on this thread if need be. False: the file can't be decoded.
bool CPicViewDlg::CompleteBig() {
    const GalleryItem* item = m_state.ItemAt(m_state.currentIndex);
    if (item != nullptr && !m_big.IsFresh()) {
        PutBig(m_pictures.Big(*item, m_state.picRect.size(), Ratio()));
    }
    return m_big.IsFresh();
}

/// A null image: the file can't be decoded.
void CPicViewDlg::PutBig(const QImage& image) {
    m_big.Put(image, m_state.picRect);
    if (image.isNull()) {
        gallery::MarkUnreadable(*m_state.ItemAt(m_state.currentIndex));
        gallery::ComputePicRect(m_state, Sizes());
    }
}

/// The big area is about to be painted.
void CPicViewDlg::NoteShown() {
    if (m_state.picRect.isEmpty()) {
        m_state.shownIndex = -1;
        return;
    }
    m_state.skipSlide = false;
    m_state.shownIndex = m_state.currentIndex;
    // A resize is shown cheaply first.
    if (m_big.IsStretched(m_state.picRect)) {
        SetTimer(gallery::kRenderTimer, kRenderDelayMs);
    }
}

void CPicViewDlg::RepaintBig() {
    PrepareBig();
    if (m_pane && m_pane->isVisible()) {
        NoteShown();
    }
    Repaint(m_state.bigArea);
}

void CPicViewDlg::OnPictureReady() {
    if (!m_big.IsFresh() && !m_state.picRect.isEmpty()) {
        RepaintBig();
    }
    // Its thumbnail is cut from it, and what lies ahead may come to the strip likewise.
    RepaintStrip();
}

void CPicViewDlg::OnShown() {
    toolkit::PostWindowEvent(Id(), gallery::kPaneShown);
}

void CPicViewDlg::LookAtFiles(const gallery::ItemRange& range) {
    for (int i = range.first; !range.IsNone() && i <= range.last; ++i) {
        GalleryItem& item = m_state.items[size_t(i)];
        item.fileThere = item.picState != kOnDisk || QFileInfo::exists(item.picPath);
    }
    const GalleryItem* first = m_state.ItemAt(m_state.visible.first);
    if (first != nullptr && !first->thumbRect.isEmpty()) {
        m_pictures.MakeDefault(m_defaultPicPath, first->thumbRect.size(), Ratio());
    }
}

/// What the strip needs of the disk is fetched before it is painted: looked at here, decoded by the
/// decoders; a cell is painted again when its picture comes.
void CPicViewDlg::PrepareStrip() {
    if (!m_pane || m_state.stripArea.isEmpty()) {
        return;
    }
    LookAtFiles(m_state.visible);
    // The next step comes before the strip: its thumbnails wait while a picture is wanted.
    if (m_pane->isVisible()) {
        m_pictures.LookAhead(m_state, m_travel, Ratio(), Id());
    }
    m_pictures.WantThumbs(m_state.items, m_state.visible, Ratio(), Id());
}

/// Everything at once: for a slide, whose cells don't change, and for a picture of the pane.
void CPicViewDlg::CompleteStrip(const gallery::ItemRange& range) {
    LookAtFiles(range);
    m_pictures.MakeThumbs(m_state.items, range, Ratio(), Id());
}

void CPicViewDlg::RepaintStrip() {
    PrepareStrip();
    Repaint(m_state.stripArea);
}

void CPicViewDlg::OnThumbReady() {
    for (const int index : m_pictures.TakeThumbs(m_state.items, Ratio())) {
        if (m_pane && m_state.visible.Contains(index)) {
            m_pane->update(m_state.items[size_t(index)].thumbRect);
        }
    }
}

/// The last of a paint: nobody needs the painter's clip behind it.
void CPicViewDlg::PaintStripArea(QPainter& painter) const {
    painter.setClipRect(m_state.stripArea, Qt::IntersectClip);
    gallery::PaintStrip(painter, m_state, gallery::CellsOf(m_state, m_state.visible),
                        m_pictures.Default());
    if (const gallery::SlideScene* scene = m_slides.OfStrip()) {
        gallery::PaintSlide(painter, m_state, *scene);
    }
}

/// Every frame is a state, a repaint and a sleep; no other event is handled in between.
void CPicViewDlg::RunSlide(gallery::SlideScene scene) {
    if (!m_pane || !m_pane->isVisible()) {
        return;
    }
    m_slides.Start(std::move(scene));
    do {
        m_pane->repaint(m_slides.Bounds());
        toolkit::Clock().SleepMilliseconds(gallery::kSlideFrameMs);
    } while (m_slides.Advance());
}

void CPicViewDlg::RunPictureSlide() {
    const GalleryItem* shown = m_state.ItemAt(m_state.shownIndex);
    if (!m_pane || !m_pane->isVisible() || m_state.prevPicRect.isEmpty()) {
        return;
    }
    gallery::SlideScene scene;
    scene.slide =
        gallery::PictureSlide({m_state.bigArea, m_state.prevPicRect, m_state.picRect,
                               m_state.strip.horizontal, m_state.shownIndex, m_state.currentIndex});
    scene.ofPicture = true;
    scene.oldImage = m_pictures.Big(*shown, m_state.prevPicRect.size(), Ratio());
    if (scene.oldImage.isNull() || !CompleteBig()) {
        return;
    }
    scene.newImage = m_big.Image();
    RunSlide(std::move(scene));
    m_state.shownIndex = m_state.currentIndex;
}

QImage CPicViewDlg::RenderStripCells(const gallery::ItemRange& range) {
    CompleteStrip(range);
    const gallery::CellRow row = gallery::RowOf(m_state, range);
    return gallery::RenderCells(row.cells, m_pictures.Default(), row.size, Ratio());
}

void CPicViewDlg::RunStripSlide() {
    if (!m_state.stripSlidePending) {
        return;
    }
    m_state.stripSlidePending = false;
    const auto plan =
        gallery::PlanStripSlide({m_state.strip, m_state.prevVisible, m_state.visible});
    if (!plan || !m_pane || !m_pane->isVisible()) {
        return;
    }
    gallery::SlideScene scene;
    scene.slide = plan->slide;
    scene.oldImage = RenderStripCells(plan->outgoing);
    scene.newImage = RenderStripCells(m_state.visible);
    RunSlide(std::move(scene));
}
