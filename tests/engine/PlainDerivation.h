#pragma once

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

inline constexpr double PlainPi = 3.141592653589793;
inline constexpr double PlainDegree = 0.017453292519943295;

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
    CDistanceCalculator calculator(ellipsoid, 'k');
    return calculator.Distance(from.m_position, to.m_position);
}

inline double PlainDirection(const CPosition& a, const CPosition& b)
{
    const bool bNorth = b.m_dLatitude > a.m_dLatitude;
    const bool bEast = b.m_dLongitude > a.m_dLongitude;
    if (a.m_dLatitude == b.m_dLatitude)
        return bEast ? 1.5707963267948966 : 4.71238898038469;
    if (a.m_dLongitude == b.m_dLongitude)
        return bNorth ? 0.0 : PlainPi;
    const double t = std::atan(std::cos(a.m_dLatitude * PlainDegree) * (a.m_dLongitude - b.m_dLongitude) /
                               (a.m_dLatitude - b.m_dLatitude));
    if (!bNorth)
        return t + PlainPi;
    return bEast ? t : t + 2.0 * PlainPi;
}

inline bool PlainHeadingChanged(double a, double b, double dThreshold)
{
    const double dHigh = std::max(a, b);
    const double dLow = std::min(a, b);
    const double d1 = dHigh - dLow;
    const double d2 = dLow + 2.0 * PlainPi - dHigh;
    return (d1 < PlainPi && d1 > dThreshold) || (d2 < PlainPi && d2 > dThreshold);
}

inline double PlainWindAngle(double dDirection, double dWindDegrees)
{
    const double w = dWindDegrees * PlainDegree;
    if (dDirection > w) {
        if (dDirection <= w + PlainPi)
            return dDirection - w;
        return w + 2.0 * PlainPi - dDirection;
    }
    if (w <= dDirection + PlainPi)
        return w - dDirection;
    return dDirection + 2.0 * PlainPi - w;
}

/// The test of point `q`, at its own place in the track, against the anchor.
inline bool PlainSpikes(const CEvent& event, const CPoints& points, int nAnchor, int q,
                        double CTrackPoint::*pSpeed)
{
    const double sp = points[nAnchor].*pSpeed;
    const double sq = points[q].*pSpeed;
    const double sy = points[q + 1].*pSpeed;
    const double tq = PlainStep(points[q]);
    const double ty = PlainStep(points[q + 1]);
    if (sq > event.m_dSpeedThreshold)
        return true;
    const double e = sp + (sy - sp) * tq / (tq + ty);
    const double r = std::fabs(sq - e) / tq;
    if (sq > sp)
        return r > event.m_dAccThreshold;
    return r > event.m_dDeccThreshold;
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
    const auto NewRun = [&] {
        runs.nBoundary = i;
        runs.nCount += 1;
        runs.bPending = false;
    };
    if (v < dStopSpeed - 0.5) {
        if (runs.bInRun) {
            runs.bInRun = false;
            if (i > runs.nBoundary + 5)
                runs.bPending = true;
        }
        runs.nRunStart = i;
    } else {
        if (v > dStopSpeed + 0.5 && !runs.bInRun) {
            runs.bInRun = true;
            runs.nRunStart = i;
        }
        if (runs.bInRun && i >= runs.nRunStart + 9 && points[i - 9].*pRun == runs.nCount) {
            const double dNow = points[i].m_dDirection;
            const bool bOverNine = PlainHeadingChanged(points[i - 9].m_dDirection, dNow, dStopAngle);
            const bool bOverFive = PlainHeadingChanged(points[i - 5].m_dDirection, dNow, dStopAngle * 0.5);
            if (bOverNine && bOverFive) {
                NewRun();
                return;
            }
        }
    }
    if (runs.bPending)
        NewRun();
}

