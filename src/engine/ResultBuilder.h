#pragma once

#include "engine/SpeedSource.h"
#include "model/Event.h"

#include <memory>

namespace kestrabel {

/// What every calculator writes into a result in the same way: indexes, positions, times, names, altitudes
/// and the run of the stretch from one point of the track file to another.
std::unique_ptr<CResult> MakeResult(const CPerson& person, const CSeries& series, const CDivision& division,
                                    const CSpeedSource& source, int nStart, int nEnd);

/// The extremes over the points from `nFirst` to `nLast`, both included: lowest and highest speed (from the
/// largest double and 0), highest HDOP (from 0) and fewest satellites (from 100). Values that are not numbers
/// do not count.
void MeasureExtremes(CResult& result, const CSeries& series, const CSpeedSource& source, int nFirst,
                     int nLast);

} // namespace kestrabel
