#include "viewers/SlideRunner.h"

#include <utility>

namespace gallery {

void SlideRunner::Start(SlideScene scene) {
    m_offsets = SlideOffsets(scene.slide.distance);
    m_frame = 0;
    scene.offset = m_offsets.front();
    m_scene = std::move(scene);
}

bool SlideRunner::Advance() {
    if (!m_scene || ++m_frame >= m_offsets.size()) {
        Stop();
        return false;
    }
    m_scene->offset = m_offsets[m_frame];
    return true;
}

void SlideRunner::Stop() {
    m_scene.reset();
    m_offsets.clear();
}

const SlideScene* SlideRunner::OfPicture() const {
    return m_scene && m_scene->ofPicture ? &*m_scene : nullptr;
}

const SlideScene* SlideRunner::OfStrip() const {
    return m_scene && !m_scene->ofPicture ? &*m_scene : nullptr;
}

QRect SlideRunner::Bounds() const {
    return m_scene ? m_scene->slide.bounds : QRect();
}

} // namespace gallery
