#pragma once

#include "engine/Direction.h"
#include "geo/DistanceCalculator.h"
#include "geo/Rounding.h"
#include "model/Event.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

// The derivation of track points in its plainest form: one function after another, no state kept between
// points but what the rules name, a new calculator for every distance. Slow, and meant to be read.

namespace kestrabel::test {

using CPoints = CObjectArray<CTrackPoint>;

inline double PlainSeconds(const DATE& from, const DATE& to)
{
    return RoundTo((to.m_dDays - from.m_dDays) * 86400.0, 3);
}

inline double PlainStep(const CTrackPoint& point)
{
    return RoundTo(point.m_dDeltaTime * 86400.0, 3);
}

inline double PlainDistance(const CEllipsoid& ellipsoid, const CTrackPoint& from, const CTrackPoint& to)
{
    return CDistanceCalculator(ellipsoid, 'k').Distance(from.m_position, to.m_position);
}

/// The test of point `q`, at its own place in the track, against the anchor.
inline bool PlainSpikes(const CEvent& event, const CPoints& points, int nAnchor, int q,
                        double CTrackPoint::*pSpeed)
{
    const double sp = points[nAnchor].*pSpeed;
    const double sq = points[q].*pSpeed;
    const double tq = PlainStep(points[q]);
    const double e = sp + (points[q + 1].*pSpeed - sp) * tq / (tq + PlainStep(points[q + 1]));
    const double r = std::fabs(sq - e) / tq;
    return sq > event.m_dSpeedThreshold || r > (sq > sp ? event.m_dAccThreshold : event.m_dDeccThreshold);
}

struct SPlainRuns
{
    bool bInRun = false;
    bool bPending = false;
    int nRunStart = 0;
    int nBoundary = 0;
    int nCount = 0;
};

inline void PlainDetectRun(SPlainRuns& runs, const CPoints& points, int i, double v, double dStopSpeed,
                           double dStopAngle, std::int32_t CTrackPoint::*pRun)
{
    bool bTurned = false;
    if (v < dStopSpeed - 0.5) {
        runs.bPending = runs.bPending || (runs.bInRun && i > runs.nBoundary + 5);
        runs.bInRun = false;
        runs.nRunStart = i;
    } else {
        if (v > dStopSpeed + 0.5 && !runs.bInRun) {
            runs.bInRun = true;
            runs.nRunStart = i;
        }
        const double dNow = points[i].m_dDirection;
        bTurned = runs.bInRun && i >= runs.nRunStart + 9 && points[i - 9].*pRun == runs.nCount &&
                  HeadingChanged(points[i - 9].m_dDirection, dNow, dStopAngle) &&
                  HeadingChanged(points[i - 5].m_dDirection, dNow, dStopAngle * 0.5);
    }
    if (bTurned || runs.bPending) {
        runs.nBoundary = i;
        runs.nCount += 1;
        runs.bPending = false;
    }
}

inline void PlainFirstPass(const CEvent& event, CSeries& series)
{
    const CPoints& points = series.m_points;
    double dSquares = 0.0;
    for (int i = 1; i < points.GetCount(); ++i) {
        const CTrackPoint& p = points[i - 1];
        CTrackPoint& c = points[i];
        c.m_nInvalidFlags &= 0x01u;
        c.m_nTrack = i;
        c.m_nSeriesIndex = static_cast<std::uint8_t>(series.m_nSeriesIndex);
        const double s = PlainSeconds(p.m_time, c.m_time);
        const bool bGap = event.m_nTimeThreshold <= s;
        if (!bGap) {
            if (s < 0.001 || c.m_time.Year() < 2000)
                c.m_nInvalidFlags |= 0x40u;
            dSquares += s * s;
            c.m_dDeltaTime = s * 1.1574074074074073e-05;
            c.m_dDistance = std::fabs(PlainDistance(series.m_ellipsoid, p, c));
            c.m_dSpeed = c.m_dDistance * 3600.0 / s;
            if (std::isnan(c.m_dDistance) || c.m_position.m_dLatitude == 0.0 ||
                c.m_position.m_dLongitude == 0.0) {
                c.m_dSpeed = c.m_dDistance = 0.0;
                c.m_nInvalidFlags |= 0x08u;
            }
            series.m_dTotalDistance += c.m_dDistance;
            if (c.m_dDirection == 0.0 || series.m_bHasDoppler == 0)
                c.m_dDirection = DirectionBetween(p.m_position, c.m_position);
            c.m_dWindAngle = WindAngle(c.m_dDirection, series.m_dWindDirection);
            series.m_dTravelTime += s;
            if (series.m_bHasDoppler != 0) {
                c.m_dDopplerStep = (p.m_dDoppler + c.m_dDoppler) * c.m_dDeltaTime * 12.0;
                series.m_dTotalDopplerDistance += c.m_dDopplerStep;
            }
        }
        c.m_dTotalDistance = series.m_dTotalDistance;
        c.m_dSumStepSquares = dSquares;
        if (bGap || series.m_bHasDoppler != 0)
            c.m_dTotalDopplerDistance = series.m_dTotalDopplerDistance;
    }
}

inline void PlainSecondPass(const CEvent& event, CSeries& series)
{
    const CPoints& points = series.m_points;
    const int n = points.GetCount();
    const double dLeastStop[] = {1.852, 1.0, 3.6, 1.609344};
    const double dStop = std::max(event.m_dStopRunSpeed, dLeastStop[event.m_nSpeedUnits]);
    const double dAngle = event.m_dStopRunAngle;
    SPlainRuns speedRuns;
    SPlainRuns dopplerRuns;
    for (int i = 1; i <= n - 2; ++i) {
        CTrackPoint& c = points[i];
        if (PlainStep(c) < 0.001)
            c.m_nInvalidFlags |= 0x40u;
        if (c.m_dHDOP > event.m_dMaxHDOP)
            c.m_nInvalidFlags |= 0x10u;
        if (c.m_nSats < event.m_nMinSats)
            c.m_nInvalidFlags |= 0x20u;
        for (int q = i; q <= i + 2 && q < n - 1; ++q) {
            if (!PlainSpikes(event, points, i - 1, q, &CTrackPoint::m_dSpeed))
                break;
            points[q].m_nInvalidFlags |= 0x02u;
        }
        if (PlainSpikes(event, points, i - 1, i, &CTrackPoint::m_dDoppler))
            c.m_nInvalidFlags |= 0x04u;
        if ((c.m_nInvalidFlags & 0x7bu) == 0) {
            PlainDetectRun(speedRuns, points, i, c.m_dSpeed, dStop, dAngle, &CTrackPoint::m_nRun);
            series.m_dMaxSpeed = std::max(series.m_dMaxSpeed, c.m_dSpeed);
        }
        c.m_nRun = speedRuns.nCount;
        if ((c.m_nInvalidFlags & 0x75u) == 0)
            PlainDetectRun(dopplerRuns, points, i, c.m_dDoppler, dStop, dAngle, &CTrackPoint::m_nDopplerRun);
        c.m_nDopplerRun = dopplerRuns.nCount;
        if ((c.m_nInvalidFlags & 0x79u) == 0) {
            if ((c.m_nInvalidFlags & 0x75u) == 0)
                series.m_dMaxDoppler = std::max(series.m_dMaxDoppler, c.m_dDoppler);
            series.m_dMinAltitude = std::min<double>(series.m_dMinAltitude, c.m_nAltitude);
            series.m_dMaxAltitude = std::max<double>(series.m_dMaxAltitude, c.m_nAltitude);
            series.m_rcBounds.Extend(c.m_position);
        }
        series.m_dMinResultSats = std::max<double>(series.m_dMinResultSats, c.m_nSats);
        if (c.m_dHDOP < 10.0)
            series.m_dMaxResultHDOP = std::max(series.m_dMaxResultHDOP, c.m_dHDOP);
    }
}

/// Derives a track file of at least two points. The indexes of file and competitor are as the file has them.
inline void PlainDerive(const CEvent& event, CSeries& series)
{
    series.m_dTotalDistance = series.m_dTotalDopplerDistance = series.m_dTravelTime = 0.0;
    series.m_dMaxSpeed = series.m_dMaxDoppler = series.m_dMaxResultHDOP = series.m_dMinResultSats = 0.0;
    series.m_dMinAltitude = std::numeric_limits<double>::max();
    series.m_dMaxAltitude = -series.m_dMinAltitude;
    series.m_rcBounds = CGeoRect::Empty();
    series.m_timeStart = series.m_timeEnd = DATE::MakeNull();
    series.m_bHasDoppler = 0;
    for (const CTrackPoint* pPoint : series.m_points)
        series.m_bHasDoppler |= pPoint->m_dDoppler > 0.0 ? 1 : 0;
    CTrackPoint& first = series.m_points[0];
    first.m_nInvalidFlags &= 0x01u;
    first.m_nTrack = first.m_nRun = first.m_nDopplerRun = 0;
    first.m_nSeriesIndex = static_cast<std::uint8_t>(series.m_nSeriesIndex);
    first.m_dDeltaTime = first.m_dDistance = first.m_dSpeed = first.m_dTotalDistance = 0.0;
    first.m_dTotalDopplerDistance = first.m_dSumStepSquares = first.m_dWindAngle = 0.0;
    if (first.m_nInvalidFlags == 0 && first.m_position.m_dLatitude != 0.0 &&
        first.m_position.m_dLongitude != 0.0)
        series.m_rcBounds.Extend(first.m_position);
    PlainFirstPass(event, series);
    PlainSecondPass(event, series);
}

} // namespace kestrabel::test
