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
    explicit CPathTrack(std::uint8_t nKind) : division(AddDivision(event, "Course", nKind))
    {
        series.m_rcBounds = CGeoRect::Empty();
        series.m_nSeriesIndex = 2;
        series.m_nPersonIndex = 5;
    }

    static CPosition At(double dEast, double dNorth)
    {
        constexpr double dMetresPerDegree = 111120.0;
        return MakePosition(45.0 + dNorth / dMetresPerDegree,
                            146.0 + dEast / (dMetresPerDegree * std::sqrt(0.5)));
    }

    /// The next fix is there, so many seconds after the one before.
    CPathTrack& Go(double dEast, double dNorth, double dSeconds = 1.0)
    {
        const CTrackPoint* pPrevious = series.m_points.Last();
        m_dSecond += pPrevious == nullptr ? 0.0 : dSeconds;
        const CPosition position = At(dEast, dNorth);
        CTrackPoint& point =
            series.m_points.Add(MakePoint(m_dSecond, position.m_dLatitude, position.m_dLongitude));
        point.m_nTrack = series.m_points.GetCount() - 1;
        point.m_nRun = point.m_nDopplerRun = m_nRun;
        point.m_nSats = 8;
        if (pPrevious != nullptr) {
            point.m_dDeltaTime = dSeconds < event.m_nTimeThreshold ? dSeconds * DaysPerSecond : 0.0;
            point.m_dDistance = std::hypot(dEast - m_dEast, dNorth - m_dNorth) * 0.001;
            point.m_dSpeed = point.m_dDoppler = point.m_dDistance * 3600.0 / dSeconds;
            point.m_dTotalDistance = pPrevious->m_dTotalDistance + point.m_dDistance;
            point.m_dTotalDopplerDistance = point.m_dTotalDistance;
        }
        series.m_rcBounds.Extend(position);
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

    /// The points from now on belong to the next run.
    CPathTrack& NextRun()
    {
        ++m_nRun;
        return *this;
    }

    CTrackPoint& Point(int nIndex) { return series.m_points[nIndex]; }
    int Last() const { return series.m_points.GetCount() - 1; }

    CWayPoint& AddGate(CObjectArray<CWayPoint>& gates, std::string_view strName, double dEast, double dNorth,
                       double dMetres)
    {
        CWayPoint& gate = gates.Add(std::make_unique<CWayPoint>());
        gate.m_strName = strName;
        gate.m_position = At(dEast, dNorth);
        gate.m_dProximity = dMetres * 0.001;
        return gate;
    }

    CEvent event{DATE(45444.0)};
    CPerson& person = AddPerson(event, "Ann");
    CSeries& series = AddSeries(person, "Morning");
    CDivision& division;

private:
    int m_nRun = 0;
    double m_dSecond = 0.0;
    double m_dEast = 0.0;
    double m_dNorth = 0.0;
};

/// "start-end" of every result, as they stand in the list.
template <class TResults>
std::string Stretches(const TResults& results)
{
    std::string strFound;
    for (const CResult* pResult : results)
        strFound += (strFound.empty() ? "" : " ") + std::to_string(pResult->m_nStartIndex) + "-" +
                    std::to_string(pResult->m_nEndIndex);
    return strFound;
}

} // namespace kestrabel::test
