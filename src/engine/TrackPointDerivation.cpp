#include "engine/TrackPointDerivation.h"

#include "engine/Direction.h"
#include "engine/RunDetector.h"
#include "geo/DistanceCalculator.h"
#include "model/SpeedUnits.h"
#include "platform/Path.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

constexpr double ShortestStep = 0.001; // seconds; below it a speed says nothing
constexpr int FirstTrustedYear = 2000;
constexpr double HighestCountedHdop = 10.0;
constexpr double SecondsPerHour = 3600.0;
constexpr double MeanSpeedDaysToKm = 12.0; // (a + b) km/h over t days: (a + b) / 2 × 24 × t
constexpr int SpikeLookAhead = 2;          // points behind a spike that are tested against its anchor

void ResetStatistics(CSeries& series)
{
    series.m_dTotalDistance = 0.0;
    series.m_dTotalDopplerDistance = 0.0;
    series.m_dTravelTime = 0.0;
    series.m_dMaxSpeed = 0.0;
    series.m_dMaxDoppler = 0.0;
    series.m_dMinAltitude = std::numeric_limits<double>::max();
    series.m_dMaxAltitude = std::numeric_limits<double>::lowest();
    series.m_dMaxResultHDOP = 0.0;
    series.m_dMinResultSats = 0.0;
    series.m_rcBounds = CGeoRect::Empty();
    series.m_bHasDoppler = 0;
    series.m_timeStart = DATE::MakeNull();
    series.m_timeEnd = DATE::MakeNull();
    series.m_bInTimeOrder = true;
}

/// Index of the object; of one that is not in the array, that of the first of its name without regard to
/// case; -1 when there is none. Names alone would not do: two loggers' files may share one.
template <class T>
int IndexOf(const CObjectArray<T>& objects, const T& object)
{
    auto found = std::find(objects.begin(), objects.end(), &object);
    if (found == objects.end())
        found = std::find_if(objects.begin(), objects.end(), [&](const T* pObject) {
            return EqualNoCase(pObject->m_strName, object.m_strName);
        });
    return found == objects.end() ? -1 : static_cast<int>(found - objects.begin());
}

/// The first pass: each point from its predecessor, and the running totals.
class CStepPass
{
public:
    CStepPass(const CEvent& event, CSeries& series)
        : m_series(series), m_distance(series.m_ellipsoid), m_dTimeThreshold(event.m_nTimeThreshold)
    {
    }

    void First(CTrackPoint& point) const;
    void Next(const CTrackPoint& previous, CTrackPoint& point, int nIndex);

    /// Leaves the totals in the statistics of the file.
    void Finish();

private:
    void Number(CTrackPoint& point, int nIndex) const;

    CSeries& m_series;
    CDistanceCalculator m_distance;
    double m_dTimeThreshold;
    double m_dTotalDistance = 0.0;
    double m_dTotalDopplerDistance = 0.0;
    double m_dSumStepSquares = 0.0;
    double m_dTravelTime = 0.0;
};

void CStepPass::Number(CTrackPoint& point, int nIndex) const
{
    point.m_nInvalidFlags &= InvalidFlag::User;
    point.m_nTrack = nIndex;
    point.m_nSeriesIndex = static_cast<std::uint16_t>(m_series.m_nSeriesIndex);
}

void CStepPass::First(CTrackPoint& point) const
{
    Number(point, 0);
    point.m_nRun = 0;
    point.m_nDopplerRun = 0;
    point.m_dDeltaTime = 0.0;
    point.m_dDistance = 0.0;
    point.m_dSpeed = 0.0;
    point.m_dTotalDistance = 0.0;
    point.m_dTotalDopplerDistance = 0.0;
    point.m_dSumStepSquares = 0.0;
    point.m_dWindAngle = 0.0;
}

