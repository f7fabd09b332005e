#include "sample/render/RunShader.h"

#include "sample/render/NoiseTile.h"
#include "sample/render/SurfaceTexture.h"
#include "sample/render/ToneCurve.h"

#include <array>

namespace sample {

namespace {

/// A coordinate of the pixels of a row: atEye + depth * (row + right * offset).
struct RowCoordinate {
    float atEye = 0;
    float row = 0;
    float right = 0;
};

/// The decal's colour over `under` at s, t in [0, 1], t counted from the bottom.
[[nodiscard]] Vec3 OverDecal(const QImage& decal, float s, float t, const Vec3& under) {
    const int x =
        std::clamp(static_cast<int>(s * static_cast<float>(decal.width())), 0, decal.width() - 1);
    const int y = std::clamp(static_cast<int>((1 - t) * static_cast<float>(decal.height())), 0,
                             decal.height() - 1);
    const quint32 pixel = reinterpret_cast<const quint32*>(decal.constScanLine(y))[x];
    const auto linear = [](quint32 channel) {
        const float value = static_cast<float>(channel & 0xFF) / 255;
        return value * value * 0.85F;
    };
    const Vec3 color{linear(pixel >> 16), linear(pixel >> 8), linear(pixel)};
    return Mix(under, color, static_cast<float>(pixel >> 24) / 255);
}

} // namespace

/// What is the same for all pixels of a patch in a row.
struct RunShader::Run {
    const Patch* patch = nullptr;
    Vec3 normal; ///< towards the camera
    Vec3 rowRay;
    bool round = false;
    float perPixel = 0;
    float lengthU = 1;
    float lengthV = 1;
    float originU = 0;
    float originV = 0;
    RowCoordinate u;
    RowCoordinate v;
    RowCoordinate sunX;
    RowCoordinate sunY;
    RowCoordinate sunHeight;
    float sunCosine = 0;
};

/// Eight pixels, coordinate by coordinate, so that the compiler can work on several at once.
struct RunShader::Step {
    template <typename T> using Lane = std::array<T, kStep>;
    Lane<float> depth;
    Lane<float> offset;
    Lane<float> u;
    Lane<float> v;
    Lane<float> red;
    Lane<float> green;
    Lane<float> blue;

