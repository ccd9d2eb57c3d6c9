#pragma once

#include "geo/Position.h"

namespace kestrabel {

/// A flat-earth course from one position to another in radians, [0, 2π): good enough over the few metres
/// between two fixes, and used for nothing else. Equal positions give 3π/2.
double DirectionBetween(const CPosition& from, const CPosition& to);

/// True when two directions (radians, [0, 2π)) differ by more than the threshold. A difference equal to the
/// threshold is no change, nor is one of exactly π.
bool HeadingChanged(double dOne, double dOther, double dThreshold);

/// The angle in [0, π] radians between a direction (radians) and a wind direction in degrees.
double WindAngle(double dDirection, double dWindDegrees);

} // namespace kestrabel
