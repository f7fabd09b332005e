#include "sample/scenes/Decals.h"
#include "sample/scenes/SceneKinds.h"
#include "sample/scenes/SiteProps.h"

#include <QPainter>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

[[nodiscard]] QImage DamagePicture(SceneKind kind, Dice& dice) {
    const QSize size(1100, 1100);
    QImage picture;
    QString note;
    switch (kind) {
    case SceneKind::Crack:
        picture = DrawCrack(size, dice);
        note = u"裂缝 %1mm"_s.arg(0.2 + 0.1 * dice.Pick(9), 0, 'f', 1);
        break;
    case SceneKind::Leak:
        picture = DrawLeak(size, dice);
        note = u"渗水 %1号"_s.arg(1 + dice.Pick(30));
        break;
    default:
        picture = DrawHoneycomb(size, dice);
        note = u"蜂窝 剔凿"_s;
    }
    if (dice.Chance(0.7F)) {
        QPainter painter(&picture);
        painter.drawImage(0, 0, DrawPenMark(size, note, dice));
    }
    return picture;
}

void AddSurroundings(SceneBuilder& builder, const Finish& wall, Dice& dice) {
    const float corner = dice.Between(1.0F, 2.2F);
    builder.AddPatch({corner, -2, 0}, {0, 3.5F, 0}, {0, 0, 3.2F}, wall);
    builder.AddPatch({-4, -2, 0}, {4 + corner, 0, 0}, {0, 3.5F, 0}, {Surface::Slab, {1, 1, 1}});
    builder.AddPatch({-4, -2, 3.1F}, {4 + corner, 0, 0}, {0, 3.5F, 0},
                     {Surface::Concrete, {1, 1, 1}});
    if (dice.Chance(0.5F)) {
        const float x = dice.Between(-1.5F, -0.75F);
        builder.AddTube(
            {x, 1.4F, 0}, {x, 1.4F, 3.2F}, dice.Between(0.02F, 0.055F),
            {Surface::Metal, dice.Chance(0.5F) ? Vec3{0.75F, 0.75F, 0.74F} : kSafetyRed}, 14);
    }
    if (dice.Chance(0.5F)) {
        const float z = dice.Between(0.3F, 0.5F);
        builder.AddBox({0.55F, 1.44F, z}, {0.68F, 1.5F, z + 0.085F},
                       {Surface::Plaster, {0.95F, 0.95F, 0.93F}});
    }
}

} // namespace

Scene BuildDefect(SceneKind kind, Dice& dice) {
    Scene scene;
    SceneBuilder builder(scene);
    const Surface surfaces[] = {Surface::Concrete, Surface::Plaster, Surface::Concrete};
    const float tone = dice.Between(0.85F, 1.15F);
    const Finish wall{surfaces[dice.Pick(3)], {tone, tone * 0.99F, tone * 0.96F}};
    builder.AddPatch({-4, 1.5F, 0}, {8, 0, 0}, {0, 0, 3.2F}, wall);
    const float side = dice.Between(0.75F, 1.15F);
    const Vec3 low{dice.Between(-0.6F, -0.3F), 1.495F, dice.Between(0.8F, 1.2F)};
    builder.AddDecal(low, {side, 0, 0}, {0, 0, side}, DamagePicture(kind, dice), wall);
    AddSurroundings(builder, wall, dice);
    if (dice.Chance(0.5F)) {
        // A folding rule held against the wall.
        const float x = low.x - dice.Between(0.06F, 0.15F);
        builder.AddBox({x, 1.47F, low.z - 0.1F}, {x + 0.035F, 1.485F, low.z + 0.9F},
                       {Surface::Metal, {0.88F, 0.72F, 0.06F}});
        for (const float z : Steps(low.z - 0.08F, low.z + 0.88F, 0.05F)) {
            builder.AddBox({x, 1.466F, z}, {x + 0.016F, 1.469F, z + 0.006F},
                           {Surface::Metal, {0.04F, 0.04F, 0.04F}});
        }
    }
    Lighting& light = scene.lighting;
    light.skyLight = {0.3F, 0.31F, 0.33F};
    light.bounceLight = {0.32F, 0.30F, 0.28F};
    const Vec3 flash = dice.Chance(0.6F) ? Vec3{0.9F, 0.88F, 0.82F} : Vec3{0.25F, 0.25F, 0.25F};
    scene.camera.eye = {dice.Between(-0.5F, 0.4F), dice.Between(-0.1F, 0.5F),
                        low.z + side * dice.Between(0.3F, 0.7F)};
    light.lamps.push_back({scene.camera.eye + Vec3{0.04F, 0, 0.08F}, flash, 1.1F});
    light.lamps.push_back({{dice.Between(-3, 3), -1, 2.6F}, {0.8F, 0.82F, 0.85F}, 2.0F});
    light.exposure = dice.Between(0.85F, 1.15F);
    const float aimX = low.x + side / 2 - scene.camera.eye.x;
    scene.camera.yaw = aimX * 40 + dice.Between(-6, 6);
    scene.camera.pitch = dice.Between(-7, 7);
    scene.camera.roll = dice.Between(-4, 4);
    scene.camera.view = dice.Between(56, 68);
    return scene;
}

} // namespace sample
