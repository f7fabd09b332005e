#include "sample/scenes/SceneKinds.h"
#include "sample/scenes/SiteProps.h"

#include <vector>

namespace sample {

namespace {

[[nodiscard]] Finish WallFinish(Dice& dice) {
    switch (dice.Pick(5)) {
    case 0:
        return {Surface::Brick, {1, 1, 1}};
    case 1:
        return {Surface::Block, {1, 1, 1}};
    case 2:
        return {Surface::Concrete, {1, 1, 1}};
    case 3:
        return {Surface::Plaster, {0.95F, 0.93F, 0.88F}};
    default:
        return {Surface::Plaster, {0.80F, 0.83F, 0.84F}};
    }
}

/// Windows of a wall that is `length` metres long and `height` high.
[[nodiscard]] std::vector<Opening> Windows(float length, float height, Dice& dice) {
    const int count = 1 + dice.Pick(3);
    const float width = std::min(1.8F, length / static_cast<float>(count) * 0.55F) / length;
    std::vector<Opening> openings;
    for (int index = 0; index < count; ++index) {
        const float middle = (static_cast<float>(index) + 0.5F) / static_cast<float>(count);
        const bool door = dice.Chance(0.15F);
        openings.push_back({middle - width / 2, door ? 0.0F : 0.9F / height, middle + width / 2,
                            std::min(0.92F, 2.4F / height)});
    }
    return openings;
}

/// Reveals give a wall with openings its thickness.
void AddReveals(SceneBuilder& builder, const Vec3& origin, const Vec3& edgeU, const Vec3& edgeV,
                const std::vector<Opening>& openings, const Vec3& inward, const Finish& finish) {
    for (const Opening& o : openings) {
        const Vec3 lowLeft = origin + edgeU * o.u0 + edgeV * o.v0;
        const Vec3 across = edgeU * (o.u1 - o.u0);
        const Vec3 upward = edgeV * (o.v1 - o.v0);
        builder.AddPatch(lowLeft, across, inward, finish);
        builder.AddPatch(lowLeft + upward, across, inward, finish);
        builder.AddPatch(lowLeft, inward, upward, finish);
        builder.AddPatch(lowLeft + across, inward, upward, finish);
    }
}

void AddDoorRoom(SceneBuilder& builder, float x, float y, float height, const Finish& finish) {
    // What one sees through the door of the left wall: a dim neighbouring room.
    builder.AddPatch({x - 3, y - 2, 0}, {0, 6, 0}, {0, 0, height}, finish);
    builder.AddPatch({x - 3, y - 2, -0.02F}, {3, 0, 0}, {0, 6, 0},
                     {Surface::Slab, {0.6F, 0.6F, 0.6F}});
    builder.AddPatch({x - 3, y + 4, 0}, {3, 0, 0}, {0, 0, height}, finish);
    builder.AddPatch({x - 3, y - 2, height}, {3, 0, 0}, {0, 6, 0}, {Surface::Concrete, {1, 1, 1}});
}

} // namespace

Scene BuildRoom(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float width = dice.Between(4, 8.5F);
    const float depth = dice.Between(5, 11);
    const float height = dice.Between(2.8F, 3.8F);
    const float left = -width / 2;
    const Finish wall = WallFinish(dice);
    // Floor and ceiling reach below the walls, so that no sun comes through the seams.
    builder.AddPatch({left - 0.4F, -1, 0}, {width + 0.8F, 0, 0}, {0, depth + 1.3F, 0},
                     {dice.Chance(0.2F) ? Surface::Tile : Surface::Slab, {1, 1, 1}});
    builder.AddPatch({left - 0.4F, -1, height}, {width + 0.8F, 0, 0}, {0, depth + 1.3F, 0},
                     {Surface::Concrete, {1.1F, 1.1F, 1.1F}});
    builder.AddPatch({left + width + 0.1F, -1, -0.3F}, {0, depth + 1.3F, 0}, {0, 0, height + 0.6F},
                     wall);
    builder.AddPatch({left, -1, 0}, {width, 0, 0}, {0, 0, height}, wall);
    builder.AddPatch({left + width, -1, 0}, {0, depth + 1, 0}, {0, 0, height}, wall);
    const Vec3 across{width, 0, 0};
    const Vec3 upward{0, 0, height};
    const std::vector<Opening> windows = Windows(width, height, dice);
    builder.AddWall({left, depth, 0}, across, upward, windows, wall);
    AddReveals(builder, {left, depth, 0}, across, upward, windows, {0, 0.24F, 0},
               {Surface::Concrete, {1, 1, 1}});
    const float door = dice.Between(0.35F, 0.6F);
    builder.AddWall({left, -1, 0}, {0, depth + 1, 0}, upward,
                    {{door, 0, door + 1.0F / (depth + 1), 2.15F / height}}, wall);
    AddDoorRoom(builder, left, door * (depth + 1) - 1, height, wall);
    const float firstBeam = dice.Between(1.5F, 3);
    for (const float y : Steps(firstBeam, depth, dice.Between(2.8F, 4))) {
        builder.AddBox({left, y, height - 0.45F}, {left + width, y + 0.25F, height},
                       {Surface::Concrete, {1, 1, 1}});
    }
    if (dice.Chance(0.5F)) {
        const float x = left + width - dice.Between(0.5F, 0.9F);
        builder.AddBox({x, depth - 0.7F, 0}, {left + width, depth, height},
                       {Surface::Concrete, {1, 1, 1}});
    }
    ScatterProps(builder, {left + 0.3F, depth * 0.4F, 0}, {-left - 1.6F, depth - 1.2F, 0}, dice);

    Lighting& light = scene.lighting;
    light = Daylight(dice, {dice.Between(-0.5F, 0.5F), dice.Between(0.7F, 1.1F), 0.75F});
    const Vec3 dayColor = BalancedForInside(light.skyLight);
    light.skyLight = dayColor * 0.10F;
    light.bounceLight = dayColor * 0.13F;
    for (const Opening& o : windows) {
        const Vec3 middle{left + width * (o.u0 + o.u1) / 2, depth - 0.1F,
                          height * (o.v0 + o.v1) / 2};
        light.lamps.push_back({middle, dayColor * 1.5F, 2.6F});
    }
    light.skyLow = light.skyLow * 2.2F; // the camera exposes for the room
    light.skyHigh = light.skyHigh * 2.2F;
    light.haze = 0.001F;
    light.exposure = dice.Between(1.1F, 1.7F);
    scene.camera.eye = {dice.Between(-0.25F, 0.25F) * width, 0.3F, dice.Between(1.4F, 1.7F)};
    scene.camera.yaw = dice.Between(-18, 18);
    scene.camera.pitch = dice.Between(-9, 3);
    scene.camera.view = dice.Between(62, 76);
    return scene;
}

namespace {

void AddCeilingServices(SceneBuilder& builder, float left, float right, float length, float height,
                        Dice& dice) {
    const float from = -2;
    float x = left + 0.25F;
    while (x < right - 0.3F) {
        const int what = dice.Pick(4);
        const float z = height - dice.Between(0.25F, 0.5F);
        if (what == 0) {
            builder.AddBox({x, from, z}, {x + 0.35F, length, z + 0.1F},
                           {Surface::Metal, {0.55F, 0.56F, 0.58F}});
            x += 0.5F;
        } else if (what == 1) {
            builder.AddBox({x, from, z - 0.1F}, {x + 0.55F, length, z + 0.2F},
                           {Surface::Metal, {0.62F, 0.64F, 0.66F}});
            x += 0.7F;
        } else {
            const float radius = dice.Between(0.04F, 0.09F);
            const Vec3 paint = what == 2 ? kSafetyRed : Vec3{0.62F, 0.63F, 0.64F};
            builder.AddTube({x, from, z}, {x, length, z}, radius, {Surface::Metal, paint}, 10);
            x += radius * 2 + 0.15F;
        }
    }
    for (const float y : Steps(0.8F, length, 2.4F)) {
        builder.AddBox({left + 0.15F, y, height - 0.62F},
                       {right - 0.15F, y + 0.05F, height - 0.57F},
                       {Surface::Metal, {0.4F, 0.41F, 0.42F}});
        for (const float hanger : {left + 0.2F, right - 0.2F}) {
            builder.AddTube({hanger, y, height - 0.6F}, {hanger, y, height}, 0.008F,
                            {Surface::Metal, {0.5F, 0.5F, 0.5F}}, 4);
        }
    }
}

} // namespace

Scene BuildCorridor(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float half = dice.Between(1.0F, 1.6F);
    const float length = dice.Between(16, 34);
    const float height = dice.Between(2.9F, 3.6F);
    const Finish wall = WallFinish(dice);
    const Surface floor = dice.Chance(0.35F) ? Surface::Tile : Surface::Slab;
    builder.AddPatch({-half, -2, 0}, {2 * half, 0, 0}, {0, length + 2, 0}, {floor, {1, 1, 1}});
    builder.AddPatch({-half, -2, height}, {2 * half, 0, 0}, {0, length + 2, 0},
                     {Surface::Concrete, {1, 1, 1}});
    const Vec3 upward{0, 0, height};
    const Vec3 along{0, length + 2, 0};
    for (const float side : {-half, half}) {
        std::vector<Opening> doors;
        const float firstDoor = dice.Between(3, 5);
        for (const float y : Steps(firstDoor, length - 1.2F, dice.Between(4, 7))) {
            doors.push_back({y / (length + 2), 0, (y + 1.0F) / (length + 2), 2.15F / height});
        }
        builder.AddWall({side, -2, 0}, along, upward, doors, wall);
        const Vec3 outward{side > 0 ? 0.22F : -0.22F, 0, 0};
        AddReveals(builder, {side, -2, 0}, along, upward, doors, outward,
                   {Surface::Plaster, {0.8F, 0.78F, 0.74F}});
        const float beyond = side + outward.x * 8;
        builder.AddPatch({beyond, -2, 0}, along, upward, {Surface::Block, {0.9F, 0.9F, 0.9F}});
        builder.AddPatch({side, -2, 0}, along, {beyond - side, 0, 0}, {Surface::Slab, {1, 1, 1}});
    }
    builder.AddWall({-half, length, 0}, {2 * half, 0, 0}, upward, {{0.25F, 0.3F, 0.75F, 0.75F}},
                    wall);
    AddCeilingServices(builder, -half, half, length, height, dice);
    ScatterProps(builder, {-half + 0.1F, 4, 0}, {half - 1.3F, length * 0.6F, 0}, dice);

    Lighting& light = scene.lighting;
    light.skyLight = {0.10F, 0.10F, 0.11F};
    light.bounceLight = {0.16F, 0.15F, 0.14F};
    light.skyLow = light.skyHigh = {1.6F, 1.65F, 1.7F};
    const Vec3 lamp = dice.Chance(0.5F) ? Vec3{1.5F, 1.35F, 1.1F} : Vec3{1.2F, 1.35F, 1.45F};
    light.lamps.push_back({{0, length - 0.3F, height * 0.5F}, lamp * 0.9F, 3});
    for (const float y : Steps(2, std::min(length, 17.0F), 5)) {
        builder.AddBox({-0.06F, y - 0.6F, height - 0.72F}, {0.06F, y + 0.6F, height - 0.68F},
                       {Surface::Glow, {2.6F, 2.6F, 2.5F}});
        light.lamps.push_back({{0, y, height - 0.85F}, lamp, 1.7F});
    }
    light.haze = 0.004F;
    light.exposure = dice.Between(1.2F, 1.7F);
    scene.camera.eye = {dice.Between(-0.4F, 0.4F), 0, dice.Between(1.4F, 1.7F)};
    scene.camera.yaw = dice.Between(-8, 8);
    scene.camera.pitch = dice.Between(-4, 7);
    scene.camera.view = dice.Between(60, 72);
    return scene;
}

} // namespace sample
