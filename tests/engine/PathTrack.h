#pragma once

#include "engine/TestEvent.h"
#include "support/Track.h"

#include <cmath>

namespace kestrabel::test {

/// A track file on a plane of metres, east and north of 45° N 146° E, with derived values that follow from
/// the plane: a fix a second, by position and by Doppler at the same speed, every point valid and of the
/// current run. A metre north is 1/111120 of a degree; a metre east is √2 times as many degrees.
class CPathTrack
{
public:
    CPathTrack() { Start(0, 0); }

    static CPosition At(double dEast, double dNorth)
    {
        constexpr double dMetresPerDegree = 111120.0;
        return MakePosition(45.0 + dNorth / dMetresPerDegree,
                            146.0 + dEast / (dMetresPerDegree * std::sqrt(0.5)));
    }

    /// Begins again, with a first fix there.
    CPathTrack& Start(double dEast, double dNorth)
    {
        series.m_points.RemoveAll();
        series.m_rcBounds = CGeoRect::Empty();
        m_nRun = 0;
        return Go(dEast, dNorth);
    }

    /// The next fix is there, so many seconds after the one before.
    CPathTrack& Go(double dEast, double dNorth, double dSeconds = 1.0)
    {
        const CTrackPoint* pPrevious = series.m_points.Last();
        m_dSecond = pPrevious == nullptr ? 0.0 : m_dSecond + dSeconds;
        const CPosition at = At(dEast, dNorth);
        CTrackPoint& point = series.m_points.Add(MakePoint(m_dSecond, at.m_dLatitude, at.m_dLongitude));
        point.m_nTrack = series.m_points.GetCount() - 1;
        point.m_nRun = point.m_nDopplerRun = m_nRun;
        if (pPrevious != nullptr) {
            point.m_dDeltaTime = dSeconds < event.m_nTimeThreshold ? dSeconds * DaysPerSecond : 0.0;
            point.m_dDistance = std::hypot(dEast - m_dEast, dNorth - m_dNorth) * 0.001;
            point.m_dDopplerStep = point.m_dDistance;
            point.m_dSpeed = point.m_dDoppler = point.m_dDistance * 3600.0 / dSeconds;
            point.m_dTotalDistance = pPrevious->m_dTotalDistance + point.m_dDistance;
            point.m_dTotalDopplerDistance = point.m_dTotalDistance;
            point.m_dSumStepSquares = pPrevious->m_dSumStepSquares + dSeconds * dSeconds;
        }
        series.m_rcBounds.Extend(at);
        m_dEast = dEast;
        m_dNorth = dNorth;
        return *this;
    }

    /// Fixes on the way north or south, `dStep` metres apart, up to and with the one at `dNorth`.
    CPathTrack& GoNorthTo(double dNorth, double dStep)
    {
        while (std::abs(dNorth - m_dNorth) > 1e-9)
            Go(m_dEast,
               m_dNorth + std::copysign(std::min(dStep, std::abs(dNorth - m_dNorth)), dNorth - m_dNorth));
        return *this;
    }

    /// Goes north for some steps at that speed, metres per second.
    CPathTrack& Ride(int nSteps, double dSpeed, double dSeconds = 1.0)
    {
        for (int i = 0; i < nSteps; ++i)
            Go(m_dEast, m_dNorth + dSpeed * dSeconds, dSeconds);
        return *this;
    }

    /// The points from now on belong to the next run.
    CPathTrack& NextRun()
    {
        ++m_nRun;
        return *this;
    }

    CTrackPoint& Point(int nIndex) { return series.m_points[nIndex]; }
    int Last() const { return series.m_points.GetCount() - 1; }

    CEvent event{DATE(45444.0)};
    CPerson& person = AddPerson(event, "Ann");
    CSeries& series = AddSeries(person, "Morning");
    CDivision& division = AddDivision(event, "Course");

private:
    int m_nRun = 0;
    double m_dSecond = 0.0;
    double m_dEast = 0.0;
    double m_dNorth = 0.0;
};

} // namespace kestrabel::test
