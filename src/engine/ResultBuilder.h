#pragma once

#include "engine/SpeedSource.h"
#include "model/Event.h"

#include <cmath>
#include <memory>

namespace kestrabel {

/// What every calculator writes into a result in the same way: indexes, positions, times, names, altitudes
/// and the run of the stretch from one point of the track file to another.
std::unique_ptr<CResult> MakeResult(const CPerson& person, const CSeries& series, const CDivision& division,
                                    const CSpeedSource& source, int nStart, int nEnd);

/// The speed of a stretch, km/h, never negative.
inline double PathSpeed(double dKilometres, double dSeconds)
{
    constexpr double dSecondsPerHour = 3600.0;
    return std::abs(dKilometres * dSecondsPerHour / dSeconds);
}

/// The same with the distance (along the path), the seconds and the speed between both points. A stretch
/// without duration has a speed that is not finite.
std::unique_ptr<CResult> MakePathResult(const CPerson& person, const CSeries& series,
                                        const CDivision& division, const CSpeedSource& source, int nStart,
                                        int nEnd);

/// The extremes over the points from `nFirst` to `nLast`, both included: lowest and highest of the speeds
/// given (from the largest double and 0), highest HDOP (from 0) and fewest satellites (from 100). Values that
/// are not numbers do not count.
void MeasureExtremes(CResult& result, const CSeries& series, double CTrackPoint::*pSpeed, int nFirst,
                     int nLast);

/// The uncertainty of a result along a path, and the claimed speed that is left when it is taken off: by
/// Doppler off the speed, by positions off the distance. `nValues` (at least 1) independent values of the
/// error `dError` (km/h or km, as the source tells) make 1.29 × dError / √nValues, 1.29 being the 90 % point
/// of the normal distribution. An error that is not positive estimates nothing.
void EstimatePathError(CResult& result, const CSpeedSource& source, double dError, int nValues);

} // namespace kestrabel
