// Three floats with the arithmetic that the renderer needs.
#pragma once

#include <cmath>

namespace sample {

/// A point, a direction or a linear colour. World: x right, y into the scene, z up, metres.
struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;
};

[[nodiscard]] inline Vec3 operator+(const Vec3& a, const Vec3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] inline Vec3 operator-(const Vec3& a, const Vec3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
[[nodiscard]] inline Vec3 operator*(const Vec3& a, float f) {
    return {a.x * f, a.y * f, a.z * f};
}
/// Component by component: light times surface colour.
[[nodiscard]] inline Vec3 operator*(const Vec3& a, const Vec3& b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
[[nodiscard]] inline float Dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
[[nodiscard]] inline Vec3 Cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
[[nodiscard]] inline float Length(const Vec3& a) {
    return std::sqrt(Dot(a, a));
}
/// The zero vector stays what it is.
[[nodiscard]] inline Vec3 Normalized(const Vec3& a) {
    const float length = Length(a);
    return length > 0 ? a * (1.0F / length) : a;
}
[[nodiscard]] inline Vec3 Mix(const Vec3& a, const Vec3& b, float t) {
    return a + (b - a) * t;
}

} // namespace sample
