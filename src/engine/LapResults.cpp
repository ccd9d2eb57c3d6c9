#include "engine/LapResults.h"

#include "engine/ResultBuilder.h"
#include "engine/ResultList.h"
#include "geo/Angle.h"
#include "geo/DistanceCalculator.h"
#include "geo/Segment.h"
#include "platform/Text.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kestrabel {

namespace {

constexpr std::size_t GateNameLength = 10; // characters of a gate's name in the name of a lap
constexpr int NoGate = -1;

struct SGate
{
    explicit SGate(const CWayPoint& wayPoint)
        : position(wayPoint.m_position),
          box(BoxAround(wayPoint.m_position, wayPoint.m_dProximity)),
          dRadius(wayPoint.m_dProximity),
          dRadiusDegrees(wayPoint.m_dProximity * DegreesPerKilometre),
          strName(FirstCharacters(wayPoint.m_strName, GateNameLength))
    {
    }

    CPosition position;
    CGeoRect box;
    double dRadius;        ///< km
    double dRadiusDegrees; ///< on the plane of DistanceToSegment
    std::string strName;
};

class CLapScan
{
public:
    CLapScan(const CEvent& event, const CPerson& person, const CSeries& series, const CDivision& division,
             const CObjectArray<CWayPoint>& gates)
        : m_event(event),
          m_person(person),
          m_series(series),
          m_division(division),
          m_source(division, series),
          m_calculator(event.m_ellipsoid)
    {
        for (const CWayPoint* pGate : gates)
            m_gates.emplace_back(*pGate);
    }

    void FindLaps(CProgress& shown);
    /// Hands the laps over in their order.
    void Append(CObjectArray<CResult>& results);

private:
    void Step(int nPoint);
    template <class TPasses>
    int FirstPassed(const CTrackPoint& from, const CTrackPoint& to, TPasses&& passes) const;
    int OpeningGate(const CTrackPoint& from, const CTrackPoint& to);
    int ClosingGate(const CTrackPoint& from, const CTrackPoint& to);
    bool IsCrossed(const SGate& gate, const CTrackPoint& from, const CTrackPoint& to) const;
    double DistanceTo(const SGate& gate, const CTrackPoint& point)
    {
        return m_calculator.Distance(gate.position, point.m_position);
    }
    std::unique_ptr<CResult> MakeLap(int nEnd, int nEndGate) const;

