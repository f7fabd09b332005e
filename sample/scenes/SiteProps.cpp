#include "sample/scenes/SiteProps.h"

#include <algorithm>
#include <cmath>

namespace sample {

std::vector<float> Steps(float from, float to, float pitch) {
    constexpr int kMost = 1000;
    const int count = std::clamp(static_cast<int>(std::ceil((to - from) / pitch)), 0, kMost);
    std::vector<float> steps;
    steps.reserve(static_cast<size_t>(count));
    for (int index = 0; index < count; ++index) {
        steps.push_back(from + pitch * static_cast<float>(index));
    }
    return steps;
}

void AddBlockStack(SceneBuilder& builder, const Vec3& at, Dice& dice) {
    const int layers = 2 + dice.Pick(4);
    const Finish face{Surface::Block, {1, 1, 1}};
    builder.AddBox(at, at + Vec3{1.2F, 1.0F, 0.12F}, {Surface::Wood, {1, 1, 1}});
    for (int layer = 0; layer < layers; ++layer) {
        const float z = at.z + 0.12F + 0.24F * static_cast<float>(layer);
        const float cut = layer + 1 == layers ? dice.Between(0.3F, 1.2F) : 1.2F;
        const Vec3 low{at.x + dice.Between(-0.03F, 0.03F), at.y, z};
        builder.AddBox(low, low + Vec3{cut, 1.0F, 0.235F}, face);
    }
}

void AddBags(SceneBuilder& builder, const Vec3& at, Dice& dice) {
    const int layers = 2 + dice.Pick(4);
    for (int layer = 0; layer < layers; ++layer) {
        for (int bag = 0; bag < 3; ++bag) {
            const Vec3 low{at.x + 0.42F * static_cast<float>(bag) + dice.Between(-0.04F, 0.04F),
                           at.y + dice.Between(-0.05F, 0.05F),
                           at.z + 0.13F * static_cast<float>(layer)};
            builder.AddBox(low, low + Vec3{0.4F, 0.62F, 0.125F},
                           {Surface::Plaster, {0.66F, 0.62F, 0.52F}});
        }
    }
}

void AddTimbers(SceneBuilder& builder, const Vec3& at, bool alongX, Dice& dice) {
    const int count = 6 + dice.Pick(8);
    for (int index = 0; index < count; ++index) {
        const float side = 0.11F * static_cast<float>(index % 6);
        const int layer = index / 6;
        const float rise = 0.09F * static_cast<float>(layer);
        const float length = dice.Between(2.2F, 3.6F);
        const float slide = dice.Between(-0.2F, 0.2F);
        const Vec3 low = at + (alongX ? Vec3{slide, side, rise} : Vec3{side, slide, rise});
        const Vec3 size = alongX ? Vec3{length, 0.1F, 0.08F} : Vec3{0.1F, length, 0.08F};
        const float tone = dice.Between(0.8F, 1.15F);
        builder.AddBox(low, low + size, {Surface::Wood, {tone, tone, tone}});
    }
}

void AddLadder(SceneBuilder& builder, const Vec3& foot, float height, Dice& dice) {
    const Finish finish =
        dice.Chance(0.5F) ? Finish{Surface::Wood, {1, 1, 1}} : Finish{Surface::Metal, kTubeGrey};
    const Vec3 lean{0, height * 0.27F, height};
    const Vec3 width{0.42F, 0, 0};
    builder.AddTube(foot, foot + lean, 0.025F, finish);
    builder.AddTube(foot + width, foot + width + lean, 0.025F, finish);
    for (const float z : Steps(0.3F, height, 0.3F)) {
        const Vec3 rung = foot + lean * (z / height);
        builder.AddTube(rung, rung + width, 0.016F, finish);
    }
}

void AddTrestle(SceneBuilder& builder, const Vec3& at, const Vec3& paint) {
    const Finish tube{Surface::Metal, paint};
    for (int corner = 0; corner < 4; ++corner) {
        const Vec3 foot = at + Vec3{corner & 1 ? 1.8F : 0, corner & 2 ? 1.0F : 0, 0};
        builder.AddTube(foot, foot + Vec3{0, 0, 2.4F}, 0.022F, tube);
    }
    for (const float z : {0.35F, 1.0F, 1.7F, 2.35F}) {
        const Vec3 level = at + Vec3{0, 0, z};
        builder.AddTube(level, level + Vec3{0, 1.0F, 0}, 0.018F, tube);
        builder.AddTube(level + Vec3{1.8F, 0, 0}, level + Vec3{1.8F, 1.0F, 0}, 0.018F, tube);
    }
    for (const float y : {0.0F, 1.0F}) {
        builder.AddTube(at + Vec3{0, y, 0.3F}, at + Vec3{1.8F, y, 1.6F}, 0.014F, tube);
        builder.AddTube(at + Vec3{1.8F, y, 0.3F}, at + Vec3{0, y, 1.6F}, 0.014F, tube);
    }
    builder.AddBox(at + Vec3{0, 0, 1.66F}, at + Vec3{1.8F, 1.0F, 1.71F},
                   {Surface::Wood, {1, 1, 1}});
}

void ScatterProps(SceneBuilder& builder, const Vec3& low, const Vec3& high, Dice& dice) {
    const int count = 2 + dice.Pick(3);
    for (int index = 0; index < count; ++index) {
        const Vec3 at{dice.Between(low.x, high.x), dice.Between(low.y, high.y), low.z};
        switch (dice.Pick(5)) {
        case 0:
            AddBlockStack(builder, at, dice);
            break;
        case 1:
            AddBags(builder, at, dice);
            break;
        case 2:
            AddTimbers(builder, at, dice.Chance(0.5F), dice);
            break;
        case 3:
            AddTrestle(builder, at, dice.Chance(0.5F) ? kTubeYellow : kSiteBlue);
            break;
        default:
            AddLadder(builder, at, dice.Between(2.0F, 2.7F), dice);
        }
    }
}

void AddScaffold(SceneBuilder& builder, const Vec3& at, int bays, int lifts, const Vec3& paint) {
    constexpr float kBay = 1.5F;
    constexpr float kLift = 1.8F;
    const Finish tube{Surface::Metal, paint};
    const float width = kBay * static_cast<float>(bays);
    const float height = kLift * static_cast<float>(lifts);
    for (const float depth : {0.0F, 0.9F}) {
        for (int bay = 0; bay <= bays; ++bay) {
            const Vec3 foot = at + Vec3{kBay * static_cast<float>(bay), depth, 0};
            builder.AddTube(foot, foot + Vec3{0, 0, height + 1}, 0.024F, tube, 5);
        }
        for (int lift = 1; lift <= lifts; ++lift) {
            const Vec3 level = at + Vec3{0, depth, kLift * static_cast<float>(lift)};
            builder.AddTube(level, level + Vec3{width, 0, 0}, 0.024F, tube, 5);
            builder.AddTube(level + Vec3{0, 0, 1}, level + Vec3{width, 0, 1}, 0.02F, tube, 4);
        }
    }
    for (int lift = 1; lift <= lifts; ++lift) {
        const Vec3 level = at + Vec3{0, 0.05F, kLift * static_cast<float>(lift) + 0.03F};
        builder.AddBox(level, level + Vec3{width, 0.8F, 0.05F}, {Surface::Wood, {1, 1, 1}});
        const Vec3 toe = level + Vec3{0, -0.06F, 0};
        builder.AddPatch(toe, {width, 0, 0}, {0, 0, 0.18F}, {Surface::Metal, kSafetyYellow});
    }
    for (int bay = 0; bay + 4 <= bays; bay += 5) {
        const Vec3 foot = at + Vec3{kBay * static_cast<float>(bay), -0.05F, 0};
        for (const float z : Steps(0, height + 1.1F - 5 * kLift, 5 * kLift)) {
            builder.AddTube(foot + Vec3{0, 0, z}, foot + Vec3{kBay * 4, 0, z + 5 * kLift}, 0.022F,
                            {Surface::Metal, kSafetyRed}, 4);
        }
    }
}

Lighting Daylight(Dice& dice, const Vec3& sunDirection) {
    Lighting light;
    light.sunDirection = sunDirection;
    const float overcast = dice.Unit();
    const float sun = std::max(0.0F, 1.5F - 1.9F * overcast);
    const float warm = dice.Between(0, 0.22F);
    light.sunColor = Vec3{1, 0.95F - warm * 0.4F, 0.88F - warm} * (2.3F * sun);
    light.skyLight = Mix(Vec3{0.62F, 0.74F, 0.95F}, Vec3{1.25F, 1.27F, 1.3F}, overcast);
    light.bounceLight = Mix(Vec3{0.30F, 0.29F, 0.27F}, Vec3{0.55F, 0.55F, 0.54F}, overcast);
    light.skyLow = Mix(Vec3{1.0F, 1.05F, 1.12F}, Vec3{1.35F, 1.37F, 1.4F}, overcast);
    light.skyHigh = Mix(Vec3{0.16F, 0.34F, 0.75F}, Vec3{0.95F, 0.98F, 1.05F}, overcast);
    light.clouds = overcast;
    light.haze = dice.Between(0.0005F, 0.005F);
    light.exposure = dice.Between(0.95F, 1.25F);
    return light;
}

Vec3 BalancedForInside(const Vec3& skyLight) {
    const float grey = (skyLight.x + skyLight.y + skyLight.z) / 3;
    return Mix(skyLight, {grey, grey, grey}, 0.72F);
}

} // namespace sample
