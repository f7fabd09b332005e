#include "sample/scenes/SceneKinds.h"
#include "sample/scenes/SiteProps.h"

namespace sample {

Scene BuildGarage(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float pitch = dice.Between(5.4F, 8.4F);
    const float height = dice.Between(3.4F, 4.4F);
    const float reach = 45;
    const Finish concrete{Surface::Concrete, {1.05F, 1.05F, 1.05F}};
    builder.AddPatch({-30, -4, 0}, {60, 0, 0}, {0, reach + 4, 0}, {Surface::Slab, {1, 1, 1}});
    builder.AddPatch({-30, -4, height}, {60, 0, 0}, {0, reach + 4, 0}, concrete);
    builder.AddPatch({-30, reach, 0}, {60, 0, 0}, {0, 0, height}, concrete);
    builder.AddPatch({-30, -4, 0}, {0, reach + 4, 0}, {0, 0, height}, concrete);
    builder.AddPatch({30, -4, 0}, {0, reach + 4, 0}, {0, 0, height}, concrete);
    const float side = dice.Between(0.25F, 0.4F);
    const bool painted = dice.Chance(0.5F);
    for (const float y : Steps(pitch * 0.8F, reach, pitch)) {
        builder.AddBox({-30, y - 0.2F, height - 0.55F}, {30, y + 0.2F, height}, concrete);
        for (const float x : Steps(-3.5F * pitch, 4 * pitch, pitch)) {
            builder.AddBox({x - side, y - side, 0}, {x + side, y + side, height}, concrete);
            if (painted) {
                const float out = side + 0.005F;
                builder.AddBox({x - out, y - out, 0.1F}, {x + out, y + out, 0.5F},
                               {Surface::Metal, kSafetyYellow});
                builder.AddBox({x - out, y - out, 0.6F}, {x + out, y + out, 0.85F},
                               {Surface::Metal, {0.06F, 0.06F, 0.06F}});
            }
        }
    }
    for (int run = 0; run < 4; ++run) {
        const float x = dice.Between(-6, 6);
        const float z = height - dice.Between(0.7F, 1.0F);
        const Vec3 paint = run % 2 == 0 ? kSafetyRed : Vec3{0.6F, 0.61F, 0.63F};
        builder.AddTube({x, -4, z}, {x, reach, z}, dice.Between(0.05F, 0.11F),
                        {Surface::Metal, paint}, 10);
    }
    const float duct = dice.Between(-8, 3);
    builder.AddBox({duct, -4, height - 1.15F}, {duct + 1.2F, reach, height - 0.7F},
                   {Surface::Metal, {0.62F, 0.64F, 0.66F}});
    ScatterProps(builder, {-5, 5, 0}, {4, 16, 0}, dice);

    Lighting& light = scene.lighting;
    light.skyLight = {0.07F, 0.075F, 0.08F};
    light.bounceLight = {0.13F, 0.125F, 0.12F};
    light.skyLow = {0.05F, 0.05F, 0.05F};
    const Vec3 lamp = dice.Chance(0.6F) ? Vec3{1.0F, 1.1F, 1.15F} : Vec3{1.3F, 1.0F, 0.65F};
    for (int row = 0; row < 3; ++row) {
        const float x = dice.Between(-3, 3);
        const float y = 4 + 9 * static_cast<float>(row);
        builder.AddBox({x - 0.7F, y, height - 0.68F}, {x + 0.7F, y + 0.1F, height - 0.62F},
                       {Surface::Glow, {2.4F, 2.5F, 2.5F}});
        light.lamps.push_back({{x, y, height - 0.9F}, lamp, 3.6F});
    }
    light.lamps.push_back({{0.1F, -0.1F, 1.7F}, {0.4F, 0.4F, 0.4F}, 3.0F});
    light.haze = 0.004F;
    light.exposure = dice.Between(1.5F, 2.1F);
    scene.camera.eye = {dice.Between(-1.5F, 1.5F), 0, dice.Between(1.4F, 1.75F)};
    scene.camera.yaw = dice.Between(-22, 22);
    scene.camera.pitch = dice.Between(-5, 5);
    scene.camera.view = dice.Between(58, 72);
    return scene;
}

namespace {

void AddPump(SceneBuilder& builder, const Vec3& at, const Vec3& paint, float top) {
    const Finish body{Surface::Metal, paint};
    const Finish steel{Surface::Metal, {0.45F, 0.46F, 0.47F}};
    builder.AddBox(at, at + Vec3{0.9F, 0.7F, 0.25F}, {Surface::Concrete, {1, 1, 1}});
    builder.AddTube(at + Vec3{0.45F, 0.35F, 0.25F}, at + Vec3{0.45F, 0.35F, 0.55F}, 0.26F, body,
                    16);
    builder.AddTube(at + Vec3{0.45F, 0.35F, 0.55F}, at + Vec3{0.45F, 0.35F, 1.15F}, 0.2F, body, 16);
    builder.AddBox(at + Vec3{0.25F, 0.15F, 1.15F}, at + Vec3{0.65F, 0.55F, 1.2F}, steel);
    builder.AddTube(at + Vec3{0.45F, 0.55F, 0.4F}, at + Vec3{0.45F, 1.3F, 0.4F}, 0.09F, body, 12);
    builder.AddTube(at + Vec3{0.45F, 1.3F, 0.4F}, at + Vec3{0.45F, 1.3F, top}, 0.09F, body, 12);
    for (const float z : {0.9F, 1.6F}) {
        const Vec3 flange = at + Vec3{0.45F, 1.3F, z};
        builder.AddTube(flange, flange + Vec3{0, 0, 0.05F}, 0.15F, steel, 12);
    }
    const Vec3 wheel = at + Vec3{0.45F, 1.12F, 1.25F};
    builder.AddTube(wheel, wheel + Vec3{0, 0.03F, 0}, 0.14F, {Surface::Metal, kSafetyRed}, 12);
}

} // namespace

Scene BuildPipes(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float depth = dice.Between(4.5F, 7);
    const float height = dice.Between(3.2F, 4.2F);
    const Finish wall{Surface::Plaster, {0.92F, 0.92F, 0.9F}};
    const bool tiled = dice.Chance(0.5F);
    builder.AddPatch({-8, -2, 0}, {16, 0, 0}, {0, depth + 2, 0},
                     tiled ? Finish{Surface::Tile, {0.75F, 0.72F, 0.66F}}
                           : Finish{Surface::Slab, {0.7F, 0.95F, 0.8F}});
    builder.AddPatch({-8, -2, height}, {16, 0, 0}, {0, depth + 2, 0},
                     {Surface::Concrete, {1, 1, 1}});
    builder.AddPatch({-8, depth, 0}, {16, 0, 0}, {0, 0, height}, wall);
    builder.AddPatch({-5, -2, 0}, {0, depth + 2, 0}, {0, 0, height}, wall);
    builder.AddPatch({5, -2, 0}, {0, depth + 2, 0}, {0, 0, height}, wall);
    const Vec3 colors[] = {kSafetyRed, {0.05F, 0.32F, 0.16F}, kSiteBlue, {0.5F, 0.52F, 0.54F}};
    const Vec3 paint = colors[dice.Pick(4)];
    const Vec3 second = colors[dice.Pick(4)];
    const float header = height - dice.Between(0.5F, 0.9F);
    const float first = dice.Between(-3.6F, -2.6F);
    const float gap = dice.Between(1.3F, 1.9F);
    for (const float x : Steps(first, 3.4F, gap)) {
        AddPump(builder, {x, depth - 2.1F, 0}, paint, header);
    }
    builder.AddTube({-5, depth - 0.8F, header}, {5, depth - 0.8F, header}, 0.14F,
                    {Surface::Metal, paint}, 16);
    for (int run = 0; run < 3; ++run) {
        const float z = height - 0.3F - 0.28F * static_cast<float>(run);
        builder.AddTube({-5, depth - 0.25F, z}, {5, depth - 0.25F, z}, dice.Between(0.04F, 0.1F),
                        {Surface::Metal, run == 1 ? second : Vec3{0.6F, 0.6F, 0.6F}}, 12);
    }
    const float cabinet = dice.Between(-4.6F, -4);
    builder.AddBox({cabinet, 1.5F, 0.1F}, {cabinet + 0.5F, 3.4F, 2.1F},
                   {Surface::Metal, {0.62F, 0.62F, 0.58F}});
    const float tank = dice.Between(3.6F, 4.2F);
    builder.AddTube({tank, 2.5F, 0}, {tank, 2.5F, 2.0F}, 0.6F, {Surface::Metal, second}, 24);

    Lighting& light = scene.lighting;
    light.skyLight = {0.16F, 0.165F, 0.17F};
    light.bounceLight = {0.24F, 0.23F, 0.22F};
    const Vec3 lamp = dice.Chance(0.7F) ? Vec3{1.05F, 1.1F, 1.1F} : Vec3{1.2F, 1.05F, 0.8F};
    light.lamps.push_back({{dice.Between(-2, 2), depth * 0.4F, height - 0.2F}, lamp, 3});
    light.lamps.push_back({{dice.Between(-1, 1), 0, height - 0.3F}, lamp * 0.7F, 3});
    light.exposure = dice.Between(0.95F, 1.3F);
    scene.camera.eye = {dice.Between(-1.8F, 1.8F), dice.Between(-0.8F, 0.4F), 1.6F};
    scene.camera.yaw = dice.Between(-22, 22);
    scene.camera.pitch = dice.Between(-6, 4);
    scene.camera.view = dice.Between(60, 74);
    return scene;
}

Scene BuildStairs(Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const float width = dice.Between(1.2F, 1.6F);
    const float height = 6.4F;
    const Finish wall{dice.Chance(0.5F) ? Surface::Plaster : Surface::Concrete, {1, 1, 1}};
    const Finish step{Surface::Slab, {1.15F, 1.15F, 1.15F}};
    builder.AddPatch({-0.2F, -2, 0}, {2 * width + 0.3F, 0, 0}, {0, 3, 0}, step);
    builder.AddPatch({-0.2F, -2, -0.5F}, {0, 9, 0}, {0, 0, height}, wall);
    builder.AddPatch({2 * width + 0.1F, -2, -0.5F}, {0, 9, 0}, {0, 0, height}, wall);
    const float rise = 0.165F;
    const float tread = 0.28F;
    const int steps = 10;
    for (int index = 0; index < steps; ++index) {
        const float y = 1 + tread * static_cast<float>(index);
        const float z = rise * static_cast<float>(index + 1);
        builder.AddBox({-0.2F, y, z - rise - 0.25F}, {width - 0.05F, y + tread, z}, step);
        const float upZ = rise * static_cast<float>(2 * steps - index);
        builder.AddBox({width + 0.1F, y, upZ - rise - 0.2F}, {2 * width + 0.1F, y + tread, upZ},
                       step);
    }
    const float landing = rise * steps;
    const float endY = 1 + tread * steps;
    builder.AddBox({-0.2F, endY, landing - 0.15F}, {2 * width + 0.1F, endY + 1.4F, landing}, step);
    builder.AddWall({-0.2F, endY + 1.4F, -0.5F}, {2 * width + 0.3F, 0, 0}, {0, 0, height},
                    {{0.3F, 0.44F, 0.75F, 0.66F}}, wall);
    builder.AddPatch({-0.2F, -2, height - 0.5F}, {2 * width + 0.3F, 0, 0}, {0, 9, 0},
                     {Surface::Concrete, {1, 1, 1}});
    const Finish rail{Surface::Metal, dice.Chance(0.5F) ? kSafetyYellow : kTubeGrey};
    for (const float z : {0.55F, 1.05F}) {
        builder.AddTube({width - 0.1F, 1, rise + z}, {width - 0.1F, endY, landing + z}, 0.024F,
                        rail);
    }
    for (int index = 0; index < steps; index += 3) {
        const float y = 1.1F + tread * static_cast<float>(index);
        const float z = rise * static_cast<float>(index + 1);
        builder.AddTube({width - 0.1F, y, z}, {width - 0.1F, y, z + 1.1F}, 0.022F, rail);
    }
    Lighting& light = scene.lighting;
    light = Daylight(dice, {0.3F, 1, 0.5F});
    const Vec3 day = BalancedForInside(light.skyLight);
    light.skyLight = day * 0.10F;
    light.bounceLight = day * 0.15F;
    light.sunColor = {};
    light.lamps.push_back({{width, endY + 1.2F, landing + 1.4F}, day * 1.5F, 2.2F});
    light.lamps.push_back({{width, 0, 2.6F}, day * dice.Between(0.3F, 0.7F), 2.2F});
    light.skyLow = light.skyLow * 2;
    light.skyHigh = light.skyHigh * 2;
    light.exposure = dice.Between(1.2F, 1.7F);
    scene.camera.eye = {width * dice.Between(0.4F, 0.9F), dice.Between(-0.8F, 0), 1.55F};
    scene.camera.yaw = dice.Between(-6, 16);
    scene.camera.pitch = dice.Between(-4, 8);
    scene.camera.view = dice.Between(66, 78);
    return scene;
}

} // namespace sample
