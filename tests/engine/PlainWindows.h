#pragma once

#include "engine/PlainDerivation.h"
#include "engine/ResultBuilder.h"

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

// The search for the best windows in its plainest form: every candidate is measured in full when it is found
// and kept in one sorted list, and the choice compares each with all that were chosen before.

namespace kestrabel::test {

/// The six ways of measuring a window: A straight line, B with altitude, C along the track, D with altitude,
/// E Doppler, F Doppler with vertical speed.
struct SPlainWindow
{
    char cRule = 'A';
    bool bIsDistance = true;
    bool bStrict = true;
    double dTarget = 0.0;
    double dDistance = 0.0; ///< km
    double dTime = 0.0;     ///< days
    double dSquares = 0.0;
    double dLastSquare = 0.0;
    const CTrackPoint* F = nullptr;
    const CTrackPoint* L = nullptr;

    bool IsDoppler() const { return cRule == 'E' || cRule == 'F'; }
    bool IsStraight() const { return cRule == 'A' || cRule == 'B'; }
    bool IsTotal() const { return bStrict && (cRule == 'C' || cRule == 'E'); }
    bool NeedsRescan() const { return !IsStraight() && !IsTotal(); }
    bool IsValid(const CTrackPoint& p) const
    {
        return (p.m_nInvalidFlags & (IsDoppler() ? 0x75u : 0x7bu)) == 0;
    }
    bool Reached() const { return (bIsDistance ? dDistance : dTime * 86400.0) >= dTarget; }
    double Speed() const { return dTime == 0.0 ? 0.0 : dDistance * 3600.0 / (dTime * 86400.0); }

    bool Start(const CTrackPoint& p)
    {
        F = L = &p;
        dDistance = dTime = dSquares = dLastSquare = 0.0;
        return IsValid(p);
    }

    static double Slope(double dLevel, const CTrackPoint& from, const CTrackPoint& to)
    {
        const double dz = (static_cast<double>(to.m_nAltitude) - from.m_nAltitude) * 0.001;
        return dz == 0.0 ? dLevel : std::sqrt(dLevel * dLevel + dz * dz);
    }

    void MeasureFromStart(const CTrackPoint& p)
    {
        const double s = PlainSeconds(F->m_time, p.m_time);
        dTime = s * 1.1574074074074073e-05;
        dSquares = IsStraight() ? s * s : p.m_dSumStepSquares - F->m_dSumStepSquares;
        dLastSquare = IsStraight() ? 0.0 : PlainStep(p) * PlainStep(p);
        switch (cRule) {
        case 'A': dDistance = PlainDistance(CEllipsoid(), *F, p); break;
        case 'B': dDistance = Slope(PlainDistance(CEllipsoid(), *F, p), *F, p); break;
        case 'C': dDistance = p.m_dTotalDistance - F->m_dTotalDistance; break;
        default: dDistance = p.m_dTotalDopplerDistance - F->m_dTotalDopplerDistance;
        }
    }

    void MeasureStep(const CTrackPoint& p)
    {
        const bool bStored = cRule == 'D' && bStrict;
        const double s = bStored ? PlainStep(p) : PlainSeconds(L->m_time, p.m_time);
        const double dDays = s * 1.1574074074074073e-05;
        const double dLength = bStored ? p.m_dDistance : PlainDistance(CEllipsoid(), *L, p);
        const double dDopplers = L->m_dDoppler + p.m_dDoppler;
        const double h = dDopplers * dDays * 12.0;
        const double v = (L->m_dVertSpeed + p.m_dVertSpeed) * dDays * 12.0;
        const double dLevel = dDopplers * p.m_dDeltaTime * 12.0;
        switch (cRule) {
        case 'C': dDistance += dLength; break;
        case 'D': dDistance += Slope(dLength, *L, p); break;
        case 'E': dDistance += h; break;
        default: dDistance += p.m_dVertSpeed == 0.0 ? dLevel : std::sqrt(h * h + v * v);
        }
        dTime += dDays;
        dLastSquare = s * s;
        dSquares += s * s;
        L = &p;
    }

