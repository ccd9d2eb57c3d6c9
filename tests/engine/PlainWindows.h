#pragma once

#include "engine/PlainSearch.h"

#include <cmath>
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

inline CResult MakePlainCandidate(const SPlainSearch& search, const SPlainWindow& window, int i, int j)
{
    CResult result = search.Stretch(i, j, i + 1, search.bDoppler);
    result.m_dSeconds = window.dTime * 86400.0;
    result.m_dDistance = window.dDistance;
    result.m_dSpeed = window.Speed();
    for (int k = i + 1; k <= j; ++k)
        result.m_dDirection += search.points[k].m_dDirection;
    result.m_dDirection /= j - i;
    result.m_dWindAngle = WindAngle(result.m_dDirection, search.series.m_dWindDirection);
    const double e = search.DopplerError();
    if (search.bDoppler && e > 0.0) {
        result.m_dDopplerError =
            e * std::sqrt(window.dSquares - window.dLastSquare * 0.5) / (window.dTime * 86400.0);
        result.m_dClaimed = result.m_dSpeed - 2.0 * result.m_dDopplerError;
    }
    return result;
}

inline std::vector<CResult> PlainCandidates(const SPlainSearch& search)
{
    const CPoints& points = search.points;
    const int n = points.GetCount();
    SPlainWindow window = MakePlainWindow(search.division, search.bDoppler);
    std::vector<CResult> candidates;
    for (int i = 0, j = 1, nNext = 1; i < n - 1; i = nNext) {
        nNext = i + 1;
        if (!window.Start(points[i]))
            continue;
        j = window.NeedsRescan() ? i + 1 : std::max(j, i + 1);
        for (; j < n; ++j) {
            const bool bStopped = search.Speed(j) < search.event.m_dStopRunSpeed;
            if (search.division.m_bOneResultPerRun != 0 && (bStopped || search.Run(j) != search.Run(i))) {
                nNext = j + 1;
                break;
            }
            if (!window.Add(points[j])) {
                nNext = j + 2;
                ++j;
                break;
            }
            if (window.Reached()) {
                PlainInsert(candidates, MakePlainCandidate(search, window, i, j));
                break;
            }
        }
        j = std::min(j, n - 1);
    }
    return candidates;
}

inline std::vector<CResult> PlainWindowResults(const SPlainSearch& search)
{
    std::vector<CResult> selected;
    const std::vector<CResult> candidates = PlainCandidates(search);
    for (auto it = candidates.rbegin(); it != candidates.rend(); ++it) {
        const auto Excludes = [&](const CResult& other) {
            return (search.division.m_bOneResultPerRun != 0 && other.m_nRun == it->m_nRun) ||
                   (other.m_timeEnd.m_dDays > it->m_timeStart.m_dDays &&
                    other.m_timeStart.m_dDays < it->m_timeEnd.m_dDays);
        };
        if (std::any_of(selected.begin(), selected.end(), Excludes))
            continue;
        CResult result = *it;
        result.m_nRank = static_cast<int>(selected.size()) + 1;
        PlainInsert(selected, result);
        if (result.m_nRank >= search.event.m_nShowTopRows && result.m_nRank >= search.division.m_nAverageRuns)
            break;
    }
    return selected;
}

} // namespace kestrabel::test
