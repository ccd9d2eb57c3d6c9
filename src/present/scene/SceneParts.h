#pragma once

#include "present/scene/Scene.h"

namespace kestrabel {

// What the map and the speed graph have in common.

namespace ScenePen {
inline constexpr SScenePen Grid = {ESceneRole::Grid, {200, 200, 200}};
inline constexpr SScenePen Track = {ESceneRole::Track, {0, 0, 0}};
inline constexpr SScenePen Invalid = {ESceneRole::Invalid, {255, 0, 0}};
inline constexpr SScenePen Focus = {ESceneRole::Focus, {50, 50, 200}};
} // namespace ScenePen

inline constexpr double NodeRadius = 1.0; ///< pixels of the screen: a node is three wide

/// How much of the whole is shown, in the lower right corner of `area`.
SSceneText ZoomText(const SSceneArea& area, double dZoomFactor);

} // namespace kestrabel
