#pragma once

#include "engine/PlainWindows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

// Alphas, laps and splits in their plainest form: every pair of points and every gate is looked at, every
// distance is measured, nothing is remembered from one point to the next.

namespace kestrabel::test {

inline constexpr double PlainDegree = 0.017453292519943295;

inline constexpr double PlainDegreesPerKilometre = 0.008999280057595392;

/// The part of a result that every kind along a path has in common.
struct SPlainSource
{
    SPlainSource(const CDivision& division, const CSeries& series)
        : bDoppler(PlainUsesDoppler(division, series))
    {
    }

    int Run(const CTrackPoint& point) const { return bDoppler ? point.m_nDopplerRun : point.m_nRun; }
    double Total(const CTrackPoint& point) const
    {
        return bDoppler ? point.m_dTotalDopplerDistance : point.m_dTotalDistance;
    }
    double Error(const CEvent& event, const CSeries& series) const
    {
        if (bDoppler)
            return series.m_dDopplerError != 0.0 ? series.m_dDopplerError : event.m_dDopplerError;
        return series.m_dTrackError != 0.0 ? series.m_dTrackError * 0.001 : event.m_dTrackpointError;
    }

    bool bDoppler;
};

inline bool PlainStartsGap(const CEvent& event, const CPoints& points, int i)
{
    const double dThreshold = event.m_nTimeThreshold;
    return i > 0 && (PlainStep(points[i]) >= dThreshold ||
                     PlainSeconds(points[i - 1].m_time, points[i].m_time) >= dThreshold);
}

inline std::unique_ptr<CResult> MakePlainPath(const CEvent& event, const CPerson& person,
                                              const CSeries& series, const CDivision& division, int i, int k,
                                              int nValues)
{
    const SPlainSource source(division, series);
    const CTrackPoint& s = series.m_points[i];
    const CTrackPoint& e = series.m_points[k];
    auto pResult = std::make_unique<CResult>();
    CResult& result = *pResult;
    result.m_nStartIndex = i;
    result.m_nEndIndex = k;
    result.m_nSeriesIndex = series.m_nSeriesIndex;
    result.m_nPersonIndex = series.m_nPersonIndex;
    result.m_posStart = s.m_position;
    result.m_timeStart = s.m_time;
    result.m_posEnd = e.m_position;
    result.m_timeEnd = e.m_time;
    result.m_dSeconds = PlainSeconds(s.m_time, e.m_time);
    result.m_dDistance = source.Total(e) - source.Total(s);
    result.m_dSpeed = std::fabs(result.m_dDistance * 3600.0 / result.m_dSeconds);
    result.m_dAltitude = s.m_nAltitude;
    result.m_dAltChange = static_cast<double>(e.m_nAltitude) - s.m_nAltitude;
    result.m_nRun = source.Run(s);
    result.m_strCompetitor = person.m_strName;
    result.m_strDivision = division.m_strName;
    result.m_strSeries = series.m_strName;
    const double dError = source.Error(event, series);
    if (dError > 0.0) {
        const double dUncertainty = 1.29 * dError / std::sqrt(static_cast<double>(nValues));
        if (source.bDoppler) {
            result.m_dDopplerError = dUncertainty;
            result.m_dClaimed = result.m_dSpeed - dUncertainty;
        } else {
            result.m_dPosError = dUncertainty;
            result.m_dClaimed = std::fabs((result.m_dDistance - dUncertainty) * 3600.0 / result.m_dSeconds);
        }
    }
    return pResult;
}

inline void PlainExtremes(CResult& result, const CPoints& points, int nFirst, int nLast, bool bDoppler)
{
    result.m_dMinSpeed = 1.7976931348623157e308;
    result.m_nSatsMin = 100;
    for (int i = nFirst; i <= nLast; ++i) {
        const double dSpeed = bDoppler ? points[i].m_dDoppler : points[i].m_dSpeed;
        if (dSpeed < result.m_dMinSpeed)
            result.m_dMinSpeed = dSpeed;
        if (dSpeed > result.m_dMaxSpeed)
            result.m_dMaxSpeed = dSpeed;
        if (points[i].m_dHDOP > result.m_dHDOPMax)
            result.m_dHDOPMax = points[i].m_dHDOP;
        if (points[i].m_nSats < result.m_nSatsMin)
            result.m_nSatsMin = points[i].m_nSats;
    }
}

/// Nothing when the foot of the perpendicular lies beyond the ends: then an infinite distance.
inline double PlainSegmentDistance(const CPosition& s, const CPosition& a, const CPosition& b)
{
    const double abx = b.m_dLongitude - a.m_dLongitude;
    const double aby = b.m_dLatitude - a.m_dLatitude;
    const double t = ((s.m_dLongitude - a.m_dLongitude) * abx + (s.m_dLatitude - a.m_dLatitude) * aby) /
                     (abx * abx + aby * aby);
    if (std::isnan(t) || t < 0.0 || t > 1.0)
        return std::numeric_limits<double>::infinity();
    const double dx = s.m_dLongitude - (a.m_dLongitude + t * abx);
    const double dy = s.m_dLatitude - (a.m_dLatitude + t * aby);
    return std::sqrt(dx * dx + dy * dy);
}

inline bool PlainOverlap(double dLow, double dHigh, double a, double b)
{
    return !(a < dLow && b < dLow) && !(a > dHigh && b > dHigh);
}

inline bool PlainBoxesOverlap(const CGeoRect& box, const CPosition& a, const CPosition& b)
{
    return PlainOverlap(box.m_dSouth, box.m_dNorth, a.m_dLatitude, b.m_dLatitude) &&
           PlainOverlap(box.m_dWest, box.m_dEast, a.m_dLongitude, b.m_dLongitude);
}

inline double PlainEventDistance(const CEvent& event, const CPosition& from, const CPosition& to)
{
    CDistanceCalculator calculator(event.m_ellipsoid, 'k');
    return calculator.Distance(from, to);
}

// ---- alphas

inline bool PlainIsWithin(const CEvent& event, const CPoints& points, int i)
{
    const CTrackPoint& point = points[i];
    if (event.m_bConstrainRegion != 0) {
        if (point.m_position.m_dLongitude < event.m_posNorthWest.m_dLongitude ||
            point.m_position.m_dLongitude > event.m_posSouthEast.m_dLongitude ||
            point.m_position.m_dLatitude > event.m_posNorthWest.m_dLatitude ||
            point.m_position.m_dLatitude < event.m_posSouthEast.m_dLatitude)
            return false;
    }
    if (event.m_bConstrainDates != 0) {
        if (point.m_time.m_dDays < event.m_dateStart.m_dDays ||
            point.m_time.m_dDays > event.m_dateEnd.m_dDays)
            return false;
    }
    return !PlainStartsGap(event, points, i);
}

inline bool PlainPassesGate(const CEvent& event, const CDivision& division, const CPoints& points, int nStart,
                            int k)
{
    const double p = division.m_dProximity;
    const double d = p * PlainDegreesPerKilometre;
    const CPosition& s = points[nStart].m_position;
    const CPosition& e = points[k].m_position;
    if (k == 0 || k == points.GetCount() - 1)
        return PlainEventDistance(event, e, s) < p;
    const CPosition& b = points[k - 1].m_position;
    const CPosition& a = points[k + 1].m_position;
    const CGeoRect gate{.m_dWest = s.m_dLongitude - d,
                        .m_dNorth = s.m_dLatitude + d,
                        .m_dEast = s.m_dLongitude + d,
                        .m_dSouth = s.m_dLatitude - d};
    if (!PlainBoxesOverlap(gate, b, e))
        return false;
    if (PlainEventDistance(event, e, s) <= p)
        return true;
    if (PlainEventDistance(event, b, s) <= p)
        return false;
    if (PlainSegmentDistance(s, b, e) <= d)
        return true;
    return PlainSegmentDistance(s, e, a) <= d;
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
            if ((point.m_nInvalidFlags & 0x79) == 0 && point.m_position.m_dLatitude != 0.0 &&
                point.m_position.m_dLongitude != 0.0)
                Cell(Column(point), Row(point)).push_back(i);
        }
    }

    int Column(const CTrackPoint& point) const
    {
        return Clamped(std::floor((point.m_position.m_dLongitude - rc.m_dWest) / w), nColumns);
    }
    int Row(const CTrackPoint& point) const
    {
        return Clamped(std::floor((point.m_position.m_dLatitude - rc.m_dSouth) / h), nRows);
    }
    static int Clamped(double dIndex, int nCount)
    {
        return static_cast<int>(std::min(std::fabs(dIndex), nCount - 1.0));
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

struct SPlainPair
{
    double dSpeed;
    int i;
    int k;
};

/// Every pair of a start in one cell and an end in it or a neighbour.
inline std::vector<SPlainPair> PlainAlphaPairs(const CEvent& event, const CSeries& series,
                                               const CDivision& division)
{
    const CPoints& points = series.m_points;
    const SPlainSource source(division, series);
    const double p = division.m_dProximity;
    const double M = division.m_dMetres * 0.001;
    SPlainGrid grid(series, p * PlainDegreesPerKilometre);
    std::vector<SPlainPair> pairs;

    const auto SearchCell = [&](int i, const std::vector<int>& cell) {
        const CTrackPoint& s = points[i];
        for (const int k : cell) {
            const CTrackPoint& e = points[k];
            if (e.m_time.m_dDays < s.m_time.m_dDays)
                continue;
            if ((e.m_nInvalidFlags & 0x79) != 0 || source.Run(e) > source.Run(s) + 1 ||
                !PlainIsWithin(event, points, k))
                return;
            if (source.Run(e) <= source.Run(s))
                continue;
            const double L = source.Total(e) - source.Total(s);
            if (L > M || L < 2.0 * p)
                return;
            if (!PlainPassesGate(event, division, points, i, k))
                continue;
            bool bDropped = false;
            for (int n = i + 1; n <= k; ++n) {
                if (division.m_bStrict != 0 && source.bDoppler && (points[n].m_nInvalidFlags & 0x7f) != 0)
                    bDropped = true;
            }
            if (!bDropped)
                pairs.push_back({std::fabs(L * 3600.0 / PlainSeconds(s.m_time, e.m_time)), i, k});
        }
    };
    for (int nColumn = 0; nColumn < grid.nColumns; ++nColumn) {
        for (int nRow = 0; nRow < grid.nRows; ++nRow) {
            for (const int i : grid.Cell(nColumn, nRow)) {
                for (int c = std::max(nColumn - 1, 0); c <= std::min(nColumn + 1, grid.nColumns - 1); ++c) {
                    for (int r = std::max(nRow - 1, 0); r <= std::min(nRow + 1, grid.nRows - 1); ++r)
                        SearchCell(i, grid.Cell(c, r));
                }
            }
        }
    }
    return pairs;
}

inline std::vector<std::unique_ptr<CResult>> PlainAlphas(const CEvent& event, const CPerson& person,
                                                         const CSeries& series, const CDivision& division)
{
    const CPoints& points = series.m_points;
    const CGeoRect& rc = series.m_rcBounds;
    const double d = division.m_dProximity * PlainDegreesPerKilometre;
    std::vector<std::unique_ptr<CResult>> selected;
    if (d == 0.0 || (rc.m_dEast - rc.m_dWest < d && rc.m_dNorth - rc.m_dSouth < d))
        return selected;
    std::vector<SPlainPair> pairs = PlainAlphaPairs(event, series, division);
    std::sort(pairs.begin(), pairs.end(), [&](const SPlainPair& a, const SPlainPair& b) {
        const double dNone = -std::numeric_limits<double>::infinity();
        const double dA = std::isnan(a.dSpeed) ? dNone : a.dSpeed;
        const double dB = std::isnan(b.dSpeed) ? dNone : b.dSpeed;
        const double dStartA = points[a.i].m_time.m_dDays;
        const double dStartB = points[b.i].m_time.m_dDays;
        if (dA != dB)
            return dA < dB;
        if (dStartA != dStartB)
            return dStartA < dStartB;
        return a.i != b.i ? a.i < b.i : a.k < b.k;
    });
    for (auto it = pairs.rbegin(); it != pairs.rend(); ++it) {
        const bool bOverlaps = std::any_of(selected.begin(), selected.end(), [&](const auto& pOther) {
            return pOther->m_timeEnd.m_dDays > points[it->i].m_time.m_dDays &&
                   pOther->m_timeStart.m_dDays < points[it->k].m_time.m_dDays;
        });
        if (bOverlaps)
            continue;
        auto pResult = MakePlainPath(event, person, series, division, it->i, it->k, it->k - it->i + 1);
        PlainExtremes(*pResult, points, it->i + 1, it->k, PlainUsesDoppler(division, series));
        pResult->m_nRank = static_cast<int>(selected.size()) + 1;
        selected.insert(selected.begin(), std::move(pResult));
        const int nSelected = static_cast<int>(selected.size());
        if (nSelected >= event.m_nShowTopRows && nSelected >= division.m_nAverageRuns)
            break;
    }
    return selected;
}

// ---- laps

inline std::string PlainCut(const std::string& strName)
{
    std::string strCut;
    int nCharacters = 0;
    for (const char c : strName) {
        if ((c & 0xC0) != 0x80 && ++nCharacters > 10)
            break;
        strCut += c;
    }
    return strCut;
}

inline std::vector<std::unique_ptr<CResult>> PlainLaps(const CEvent& event, const CPerson& person,
                                                       const CSeries& series, const CDivision& division,
                                                       const CObjectArray<CWayPoint>& gates)
{
    const CPoints& points = series.m_points;
    const SPlainSource source(division, series);
    std::vector<std::unique_ptr<CResult>> laps;
    int nStart = -1; // the point that opened a lap
    int nStartGate = -1;
    for (int i = 1; i < points.GetCount(); ++i) {
        const CPosition& p = points[i - 1].m_position;
        const CPosition& c = points[i].m_position;
        if (PlainStartsGap(event, points, i)) {
            nStart = -1;
            continue;
        }
        int nPassed = -1;
        for (int k = 0; k < gates.GetCount() && nPassed < 0; ++k) {
            const CPosition& g = gates[k].m_position;
            const double r = gates[k].m_dProximity;
            const double dLatitude = r * PlainDegreesPerKilometre;
            const double dLongitude = dLatitude / std::cos(g.m_dLatitude * PlainDegree);
            const CGeoRect box{.m_dWest = g.m_dLongitude - dLongitude,
                               .m_dNorth = g.m_dLatitude + dLatitude,
                               .m_dEast = g.m_dLongitude + dLongitude,
                               .m_dSouth = g.m_dLatitude - dLatitude};
            if (!PlainBoxesOverlap(box, p, c))
                continue;
            const bool bCrossed = PlainSegmentDistance(g, p, c) <= dLatitude;
            const double dToC = PlainEventDistance(event, g, c);
            const double dToP = PlainEventDistance(event, g, p);
            const bool bPasses = nStart < 0 ? bCrossed || dToC < r : dToC <= r || (bCrossed && dToP > r);
            if (bPasses)
                nPassed = k;
        }
        if (nPassed < 0)
            continue;
        if (nStart >= 0) {
            const double dPath = source.Total(points[i]) - source.Total(points[nStart]);
            if (!(dPath > 2.0 * gates[nPassed].m_dProximity))
                continue;
            auto pLap = MakePlainPath(event, person, series, division, nStart, i, i - nStart);
            PlainExtremes(*pLap, points, nStart, i, false);
            pLap->m_nWaypoint = nStartGate;
            pLap->m_nWaypoint2 = nPassed;
            pLap->m_strWaypoint =
                PlainCut(gates[nStartGate].m_strName) + "-" + PlainCut(gates[nPassed].m_strName);
            // Behind all that do not stand after it.
            std::size_t nPlace = laps.size();
            while (nPlace > 0 && (pLap->m_nWaypoint < laps[nPlace - 1]->m_nWaypoint ||
                                  (pLap->m_nWaypoint == laps[nPlace - 1]->m_nWaypoint &&
                                   pLap->m_dSpeed < laps[nPlace - 1]->m_dSpeed)))
                --nPlace;
            laps.insert(laps.begin() + static_cast<std::ptrdiff_t>(nPlace), std::move(pLap));
        }
        nStart = i;
        nStartGate = nPassed;
    }
    return laps;
}

// ---- splits

inline std::vector<std::unique_ptr<CResult>> PlainSplits(const CEvent& event, const CPerson& person,
                                                         const CSeries& series, const CDivision& division)
{
    const CPoints& points = series.m_points;
    const SPlainSource source(division, series);
    const double T = division.m_dMetres * 0.001;
    std::vector<std::unique_ptr<CResult>> splits;
    int a = -1;
    for (int i = 0; i < points.GetCount(); ++i) {
        if (a >= 0) {
            const bool bCloses = PlainStartsGap(event, points, i) || i == points.GetCount() - 1 ||
                                 source.Total(points[i]) - source.Total(points[a]) >= T;
            if (!bCloses)
                continue;
            auto pSplit = MakePlainPath(event, person, series, division, a, i, i - a);
            PlainExtremes(*pSplit, points, a, i, false);
            std::size_t nPlace = splits.size();
            while (nPlace > 0 && pSplit->m_timeStart.m_dDays < splits[nPlace - 1]->m_timeStart.m_dDays)
                --nPlace;
            splits.insert(splits.begin() + static_cast<std::ptrdiff_t>(nPlace), std::move(pSplit));
        }
        a = i;
    }
    return splits;
}

} // namespace kestrabel::test
