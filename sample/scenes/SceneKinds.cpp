#include "sample/scenes/SceneKinds.h"

namespace sample {

Scene BuildScene(SceneKind kind, Dice& dice) {
    switch (kind) {
    case SceneKind::Room:
        return BuildRoom(dice);
    case SceneKind::Corridor:
        return BuildCorridor(dice);
    case SceneKind::Garage:
        return BuildGarage(dice);
    case SceneKind::Facade:
        return BuildFacade(dice);
    case SceneKind::Rebar:
        return BuildRebar(dice);
    case SceneKind::Frame:
        return BuildFrame(dice);
    case SceneKind::Crack:
    case SceneKind::Leak:
    case SceneKind::Honeycomb:
        return BuildDefect(kind, dice);
    case SceneKind::Stairs:
        return BuildStairs(dice);
    case SceneKind::Pit:
        return BuildPit(dice);
    case SceneKind::Pipes:
        return BuildPipes(dice);
    }
    return BuildRoom(dice);
}

} // namespace sample
