#include "host/sample/render/SceneRenderer.h"

#include "host/sample/render/NoiseTile.h"
#include "host/sample/render/SurfaceTexture.h"

#include <algorithm>
#include <array>

namespace host {

namespace {

constexpr int kShadowSize = 1536;
constexpr float kShadowReach = 45;
constexpr int kOcclusionStep = 4;
constexpr float kSaturation = 1.1F;
constexpr int kLightStep = 8; // light is smooth: it is computed for every eighth pixel

/// Linear light to display values, with a shoulder so that highlights don't clip hard.
class ToneCurve final {
public:
    ToneCurve() {
        for (size_t index = 0; index < table.size(); ++index) {
            const float x = static_cast<float>(index) * kRange / static_cast<float>(table.size());
            const float mapped = x * (1 + x / 9.0F) / (1 + x);
            const float soft = std::min(1.0F, std::pow(mapped * 1.25F, 1 / 2.0F));
            const float crisp = soft * soft * (3 - 2 * soft);
            table[index] = static_cast<quint8>(255.0F * (soft + kContrast * (crisp - soft)));
        }
    }
    [[nodiscard]] quint32 At(float value) const {
        const float place = value * (static_cast<float>(kCount) / kRange);
        const float inside = std::max(0.0F, std::min(place, static_cast<float>(kCount - 1)));
        return table[static_cast<size_t>(static_cast<int>(inside))];
    }

private:
    static constexpr int kCount = 4096;
    static constexpr float kRange = 6;
    static constexpr float kContrast = 0.65F;
    std::array<quint8, kCount> table{};
};

[[nodiscard]] const ToneCurve& Tone() {
    static const ToneCurve curve;
    return curve;
}

} // namespace

struct SceneRenderer::RunSetup {
    Vec3 unitU;
    Vec3 unitV;
    Vec3 normal; ///< towards the camera
    Vec3 bend;
    float lengthU = 1;
    float lengthV = 1;
    bool round = false;
};

QImage SceneRenderer::Render(const Scene& what, QSize size) {
    scene = &what;
    view = MakeViewFrame(what.camera, size);
    depth.Reset(size.width(), size.height(), 1.0F / 400);
    ProjectScene(what, view, depth);
    const Vec3& sunColor = what.lighting.sunColor;
    hasSun = sunColor.x + sunColor.y + sunColor.z > 0;
    if (hasSun) {
        sun = MakeSunFrame(what, view, kShadowReach, kShadowSize);
        shadow.Reset(kShadowSize, kShadowSize, -1e6F);
        ProjectSun(what, sun, shadow);
    }
    FindOcclusion();
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        ShadeRow(y, reinterpret_cast<quint32*>(image.scanLine(y)));
    }
    scene = nullptr;
    return image;
}

SceneRenderer::RunSetup SceneRenderer::PrepareRun(const Patch& patch) const {
    RunSetup setup;
    setup.lengthU = Length(patch.edgeU);
    setup.lengthV = Length(patch.edgeV);
    setup.unitU = patch.edgeU * (1 / setup.lengthU);
    setup.unitV = patch.edgeV * (1 / setup.lengthV);
    setup.normal = Normalized(Cross(patch.edgeU, patch.edgeV));
    setup.bend = patch.bend;
    setup.round = Dot(patch.bend, patch.bend) > 0;
    if (Dot(setup.normal, view.eye - patch.origin) < 0) {
        setup.normal = setup.normal * -1;
    }
    return setup;
}

