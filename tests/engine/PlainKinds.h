#pragma once

#include "engine/PlainSearch.h"
#include "geo/Segment.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

// Alphas, laps and splits in their plainest form: every pair of points and every gate is looked at, every
// distance is measured, nothing is remembered from one point to the next.

namespace kestrabel::test {

inline constexpr double PlainDegreesPerKilometre = 0.008999280057595392;

/// A result along the path, from point i to point k, of so many measured values.
inline CResult MakePlainPath(const SPlainSearch& search, int i, int k, int nFirst, int nValues,
                             bool bDopplerExtremes)
{
    CResult result = search.Stretch(i, k, nFirst, bDopplerExtremes);
    result.m_dSeconds = PlainSeconds(result.m_timeStart, result.m_timeEnd);
    result.m_dDistance = search.Total(k) - search.Total(i);
    result.m_dSpeed = std::fabs(result.m_dDistance * 3600.0 / result.m_dSeconds);
    const double dMetres = search.series.m_dTrackError;
    const double dError = search.bDoppler  ? search.DopplerError()
                          : dMetres != 0.0 ? dMetres * 0.001
                                           : search.event.m_dTrackpointError;
    if (dError > 0.0) {
        const double dUncertainty = 1.29 * dError / std::sqrt(static_cast<double>(nValues));
        (search.bDoppler ? result.m_dDopplerError : result.m_dPosError) = dUncertainty;
        result.m_dClaimed = search.bDoppler
                                ? result.m_dSpeed - dUncertainty
                                : std::fabs((result.m_dDistance - dUncertainty) * 3600.0 / result.m_dSeconds);
    }
    return result;
}

inline bool PlainLineWithin(const CPosition& position, const CPosition& from, const CPosition& to, double d)
{
    const auto distance = DistanceToSegment(position, from, to);
    return distance.has_value() && *distance <= d;
}

// ---- alphas

inline bool PlainIsWithin(const SPlainSearch& search, int i)
{
    const CEvent& event = search.event;
    const CTrackPoint& point = search.points[i];
    const CPosition& at = point.m_position;
    const bool bOutOfRegion = at.m_dLongitude < event.m_posNorthWest.m_dLongitude ||
                              at.m_dLongitude > event.m_posSouthEast.m_dLongitude ||
                              at.m_dLatitude > event.m_posNorthWest.m_dLatitude ||
                              at.m_dLatitude < event.m_posSouthEast.m_dLatitude;
    const bool bOutOfDates =
        point.m_time.m_dDays < event.m_dateStart.m_dDays || point.m_time.m_dDays > event.m_dateEnd.m_dDays;
    return !(event.m_bConstrainRegion != 0 && bOutOfRegion) &&
           !(event.m_bConstrainDates != 0 && bOutOfDates) && !search.StartsGap(i);
}

inline bool PlainPassesGate(const SPlainSearch& search, int nStart, int k)
{
    const double p = search.division.m_dProximity;
    const double d = p * PlainDegreesPerKilometre;
    const CPoints& points = search.points;
    const CPosition& s = points[nStart].m_position;
    const CPosition& e = points[k].m_position;
    const auto Distance = [&](int i) {
        return PlainDistance(search.event.m_ellipsoid, points[i], points[nStart]);
    };
    if (k == 0 || k == points.GetCount() - 1)
        return Distance(k) < p;
    const CPosition& b = points[k - 1].m_position;
    const CGeoRect gate{s.m_dLongitude - d, s.m_dLatitude + d, s.m_dLongitude + d, s.m_dLatitude - d};
    if (!SegmentBoxesOverlap(gate, b, e))
        return false;
    if (Distance(k) <= p || Distance(k - 1) <= p)
        return Distance(k) <= p;
    return PlainLineWithin(s, b, e, d) || PlainLineWithin(s, e, points[k + 1].m_position, d);
}

/// A grid with the points of each cell.
struct SPlainGrid
{
    SPlainGrid(const CSeries& series, double d) : rc(series.m_rcBounds)
    {
        w = std::max(d, (rc.m_dEast - rc.m_dWest) * 0.03333333333333333);
        h = std::max(d, (rc.m_dNorth - rc.m_dSouth) * 0.03333333333333333);
        nColumns = static_cast<int>(std::floor((rc.m_dEast - rc.m_dWest) / w)) + 1;
        nRows = static_cast<int>(std::floor((rc.m_dNorth - rc.m_dSouth) / h)) + 1;
        cells.resize(static_cast<std::size_t>(nColumns * nRows));
        for (int i = 0; i < series.m_points.GetCount(); ++i) {
            const CTrackPoint& point = series.m_points[i];
            const double x = std::fabs(std::floor((point.m_position.m_dLongitude - rc.m_dWest) / w));
            const double y = std::fabs(std::floor((point.m_position.m_dLatitude - rc.m_dSouth) / h));
            if ((point.m_nInvalidFlags & 0x79) == 0 && point.m_position.m_dLatitude != 0.0 &&
                point.m_position.m_dLongitude != 0.0)
                Cell(static_cast<int>(std::min(x, nColumns - 1.0)),
                     static_cast<int>(std::min(y, nRows - 1.0)))
                    .push_back(i);
        }
    }

