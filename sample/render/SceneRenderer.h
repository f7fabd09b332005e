// Turns a scene into a picture.
#pragma once

#include "sample/render/DepthBuffer.h"
#include "sample/render/Occlusion.h"
#include "sample/render/SunShadow.h"

#include <QImage>
#include <QSize>

namespace sample {

/// Renders scenes: hidden surfaces by a depth buffer, sun with a shadow map, lamps, darker
/// corners, sky and haze. Equal scenes give equal pictures. Keeps its buffers between pictures;
/// one renderer belongs to one thread.
class SceneRenderer final {
public:
    /// @param size  pixels, both sides >= 16.
    /// @return      Format_RGB32.
    [[nodiscard]] QImage Render(const Scene& scene, QSize size);

private:
    DepthBuffer m_depth;
    Occlusion m_occlusion;
    SunShadow m_shadow;
};

} // namespace sample