    [[nodiscard]] Lane<float> Along(const RowCoordinate& what) const {
        Lane<float> result;
        for (size_t i = 0; i < result.size(); ++i) {
            result[i] = what.atEye + depth[i] * (what.row + what.right * offset[i]);
        }
        return result;
    }
};

void RunShader::ShadeRow(int y, quint32* line) const {
    const quint16* ids = m_input.depth.IdRow(y);
    const int width = m_input.depth.Width();
    int from = 0;
    while (from < width) {
        const quint16 id = ids[from];
        int to = from + 1;
        while (to < width && ids[to] == id) {
            ++to;
        }
        if (id == DepthBuffer::kNothing) {
            ShadeSky(y, from, to, line);
        } else {
            ShadePatch(m_input.scene.patches[id], y, from, to, line);
        }
        from = to;
    }
}

RunShader::Run RunShader::Prepare(const Patch& patch, int y) const {
    const ViewFrame& view = m_input.view;
    Run run;
    run.patch = &patch;
    run.perPixel = 1 / view.focal;
    run.rowRay =
        view.forward - view.up * ((static_cast<float>(y) + 0.5F - view.centreY) * run.perPixel);
    run.lengthU = Length(patch.edgeU);
    run.lengthV = Length(patch.edgeV);
    run.round = Dot(patch.bend, patch.bend) > 0;
    run.normal = Normalized(Cross(patch.edgeU, patch.edgeV));
    if (Dot(run.normal, view.eye - patch.origin) < 0) {
        run.normal = run.normal * -1;
    }
    const auto along = [&](const Vec3& axis, float scale, float shift) {
        return RowCoordinate{Dot(view.eye, axis) * scale + shift, Dot(run.rowRay, axis) * scale,
                             Dot(view.right, axis) * scale};
    };
    const Vec3 unitU = patch.edgeU * (1 / run.lengthU);
    const Vec3 unitV = patch.edgeV * (1 / run.lengthV);
    run.u = along(unitU, 1, 0);
    run.v = along(unitV, 1, 0);
    run.originU = Dot(patch.origin, unitU);
    run.originV = Dot(patch.origin, unitV);
    if (m_input.shadow.HasSun()) {
        const SunFrame& sun = m_input.shadow.Frame();
        run.sunX = along(sun.right, sun.scale, sun.offsetX);
        run.sunY = along(sun.up, sun.scale, sun.offsetY);
        run.sunHeight = along(sun.toSun, 1, 0);
        run.sunCosine = std::max(0.0F, Dot(run.normal, sun.toSun));
    }
    return run;
}

void RunShader::ShadePatch(const Patch& patch, int y, int from, int to, quint32* line) const {
    const Run run = Prepare(patch, y);
    const float* near = m_input.depth.NearRow(y);
    Step step;
    for (int x = from; x < to; x += kStep) {
        const int count = std::min(kStep, to - x);
        for (int i = 0; i < kStep; ++i) {
            step.depth[static_cast<size_t>(i)] = 1 / near[x + i];
        }
        Locate(run, x, step);
        Paint(run, count, step);
        if (patch.surface != Surface::Glow) {
            Light(run, x, y, count, step);
        }
        Develop(count, step, line + x);
    }
}

void RunShader::Locate(const Run& run, int x, Step& step) const {
    const float first = (static_cast<float>(x) + 0.5F - m_input.view.centreX) * run.perPixel;
    for (size_t i = 0; i < kStep; ++i) {
        step.offset[i] = first + static_cast<float>(i) * run.perPixel;
    }
    step.u = step.Along(run.u);
    step.v = step.Along(run.v);
}

void RunShader::Paint(const Run& run, int count, Step& step) const {
    const Patch& patch = *run.patch;
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
        Vec3 color = SurfaceColor(patch.surface, patch.tint,
                                  {step.u[i], step.v[i], step.depth[i] * run.perPixel});
        if (patch.decal >= 0) {
            color = OverDecal(m_input.scene.decals[static_cast<size_t>(patch.decal)],
                              (step.u[i] - run.originU) / run.lengthU,
                              (step.v[i] - run.originV) / run.lengthV, color);
        }
        step.red[i] = color.x;
        step.green[i] = color.y;
        step.blue[i] = color.z;
    }
}

Vec3 RunShader::SurroundingLight(const Run& run, const Vec3& position, float bendAt) const {
    const Lighting& lighting = m_input.scene.lighting;
    Vec3 normal = run.normal;
    if (run.round) {
        normal = Normalized(normal + run.patch->bend * (2 * bendAt - 1));
    }
    Vec3 light = Mix(lighting.bounceLight, lighting.skyLight, 0.5F + 0.5F * normal.z);
    for (const Lamp& lamp : lighting.lamps) {
        const Vec3 away = lamp.position - position;
        const float squared = Dot(away, away) + 0.01F;
        const float cosine = Dot(away, normal) / std::sqrt(squared);
        // Lamps are broad: what faces away a little still gets some light.
        const float facing = std::max(0.0F, cosine * 0.8F + 0.2F);
        light = light + lamp.color * (facing / (1 + squared / (lamp.reach * lamp.reach)));
    }
    return light;
}