    const CEvent& m_event;
    const CPerson& m_person;
    const CSeries& m_series;
    const CDivision& m_division;
    CSpeedSource m_source;
    CDistanceCalculator m_calculator;
    std::vector<SGate> m_gates;
    int m_nStart = 0;          ///< the point at which the open lap starts
    int m_nStartGate = NoGate; ///< NoGate while no lap is open
    std::vector<std::unique_ptr<CResult>> m_laps;
};

void CLapScan::FindLaps(CProgress& shown)
{
    for (int i = 1; i < m_series.m_points.GetCount(); ++i) {
        Step(i);
        shown.Step();
    }
}

void CLapScan::Step(int nPoint)
{
    const CTrackPoint& from = m_series.m_points[nPoint - 1];
    const CTrackPoint& to = m_series.m_points[nPoint];
    if (StartsGap(&from, to, m_event.m_nTimeThreshold)) {
        m_nStartGate = NoGate;
        return;
    }
    const bool bOpen = m_nStartGate != NoGate;
    const int nGate = bOpen ? ClosingGate(from, to) : OpeningGate(from, to);
    if (nGate == NoGate)
        return;
    if (bOpen) {
        const double dPath = m_source.Path(to) - m_source.Path(m_series.m_points[m_nStart]);
        if (!(dPath > 2.0 * m_gates[static_cast<std::size_t>(nGate)].dRadius))
            return;
        m_laps.push_back(MakeLap(nPoint, nGate));
    }
    m_nStart = nPoint;
    m_nStartGate = nGate;
}

/// The index of the first gate whose box the step overlaps and for which `passes(gate)` is true.
template <class TPasses>
int CLapScan::FirstPassed(const CTrackPoint& from, const CTrackPoint& to, TPasses&& passes) const
{
    for (std::size_t i = 0; i < m_gates.size(); ++i) {
        if (SegmentBoxesOverlap(m_gates[i].box, from.m_position, to.m_position) && passes(m_gates[i]))
            return static_cast<int>(i);
    }
    return NoGate;
}

bool CLapScan::IsCrossed(const SGate& gate, const CTrackPoint& from, const CTrackPoint& to) const
{
    const auto distance = DistanceToSegment(gate.position, from.m_position, to.m_position);
    return distance.has_value() && *distance <= gate.dRadiusDegrees;
}

int CLapScan::OpeningGate(const CTrackPoint& from, const CTrackPoint& to)
{
    return FirstPassed(from, to, [&](const SGate& gate) {
        return IsCrossed(gate, from, to) || DistanceTo(gate, to) < gate.dRadius;
    });
}

/// A step that leaves the gate behind it does not pass it again.
int CLapScan::ClosingGate(const CTrackPoint& from, const CTrackPoint& to)
{
    return FirstPassed(from, to, [&](const SGate& gate) {
        return DistanceTo(gate, to) <= gate.dRadius ||
               (IsCrossed(gate, from, to) && DistanceTo(gate, from) > gate.dRadius);
    });
}

std::unique_ptr<CResult> CLapScan::MakeLap(int nEnd, int nEndGate) const
{
    std::unique_ptr<CResult> pLap = MakePathResult(m_person, m_series, m_division, m_source, m_nStart, nEnd);
    pLap->m_nWaypoint = m_nStartGate;
    pLap->m_nWaypoint2 = nEndGate;
    pLap->m_strWaypoint = m_gates[static_cast<std::size_t>(m_nStartGate)].strName + "-" +
                          m_gates[static_cast<std::size_t>(nEndGate)].strName;
    EstimatePathError(*pLap, m_source, m_source.Error(m_event, m_series), nEnd - m_nStart);
    // By position whatever the division judges.
    MeasureExtremes(*pLap, m_series, &CTrackPoint::m_dSpeed, m_nStart, nEnd);
    return pLap;
}

void CLapScan::Append(CObjectArray<CResult>& results)
{
    std::stable_sort(m_laps.begin(), m_laps.end(), [](const auto& pOne, const auto& pOther) {
        return pOne->m_nWaypoint != pOther->m_nWaypoint ? pOne->m_nWaypoint < pOther->m_nWaypoint
                                                        : IsSlowerSpeed(pOne->m_dSpeed, pOther->m_dSpeed);
    });
    for (std::unique_ptr<CResult>& pLap : m_laps)
        results.Add(std::move(pLap));
}

bool CalculateLaps(const CEvent& event, const CPerson& person, const CSeries& series,
                   const CDivision& division, const CObjectArray<CWayPoint>& gates,
                   CObjectArray<CResult>& results, CProgressDisplay& progress)
{
    if (series.m_points.IsEmpty() || gates.IsEmpty())
        return false;
    CProgress shown(progress, "Calculating " + division.m_strName, series.m_points.GetCount());
    CLapScan scan(event, person, series, division, gates);
    scan.FindLaps(shown);
    scan.Append(results);
    return true;
}

} // namespace

bool CalculateLapResults(const CEvent& event, const CPerson& person, const CSeries& series,
                         const CDivision& division, CObjectArray<CResult>& results,
                         CProgressDisplay& progress)
{
    return CalculateLaps(event, person, series, division, division.m_waypoints, results, progress);
}

bool CalculateCheckpointResults(const CEvent& event, const CPerson& person, const CSeries& series,
                                const CDivision& division, CObjectArray<CResult>& results,
                                CProgressDisplay& progress)
{
    if (series.m_waypoints.IsEmpty())
        return true;
    return CalculateLaps(event, person, series, division, series.m_waypoints, results, progress);
}

} // namespace kestrabel
