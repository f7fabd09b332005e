// The views of a building site that the program can draw.
#pragma once

#include "sample/Dice.h"
#include "sample/render/Scene.h"

#include <QtGlobal>

#include <array>

namespace sample {

enum class SceneKind : quint8 {
    Room,     ///< raw room with windows
    Corridor, ///< with pipes and trays below the ceiling
    Garage,   ///< basement with rows of columns
    Facade,   ///< scaffold and nets before a wall
    Rebar,    ///< mats on formwork
    Frame,    ///< concrete frame and tower crane
    Crack,    ///< close view of a wall, as the two below
    Leak,
    Honeycomb,
    Stairs,
    Pit,  ///< excavation with piles and struts
    Pipes ///< pump room
};

inline constexpr std::array kAllSceneKinds{
    SceneKind::Room,  SceneKind::Corridor, SceneKind::Garage,    SceneKind::Facade,
    SceneKind::Rebar, SceneKind::Frame,    SceneKind::Crack,     SceneKind::Stairs,
    SceneKind::Leak,  SceneKind::Pit,      SceneKind::Honeycomb, SceneKind::Pipes};

/// A scene of the kind; sizes, light, material and viewpoint come from the dice.
[[nodiscard]] Scene BuildScene(SceneKind kind, Dice& dice);

[[nodiscard]] Scene BuildRoom(Dice& dice);
[[nodiscard]] Scene BuildCorridor(Dice& dice);
[[nodiscard]] Scene BuildGarage(Dice& dice);
[[nodiscard]] Scene BuildFacade(Dice& dice);
[[nodiscard]] Scene BuildRebar(Dice& dice);
[[nodiscard]] Scene BuildFrame(Dice& dice);
/// @param kind  Crack, Leak or Honeycomb.
[[nodiscard]] Scene BuildDefect(SceneKind kind, Dice& dice);
[[nodiscard]] Scene BuildStairs(Dice& dice);
[[nodiscard]] Scene BuildPit(Dice& dice);
[[nodiscard]] Scene BuildPipes(Dice& dice);

} // namespace sample