void CStepPass::Next(const CTrackPoint& previous, CTrackPoint& point, int nIndex)
{
    Number(point, nIndex);
    if (point.m_time.m_dDays < previous.m_time.m_dDays)
        m_series.m_bInTimeOrder = false;
    const double dSeconds = SecondsBetween(previous.m_time, point.m_time);
    if (m_dTimeThreshold <= dSeconds) { // a gap
        point.m_dTotalDistance = m_dTotalDistance;
        point.m_dTotalDopplerDistance = m_dTotalDopplerDistance;
        point.m_dSumStepSquares = m_dSumStepSquares;
        return;
    }

    if (dSeconds < ShortestStep || point.m_time.IsBeforeYear(FirstTrustedYear))
        point.m_nInvalidFlags |= InvalidFlag::Time;
    m_dSumStepSquares += dSeconds * dSeconds;
    point.m_dSumStepSquares = m_dSumStepSquares;
    const double dDays = dSeconds * DaysPerSecond;
    point.m_dDeltaTime = dDays;

    point.m_dDistance = std::abs(m_distance.Distance(previous.m_position, point.m_position));
    if (point.m_dDirection == 0.0 || m_series.m_bHasDoppler == 0)
        point.m_dDirection = DirectionBetween(previous.m_position, point.m_position);
    if (std::isnan(point.m_dDistance) || !point.HasPosition()) {
        point.m_dSpeed = 0.0;
        point.m_dDistance = 0.0;
        point.m_nInvalidFlags |= InvalidFlag::NoPosition;
    } else {
        point.m_dSpeed = point.m_dDistance * SecondsPerHour / dSeconds;
        m_dTotalDistance += point.m_dDistance;
    }
    point.m_dTotalDistance = m_dTotalDistance;
    point.m_dWindAngle = WindAngle(point.m_dDirection, m_series.m_dWindDirection);
    m_dTravelTime += dSeconds;

    if (m_series.m_bHasDoppler != 0) {
        point.m_dDopplerStep = (previous.m_dDoppler + point.m_dDoppler) * dDays * MeanSpeedDaysToKm;
        m_dTotalDopplerDistance += point.m_dDopplerStep;
        point.m_dTotalDopplerDistance = m_dTotalDopplerDistance;
    }
}

void CStepPass::Finish()
{
    m_series.m_dTotalDistance = m_dTotalDistance;
    m_series.m_dTotalDopplerDistance = m_dTotalDopplerDistance;
    m_series.m_dTravelTime = m_dTravelTime;
}

/// The second pass: spikes, limits, runs and statistics, for every point but the first and the last.
class CJudgingPass
{
public:
    CJudgingPass(const CEvent& event, CSeries& series)
        : m_event(event),
          m_series(series),
          m_points(series.m_points),
          m_speedRuns(m_points, StopSpeed(event), event.m_dStopRunAngle, &CTrackPoint::m_nRun),
          m_dopplerRuns(m_points, StopSpeed(event), event.m_dStopRunAngle, &CTrackPoint::m_nDopplerRun)
    {
    }

    void Judge(int nIndex);

private:
    static double StopSpeed(const CEvent& event)
    {
        return std::max(event.m_dStopRunSpeed, SpeedUnitOf(event.m_nSpeedUnits).dEntryFactor);
    }

    bool IsSpike(int nAnchor, int nIndex, double CTrackPoint::*pSpeed) const;
    void MarkSpikes(int nIndex);
    void CountStatistics(const CTrackPoint& point);

    const CEvent& m_event;
    CSeries& m_series;
    const CObjectArray<CTrackPoint>& m_points;
    CRunDetector m_speedRuns;
    CRunDetector m_dopplerRuns;
};

void CJudgingPass::Judge(int nIndex)
{
    CTrackPoint& point = m_points[nIndex];
    if (point.StepSeconds() < ShortestStep)
        point.m_nInvalidFlags |= InvalidFlag::Time;
    if (point.m_dHDOP > m_event.m_dMaxHDOP)
        point.m_nInvalidFlags |= InvalidFlag::Hdop;
    if (point.m_nSats < m_event.m_nMinSats)
        point.m_nInvalidFlags |= InvalidFlag::Satellites;

    MarkSpikes(nIndex);
    if (IsSpike(nIndex - 1, nIndex, &CTrackPoint::m_dDoppler))
        point.m_nInvalidFlags |= InvalidFlag::DopplerSpike;

    if (point.IsValidFor(InvalidMask::Trackpoint))
        m_speedRuns.Examine(nIndex, point.m_dSpeed);
    point.m_nRun = m_speedRuns.Run();
    if (point.IsValidFor(InvalidMask::Doppler))
        m_dopplerRuns.Examine(nIndex, point.m_dDoppler);
    point.m_nDopplerRun = m_dopplerRuns.Run();

    CountStatistics(point);
}