Vec3 SceneRenderer::LightAt(const RunSetup& setup, const Vec3& position, float bendAt) const {
    const Lighting& lighting = scene->lighting;
    Vec3 normal = setup.normal;
    if (setup.round) {
        normal = Normalized(normal + setup.bend * (2 * bendAt - 1));
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

float SceneRenderer::SunVisible(const Vec3& position) const {
    const float x = Dot(position, sun.right) * sun.scale + sun.offsetX;
    const float y = Dot(position, sun.up) * sun.scale + sun.offsetY;
    if (x < 1 || y < 1 || x >= kShadowSize - 2 || y >= kShadowSize - 2) {
        return 1;
    }
    const float here = Dot(position, sun.toSun) + 0.07F;
    const int column = static_cast<int>(x - 0.5F);
    const int row = static_cast<int>(y - 0.5F);
    const float fx = x - 0.5F - static_cast<float>(column);
    const float fy = y - 0.5F - static_cast<float>(row);
    const float* line0 = shadow.NearRow(row) + column;
    const float* line1 = shadow.NearRow(row + 1) + column;
    const float top = (line0[0] > here ? 0 : 1 - fx) + (line0[1] > here ? 0 : fx);
    const float bottom = (line1[0] > here ? 0 : 1 - fx) + (line1[1] > here ? 0 : fx);
    return top * (1 - fy) + bottom * fy;
}

void SceneRenderer::FindOcclusion() {
    static constexpr std::array<ScreenPoint, 8> kRing{{{1, 0.2F},
                                                       {0.6F, 0.75F},
                                                       {-0.2F, 1},
                                                       {-0.75F, 0.6F},
                                                       {-1, -0.2F},
                                                       {-0.6F, -0.75F},
                                                       {0.2F, -1},
                                                       {0.75F, -0.6F}}};
    occlusionWidth = (depth.Width() + kOcclusionStep - 1) / kOcclusionStep;
    occlusionHeight = (depth.Height() + kOcclusionStep - 1) / kOcclusionStep;
    occlusion.assign(static_cast<size_t>(occlusionWidth) * occlusionHeight, 1.0F);
    const auto pointAt = [&](int x, int y, float near) {
        return Vec3{(static_cast<float>(x) - view.centreX) / view.focal,
                    (view.centreY - static_cast<float>(y)) / view.focal, 1} *
               (1 / near);
    };
    for (int row = 0; row < occlusionHeight; ++row) {
        const int y = row * kOcclusionStep;
        for (int column = 0; column < occlusionWidth; ++column) {
            const int x = column * kOcclusionStep;
            const quint16 id = depth.IdRow(y)[x];
            if (id == DepthBuffer::kNothing) {
                continue;
            }
            const Vec3 here = pointAt(x, y, depth.NearRow(y)[x]);
            const Patch& patch = scene->patches[id];
            const Vec3 world = Normalized(Cross(patch.edgeU, patch.edgeV));
            Vec3 normal{Dot(world, view.right), Dot(world, view.up), Dot(world, view.forward)};
            if (Dot(normal, here) > 0) {
                normal = normal * -1;
            }
            float covered = 0;
            for (size_t tap = 0; tap < kRing.size(); ++tap) {
                // Two radii in turn: contact shadows and the broad darkening of corners.
                const float radius = (tap & 1 ? 0.55F : 0.16F) * view.focal / here.z;
                const int sx = x + static_cast<int>(kRing[tap].x * radius);
                const int sy = y + static_cast<int>(kRing[tap].y * radius);
                if (sx < 0 || sy < 0 || sx >= depth.Width() || sy >= depth.Height() ||
                    depth.IdRow(sy)[sx] == DepthBuffer::kNothing) {
                    continue;
                }
                const Vec3 toward = pointAt(sx, sy, depth.NearRow(sy)[sx]) - here;
                const float distance = Length(toward) + 0.001F;
                const float rise = std::max(0.0F, Dot(normal, toward) / distance - 0.08F);
                covered += rise / (1 + 1.5F * distance * distance);
            }
            occlusion[static_cast<size_t>(row) * occlusionWidth + column] =
                std::max(0.25F, 1 - 1.3F * covered / static_cast<float>(kRing.size()));
        }
    }
}

float SceneRenderer::OcclusionAt(int x, int y) const {
    const int column = std::min(x / kOcclusionStep, occlusionWidth - 2);
    const int row = std::min(y / kOcclusionStep, occlusionHeight - 2);
    const float fx = static_cast<float>(x - column * kOcclusionStep) / kOcclusionStep;
    const float fy = static_cast<float>(y - row * kOcclusionStep) / kOcclusionStep;
    const float* line = occlusion.data() + static_cast<size_t>(row) * occlusionWidth + column;
    const float top = line[0] + (line[1] - line[0]) * fx;
    const float bottom =
        line[occlusionWidth] + (line[occlusionWidth + 1] - line[occlusionWidth]) * fx;
    return top + (bottom - top) * fy;
}

void SceneRenderer::ShadeRow(int y, quint32* line) const {
    const quint16* ids = depth.IdRow(y);
    const int width = depth.Width();
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
            ShadeRun(scene->patches[id], y, from, to, line);
        }
        from = to;
    }
}

