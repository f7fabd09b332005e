// Colours the pixels of a row.
#pragma once

#include "sample/render/Occlusion.h"
#include "sample/render/Projection.h"
#include "sample/render/SunShadow.h"

namespace sample {

/// What the shading of a picture looks at; all of it outlives the shader.
struct ShadingInput {
    const Scene& scene;
    const ViewFrame& view;
    const DepthBuffer& depth;
    const Occlusion& occlusion;
    const SunShadow& shadow;
};

/// Shades runs of pixels that show one patch, or the sky, in steps of eight pixels.
class RunShader final {
public:
    /// Pixels that are worked on together; rows of depths need so many readable values behind
    /// their end.
    static constexpr int kStep = 8;

    explicit RunShader(const ShadingInput& what) : m_input(what) {}

    /// All pixels of a row, Format_RGB32.
    void ShadeRow(int y, quint32* line) const;

private:
    struct Run;
    struct Step;

    void ShadeSky(int y, int from, int to, quint32* line) const;
    void ShadePatch(const Patch& patch, int y, int from, int to, quint32* line) const;
    [[nodiscard]] Run Prepare(const Patch& patch, int y) const;
    void Locate(const Run& run, int x, Step& step) const;
    void Paint(const Run& run, int count, Step& step) const;
    void Light(const Run& run, int x, int y, int count, Step& step) const;
    void Develop(int count, Step& step, quint32* pixels) const;
    [[nodiscard]] Vec3 SurroundingLight(const Run& run, const Vec3& position, float bendAt) const;

    ShadingInput m_input;
};

} // namespace sample
