#pragma once

#include "simulator/SessionTruth.h"

#include <span>

namespace kestrabel {

/// The best mean speeds over a stretch of motion. `distances`: metres sailed at each fix, rising; `dStep`:
/// seconds from one fix to the next. Between two fixes the distance is taken as linear in time, so a window
/// may begin and end anywhere. Linear per window length.
SBestSpeeds FindBestSpeeds(std::span<const double> distances, double dStep);

} // namespace kestrabel
