#include "sample/render/Projection.h"

#include <array>
#include <numbers>

namespace sample {

namespace {

constexpr float kNearPlane = 0.08F;

[[nodiscard]] float Radians(float degrees) {
    return degrees * std::numbers::pi_v<float> / 180.0F;
}

using Corners = std::array<Vec3, 4>;

[[nodiscard]] Corners CornersOf(const Patch& patch) {
    return {patch.origin, patch.origin + patch.edgeU, patch.origin + patch.edgeU + patch.edgeV,
            patch.origin + patch.edgeV};
}

/// A polygon with what clipping one plane can add to four corners.
struct ClippedPolygon {
    std::array<Vec3, 5> points;
    size_t count = 0;
};

[[nodiscard]] ClippedPolygon ClipNear(const Corners& corners) {
    ClippedPolygon result;
    for (size_t index = 0; index < corners.size(); ++index) {
        const Vec3& a = corners[index];
        const Vec3& b = corners[(index + 1) % corners.size()];
        if (a.z >= kNearPlane) {
            result.points[result.count++] = a;
        }
        if ((a.z >= kNearPlane) != (b.z >= kNearPlane)) {
            result.points[result.count++] = Mix(a, b, (kNearPlane - a.z) / (b.z - a.z));
        }
    }
    return result;
}

} // namespace

ViewFrame MakeViewFrame(const Camera& camera, QSize size) {
    const float yaw = Radians(camera.yaw);
    const float pitch = Radians(camera.pitch);
    const float roll = Radians(camera.roll);
    ViewFrame frame;
    frame.eye = camera.eye;
    frame.forward = {std::sin(yaw) * std::cos(pitch), std::cos(yaw) * std::cos(pitch),
                     std::sin(pitch)};
    const Vec3 level{std::cos(yaw), -std::sin(yaw), 0};
    const Vec3 upright = Cross(level, frame.forward);
    frame.right = level * std::cos(roll) + upright * std::sin(roll);
    frame.up = upright * std::cos(roll) - level * std::sin(roll);
    const float longSide = static_cast<float>(std::max(size.width(), size.height()));
    frame.focal = longSide / 2 / std::tan(Radians(camera.view) / 2);
    frame.centreX = static_cast<float>(size.width()) / 2;
    frame.centreY = static_cast<float>(size.height()) / 2;
    return frame;
}

void ProjectScene(const Scene& scene, const ViewFrame& frame, DepthBuffer& target) {
    for (size_t index = 0; index < scene.patches.size(); ++index) {
        Corners corners = CornersOf(scene.patches[index]);
        for (Vec3& corner : corners) {
            const Vec3 d = corner - frame.eye;
            corner = {Dot(d, frame.right), Dot(d, frame.up), Dot(d, frame.forward)};
        }
        const ClippedPolygon polygon = ClipNear(corners);
        const Vec3 normal = Normalized(Cross(corners[1] - corners[0], corners[3] - corners[0]));
        const float distance = Dot(normal, corners[0]);
        if (polygon.count < 3 || std::fabs(distance) < 1e-5F) {
            continue;
        }
        std::array<ScreenPoint, 5> points;
        for (size_t corner = 0; corner < polygon.count; ++corner) {
            const Vec3& p = polygon.points[corner];
            points[corner] = {frame.centreX + frame.focal * p.x / p.z,
                              frame.centreY - frame.focal * p.y / p.z};
        }
        Nearness nearness;
        nearness.a = normal.x / (frame.focal * distance);
        nearness.b = -normal.y / (frame.focal * distance);
        nearness.c = normal.z / distance - nearness.a * frame.centreX - nearness.b * frame.centreY;
        target.Fill({points.data(), polygon.count}, nearness, static_cast<quint16>(index));
    }
}

SunFrame MakeSunFrame(const Scene& scene, const ViewFrame& view, float reach, int size) {
    SunFrame frame;
    frame.toSun = Normalized(scene.lighting.sunDirection);
    frame.right = Normalized(Cross(Vec3{0, 0, 1}, frame.toSun));
    frame.up = Cross(frame.toSun, frame.right);
    frame.scale = static_cast<float>(size) / (reach * 1.4F);
    const Vec3 middle = view.eye + view.forward * (reach / 2);
    const float half = static_cast<float>(size) / 2;
    frame.offsetX = half - Dot(middle, frame.right) * frame.scale;
    frame.offsetY = half - Dot(middle, frame.up) * frame.scale;
    return frame;
}

void ProjectSun(const Scene& scene, const SunFrame& frame, DepthBuffer& target) {
    for (size_t index = 0; index < scene.patches.size(); ++index) {
        std::array<Vec3, 4> corners = CornersOf(scene.patches[index]);
        std::array<ScreenPoint, 4> points;
        for (size_t corner = 0; corner < corners.size(); ++corner) {
            Vec3& p = corners[corner];
            p = {Dot(p, frame.right) * frame.scale + frame.offsetX,
                 Dot(p, frame.up) * frame.scale + frame.offsetY, Dot(p, frame.toSun)};
            points[corner] = {p.x, p.y};
        }
        const Vec3 normal = Normalized(Cross(corners[1] - corners[0], corners[3] - corners[0]));
        if (std::fabs(normal.z) < 1e-4F) {
            continue;
        }
        Nearness nearness;
        nearness.a = -normal.x / normal.z;
        nearness.b = -normal.y / normal.z;
        nearness.c = corners[0].z - nearness.a * corners[0].x - nearness.b * corners[0].y;
        target.Fill(points, nearness, static_cast<quint16>(index));
    }
}

} // namespace sample
