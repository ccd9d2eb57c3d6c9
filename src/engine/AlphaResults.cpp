#include "engine/AlphaResults.h"

#include "engine/AlphaGrid.h"
#include "engine/Candidate.h"
#include "engine/IndexList.h"
#include "engine/ResultBuilder.h"
#include "engine/ResultList.h"
#include "engine/TakenTimes.h"
#include "geo/Angle.h"
#include "geo/Proximity.h"
#include "geo/Segment.h"
#include "platform/LargeVector.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace kestrabel {

namespace {

/// The search for alphas. Each start is asked only for its best alpha, and for the next best when that one
/// cannot be chosen: a long rest within a gate makes millions of pairs.
class CAlphaScan
{
public:
    CAlphaScan(const CEvent& event, const CPerson& person, const CSeries& series, const CDivision& division);

    void FindCandidates(CProgress& shown);
    void Select(CObjectArray<CResult>& results);

private:
    /// A point that an alpha may start at, with what its ends are compared with.
    struct SStart
    {
        int nIndex;
        int nNextRun;      ///< the first point of the next run
        int nFirstInvalid; ///< no alpha reaches it
        std::int32_t nRun;
        double dPath; ///< km from the start of the file
        DATE time;
        CPosition position;
        CGeoRect gate;
    };

    /// Where a cell's points of a run begin.
    struct SRunInCell
    {
        int nNextRun = -1;
        std::size_t nFirst = 0;
    };

    void NotePoints();
    void NoteOutsiders();
    SStart MakeStart(int nIndex);
    std::optional<SCandidate> FindBest(int nStart, const SCandidate* pBehind);
    void SearchCell(int nCell, const SStart& start, const SCandidate* pBehind,
                    std::optional<SCandidate>& best);
    bool IsTooLate(const CTrackPoint& end, const SStart& start, const SCandidate& best) const;
    std::size_t FirstOfRun(int nCell, int nNextRun);
    bool PassesGate(const SStart& start, int nEnd);
    std::unique_ptr<CResult> MakeAlpha(const SCandidate& candidate) const;

    const CEvent& m_event;
    const CPerson& m_person;
    const CSeries& m_series;
    const CDivision& m_division;
    const CObjectArray<CTrackPoint>& m_points;
    CSpeedSource m_source;
    double m_dDegrees;  ///< the proximity on the plane of longitude and latitude
    double m_dShortest; ///< km
    double m_dLongest;  ///< km
    CAlphaGrid m_grid;
    CCandidateOrder m_isSlower;
    CProximity m_proximity;
    int m_nCentre = -1; ///< the start that m_proximity is set to

    CIndexList m_runStarts;
    CIndexList m_invalid; ///< points that no alpha may contain
    bool m_bPathGrows = true;
    std::vector<bool> m_outside;          ///< per point, beyond the constraints; empty when none is
    CLargeVector<double> m_latestOutside; ///< per entry of the grid: the latest time of those before it
    std::vector<SRunInCell> m_runsInCells;