/// Whether the speed at a point is too high, or changes faster than the thresholds allow from what its anchor
/// and its successor let expect.
bool CJudgingPass::IsSpike(int nAnchor, int nIndex, double CTrackPoint::*pSpeed) const
{
    const CTrackPoint& point = m_points[nIndex];
    const CTrackPoint& next = m_points[nIndex + 1];
    const double dSpeed = point.*pSpeed;
    if (dSpeed > m_event.m_dSpeedThreshold)
        return true;
    const double dBefore = m_points[nAnchor].*pSpeed;
    const double dStep = point.StepSeconds();
    const double dExpected = dBefore + (next.*pSpeed - dBefore) * dStep / (dStep + next.StepSeconds());
    const double dRate = std::abs(dSpeed - dExpected) / dStep;
    return dRate > (dSpeed > dBefore ? m_event.m_dAccThreshold : m_event.m_dDeccThreshold);
}

void CJudgingPass::MarkSpikes(int nIndex)
{
    const int nAnchor = nIndex - 1;
    const int nLast = m_points.GetCount() - 1;
    for (int i = nIndex; i <= nIndex + SpikeLookAhead && i < nLast; ++i) {
        if (!IsSpike(nAnchor, i, &CTrackPoint::m_dSpeed))
            return;
        m_points[i].m_nInvalidFlags |= InvalidFlag::SpeedSpike;
    }
}

void CJudgingPass::CountStatistics(const CTrackPoint& point)
{
    if (point.IsValidFor(InvalidMask::Fix)) {
        if (point.IsValidFor(InvalidMask::Trackpoint))
            m_series.m_dMaxSpeed = std::max(m_series.m_dMaxSpeed, point.m_dSpeed);
        if (point.IsValidFor(InvalidMask::Doppler))
            m_series.m_dMaxDoppler = std::max(m_series.m_dMaxDoppler, point.m_dDoppler);
        const double dAltitude = point.m_nAltitude;
        m_series.m_dMinAltitude = std::min(m_series.m_dMinAltitude, dAltitude);
        m_series.m_dMaxAltitude = std::max(m_series.m_dMaxAltitude, dAltitude);
        m_series.m_rcBounds.Extend(point.m_position);
    }
    m_series.m_dMinResultSats = std::max(m_series.m_dMinResultSats, static_cast<double>(point.m_nSats));
    if (point.m_dHDOP < HighestCountedHdop)
        m_series.m_dMaxResultHDOP = std::max(m_series.m_dMaxResultHDOP, point.m_dHDOP);
}

} // namespace

bool CalculateTrackPoints(const CEvent& event, const CPerson& person, CSeries& series,
                          CProgressDisplay& progress)
{
    ResetStatistics(series);
    for (CWayPoint* pWayPoint : series.m_waypoints)
        pWayPoint->m_rcExtent = BoxAround(pWayPoint->m_position, pWayPoint->m_dProximity);
    series.m_nPersonIndex = IndexOf(event.m_persons, person);
    series.m_nSeriesIndex = IndexOf(person.m_series, series);

    const CObjectArray<CTrackPoint>& points = series.m_points;
    const int nCount = points.GetCount();
    if (nCount == 1) { // nothing to derive, but it stands in merged lists
        points[0].m_nSeriesIndex = static_cast<std::uint16_t>(series.m_nSeriesIndex);
        points[0].m_nTrack = 0;
    }
    if (nCount < 2)
        return false;
    series.m_bHasDoppler =
        std::any_of(points.begin(), points.end(), [](const CTrackPoint* p) { return p->m_dDoppler > 0.0; })
            ? 1
            : 0;

    CProgress shown(progress, "Calculating track points", 2 * static_cast<std::int64_t>(nCount));
    CStepPass steps(event, series);
    steps.First(points[0]);
    for (int i = 1; i < nCount; ++i) {
        steps.Next(points[i - 1], points[i], i);
        shown.Step();
    }
    steps.Finish();

    if (points[0].IsValidFor(InvalidMask::Fix) && points[0].HasPosition())
        series.m_rcBounds.Extend(points[0].m_position);
    shown.Step();
    CJudgingPass judging(event, series);
    for (int i = 1; i < nCount - 1; ++i) {
        judging.Judge(i);
        shown.Step();
    }
    return true;
}

void RecalculateTrackPoints(const CEvent& event, CPerson& person, CSeries& series, CProgressDisplay& progress)
{
    person.m_results.RemoveAll();
    person.m_combined.m_divisions.RemoveAll();
    series.m_divisions.RemoveAll();
    CalculateTrackPoints(event, person, series, progress);
}

} // namespace kestrabel
