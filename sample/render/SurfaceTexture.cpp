#include "sample/render/SurfaceTexture.h"

#include "sample/render/NoiseTile.h"

#include <algorithm>
#include <array>

namespace sample {

namespace {

/// std::floor is a library call without SSE 4.1; this holds down to -65536.
[[nodiscard]] float Floor(float value) {
    return static_cast<float>(static_cast<int>(value + 65536.0F) - 65536);
}

/// How much of a pixel lies in a line of half width `half` whose middle is `distance` away.
[[nodiscard]] float LineCover(float distance, float half, float footprint) {
    const float soft = std::max(footprint, 0.002F);
    const float distinct = std::fabs(distance) - half;
    if (distinct >= soft) {
        return 0; // by far the most places
    }
    const float edge = std::min((soft - distinct) / (2 * soft), 1.0F);
    return edge * std::min(1.0F, 2 * half / soft);
}

/// Distance to the nearest multiple of `pitch`.
[[nodiscard]] float ToGrid(float value, float pitch) {
    return value - Floor(value / pitch + 0.5F) * pitch;
}

/// A fixed number in [0, 1) for a cell of a pattern.
[[nodiscard]] float CellValue(float column, float row) {
    const auto mix = static_cast<quint32>(static_cast<qint32>(column)) * 73856093U ^
                     static_cast<quint32>(static_cast<qint32>(row)) * 19349663U;
    return static_cast<float>((mix * 2654435761U) >> 16) / 65536.0F;
}

[[nodiscard]] float Grain(const SurfacePoint& p, float perMetre) {
    const float texels = p.footprint * perMetre * NoiseTile::kSize;
    const int level = texels < 1.5F ? 0 : texels < 3 ? 1 : texels < 6 ? 2 : texels < 12 ? 3 : 4;
    const NoiseTile& tile = NoiseTile::Get();
    // Where a pixel covers a texel or more, the nearest texel is as good as a blend of four.
    return level == 0 ? tile.Grain(p.u * perMetre, p.v * perMetre, 0)
                      : tile.CoarseGrain(p.u * perMetre, p.v * perMetre, level);
}

[[nodiscard]] float Cloud(const SurfacePoint& p, float perMetre) {
    return NoiseTile::Get().Cloud(p.u * perMetre, p.v * perMetre);
}

[[nodiscard]] Vec3 Grey(float value) {
    return {value, value * 0.985F, value * 0.955F};
}

Vec3 ConcreteColor(const SurfacePoint& p) {
    float value = 0.36F + 0.12F * Cloud(p, 0.21F) + 0.07F * Cloud(p, 0.9F) + 0.07F * Grain(p, 0.9F);
    const float joint = std::max(LineCover(ToGrid(p.u, 1.83F), 0.003F, p.footprint),
                                 LineCover(ToGrid(p.v, 0.915F), 0.003F, p.footprint));
    value *= 1 - 0.35F * joint;
    const float holeU = ToGrid(p.u - 0.3F, 0.61F);
    const float holeV = ToGrid(p.v - 0.3F, 0.61F);
    const float hole = LineCover(std::sqrt(holeU * holeU + holeV * holeV), 0.013F, p.footprint);
    value *= 1 - 0.6F * hole;
    value *= 0.94F + 0.12F * CellValue(Floor(p.u / 1.83F), Floor(p.v / 0.915F));
    return Grey(value);
}

Vec3 SlabColor(const SurfacePoint& p) {
    float value = 0.33F + 0.12F * Cloud(p, 0.13F) + 0.10F * Cloud(p, 0.5F) + 0.10F * Grain(p, 0.7F);
    const float crumbs = NoiseTile::Get().Grain(p.u * 0.31F, p.v * 0.31F, 0);
    value += crumbs > 0.62F ? 0.14F : 0;
    const float wet = std::clamp((Cloud(p, 0.083F) - 0.28F) * 6, 0.0F, 1.0F);
    value *= 1 - 0.45F * wet;
    return {value, value * 0.97F, value * 0.92F};
}

Vec3 PlasterColor(const SurfacePoint& p) {
    // Patches of filler, trowel marks, and dirt that splashed up from the floor.
    const float filler = std::clamp((Cloud(p, 0.19F) - 0.15F) * 8, 0.0F, 1.0F);
    const float trowel = NoiseTile::Get().Cloud(p.u * 0.9F, p.v * 0.23F);
    const float dirt = std::clamp(0.45F - p.v + 0.5F * Cloud(p, 0.7F), 0.0F, 0.6F);
    const float value =
        0.66F + 0.05F * filler + 0.06F * trowel + 0.05F * Cloud(p, 0.11F) + 0.035F * Grain(p, 0.8F);
    return Vec3{1, 0.985F, 0.95F} * (value * (1 - 0.45F * dirt));
}

Vec3 BlockColor(const SurfacePoint& p, float length, float height, const Vec3& face, float mortar) {
    const float row = Floor(p.v / height);
    const float shifted = p.u + (static_cast<int>(row) & 1 ? length / 2 : 0);
    const float joint = std::max(LineCover(ToGrid(shifted, length), 0.006F, p.footprint),
                                 LineCover(ToGrid(p.v, height), 0.006F, p.footprint));
    const float tone = 0.82F + 0.3F * CellValue(Floor(shifted / length), row) +
                       0.12F * Grain(p, 1.3F) + 0.08F * Cloud(p, 0.3F);
    return Mix(face * tone, Grey(mortar * (1 + 0.2F * Grain(p, 1.3F))), joint);
}

Vec3 TileColor(const SurfacePoint& p, const Vec3& tint) {
    const float joint = std::max(LineCover(ToGrid(p.u, 0.6F), 0.002F, p.footprint),
                                 LineCover(ToGrid(p.v, 0.6F), 0.002F, p.footprint));
    const float tone =
        0.62F + 0.05F * CellValue(Floor(p.u / 0.6F), Floor(p.v / 0.6F)) + 0.05F * Cloud(p, 0.8F);
    return tint * (tone * (1 - 0.5F * joint));
}

Vec3 SoilColor(const SurfacePoint& p) {
    const float tone =
        0.75F + 0.3F * Cloud(p, 0.06F) + 0.3F * Cloud(p, 0.31F) + 0.35F * Grain(p, 0.5F);
    return Vec3{0.27F, 0.215F, 0.165F} * std::max(0.15F, tone);
}

Vec3 PlywoodColor(const SurfacePoint& p) {
    const float joint = std::max(LineCover(ToGrid(p.u, 1.83F), 0.004F, p.footprint),
                                 LineCover(ToGrid(p.v, 0.915F), 0.004F, p.footprint));
    const float board = CellValue(Floor(p.u / 1.83F + 0.5F), Floor(p.v / 0.915F + 0.5F));
    const float tone = 0.75F + 0.45F * board + 0.2F * Cloud(p, 0.37F) + 0.12F * Grain(p, 0.8F);
    return Vec3{0.27F, 0.15F, 0.10F} * (tone * (1 - 0.6F * joint));
}

Vec3 WoodColor(const SurfacePoint& p, const Vec3& tint) {
    const float streak = NoiseTile::Get().Grain(p.u * 2.3F, p.v * 0.11F, 1);
    const float tone = 0.8F + 0.22F * streak + 0.12F * Cloud(p, 0.6F);
    return tint * Vec3{0.47F, 0.32F, 0.18F} * tone;
}

Vec3 RustColor(const SurfacePoint& p) {
    const float rib = LineCover(ToGrid(p.v, 0.012F), 0.003F, p.footprint);
    const float tone = 0.7F + 0.35F * Cloud(p, 1.1F) + 0.3F * Grain(p, 2.0F) - 0.2F * rib;
    return Mix(Vec3{0.22F, 0.12F, 0.07F}, Vec3{0.20F, 0.18F, 0.17F}, 0.5F + 0.5F * Cloud(p, 0.4F)) *
           std::max(0.2F, tone);
}

/// Paint that has met mortar and rain.
Vec3 MetalColor(const SurfacePoint& p, const Vec3& tint) {
    const float splash = std::clamp((Grain(p, 0.45F) - 0.52F) * 2.0F, 0.0F, 0.25F);
    const float tone = 0.85F + 0.22F * Cloud(p, 0.7F) + 0.08F * Grain(p, 1.0F);
    return Mix(tint * tone, Grey(0.42F), splash);
}

/// A house far away: storeys of windows.
Vec3 TowerColor(const SurfacePoint& p) {
    const float column = Floor(p.u / 3.4F);
    const float row = Floor(p.v / 3.0F);
    const bool window =
        std::fabs(ToGrid(p.u - 1.7F, 3.4F)) < 0.95F && std::fabs(ToGrid(p.v - 1.6F, 3.0F)) < 0.8F;
    const float wall = 0.5F + 0.05F * Cloud(p, 0.05F);
    return window ? Vec3{0.13F, 0.15F, 0.18F} * (0.6F + CellValue(column, row)) : Grey(wall);
}

Vec3 NetColor(const SurfacePoint& p, const Vec3& tint) {
    const float fold = NoiseTile::Get().Cloud(p.u * 0.35F, p.v * 0.04F);
    const float seam = LineCover(ToGrid(p.v, 1.8F), 0.03F, p.footprint);
    return tint * (0.72F + 0.45F * fold + 0.14F * Grain(p, 1.5F) - 0.25F * seam);
}

} // namespace

Vec3 SurfaceColor(Surface surface, const Vec3& tint, const SurfacePoint& p) {
    switch (surface) {
    case Surface::Concrete:
        return tint * ConcreteColor(p);
    case Surface::Slab:
        return tint * SlabColor(p);
    case Surface::Plaster:
        return tint * PlasterColor(p);
    case Surface::Block:
        return tint * BlockColor(p, 0.6F, 0.24F, {0.56F, 0.56F, 0.54F}, 0.38F);
    case Surface::Brick:
        return tint * BlockColor(p, 0.25F, 0.063F, {0.36F, 0.17F, 0.11F}, 0.42F);
    case Surface::Tile:
        return TileColor(p, tint);
    case Surface::Soil:
        return tint * SoilColor(p);
    case Surface::Plywood:
        return tint * PlywoodColor(p);
    case Surface::Wood:
        return WoodColor(p, tint);
    case Surface::Metal:
        return MetalColor(p, tint);
    case Surface::Rust:
        return tint * RustColor(p);
    case Surface::Net:
        return NetColor(p, tint);
    case Surface::Tower:
        return tint * TowerColor(p);
    case Surface::Glass:
        return tint * (0.10F + 0.12F * std::max(0.0F, Cloud(p, 0.09F)));
    case Surface::Glow:
        return tint;
    }
    return tint;
}

} // namespace sample
