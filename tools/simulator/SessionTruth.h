#pragma once

#include "model/Date.h"
#include "simulator/Receiver.h"
#include "simulator/RiderMotion.h"

#include <cstdint>
#include <optional>

namespace kestrabel {

/// The best true mean speeds of the planted run, km/h, over a time or a distance within it.
struct SBestSpeeds
{
    double dSeconds2 = 0.0;
    double dSeconds10 = 0.0;
    double dMetres100 = 0.0;
    double dMetres250 = 0.0;
    double dMetres500 = 0.0; ///< 0 when the run is shorter, as for the others
};

/// The fastest run of a session, as it truly was. No drop-out and no spike lies in it.
struct SPlantedRun
{
    std::int64_t nFirstFix = 0; ///< from 0, the cold start counted
    std::int64_t nLastFix = 0;
    DATE timeFirst;
    DATE timeLast;
    double dLength = 0.0; ///< metres from the first fix to the last
    SBestSpeeds best;
};

/// What was simulated.
struct STruth
{
    std::int64_t nFixes = 0; ///< written, the cold start included
    DATE timeFirst;
    DATE timeLast;
    double dDistance = 0.0;         ///< metres sailed, during drop-outs too
    double dFastestElsewhere = 0.0; ///< km/h, the highest true speed that is no part of the planted reach
    SMotionCounts motion;
    SFaultCounts faults;
    std::optional<SPlantedRun> planted; ///< none when the session ended before it was sailed
};

} // namespace kestrabel