void RunShader::Light(const Run& run, int x, int y, int count, Step& step) const {
    // The light of the surroundings is smooth: both ends of the step are enough.
    const auto lightAt = [&](size_t i) {
        const Vec3 position =
            m_input.view.eye + (run.rowRay + m_input.view.right * step.offset[i]) * step.depth[i];
        const float bendAt = (step.u[i] - run.originU) / run.lengthU;
        return SurroundingLight(run, position, bendAt) *
               m_input.occlusion.At(x + static_cast<int>(i), y);
    };
    const auto last = static_cast<size_t>(count - 1);
    const Vec3 first = lightAt(0);
    const Vec3 slope =
        count > 1 ? (lightAt(last) - first) * (1.0F / static_cast<float>(last)) : Vec3{};
    Step::Lane<float> sunlit{};
    if (run.sunCosine > 0 || (run.round && m_input.shadow.HasSun())) {
        const auto sunX = step.Along(run.sunX);
        const auto sunY = step.Along(run.sunY);
        const auto height = step.Along(run.sunHeight);
        for (size_t i = 0; i <= last; ++i) {
            float cosine = run.sunCosine;
            if (run.round) {
                const float bendAt = 2 * (step.u[i] - run.originU) / run.lengthU - 1;
                cosine = Dot(run.normal + run.patch->bend * bendAt, m_input.shadow.Frame().toSun);
            }
            sunlit[i] = cosine > 0 ? cosine * m_input.shadow.Lit(sunX[i], sunY[i], height[i]) : 0;
        }
    }
    const Vec3& sun = m_input.scene.lighting.sunColor;
    for (size_t i = 0; i < kStep; ++i) {
        const auto along = static_cast<float>(i);
        step.red[i] *= first.x + slope.x * along + sun.x * sunlit[i];
        step.green[i] *= first.y + slope.y * along + sun.y * sunlit[i];
        step.blue[i] *= first.z + slope.z * along + sun.z * sunlit[i];
    }
}

void RunShader::Develop(int count, Step& step, quint32* pixels) const {
    const Lighting& lighting = m_input.scene.lighting;
    const Vec3 haze = lighting.skyLow * 0.8F;
    const float gain = lighting.exposure;
    Step::Lane<int> red;
    Step::Lane<int> green;
    Step::Lane<int> blue;
    for (size_t i = 0; i < kStep; ++i) {
        const float clear = 1 / (1 + step.depth[i] * lighting.haze);
        const float r = gain * (haze.x + (step.red[i] - haze.x) * clear);
        const float g = gain * (haze.y + (step.green[i] - haze.y) * clear);
        const float b = gain * (haze.z + (step.blue[i] - haze.z) * clear);
        const float grey = ToneCurve::Grey(r, g, b);
        red[i] = ToneCurve::Index(grey + r * ToneCurve::kSaturation);
        green[i] = ToneCurve::Index(grey + g * ToneCurve::kSaturation);
        blue[i] = ToneCurve::Index(grey + b * ToneCurve::kSaturation);
    }
    const ToneCurve& tone = ToneCurve::Get();
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
        pixels[i] =
            0xFF000000U | (tone.At(red[i]) << 16) | (tone.At(green[i]) << 8) | tone.At(blue[i]);
    }
}

void RunShader::ShadeSky(int y, int from, int to, quint32* line) const {
    const Lighting& lighting = m_input.scene.lighting;
    const ViewFrame& view = m_input.view;
    const float perPixel = 1 / view.focal;
    const Vec3 rowRay =
        view.forward - view.up * ((static_cast<float>(y) + 0.5F - view.centreY) * perPixel);
    for (int x = from; x < to; ++x) {
        const float offset = (static_cast<float>(x) + 0.5F - view.centreX) * perPixel;
        const Vec3 ray = Normalized(rowRay + view.right * offset);
        const float height = std::max(0.0F, ray.z);
        Vec3 color = Mix(lighting.skyLow, lighting.skyHigh, std::sqrt(height));
        const float flat = 1 / (height + 0.25F);
        const float cloud =
            NoiseTile::Get().Cloud(ray.x * flat * 0.12F + 0.3F, ray.y * flat * 0.12F);
        const float cover = std::clamp(cloud * 1.6F + lighting.clouds * 2 - 0.9F, 0.0F, 1.0F);
        color = Mix(color, Vec3{0.95F, 0.95F, 0.96F} * (0.9F - 0.15F * cloud), cover);
        line[x] = ToneCurve::Get().Pixel(color * lighting.exposure);
    }
}

} // namespace sample