inline double PlainStopSpeed(const CEvent& event)
{
    double dLeast = 3.6;
    if (event.m_nSpeedUnits == 0)
        dLeast = 1.852;
    if (event.m_nSpeedUnits == 1)
        dLeast = 1.0;
    if (event.m_nSpeedUnits == 3)
        dLeast = 1.609344;
    return event.m_dStopRunSpeed < dLeast ? dLeast : event.m_dStopRunSpeed;
}

inline void PlainFirstPass(const CEvent& event, CSeries& series)
{
    const CPoints& points = series.m_points;
    double dDistance = 0.0;
    double dDoppler = 0.0;
    double dSquares = 0.0;
    for (int i = 1; i < points.GetCount(); ++i) {
        const CTrackPoint& p = points[i - 1];
        CTrackPoint& c = points[i];
        c.m_nInvalidFlags &= 0x01u;
        c.m_nTrack = i;
        c.m_nSeriesIndex = static_cast<std::uint8_t>(series.m_nSeriesIndex);
        const double s = PlainSeconds(p.m_time, c.m_time);
        if (event.m_nTimeThreshold <= s) {
            c.m_dTotalDistance = dDistance;
            c.m_dTotalDopplerDistance = dDoppler;
            c.m_dSumStepSquares = dSquares;
            continue;
        }
        if (s < 0.001 || c.m_time.Year() < 2000)
            c.m_nInvalidFlags |= 0x40u;
        dSquares += s * s;
        c.m_dSumStepSquares = dSquares;
        c.m_dDeltaTime = s * 1.1574074074074073e-05;
        c.m_dDistance = std::fabs(PlainDistance(series.m_ellipsoid, p, c));
        if (c.m_dDirection == 0.0 || series.m_bHasDoppler == 0)
            c.m_dDirection = PlainDirection(p.m_position, c.m_position);
        if (std::isnan(c.m_dDistance) || c.m_position.m_dLatitude == 0.0 || c.m_position.m_dLongitude == 0.0)
        {
            c.m_dSpeed = 0.0;
            c.m_dDistance = 0.0;
            c.m_nInvalidFlags |= 0x08u;
        } else {
            c.m_dSpeed = c.m_dDistance * 3600.0 / s;
            dDistance += c.m_dDistance;
        }
        c.m_dTotalDistance = dDistance;
        c.m_dWindAngle = PlainWindAngle(c.m_dDirection, series.m_dWindDirection);
        series.m_dTravelTime += s;
        if (series.m_bHasDoppler != 0) {
            c.m_dDopplerStep = (p.m_dDoppler + c.m_dDoppler) * c.m_dDeltaTime * 12.0;
            dDoppler += c.m_dDopplerStep;
            c.m_dTotalDopplerDistance = dDoppler;
        }
    }
    series.m_dTotalDistance = dDistance;
    series.m_dTotalDopplerDistance = dDoppler;
}

