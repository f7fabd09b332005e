#include "sample/scenes/SceneKinds.h"
#include "sample/scenes/SiteProps.h"

#include <vector>

namespace sample {

namespace {

/// A wall of windows in the plane y = at.y.
void AddWindowWall(SceneBuilder& builder, const Vec3& at, int columns, int floors,
                   const Finish& wall, Dice& dice) {
    constexpr float kColumn = 3.6F;
    constexpr float kFloor = 3.0F;
    const float width = kColumn * static_cast<float>(columns);
    const float height = kFloor * static_cast<float>(floors);
    std::vector<Opening> openings;
    for (int floor = 0; floor < floors; ++floor) {
        for (int column = 0; column < columns; ++column) {
            const float x = (static_cast<float>(column) * kColumn + 0.9F) / width;
            const float z = (static_cast<float>(floor) * kFloor + 0.9F) / height;
            openings.push_back({x, z, x + 1.8F / width, z + 1.6F / height});
        }
    }
    builder.AddWall(at, {width, 0, 0}, {0, 0, height}, openings, wall);
    for (const Opening& o : openings) {
        const Vec3 low = at + Vec3{width * o.u0, 0.18F, height * o.v0};
        const float tone = dice.Between(0.7F, 1.5F);
        builder.AddPatch(low, {1.8F, 0, 0}, {0, 0, 1.6F},
                         {Surface::Glass, Vec3{0.8F, 0.95F, 1.15F} * tone});
        builder.AddBox(low + Vec3{0.87F, -0.04F, 0}, low + Vec3{0.93F, 0.0F, 1.6F},
                       {Surface::Metal, {0.5F, 0.5F, 0.5F}});
        builder.AddPatch(low + Vec3{0, -0.18F, 0}, {1.8F, 0, 0}, {0, 0.18F, 0}, wall);
        builder.AddPatch(low + Vec3{0, -0.18F, 1.6F}, {1.8F, 0, 0}, {0, 0.18F, 0}, wall);
        builder.AddPatch(low + Vec3{0, -0.18F, 0}, {0, 0.18F, 0}, {0, 0, 1.6F}, wall);
        builder.AddPatch(low + Vec3{1.8F, -0.18F, 0}, {0, 0.18F, 0}, {0, 0, 1.6F}, wall);
    }
    for (int floor = 1; floor <= floors; ++floor) {
        const float z = at.z + kFloor * static_cast<float>(floor);
        builder.AddBox({at.x, at.y - 0.06F, z - 0.12F}, {at.x + width, at.y, z + 0.12F},
                       {Surface::Concrete, {1.1F, 1.1F, 1.1F}});
    }
}

} // namespace

Scene BuildFacade(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float distance = dice.Between(8, 15);
    const Surface surfaces[] = {Surface::Block, Surface::Brick, Surface::Plaster,
                                Surface::Concrete};
    const float tone = dice.Between(0.85F, 1.05F);
    const Finish wall{surfaces[dice.Pick(4)], {tone, tone * 0.98F, tone * 0.94F}};
    const float left = -dice.Between(14, 20);
    const int columns = 10 + dice.Pick(3);
    builder.AddPatch({-60, -3, 0}, {120, 0, 0}, {0, 90, 0}, {Surface::Soil, {1.2F, 1.2F, 1.2F}});
    AddWindowWall(builder, {left, distance, 0}, columns, 6 + dice.Pick(4), wall, dice);
    const int bays = 14 + dice.Pick(8);
    const int lifts = 6 + dice.Pick(5);
    const Vec3 corner{left + dice.Between(-1, 6), distance - 1.5F, 0};
    AddScaffold(builder, corner, bays, lifts, dice.Chance(0.5F) ? kTubeYellow : kTubeGrey);
    const int netFrom = dice.Pick(lifts + 1);
    for (int lift = netFrom; lift < lifts; ++lift) {
        for (int bay = 0; bay + 2 <= bays; bay += 2) {
            if (dice.Chance(0.18F)) {
                continue;
            }
            builder.AddPatch(corner + Vec3{1.5F * static_cast<float>(bay), -0.08F,
                                           1.8F * static_cast<float>(lift)},
                             {2.98F, 0, 0}, {0, 0, 1.79F},
                             {Surface::Net, kNetGreen * dice.Between(0.9F, 1.2F)});
        }
    }
    ScatterProps(builder, {-5, 3, 0}, {5, distance - 3, 0}, dice);
    for (const float x : Steps(-16, 16, 2)) {
        builder.AddBox(
            {x, distance - 2.6F, 0}, {x + 1.9F, distance - 2.55F, 1.1F},
            {Surface::Metal, static_cast<int>(x) % 4 == 0 ? kSafetyRed : Vec3{0.7F, 0.7F, 0.7F}});
    }
    scene.lighting = Daylight(
        dice, {dice.Between(-0.8F, 0.8F), dice.Between(-0.8F, -0.3F), dice.Between(0.5F, 1)});
    scene.camera.eye = {dice.Between(-3, 3), 0, 1.6F};
    scene.camera.yaw = dice.Between(-30, 30);
    scene.camera.pitch = dice.Between(4, 20);
    scene.camera.roll = dice.Between(-1.5F, 1.5F);
    scene.camera.view = dice.Between(58, 74);
    return scene;
}

namespace {

void AddMat(SceneBuilder& builder, float z, float pitch, float radius, float extent) {
    const Finish steel{Surface::Rust, {1, 1, 1}};
    const auto count = static_cast<int>(extent / pitch);
    for (int bar = 0; bar < count; ++bar) {
        const float at = pitch * static_cast<float>(bar);
        builder.AddTube({at - extent / 2, 0, z}, {at - extent / 2, extent, z}, radius, steel, 5);
        builder.AddTube({-extent / 2, at, z + 2 * radius}, {extent / 2, at, z + 2 * radius}, radius,
                        steel, 5);
    }
}

void AddStarterBars(SceneBuilder& builder, const Vec3& at, float height, Dice& dice) {
    const Finish steel{Surface::Rust, {1.1F, 1, 0.95F}};
    for (int bar = 0; bar < 12; ++bar) {
        const int side = bar / 3;
        const float step = 0.18F * static_cast<float>(bar % 3);
        const Vec3 offsets[] = {
            {step, 0, 0}, {0.54F, step, 0}, {0.54F - step, 0.54F, 0}, {0, 0.54F - step, 0}};
        const Vec3 foot = at + offsets[side];
        const Vec3 lean{dice.Between(-0.04F, 0.04F), dice.Between(-0.04F, 0.04F), height};
        builder.AddTube(foot, foot + lean, 0.013F, steel, 6);
    }
    for (const float z : Steps(0.12F, height * 0.6F, 0.15F)) {
        const Vec3 low = at + Vec3{-0.015F, -0.015F, z};
        const float side = 0.57F;
        const Vec3 ring[] = {low, low + Vec3{side, 0, 0}, low + Vec3{side, side, 0},
                             low + Vec3{0, side, 0}};
        for (int edge = 0; edge < 4; ++edge) {
            builder.AddTube(ring[edge], ring[(edge + 1) % 4], 0.005F, steel, 4);
        }
    }
}

} // namespace

Scene BuildRebar(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float extent = 9;
    builder.AddPatch({-12, -2, 0}, {24, 0, 0}, {0, 16, 0}, {Surface::Plywood, {1, 1, 1}});
    const float pitch = dice.Between(0.14F, 0.22F);
    const float radius = dice.Between(0.005F, 0.009F);
    AddMat(builder, 0.03F, pitch, radius, extent);
    if (dice.Chance(0.7F)) {
        AddMat(builder, 0.13F, pitch, radius, extent);
    }
    for (const float y : Steps(0.5F, extent, 0.9F)) {
        for (const float x : Steps(-4, 4.5F, 0.9F)) {
            builder.AddBox({x, y, 0}, {x + 0.04F, y + 0.04F, 0.03F},
                           {Surface::Plaster, {0.8F, 0.8F, 0.78F}});
        }
    }
    for (const float x : Steps(-6, 7, dice.Between(2.6F, 4))) {
        const Vec3 foot{x, dice.Between(3, 8), 0};
        AddStarterBars(builder, foot, dice.Between(1.0F, 1.6F), dice);
    }
    builder.AddBox({-12, extent + 0.4F, 0}, {12, extent + 0.5F, 0.35F},
                   {Surface::Plywood, {1.1F, 1.1F, 1.1F}});
    for (const float x : Steps(-12, 12, 1.6F)) {
        builder.AddTube({x, extent + 1.2F, -1}, {x, extent + 1.2F, 1.6F}, 0.024F,
                        {Surface::Metal, kTubeYellow});
    }
    builder.AddTube({-12, extent + 1.2F, 1.2F}, {12, extent + 1.2F, 1.2F}, 0.024F,
                    {Surface::Metal, kTubeYellow});
    builder.AddPatch({-12, extent + 1.25F, -1}, {24, 0, 0}, {0, 0, 2.2F},
                     {Surface::Net, kNetGreen});
    const float tape = dice.Between(-0.6F, 0.4F);
    if (dice.Chance(0.6F)) {
        builder.AddBox({tape, 1.9F, 0.16F}, {tape + 1.0F, 1.925F, 0.162F},
                       {Surface::Metal, {0.9F, 0.75F, 0.05F}});
        builder.AddBox({tape - 0.07F, 1.87F, 0.15F}, {tape, 1.95F, 0.22F},
                       {Surface::Metal, {0.1F, 0.1F, 0.1F}});
    }
    for (int tower = 0; tower < 3; ++tower) {
        const float x = dice.Between(-50, 45);
        const float width = dice.Between(10, 18);
        builder.AddBox({x, 90, -30}, {x + width, 104, dice.Between(8, 38)},
                       {Surface::Tower, {0.9F, 0.92F, 0.95F}});
    }
    scene.lighting = Daylight(
        dice, {dice.Between(-0.9F, 0.9F), dice.Between(-0.6F, 0.4F), dice.Between(0.6F, 1)});
    scene.camera.eye = {dice.Between(-1, 1), 0.2F, dice.Between(1.3F, 1.7F)};
    scene.camera.yaw = dice.Between(-28, 28);
    scene.camera.pitch = dice.Between(-38, -12);
    scene.camera.roll = dice.Between(-3, 3);
    scene.camera.view = dice.Between(52, 70);
    return scene;
}

namespace {

void AddCrane(SceneBuilder& builder, const Vec3& foot, float height, float jib, const Vec3& paint) {
    const Finish steel{Surface::Metal, paint};
    const float side = 1.6F;
    for (int leg = 0; leg < 4; ++leg) {
        const Vec3 at = foot + Vec3{leg & 1 ? side : 0, leg & 2 ? side : 0, 0};
        builder.AddTube(at, at + Vec3{0, 0, height}, 0.09F, steel, 4);
    }
    for (const float z : Steps(0, height - 1.9F, 2)) {
        const Vec3 low = foot + Vec3{0, 0, z};
        builder.AddTube(low, low + Vec3{side, 0, 2}, 0.05F, steel, 4);
        builder.AddTube(low + Vec3{side, 0, 0}, low + Vec3{side, side, 2}, 0.05F, steel, 4);
        builder.AddTube(low + Vec3{0, side, 0}, low + Vec3{0, 0, 2}, 0.05F, steel, 4);
    }
    const Vec3 top = foot + Vec3{side / 2, side / 2, height};
    const Vec3 tip = top + Vec3{jib, jib * 0.35F, 0.5F};
    const Vec3 tail = top - Vec3{jib * 0.3F, jib * 0.1F, 0};
    for (const float rise : {0.0F, 1.3F}) {
        builder.AddTube(tail + Vec3{0, 0, rise}, tip + Vec3{0, 0, rise * 0.6F}, 0.08F, steel, 4);
    }
    for (const float t : Steps(0, 1, 0.04F)) {
        const Vec3 a = Mix(tail, tip, t);
        const Vec3 b = Mix(tail, tip, t + 0.02F) + Vec3{0, 0, 1.2F};
        const Vec3 c = Mix(tail, tip, t + 0.04F);
        builder.AddTube(a, b, 0.045F, steel, 4);
        builder.AddTube(b, c, 0.045F, steel, 4);
    }
    const Vec3 peak = top + Vec3{0, 0, 6};
    builder.AddTube(top, peak, 0.15F, steel, 4);
    builder.AddTube(peak, Mix(top, tip, 0.7F) + Vec3{0, 0, 1.2F}, 0.03F, steel, 4);
    builder.AddTube(peak, tail + Vec3{0, 0, 1}, 0.03F, steel, 4);
    builder.AddBox(tail - Vec3{0, 0.6F, 1.6F}, tail + Vec3{2.2F, 0.6F, 0},
                   {Surface::Concrete, {1, 1, 1}});
    const Vec3 hook = Mix(top, tip, 0.55F);
    builder.AddTube(hook, hook - Vec3{0, 0, height * 0.45F}, 0.025F,
                    {Surface::Metal, {0.1F, 0.1F, 0.1F}}, 4);
}

void AddFrameBuilding(SceneBuilder& builder, const Vec3& at, int columns, int floors, Dice& dice) {
    constexpr float kBay = 5;
    constexpr float kFloor = 3.3F;
    const float width = kBay * static_cast<float>(columns);
    const Finish concrete{Surface::Concrete, {1.15F, 1.15F, 1.15F}};
    for (int floor = 0; floor <= floors; ++floor) {
        const float z = at.z + kFloor * static_cast<float>(floor);
        builder.AddBox({at.x - 0.8F, at.y - 0.8F, z - 0.2F}, {at.x + width + 0.8F, at.y + 13, z},
                       concrete);
        const bool top = floor == floors;
        for (int column = 0; column <= columns; ++column) {
            for (const float y : Steps(at.y, at.y + 13, 6)) {
                const float x = at.x + kBay * static_cast<float>(column);
                if (top) {
                    AddStarterBars(builder, {x - 0.25F, y, z}, 1.4F, dice);
                } else {
                    builder.AddBox({x - 0.3F, y - 0.3F, z}, {x + 0.3F, y + 0.3F, z + kFloor - 0.2F},
                                   concrete);
                }
            }
        }
        if (!top && floor + 2 < floors && dice.Chance(0.7F)) {
            const int from = dice.Pick(columns);
            builder.AddPatch({at.x + kBay * static_cast<float>(from), at.y + 0.1F, z},
                             {kBay * static_cast<float>(1 + dice.Pick(columns - from)), 0, 0},
                             {0, 0, kFloor - 0.2F}, {Surface::Block, {1, 1, 1}});
        }
        if (floor + 2 >= floors) {
            builder.AddTube({at.x - 0.8F, at.y - 0.8F, z + 1.1F},
                            {at.x + width + 0.8F, at.y - 0.8F, z + 1.1F}, 0.03F,
                            {Surface::Metal, kSafetyRed}, 4);
        }
        if (floor + 2 == floors) {
            for (const float x : Steps(at.x, at.x + width, 1)) {
                builder.AddTube({x, at.y + 0.6F, z}, {x, at.y + 0.6F, z + kFloor}, 0.03F,
                                {Surface::Metal, kTubeYellow}, 4);
            }
        }
    }
}

} // namespace

Scene BuildFrame(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float distance = dice.Between(18, 32);
    builder.AddPatch({-120, -4, 0}, {240, 0, 0}, {0, 240, 0},
                     {Surface::Soil, {1.25F, 1.25F, 1.2F}});
    const int columns = 4 + dice.Pick(4);
    const float left = -dice.Between(6, 20);
    AddFrameBuilding(builder, {left, distance, 0}, columns, 3 + dice.Pick(6), dice);
    const Vec3 paint = dice.Chance(0.6F) ? kSafetyYellow : kSafetyRed;
    const Vec3 foot{left + dice.Between(-8, 40), distance + 16, 0};
    const float height = dice.Between(32, 46);
    AddCrane(builder, foot, height, dice.Between(26, 40), paint);
    for (const float x : Steps(-60, 60, 3)) {
        builder.AddPatch(
            {x, distance - 6, 0}, {2.96F, 0, 0}, {0, 0, 2},
            {Surface::Metal, dice.Chance(0.5F) ? Vec3{0.55F, 0.58F, 0.6F} : kSiteBlue * 1.3F});
    }
    for (int cabin = 0; cabin < 2; ++cabin) {
        const float x = dice.Between(-16, 10);
        const float y = distance - dice.Between(10, 13);
        builder.AddBox({x, y, 0}, {x + 6, y + 2.4F, 2.6F}, {Surface::Metal, {0.75F, 0.77F, 0.78F}});
        builder.AddBox({x - 0.02F, y - 0.02F, 2.3F}, {x + 6.02F, y + 2.42F, 2.62F},
                       {Surface::Metal, kSiteBlue});
        builder.AddPatch({x + 1, y - 0.02F, 0.9F}, {1.4F, 0, 0}, {0, 0, 1.1F},
                         {Surface::Glass, {1, 1.1F, 1.3F}});
    }
    for (int tower = 0; tower < 5; ++tower) {
        const float x = dice.Between(-110, 90);
        builder.AddBox({x, 150, 0}, {x + dice.Between(12, 22), 165, dice.Between(20, 75)},
                       {Surface::Tower, {0.8F, 0.84F, 0.9F}});
    }
    ScatterProps(builder, {-6, 5, 0}, {6, 11, 0}, dice);
    scene.lighting = Daylight(
        dice, {dice.Between(-0.9F, 0.9F), dice.Between(-0.9F, -0.2F), dice.Between(0.5F, 1)});
    scene.camera.eye = {dice.Between(-3, 3), 0, dice.Between(1.6F, 5)};
    scene.camera.yaw = dice.Between(-15, 15);
    scene.camera.pitch = dice.Between(3, 14);
    scene.camera.view = dice.Between(52, 70);
    return scene;
}

Scene BuildPit(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float bottom = -dice.Between(5, 9);
    const float width = dice.Between(18, 30);
    const float length = dice.Between(30, 50);
    const float half = width / 2;
    builder.AddPatch({-half, 2, bottom}, {width, 0, 0}, {0, length, 0}, {Surface::Soil, {1, 1, 1}});
    const Finish pile{Surface::Concrete, {0.95F, 0.93F, 0.9F}};
    for (const float y : Steps(2, length + 2, 1)) {
        builder.AddTube({-half, y, bottom}, {-half, y, 0}, 0.5F, pile, 10);
        builder.AddTube({half, y, bottom}, {half, y, 0}, 0.5F, pile, 10);
    }
    for (const float x : Steps(-half, half, 1)) {
        builder.AddTube({x, length + 2, bottom}, {x, length + 2, 0}, 0.5F, pile, 10);
    }
    for (const float side : {-half - 0.5F, half - 0.3F}) {
        builder.AddBox({side, 2, -0.8F}, {side + 0.8F, length + 2, 0.1F},
                       {Surface::Concrete, {1.1F, 1.1F, 1.1F}});
    }
    for (const float y : Steps(6, length, dice.Between(5, 7))) {
        builder.AddTube({-half, y, -0.4F}, {half, y, -0.4F}, 0.35F,
                        {Surface::Metal, kSiteBlue * 1.2F}, 14);
        builder.AddTube({-half, y, bottom * 0.55F}, {half, y, bottom * 0.55F}, 0.3F,
                        {Surface::Metal, kTubeGrey}, 14);
    }
    builder.AddPatch({-90, length + 2.4F, 0}, {180, 0, 0}, {0, 120, 0},
                     {Surface::Soil, {1.3F, 1.25F, 1.2F}});
    builder.AddPatch({-90, -3, 0}, {90 - half - 0.4F, 0, 0}, {0, length + 6, 0},
                     {Surface::Slab, {1.1F, 1.1F, 1.1F}});
    builder.AddPatch({half + 0.4F, -3, 0}, {90 - half, 0, 0}, {0, length + 6, 0},
                     {Surface::Slab, {1.1F, 1.1F, 1.1F}});
    builder.AddPatch({-half, -3, 0}, {width, 0, 0}, {0, 4, 0}, {Surface::Slab, {1.1F, 1.1F, 1.1F}});
    for (const float x : Steps(-half, half, 2)) {
        builder.AddTube({x, 1, 0}, {x, 1, 1.2F}, 0.024F, {Surface::Metal, kSafetyRed});
    }
    builder.AddTube({-half, 1, 1.15F}, {half, 1, 1.15F}, 0.024F, {Surface::Metal, kSafetyRed});
    builder.AddTube({-half, 1, 0.6F}, {half, 1, 0.6F}, 0.024F, {Surface::Metal, kSafetyYellow});
    for (int tower = 0; tower < 6; ++tower) {
        const float x = dice.Between(-80, 70);
        builder.AddBox({x, 110, 0}, {x + dice.Between(10, 20), 122, dice.Between(15, 60)},
                       {Surface::Tower, {0.85F, 0.87F, 0.9F}});
    }
    ScatterProps(builder, {-6, 8, bottom}, {6, 22, bottom}, dice);
    scene.lighting = Daylight(
        dice, {dice.Between(-0.7F, 0.7F), dice.Between(-0.5F, 0.3F), dice.Between(0.8F, 1.2F)});
    scene.camera.eye = {dice.Between(-0.3F, 0.3F) * width, -0.6F, dice.Between(1.7F, 3)};
    scene.camera.yaw = dice.Between(-20, 20);
    scene.camera.pitch = dice.Between(-20, -6);
    scene.camera.view = dice.Between(60, 76);
    return scene;
}

} // namespace sample
