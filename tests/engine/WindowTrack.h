#pragma once

#include "engine/TestEvent.h"
#include "support/Track.h"

namespace kestrabel::test {

// Speeds at which a second covers a power-of-two part of a kilometre: sums of them are exact, so that equal
// windows have equal speeds.
inline constexpr double Slow = 3600.0 / 256.0;  ///< 14.06 km/h, below the stop speed
inline constexpr double Brisk = 3600.0 / 64.0;  ///< 56.25 km/h
inline constexpr double Faster = 3600.0 / 56.0; ///< 64.29 km/h, not exact
inline constexpr double Fast = 3600.0 / 32.0;   ///< 112.5 km/h

/// A track file whose derived values are set by hand: straight north, by position and by Doppler at the same
/// speed, every point valid and of the current run.
class CWindowTrack
{
public:
    CWindowTrack()
    {
        division.m_bAccumulation = 1;
        division.m_bOneResultPerRun = 0;
        event.m_nShowTopRows = 10;
    }

    /// Goes on for some steps at that speed, km/h; the very first call also makes the first point.
    CWindowTrack& Ride(int nSteps, double dSpeed, double dStep = 1.0)
    {
        if (series.m_points.IsEmpty())
            AddPoint(dSpeed, 0.0);
        for (int i = 0; i < nSteps; ++i)
            AddPoint(dSpeed, dStep);
        return *this;
    }

    /// The points from now on belong to the next run.
    CWindowTrack& NextRun()
    {
        ++m_nRun;
        return *this;
    }

    CTrackPoint& Point(int nIndex) { return series.m_points[nIndex]; }

    CEvent event{DATE(45444.0)};
    CPerson& person = AddPerson(event, "Ann");
    CSeries& series = AddSeries(person, "Morning");
    CDivision& division = AddDivision(event, "10 sec", DivisionKind::Time);

private:
    void AddPoint(double dSpeed, double dStep)
    {
        const CTrackPoint* pPrevious = series.m_points.Last();
        m_dSecond += dStep;
        m_dKilometres += dSpeed / 3600.0 * dStep;
        CTrackPoint& point =
            series.m_points.Add(MakePoint(m_dSecond, -38.85 + m_dKilometres / 110.99, 146.16));
        point.m_nTrack = series.m_points.GetCount() - 1;
        point.m_nRun = point.m_nDopplerRun = m_nRun;
        point.m_dDeltaTime = dStep * DaysPerSecond;
        point.m_dSpeed = point.m_dDoppler = dSpeed;
        point.m_dDistance = point.m_dDopplerStep = dSpeed / 3600.0 * dStep;
        point.m_dTotalDistance = point.m_dTotalDopplerDistance = m_dKilometres;
        point.m_dSumStepSquares = (pPrevious == nullptr ? 0.0 : pPrevious->m_dSumStepSquares) + dStep * dStep;
    }

    int m_nRun = 0;
    double m_dSecond = 0.0;
    double m_dKilometres = 0.0;
};

} // namespace kestrabel::test