namespace {

/// The decal's colour over `under` at s, t in [0, 1], t counted from the bottom.
Vec3 OverDecal(const QImage& decal, float s, float t, const Vec3& under) {
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

void SceneRenderer::ShadeRun(const Patch& patch, int y, int from, int to, quint32* line) const {
    const RunSetup setup = PrepareRun(patch);
    const Lighting& lighting = scene->lighting;
    const float* near = depth.NearRow(y);
    const float perPixel = 1 / view.focal;
    const Vec3 rowRay =
        view.forward - view.up * ((static_cast<float>(y) + 0.5F - view.centreY) * perPixel);
    const auto positionAt = [&](int x) {
        const float offset = (static_cast<float>(x) + 0.5F - view.centreX) * perPixel;
        return view.eye + (rowRay + view.right * offset) * (1 / near[x]);
    };
    const float sunCosine =
        hasSun && !setup.round ? std::max(0.0F, Dot(setup.normal, sun.toSun)) : 0;
    for (int start = from; start < to; start += kLightStep) {
        const int end = std::min(start + kLightStep, to);
        const auto lightAt = [&](int x) {
            const Vec3 p = positionAt(x);
            const float s = Dot(p - patch.origin, setup.unitU) / setup.lengthU;
            return LightAt(setup, p, s) * OcclusionAt(x, y);
        };
        const Vec3 first = lightAt(start);
        const Vec3 step =
            (lightAt(end - 1) - first) * (1.0F / static_cast<float>(std::max(1, end - 1 - start)));
        for (int x = start; x < end; ++x) {
            const Vec3 position = positionAt(x);
            const float z = 1 / near[x];
            const Vec3 local = position - patch.origin;
            const SurfacePoint point{Dot(position, setup.unitU), Dot(position, setup.unitV),
                                     z * perPixel};
            Vec3 color = SurfaceColor(patch.surface, patch.tint, point);
            const float s = Dot(local, setup.unitU) / setup.lengthU;
            if (patch.decal >= 0) {
                color = OverDecal(scene->decals[static_cast<size_t>(patch.decal)], s,
                                  Dot(local, setup.unitV) / setup.lengthV, color);
            }
            if (patch.surface != Surface::Glow) {
                Vec3 light = first + step * static_cast<float>(x - start);
                float cosine = sunCosine;
                if (setup.round && hasSun) {
                    cosine = Dot(setup.normal + setup.bend * (2 * s - 1), sun.toSun);
                }
                if (cosine > 0) {
                    light = light + lighting.sunColor * (cosine * SunVisible(position));
                }
                color = color * light;
            }
            const float clear = 1 / (1 + z * lighting.haze);
            line[x] = ToneMapped(Mix(lighting.skyLow * 0.8F, color, clear));
        }
    }
}

void SceneRenderer::ShadeSky(int y, int from, int to, quint32* line) const {
    const Lighting& lighting = scene->lighting;
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
        line[x] = ToneMapped(color);
    }
}

quint32 SceneRenderer::ToneMapped(const Vec3& color) const {
    const float gain = scene->lighting.exposure;
    const float grey = (color.x + 2 * color.y + color.z) * 0.25F * gain * (1 - kSaturation);
    const float vivid = gain * kSaturation;
    const ToneCurve& tone = Tone();
    return 0xFF000000U | (tone.At(grey + color.x * vivid) << 16) |
           (tone.At(grey + color.y * vivid) << 8) | tone.At(grey + color.z * vivid);
}

} // namespace host