inline void PlainSecondPass(const CEvent& event, CSeries& series)
{
    const CPoints& points = series.m_points;
    const int n = points.GetCount();
    const double dStopSpeed = PlainStopSpeed(event);
    const auto Extend = [&](const CPosition& position) {
        CGeoRect& rc = series.m_rcBounds;
        rc.m_dWest = std::min(rc.m_dWest, position.m_dLongitude);
        rc.m_dEast = std::max(rc.m_dEast, position.m_dLongitude);
        rc.m_dNorth = std::max(rc.m_dNorth, position.m_dLatitude);
        rc.m_dSouth = std::min(rc.m_dSouth, position.m_dLatitude);
    };
    const CTrackPoint& first = points[0];
    if ((first.m_nInvalidFlags & 0x79u) == 0 && first.m_position.m_dLatitude != 0.0 &&
        first.m_position.m_dLongitude != 0.0)
        Extend(first.m_position);

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
        if (PlainSpikes(event, points, i - 1, i, &CTrackPoint::m_dSpeed)) {
            c.m_nInvalidFlags |= 0x02u;
            if (i + 1 < n - 1 && PlainSpikes(event, points, i - 1, i + 1, &CTrackPoint::m_dSpeed)) {
                points[i + 1].m_nInvalidFlags |= 0x02u;
                if (i + 2 < n - 1 && PlainSpikes(event, points, i - 1, i + 2, &CTrackPoint::m_dSpeed))
                    points[i + 2].m_nInvalidFlags |= 0x02u;
            }
        }
        if (PlainSpikes(event, points, i - 1, i, &CTrackPoint::m_dDoppler))
            c.m_nInvalidFlags |= 0x04u;
        const bool bTrackpoint = (c.m_nInvalidFlags & 0x7bu) == 0;
        const bool bDoppler = (c.m_nInvalidFlags & 0x75u) == 0;
        const bool bFix = (c.m_nInvalidFlags & 0x79u) == 0;
        if (bTrackpoint)
            PlainDetectRun(speedRuns, points, i, c.m_dSpeed, dStopSpeed, event.m_dStopRunAngle,
                           &CTrackPoint::m_nRun);
        c.m_nRun = speedRuns.nCount;
        if (bDoppler)
            PlainDetectRun(dopplerRuns, points, i, c.m_dDoppler, dStopSpeed, event.m_dStopRunAngle,
                           &CTrackPoint::m_nDopplerRun);
        c.m_nDopplerRun = dopplerRuns.nCount;
        if (bFix && bTrackpoint && c.m_dSpeed > series.m_dMaxSpeed)
            series.m_dMaxSpeed = c.m_dSpeed;
        if (bFix && bDoppler && c.m_dDoppler > series.m_dMaxDoppler)
            series.m_dMaxDoppler = c.m_dDoppler;
        if (bFix) {
            series.m_dMinAltitude = std::min<double>(series.m_dMinAltitude, c.m_nAltitude);
            series.m_dMaxAltitude = std::max<double>(series.m_dMaxAltitude, c.m_nAltitude);
            Extend(c.m_position);
        }
        series.m_dMinResultSats = std::max<double>(series.m_dMinResultSats, c.m_nSats);
        if (c.m_dHDOP < 10.0)
            series.m_dMaxResultHDOP = std::max(series.m_dMaxResultHDOP, c.m_dHDOP);
    }
}

/// Derives a track file of at least two points. The indexes of file and competitor are as the file has them.
inline void PlainDerive(const CEvent& event, CSeries& series)
{
    constexpr double dLargest = std::numeric_limits<double>::max();
    series.m_dTotalDistance = series.m_dTotalDopplerDistance = series.m_dTravelTime = 0.0;
    series.m_dMaxSpeed = series.m_dMaxDoppler = 0.0;
    series.m_dMaxResultHDOP = series.m_dMinResultSats = 0.0;
    series.m_dMinAltitude = dLargest;
    series.m_dMaxAltitude = -dLargest;
    series.m_rcBounds = {
        .m_dWest = dLargest, .m_dNorth = -dLargest, .m_dEast = -dLargest, .m_dSouth = dLargest};
    series.m_timeStart = series.m_timeEnd = DATE::MakeNull();
    series.m_bHasDoppler = 0;
    for (const CTrackPoint* pPoint : series.m_points) {
        if (pPoint->m_dDoppler > 0.0)
            series.m_bHasDoppler = 1;
    }
    CTrackPoint& first = series.m_points[0];
    first.m_nInvalidFlags &= 0x01u;
    first.m_nTrack = first.m_nRun = first.m_nDopplerRun = 0;
    first.m_nSeriesIndex = static_cast<std::uint8_t>(series.m_nSeriesIndex);
    first.m_dDeltaTime = first.m_dDistance = first.m_dSpeed = first.m_dTotalDistance = 0.0;
    first.m_dTotalDopplerDistance = first.m_dSumStepSquares = first.m_dWindAngle = 0.0;
    PlainFirstPass(event, series);
    PlainSecondPass(event, series);
}

} // namespace kestrabel::test