    bool Add(const CTrackPoint& p)
    {
        if (!IsValid(p)) {
            if (IsStraight())
                dDistance = 0.0;
            if (cRule == 'A')
                dTime = dSquares = 0.0;
            return cRule == 'A' || !bStrict;
        }
        if (NeedsRescan() && !bStrict && p.m_nTrack - L->m_nTrack >= 3)
            return false;
        NeedsRescan() ? MeasureStep(p) : MeasureFromStart(p);
        return true;
    }
};

inline SPlainWindow MakePlainWindow(const CDivision& division, bool bDoppler)
{
    SPlainWindow window;
    window.cRule = "ABCDEEEF"[4 * bDoppler + 2 * division.m_bAccumulation + division.m_bUseAltitude];
    window.bStrict = division.m_bStrict != 0;
    window.bIsDistance = division.m_nKind == 1;
    window.dTarget = window.bIsDistance ? division.m_dMetres * 0.001 : division.m_nSeconds - 0.001;
    return window;
}

inline bool PlainUsesDoppler(const CDivision& division, const CSeries& series)
{
    return division.m_nCalcUsing == 1 || (division.m_nCalcUsing == 2 && series.m_bHasDoppler != 0);
}

inline int PlainRun(const CTrackPoint& point, bool bDoppler)
{
    return bDoppler ? point.m_nDopplerRun : point.m_nRun;
}

inline CResult MakePlainCandidate(const CEvent& event, const CPerson& person, const CSeries& series,
                                  const CDivision& division, const SPlainWindow& window, int i, int j)
{
    const bool bDoppler = PlainUsesDoppler(division, series);
    // Names, positions and times are copied alike for every kind of division.
    CResult result = *MakeResult(person, series, division, CSpeedSource(division, series), i, j);
    result.m_dSeconds = window.dTime * 86400.0;
    result.m_dDistance = window.dDistance;
    result.m_dSpeed = window.Speed();
    result.m_dMinSpeed = std::numeric_limits<double>::max();
    result.m_nSatsMin = 100;
    double dDirections = 0.0;
    for (int k = i + 1; k <= j; ++k) {
        const CTrackPoint& point = series.m_points[k];
        const double dSpeed = bDoppler ? point.m_dDoppler : point.m_dSpeed;
        dDirections += point.m_dDirection;
        result.m_dMinSpeed = std::min(result.m_dMinSpeed, dSpeed);
        result.m_dMaxSpeed = std::max(result.m_dMaxSpeed, dSpeed);
        result.m_dHDOPMax = std::max(result.m_dHDOPMax, point.m_dHDOP);
        result.m_nSatsMin = std::min(result.m_nSatsMin, point.m_nSats);
    }
    result.m_dDirection = dDirections / (j - i);
    result.m_dWindAngle = WindAngle(result.m_dDirection, series.m_dWindDirection);
    result.m_nRun = PlainRun(series.m_points[i], bDoppler);
    const double e = series.m_dDopplerError != 0.0 ? series.m_dDopplerError : event.m_dDopplerError;
    if (bDoppler && e > 0.0) {
        result.m_dDopplerError =
            e * std::sqrt(window.dSquares - window.dLastSquare * 0.5) / (window.dTime * 86400.0);
        result.m_dClaimed = result.m_dSpeed - 2.0 * result.m_dDopplerError;
    }
    return result;
}

/// The order of results: by speed, a number above none, then by start.
inline std::pair<double, double> PlainOrder(const CResult& result)
{
    const double dNone = -std::numeric_limits<double>::infinity();
    return {std::isnan(result.m_dSpeed) ? dNone : result.m_dSpeed, result.m_timeStart.m_dDays};
}

/// Inserts behind all that do not stand after the result.
inline void PlainInsert(std::vector<CResult>& results, const CResult& result)
{
    const auto StandsAfter = [&](const CResult& other) { return PlainOrder(result) < PlainOrder(other); };
    results.insert(std::find_if(results.begin(), results.end(), StandsAfter), result);
}

inline std::vector<CResult> PlainCandidates(const CEvent& event, const CPerson& person, const CSeries& series,
                                            const CDivision& division)
{
    const bool bDoppler = PlainUsesDoppler(division, series);
    const CPoints& points = series.m_points;
    const int n = points.GetCount();
    SPlainWindow window = MakePlainWindow(division, bDoppler);
    std::vector<CResult> candidates;
    for (int i = 0, j = 1, nNext = 1; i < n - 1; i = nNext) {
        nNext = i + 1;
        if (!window.Start(points[i]))
            continue;
        j = window.NeedsRescan() ? i + 1 : std::max(j, i + 1);
        for (; j < n; ++j) {
            const CTrackPoint& c = points[j];
            const bool bOtherRun = PlainRun(c, bDoppler) != PlainRun(points[i], bDoppler);
            const bool bStopped = (bDoppler ? c.m_dDoppler : c.m_dSpeed) < event.m_dStopRunSpeed;
            if (division.m_bOneResultPerRun != 0 && (bStopped || bOtherRun)) {
                nNext = j + 1;
                break;
            }
            if (!window.Add(c)) {
                nNext = j + 2;
                ++j;
                break;
            }
            if (window.Reached()) {
                PlainInsert(candidates, MakePlainCandidate(event, person, series, division, window, i, j));
                break;
            }
        }
        j = std::min(j, n - 1);
    }
    return candidates;
}

inline std::vector<CResult> PlainWindowResults(const CEvent& event, const CPerson& person,
                                               const CSeries& series, const CDivision& division)
{
    std::vector<CResult> selected;
    const std::vector<CResult> candidates = PlainCandidates(event, person, series, division);
    for (auto it = candidates.rbegin(); it != candidates.rend(); ++it) {
        const auto Excludes = [&](const CResult& other) {
            return (division.m_bOneResultPerRun != 0 && other.m_nRun == it->m_nRun) ||
                   (other.m_timeEnd.m_dDays > it->m_timeStart.m_dDays &&
                    other.m_timeStart.m_dDays < it->m_timeEnd.m_dDays);
        };
        if (std::any_of(selected.begin(), selected.end(), Excludes))
            continue;
        CResult result = *it;
        result.m_nRank = static_cast<int>(selected.size()) + 1;
        PlainInsert(selected, result);
        if (result.m_nRank >= event.m_nShowTopRows && result.m_nRank >= division.m_nAverageRuns)
            break;
    }
    return selected;
}

/// What a division that averages N runs makes of the results of one track file.
inline std::vector<CResult> PlainCombined(const std::vector<CResult>& results, int N)
{
    if (N <= 1 || results.empty())
        return results;
    using C = SResultValues;
    CResult combined = results.back();
    double dSquares = combined.m_dDopplerError * combined.m_dDopplerError;
    double dPosition = combined.m_dPosError * combined.m_dPosError;
    int nTaken = 1;
    for (auto it = results.rbegin() + 1; it != results.rend() && nTaken < N; ++it, ++nTaken) {
        if (std::isnan(it->m_dSpeed))
            break; // nothing to average
        if (it->m_timeStart.m_dDays < combined.m_timeStart.m_dDays) {
            combined.m_timeStart = it->m_timeStart;
            combined.m_posStart = it->m_posStart;
        }
        if (it->m_timeEnd.m_dDays > combined.m_timeEnd.m_dDays) {
            combined.m_timeEnd = it->m_timeEnd;
            combined.m_posEnd = it->m_posEnd;
        }
        for (const auto pSum : {&C::m_dDistance, &C::m_dDirection, &C::m_dWindAngle, &C::m_dSpeed,
                                &C::m_dAltitude, &C::m_dSeconds, &C::m_dAltChange})
            combined.*pSum += (*it).*pSum;
        combined.m_dMinSpeed = std::min(combined.m_dMinSpeed, it->m_dMinSpeed);
        combined.m_dMaxSpeed = std::max(combined.m_dMaxSpeed, it->m_dMaxSpeed);
        combined.m_dHDOPMax = std::max(combined.m_dHDOPMax, it->m_dHDOPMax);
        combined.m_nSatsMin = std::min(combined.m_nSatsMin, it->m_nSatsMin);
        combined.m_nStartIndex = std::min(combined.m_nStartIndex, it->m_nStartIndex);
        combined.m_nEndIndex = std::max(combined.m_nEndIndex, it->m_nEndIndex);
        dSquares += it->m_dDopplerError * it->m_dDopplerError;
        dPosition += it->m_dPosError * it->m_dPosError;
    }
    for (const auto pMean :
         {&C::m_dDistance, &C::m_dDirection, &C::m_dWindAngle, &C::m_dSpeed, &C::m_dAltitude})
        combined.*pMean /= N;
    combined.m_dPosError = std::sqrt(dPosition) / N;
    combined.m_dDopplerError = std::sqrt(dSquares) / N;
    if (combined.m_dDopplerError > 0.0001)
        combined.m_dClaimed = combined.m_dSpeed - 2.0 * combined.m_dDopplerError;
    return {combined};
}

} // namespace kestrabel::test
