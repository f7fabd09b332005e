// Turns a scene into a picture.
#pragma once

#include "host/sample/render/DepthBuffer.h"
#include "host/sample/render/Projection.h"
#include "host/sample/render/Scene.h"

#include <QImage>
#include <QSize>

#include <vector>

namespace host {

/// Renders scenes: hidden surfaces by a depth buffer, sun with a shadow map, lamps, darker
/// corners, sky and haze. Equal scenes give equal pictures. Keeps its buffers between pictures;
/// one renderer belongs to one thread.
class SceneRenderer final {
public:
    /// @param size  pixels, both sides >= 16.
    /// @return      Format_RGB32.
    [[nodiscard]] QImage Render(const Scene& scene, QSize size);

private:
    /// What the shading of one run of pixels of one patch needs.
    struct RunSetup;

    [[nodiscard]] RunSetup PrepareRun(const Patch& patch) const;
    [[nodiscard]] Vec3 LightAt(const RunSetup& setup, const Vec3& position, float bendAt) const;
    [[nodiscard]] float SunVisible(const Vec3& position) const;
    void FindOcclusion();
    [[nodiscard]] float OcclusionAt(int x, int y) const;
    void ShadeRow(int y, quint32* line) const;
    void ShadeRun(const Patch& patch, int y, int from, int to, quint32* line) const;
    void ShadeSky(int y, int from, int to, quint32* line) const;
    [[nodiscard]] quint32 ToneMapped(const Vec3& color) const;

    const Scene* scene = nullptr;
    ViewFrame view;
    SunFrame sun;
    bool hasSun = false;
    DepthBuffer depth;
    DepthBuffer shadow;
    int occlusionWidth = 0;
    int occlusionHeight = 0;
    std::vector<float> occlusion; ///< one value for each 4 x 4 pixels, 1: open
};

} // namespace host
