#pragma once

#include "model/ObjectArray.h"
#include "model/TrackPoint.h"

#include <cstdint>

namespace kestrabel {

/// Splits a track into runs as its points are shown to it one after another: a run ends where the speed falls
/// below the stop speed, with 0.5 km/h of hysteresis, or where the heading turns by more than the stop angle
/// over nine points with more than half of it over the last five. A stop within five points of the last
/// boundary starts no new run.
class CRunDetector
{
public:
    /// `dStopSpeed` in km/h, `dStopAngle` in radians; `pRun` is where the points keep the number that this
    /// detector gives out (`m_nRun` or `m_nDopplerRun`).
    CRunDetector(const CObjectArray<CTrackPoint>& points, double dStopSpeed, double dStopAngle,
                 std::int32_t CTrackPoint::*pRun)
        : m_points(points), m_dStopSpeed(dStopSpeed), m_dStopAngle(dStopAngle), m_pRun(pRun)
    {
    }

    /// Looks at a valid point of that speed (km/h). The points before it must carry their run numbers.
    void Examine(int nIndex, double dSpeed);

    /// The number of the current run.
    std::int32_t Run() const { return m_nRun; }

private:
    bool Turns(int nIndex) const;
    void StartRun(int nIndex);

    const CObjectArray<CTrackPoint>& m_points;
    double m_dStopSpeed;
    double m_dStopAngle;
    std::int32_t CTrackPoint::*m_pRun;
    bool m_bInRun = false;
    bool m_bNewRunPending = false;
    int m_nRunStart = 0;
    int m_nLastBoundary = 0;
    std::int32_t m_nRun = 0;
};

} // namespace kestrabel
