#include "sample/render/SceneBuilder.h"

#include <algorithm>
#include <numbers>

namespace sample {

void SceneBuilder::AddPatch(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV,
                            const Finish& finish) {
    Patch patch;
    patch.origin = origin;
    patch.edgeU = edgeU;
    patch.edgeV = edgeV;
    patch.tint = finish.tint;
    patch.surface = finish.surface;
    m_scene.patches.push_back(patch);
}

void SceneBuilder::AddBox(const Vec3& low, const Vec3& high, const Finish& finish) {
    const Vec3 alongX{high.x - low.x, 0, 0};
    const Vec3 alongY{0, high.y - low.y, 0};
    const Vec3 alongZ{0, 0, high.z - low.z};
    AddPatch(low, alongX, alongZ, finish);
    AddPatch(low + alongY, alongX, alongZ, finish);
    AddPatch(low, alongY, alongZ, finish);
    AddPatch(low + alongX, alongY, alongZ, finish);
    AddPatch(low, alongX, alongY, finish);
    AddPatch(low + alongZ, alongX, alongY, finish);
}

void SceneBuilder::AddTube(const Vec3& from, const Vec3& to, float radius, const Finish& finish,
                           int sides) {
    const Vec3 axis = to - from;
    const Vec3 direction = Normalized(axis);
    const Vec3 helper = std::fabs(direction.z) < 0.9F ? Vec3{0, 0, 1} : Vec3{1, 0, 0};
    const Vec3 sideA = Normalized(Cross(direction, helper));
    const Vec3 sideB = Cross(direction, sideA);
    const auto rim = [&](int index) {
        const float angle =
            2 * std::numbers::pi_v<float> * static_cast<float>(index) / static_cast<float>(sides);
        return sideA * std::cos(angle) + sideB * std::sin(angle);
    };
    for (int side = 0; side < sides; ++side) {
        const Vec3 first = rim(side);
        const Vec3 second = rim(side + 1);
        Patch patch;
        patch.origin = from + first * radius;
        patch.edgeU = (second - first) * radius;
        patch.edgeV = axis;
        patch.bend = (second - first) * 0.5F;
        patch.tint = finish.tint;
        patch.surface = finish.surface;
        m_scene.patches.push_back(patch);
    }
}

void SceneBuilder::AddWall(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV,
                           const std::vector<Opening>& openings, const Finish& finish) {
    std::vector<float> cutsV{0, 1};
    for (const Opening& opening : openings) {
        cutsV.push_back(opening.v0);
        cutsV.push_back(opening.v1);
    }
    std::sort(cutsV.begin(), cutsV.end());
    for (size_t row = 0; row + 1 < cutsV.size(); ++row) {
        const float low = cutsV[row];
        const float high = cutsV[row + 1];
        if (high - low < 1e-4F) {
            continue;
        }
        const float middle = (low + high) / 2;
        std::vector<Opening> inRow;
        std::copy_if(openings.begin(), openings.end(), std::back_inserter(inRow),
                     [&](const Opening& o) { return o.v0 < middle && middle < o.v1; });
        std::sort(inRow.begin(), inRow.end(),
                  [](const Opening& a, const Opening& b) { return a.u0 < b.u0; });
        float from = 0;
        inRow.push_back({1, low, 1, high});
        for (const Opening& opening : inRow) {
            if (opening.u0 - from > 1e-4F) {
                AddPatch(origin + edgeU * from + edgeV * low, edgeU * (opening.u0 - from),
                         edgeV * (high - low), finish);
            }
            from = opening.u1;
        }
    }
}

void SceneBuilder::AddDecal(const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV,
                            const QImage& picture, const Finish& finish) {
    AddPatch(origin, edgeU, edgeV, finish);
    m_scene.patches.back().decal = static_cast<int>(m_scene.decals.size());
    m_scene.decals.push_back(picture.convertToFormat(QImage::Format_ARGB32));
}

} // namespace sample
