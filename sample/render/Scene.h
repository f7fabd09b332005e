// What a rendered picture shows: flat patches, lights, a camera.
#pragma once

#include "sample/render/Vec3.h"

#include <QImage>
#include <QSize>

#include <vector>

namespace sample {

/// What a patch is made of; decides its texture.
enum class Surface : quint8 {
    Concrete, ///< cast against boards: joints, tie holes, stains
    Slab,     ///< trowelled floor with dust and wet places
    Plaster,
    Block, ///< aerated blocks in running bond
    Brick,
    Tile,
    Soil,
    Plywood, ///< film-faced formwork boards
    Wood,
    Metal, ///< painted or galvanised
    Rust,  ///< rebar
    Net,   ///< safety net
    Tower, ///< a distant house
    Glass,
    Glow ///< shines by itself
};

/// A parallelogram: origin + s * edgeU + t * edgeV with s, t in [0, 1]. Seen from both sides.
struct Patch {
    Vec3 origin;
    Vec3 edgeU;
    Vec3 edgeV;
    Vec3 bend; ///< normal at s is flat normal + bend * (2 s - 1): rounds tubes
    Vec3 tint{1, 1, 1};
    Surface surface = Surface::Concrete;
    int decal = -1; ///< index into Scene::decals, drawn over the texture; -1: none
};

/// A lamp that shines in all directions.
struct Lamp {
    Vec3 position;
    Vec3 color;
    float reach = 3; ///< metres at which half of the light is left
};

/// Light of a scene. Directions point towards the light.
struct Lighting {
    Vec3 sunDirection{0.3F, -0.5F, 0.8F};
    Vec3 sunColor; ///< zero: no sun, no shadow map
    Vec3 skyLight{0.4F, 0.45F, 0.5F};
    Vec3 bounceLight{0.2F, 0.18F, 0.16F};
    std::vector<Lamp> lamps;
    Vec3 skyLow{0.8F, 0.84F, 0.88F}; ///< at the horizon
    Vec3 skyHigh{0.35F, 0.55F, 0.85F};
    float clouds = 0.5F; ///< 0 clear, 1 overcast
    float haze = 0.004F; ///< per metre
    float exposure = 1;
};

struct Camera {
    Vec3 eye{0, 0, 1.6F};
    float yaw = 0;   ///< degrees, positive to the right
    float pitch = 0; ///< degrees, positive up
    float roll = 0;  ///< degrees
    float view = 62; ///< degrees across the longer side
};

struct Scene {
    std::vector<Patch> patches;
    std::vector<QImage> decals; ///< ARGB32, straight alpha
    Lighting lighting;
    Camera camera;
};

} // namespace sample
