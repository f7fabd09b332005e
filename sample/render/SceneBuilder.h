// Puts a scene together from walls, boxes and tubes.
#pragma once

#include "sample/render/Scene.h"

#include <vector>

namespace sample {

/// What a body is covered with.
struct Finish {
    Surface surface = Surface::Concrete;
    Vec3 tint{1, 1, 1};
};

/// An opening in a wall: fractions of the wall's edges, 0 to 1.
struct Opening {
    float u0 = 0;
    float v0 = 0;
    float u1 = 0;
    float v1 = 0;
};

/// Adds bodies to a scene. Holds no state of its own beyond the scene that it fills.
class SceneBuilder final {
public:
    explicit SceneBuilder(Scene& target) : m_scene(target) {}

    void AddPatch(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV, const Finish& finish);
    /// Axis-parallel, all six faces.
    void AddBox(const Vec3& low, const Vec3& high, const Finish& finish);
    /// A prism between two points that is lit like a cylinder. No end caps.
    void AddTube(const Vec3& from, const Vec3& to, float radius, const Finish& finish,
                 int sides = 6);
    /// A parallelogram with rectangular openings, which must not overlap.
    void AddWall(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV,
                 const std::vector<Opening>& openings, const Finish& finish);
    /// A flat picture with transparency over whatever lies behind it; stands off by the caller.
    void AddDecal(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV, const QImage& picture,
                  const Finish& finish);

private:
    Scene& m_scene;
};

} // namespace sample
