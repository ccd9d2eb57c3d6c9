#pragma once

#include "present/scene/Scene.h"

namespace kestrabel {

namespace MapPen {
inline constexpr SScenePen Run = {ESceneRole::Run, {255, 50, 255}, 3};
inline constexpr SScenePen Gate = {ESceneRole::Gate, {200, 50, 50}};
} // namespace MapPen

inline constexpr SSceneColor WayPointNameColor = {200, 0, 200};

/// A speed as a fraction of the highest one shown, 0 to 1; one half while nobody moved (`dViewMaxSpeed` up to
/// 0.5). Both in display units.
double SpeedFraction(double dSpeed, double dViewMaxSpeed);

/// Speeds of one colour have one number, from 0 to LastSpeedStep. `nFile` counts the shown files from 0; from
/// the fifth on there is but one step.
inline constexpr int LastSpeedStep = 330;
int SpeedStep(int nFile, double dFraction);

/// The pen of such a fraction. Tracks of several files are told from each other by their mixes of colours;
/// those beyond the fourth are drawn plain.
SScenePen SpeedPen(int nFile, double dFraction);

} // namespace kestrabel