    std::vector<int>& Cell(int nColumn, int nRow)
    {
        return cells[static_cast<std::size_t>(nColumn * nRows + nRow)];
    }

    CGeoRect rc;
    double w = 0.0;
    double h = 0.0;
    int nColumns = 0;
    int nRows = 0;
    std::vector<std::vector<int>> cells;
};

/// The alphas from point i to the points of a cell.
inline void PlainSearchCell(const SPlainSearch& search, int i, const std::vector<int>& cell,
                            std::vector<CResult>& alphas)
{
    const CPoints& points = search.points;
    if (i == points.GetCount() - 1)
        return; // nothing comes behind it
    for (const int k : cell) {
        if (points[k].m_time.m_dDays < points[i].m_time.m_dDays)
            continue;
        if (search.Run(k) > search.Run(i) + 1 || !PlainIsWithin(search, k))
            return;
        if (search.Run(k) <= search.Run(i))
            continue;
        const double L = search.Total(k) - search.Total(i);
        if (L > search.division.m_dMetres * 0.001 || L < 2.0 * search.division.m_dProximity)
            return;
        bool bCounts = PlainPassesGate(search, i, k);
        for (int n = i + 1; bCounts && n <= k; ++n)
            bCounts = search.division.m_bStrict == 0 || !search.bDoppler || points[n].m_nInvalidFlags == 0;
        if (bCounts)
            alphas.push_back(MakePlainPath(search, i, k, i + 1, k - i + 1, search.bDoppler));
    }
}

/// Every pair of a start in one cell and an end in it or a neighbour, and of these the fastest.
inline std::vector<CResult> PlainAlphas(const SPlainSearch& search)
{
    const CGeoRect& rc = search.series.m_rcBounds;
    const double d = search.division.m_dProximity * PlainDegreesPerKilometre;
    std::vector<CResult> alphas;
    std::vector<CResult> selected;
    if (d == 0.0 || (rc.m_dEast - rc.m_dWest < d && rc.m_dNorth - rc.m_dSouth < d))
        return selected;
    SPlainGrid grid(search.series, d);
    for (int x = 0; x < grid.nColumns; ++x) {
        for (int y = 0; y < grid.nRows; ++y) {
            for (const int i : grid.Cell(x, y)) {
                for (int c = std::max(x - 1, 0); c <= std::min(x + 1, grid.nColumns - 1); ++c) {
                    for (int r = std::max(y - 1, 0); r <= std::min(y + 1, grid.nRows - 1); ++r)
                        PlainSearchCell(search, i, grid.Cell(c, r), alphas);
                }
            }
        }
    }
    const auto Order = [](const CResult& result) {
        return std::tuple(PlainOrder(result), result.m_nStartIndex, result.m_nEndIndex);
    };
    std::sort(alphas.begin(), alphas.end(),
              [&](const CResult& one, const CResult& other) { return Order(other) < Order(one); });
    for (CResult& alpha : alphas) {
        const auto Overlaps = [&](const CResult& other) {
            return other.m_timeEnd.m_dDays > alpha.m_timeStart.m_dDays &&
                   other.m_timeStart.m_dDays < alpha.m_timeEnd.m_dDays;
        };
        if (std::any_of(selected.begin(), selected.end(), Overlaps))
            continue;
        alpha.m_nRank = static_cast<int>(selected.size()) + 1;
        selected.insert(selected.begin(), alpha);
        if (alpha.m_nRank >= search.event.m_nShowTopRows && alpha.m_nRank >= search.division.m_nAverageRuns)
            break;
    }
    return selected;
}

// ---- laps

inline std::vector<CResult> PlainLaps(const SPlainSearch& search, const CObjectArray<CWayPoint>& gates)
{
    const CPoints& points = search.points;
    std::vector<CResult> laps;
    int nStart = -1; // the point that opened a lap
    int nStartGate = -1;
    const auto Passes = [&](int i, const CWayPoint& gate) {
        const CPosition& p = points[i - 1].m_position;
        const CPosition& c = points[i].m_position;
        const double r = gate.m_dProximity;
        if (!SegmentBoxesOverlap(BoxAround(gate.m_position, r), p, c))
            return false;
        const bool bCrossed = PlainLineWithin(gate.m_position, p, c, r * PlainDegreesPerKilometre);
        CDistanceCalculator calculator(search.event.m_ellipsoid, 'k');
        const double dToC = calculator.Distance(gate.m_position, c);
        const double dToP = calculator.Distance(gate.m_position, p);
        return nStart < 0 ? bCrossed || dToC < r : dToC <= r || (bCrossed && dToP > r);
    };
    for (int i = 1; i < points.GetCount(); ++i) {
        if (search.StartsGap(i)) {
            nStart = -1;
            continue;
        }
        int nPassed = 0;
        while (nPassed < gates.GetCount() && !Passes(i, gates[nPassed]))
            ++nPassed;
        if (nPassed == gates.GetCount())
            continue;
        if (nStart >= 0) {
            if (!(search.Total(i) - search.Total(nStart) > 2.0 * gates[nPassed].m_dProximity))
                continue;
            CResult lap = MakePlainPath(search, nStart, i, nStart, i - nStart, false);
            lap.m_nWaypoint = nStartGate;
            lap.m_nWaypoint2 = nPassed;
            const auto StandsAfter = [&](const CResult& other) {
                return std::pair(lap.m_nWaypoint, lap.m_dSpeed) <
                       std::pair(other.m_nWaypoint, other.m_dSpeed);
            };
            laps.insert(std::find_if(laps.begin(), laps.end(), StandsAfter), lap);
        }
        nStart = i;
        nStartGate = nPassed;
    }
    return laps;
}

// ---- splits

inline std::vector<CResult> PlainSplits(const SPlainSearch& search)
{
    const int nLast = search.points.GetCount() - 1;
    std::vector<CResult> splits;
    int a = 0;
    for (int i = 1; i <= nLast; ++i) {
        if (!search.StartsGap(i) && i < nLast &&
            search.Total(i) - search.Total(a) < search.division.m_dMetres * 0.001)
            continue;
        const CResult split = MakePlainPath(search, a, i, a, i - a, false);
        const auto StandsAfter = [&](const CResult& other) {
            return split.m_timeStart.m_dDays < other.m_timeStart.m_dDays;
        };
        splits.insert(std::find_if(splits.begin(), splits.end(), StandsAfter), split);
        a = i;
    }
    return splits;
}

} // namespace kestrabel::test