    CLargeVector<SCandidate> m_candidates; ///< the best that is left of every start
    CTakenTimes m_taken;
};

CAlphaScan::CAlphaScan(const CEvent& event, const CPerson& person, const CSeries& series,
                       const CDivision& division)
    : m_event(event),
      m_person(person),
      m_series(series),
      m_division(division),
      m_points(series.m_points),
      m_source(division, series),
      m_dDegrees(division.m_dProximity * DegreesPerKilometre),
      m_dShortest(2.0 * division.m_dProximity),
      m_dLongest(division.m_dMetres * 0.001),
      m_grid(series, m_dDegrees),
      m_isSlower(series),
      m_proximity(event.m_ellipsoid, division.m_dProximity),
      m_runsInCells(static_cast<std::size_t>(m_grid.CellCount()))
{
    NotePoints();
    NoteOutsiders();
}

void CAlphaScan::NotePoints()
{
    const bool bNoInvalid = m_division.m_bStrict != 0 && m_source.UsesDoppler();
    const int nCount = m_points.GetCount();
    for (int i = 0; i < nCount; ++i) {
        const CTrackPoint& point = m_points[i];
        if (bNoInvalid && !point.IsValidFor(InvalidMask::Any))
            m_invalid.Add(i);
        if (i == 0)
            continue;
        const CTrackPoint& previous = m_points[i - 1];
        if (m_source.Run(point) != m_source.Run(previous))
            m_runStarts.Add(i);
        if (!(m_source.Path(point) >= m_source.Path(previous)))
            m_bPathGrows = false;
        if (!m_event.IsWithinConstraints(&previous, point)) {
            m_outside.resize(static_cast<std::size_t>(nCount));
            m_outside[static_cast<std::size_t>(i)] = true;
        }
    }
    if (!m_event.IsWithinConstraints(nullptr, m_points[0])) {
        m_outside.resize(static_cast<std::size_t>(nCount));
        m_outside[0] = true;
    }
}

void CAlphaScan::NoteOutsiders()
{
    if (m_outside.empty())
        return;
    m_latestOutside.reserve(m_grid.PointCount());
    for (int nCell = 0; nCell < m_grid.CellCount(); ++nCell) {
        double dLatest = std::numeric_limits<double>::lowest();
        for (const int nPoint : m_grid.PointsIn(nCell)) {
            m_latestOutside.push_back(dLatest);
            if (m_outside[static_cast<std::size_t>(nPoint)])
                dLatest = std::max(dLatest, m_points[nPoint].m_time.m_dDays);
        }
    }
}

/// The last point starts no alpha: nothing comes behind it.
void CAlphaScan::FindCandidates(CProgress& shown)
{
    for (int i = 0; i < m_points.GetCount() - 1; ++i) {
        shown.Step();
        if (!CAlphaGrid::Holds(m_points[i]))
            continue;
        if (const std::optional<SCandidate> best = FindBest(i, nullptr))
            m_candidates.push_back(*best);
    }
}

CAlphaScan::SStart CAlphaScan::MakeStart(int nIndex)
{
    const CTrackPoint& point = m_points[nIndex];
    const CPosition& position = point.m_position;
    return {.nIndex = nIndex,
            .nNextRun = m_runStarts.FirstAfter(nIndex, m_points.GetCount() - 1),
            .nFirstInvalid = m_invalid.FirstAfter(nIndex, m_points.GetCount()),
            .nRun = m_source.Run(point),
            .dPath = m_source.Path(point),
            .time = point.m_time,
            .position = position,
            .gate = {.m_dWest = position.m_dLongitude - m_dDegrees,
                     .m_dNorth = position.m_dLatitude + m_dDegrees,
                     .m_dEast = position.m_dLongitude + m_dDegrees,
                     .m_dSouth = position.m_dLatitude - m_dDegrees}};
}

/// The fastest alpha of a start that overlaps none of the chosen ones and, when `pBehind` is given, stands
/// before that one in the result order.
std::optional<SCandidate> CAlphaScan::FindBest(int nStart, const SCandidate* pBehind)
{
    std::optional<SCandidate> best;
    const SStart start = MakeStart(nStart);
    if (m_bPathGrows && m_source.Path(m_points[start.nNextRun]) - start.dPath > m_dLongest)
        return best;
    const CAlphaGrid::SRange columns = m_grid.ColumnsAround(m_grid.ColumnOf(start.position));
    const CAlphaGrid::SRange rows = m_grid.RowsAround(m_grid.RowOf(start.position));
    for (int nColumn = columns.nFirst; nColumn <= columns.nLast; ++nColumn) {
        for (int nRow = rows.nFirst; nRow <= rows.nLast; ++nRow)
            SearchCell(m_grid.CellAt(nColumn, nRow), start, pBehind, best);
    }
    return best;
}

/// Goes through the points of a cell as the track does, from the next run on: those before it end no alpha.
/// They end the search, though, when one of them is beyond the constraints.
void CAlphaScan::SearchCell(int nCell, const SStart& start, const SCandidate* pBehind,
                            std::optional<SCandidate>& best)
{
    const std::span<const int> points = m_grid.PointsIn(nCell);
    const std::size_t nFirst = FirstOfRun(nCell, start.nNextRun);
    if (nFirst == points.size())
        return;
    if (!m_latestOutside.empty() && !(m_latestOutside[m_grid.StartOf(nCell) + nFirst] < start.time.m_dDays))
        return;
    for (const int nPoint : points.subspan(nFirst)) {
        const CTrackPoint& point = m_points[nPoint];
        if (point.m_time.m_dDays < start.time.m_dDays)
            continue;
        const std::int32_t nRun = m_source.Run(point);
        if (nRun > start.nRun + 1 || (!m_outside.empty() && m_outside[static_cast<std::size_t>(nPoint)]))
            return;
        if (nRun <= start.nRun)
            continue;
        const double dPath = m_source.Path(point) - start.dPath;
        if (dPath > m_dLongest || dPath < m_dShortest || nPoint >= start.nFirstInvalid)
            return;
        if (best.has_value() && IsTooLate(point, start, *best))
            return;
        if (!PassesGate(start, nPoint))
            continue;
        const SCandidate candidate{PathSpeed(dPath, SecondsBetween(start.time, point.m_time)), start.nIndex,
                                   nPoint};
        if (best.has_value() && !m_isSlower(*best, candidate))
            continue;
        if (pBehind != nullptr && !m_isSlower(candidate, *pBehind))
            continue;
        if (!m_taken.Overlaps(start.time, point.m_time))
            best = candidate;
    }
}

/// True when no alpha that ends there or later is as fast as one that is known: even the longest would take
/// too long. A rest after the run is not searched fix by fix.
bool CAlphaScan::IsTooLate(const CTrackPoint& end, const SStart& start, const SCandidate& best) const
{
    constexpr double dHoursPerDay = 24.0;
    constexpr double dMargin = 1.001;
    constexpr double dOneSecond = DaysPerSecond; // far more than rounding the duration can take away
    return m_series.m_bInTimeOrder &&
           (end.m_time.m_dDays - start.time.m_dDays - dOneSecond) * dHoursPerDay * best.dSpeed >
               m_dLongest * dMargin;
}

std::size_t CAlphaScan::FirstOfRun(int nCell, int nNextRun)
{
    SRunInCell& run = m_runsInCells[static_cast<std::size_t>(nCell)];
    if (run.nNextRun != nNextRun) {
        const std::span<const int> points = m_grid.PointsIn(nCell);
        run.nNextRun = nNextRun;
        run.nFirst = static_cast<std::size_t>(std::lower_bound(points.begin(), points.end(), nNextRun) -
                                              points.begin());
    }
    return run.nFirst;
}

/// True when the track comes back to the start at that point. A step past the start counts although both of
/// its ends are outside of the gate; the step that leaves the gate does not.
bool CAlphaScan::PassesGate(const SStart& start, int nEnd)
{
    const CPosition& end = m_points[nEnd].m_position;
    if (nEnd == 0 || nEnd == m_points.GetCount() - 1)
        return CDistanceCalculator(m_event.m_ellipsoid).Distance(end, start.position) <
               m_division.m_dProximity;
    const CPosition& before = m_points[nEnd - 1].m_position;
    if (!SegmentBoxesOverlap(start.gate, before, end))
        return false;
    if (m_nCentre != start.nIndex) {
        m_nCentre = start.nIndex;
        m_proximity.SetCentre(start.position);
    }
    if (m_proximity.IsWithin(end))
        return true;
    if (m_proximity.IsWithin(before))
        return false;
    const auto IsPassedBy = [&](const CPosition& from, const CPosition& to) {
        const std::optional<double> distance = DistanceToSegment(start.position, from, to);
        return distance.has_value() && *distance <= m_dDegrees;
    };
    return IsPassedBy(before, end) || IsPassedBy(end, m_points[nEnd + 1].m_position);
}

void CAlphaScan::Select(CObjectArray<CResult>& results)
{
    // A heap, since only the fastest few are looked at.
    std::make_heap(m_candidates.begin(), m_candidates.end(), m_isSlower);
    const int nWanted = std::max<int>(m_event.m_nShowTopRows, m_division.m_nAverageRuns);
    int nSelected = 0;
    while (!m_candidates.empty()) {
        std::pop_heap(m_candidates.begin(), m_candidates.end(), m_isSlower);
        const SCandidate candidate = m_candidates.back();
        m_candidates.pop_back();
        const DATE& timeStart = m_points[candidate.nStart].m_time;
        const DATE& timeEnd = m_points[candidate.nEnd].m_time;
        if (!m_taken.Overlaps(timeStart, timeEnd)) {
            m_taken.Take(timeStart, timeEnd);
            std::unique_ptr<CResult> pResult = MakeAlpha(candidate);
            pResult->m_nRank = ++nSelected;
            InsertInResultOrder(results, std::move(pResult));
            if (nSelected >= nWanted)
                return;
        }
        if (const std::optional<SCandidate> next = FindBest(candidate.nStart, &candidate)) {
            m_candidates.push_back(*next);
            std::push_heap(m_candidates.begin(), m_candidates.end(), m_isSlower);
        }
    }
}

std::unique_ptr<CResult> CAlphaScan::MakeAlpha(const SCandidate& candidate) const
{
    const int nPoints = candidate.nEnd - candidate.nStart + 1;
    std::unique_ptr<CResult> pResult =
        MakePathResult(m_person, m_series, m_division, m_source, candidate.nStart, candidate.nEnd);
    EstimatePathError(*pResult, m_source, m_source.Error(m_event, m_series), nPoints);
    MeasureExtremes(*pResult, m_series, m_source.SpeedField(), candidate.nStart + 1, candidate.nEnd);
    return pResult;
}

} // namespace

bool CalculateAlphaResults(const CEvent& event, const CPerson& person, const CSeries& series,
                           const CDivision& division, CObjectArray<CResult>& results,
                           CProgressDisplay& progress)
{
    const double dDegrees = division.m_dProximity * DegreesPerKilometre;
    const CGeoRect& bounds = series.m_rcBounds;
    if (series.m_points.IsEmpty() ||
        (bounds.m_dEast - bounds.m_dWest < dDegrees && bounds.m_dNorth - bounds.m_dSouth < dDegrees))
        return false;
    CProgress shown(progress, "Calculating " + division.m_strName, series.m_points.GetCount());
    if (!(dDegrees > 0.0))
        return true;
    CAlphaScan scan(event, person, series, division);
    scan.FindCandidates(shown);
    scan.Select(results);
    return true;
}

} // namespace kestrabel
