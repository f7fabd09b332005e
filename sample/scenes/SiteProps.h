// Things that lie about on a site, and light that several scenes share.
#pragma once

#include "sample/Dice.h"
#include "sample/render/SceneBuilder.h"

#include <vector>

namespace sample {

inline constexpr Vec3 kSafetyYellow{0.62F, 0.41F, 0.07F};
inline constexpr Vec3 kSafetyRed{0.42F, 0.06F, 0.045F};
inline constexpr Vec3 kTubeYellow{0.50F, 0.37F, 0.10F};
inline constexpr Vec3 kTubeGrey{0.42F, 0.43F, 0.44F};
inline constexpr Vec3 kNetGreen{0.075F, 0.22F, 0.125F};
inline constexpr Vec3 kSiteBlue{0.09F, 0.19F, 0.36F};

/// from, from + pitch, ... below `to`; at most a thousand.
[[nodiscard]] std::vector<float> Steps(float from, float to, float pitch);

/// A stack of aerated blocks, about 1.2 m wide, with its corner at `at`.
void AddBlockStack(SceneBuilder& builder, const Vec3& at, Dice& dice);
/// Cement bags in layers.
void AddBags(SceneBuilder& builder, const Vec3& at, Dice& dice);
/// Timbers side by side along x or y.
void AddTimbers(SceneBuilder& builder, const Vec3& at, bool alongX, Dice& dice);
/// A ladder that leans towards +y.
void AddLadder(SceneBuilder& builder, const Vec3& foot, float height, Dice& dice);
/// A frame scaffold on wheels with a platform.
void AddTrestle(SceneBuilder& builder, const Vec3& at, const Vec3& paint);
/// Two or three of the things above at random places of the rectangle.
void ScatterProps(SceneBuilder& builder, const Vec3& low, const Vec3& high, Dice& dice);
/// Uprights, ledgers, braces and boards of a scaffold in the plane y = at.y; bays of 1.5 m by
/// 1.8 m.
void AddScaffold(SceneBuilder& builder, const Vec3& at, int bays, int lifts, const Vec3& paint);

/// Daylight for outdoor scenes: sunny, hazy or overcast.
[[nodiscard]] Lighting Daylight(Dice& dice, const Vec3& sunDirection);
/// What a camera's white balance leaves of the blue of the sky inside a building.
[[nodiscard]] Vec3 BalancedForInside(const Vec3& skyLight);

} // namespace sample
