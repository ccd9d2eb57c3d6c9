#pragma once

#include "engine/PlainDerivation.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>
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

    bool IsValid(const CTrackPoint& p) const
    {
        return (p.m_nInvalidFlags & (cRule == 'E' || cRule == 'F' ? 0x75u : 0x7bu)) == 0;
    }

    bool NeedsRescan() const
    {
        if (cRule == 'A' || cRule == 'B')
            return false;
        if (cRule == 'C' || cRule == 'E')
            return !bStrict;
        return true;
    }

    bool Start(const CTrackPoint& p)
    {
        if (!IsValid(p))
            return false;
        F = L = &p;
        dDistance = dTime = dSquares = dLastSquare = 0.0;
        return true;
    }

    bool Reached() const { return (bIsDistance ? dDistance : dTime * 86400.0) >= dTarget; }
    double Speed() const { return dTime == 0.0 ? 0.0 : dDistance * 3600.0 / (dTime * 86400.0); }

    static double Length(const CTrackPoint& from, const CTrackPoint& to)
    {
        return PlainDistance(CEllipsoid(), from, to);
    }

    static double Kilometres(std::int32_t nFrom, std::int32_t nTo)
    {
        return (static_cast<double>(nTo) - static_cast<double>(nFrom)) * 0.001;
    }

    bool AddStraight(const CTrackPoint& p)
    {
        if (!IsValid(p)) {
            dDistance = 0.0;
            if (cRule == 'B')
                return !bStrict;
            dTime = dSquares = 0.0;
            return true;
        }
        const double s = PlainSeconds(F->m_time, p.m_time);
        dDistance = Length(*F, p);
        dTime = s * 1.1574074074074073e-05;
        dSquares = s * s;
        const double dz = Kilometres(F->m_nAltitude, p.m_nAltitude);
        if (cRule == 'B' && dz != 0.0)
            dDistance = std::sqrt(dDistance * dDistance + dz * dz);
        return true;
    }

    bool AddStrictTotals(const CTrackPoint& p)
    {
        dDistance = cRule == 'C' ? p.m_dTotalDistance - F->m_dTotalDistance
                                 : p.m_dTotalDopplerDistance - F->m_dTotalDopplerDistance;
        dTime = PlainSeconds(F->m_time, p.m_time) * 1.1574074074074073e-05;
        dSquares = p.m_dSumStepSquares - F->m_dSumStepSquares;
        dLastSquare = PlainStep(p) * PlainStep(p);
        return true;
    }

    bool Add(const CTrackPoint& p)
    {
        if (cRule == 'A' || cRule == 'B')
            return AddStraight(p);
        if (bStrict && !IsValid(p))
            return false;
        if (!bStrict) {
            if (!IsValid(p))
                return true;
            if (p.m_nTrack - L->m_nTrack >= 3) {
                L = &p;
                return false;
            }
        }
        if (bStrict && (cRule == 'C' || cRule == 'E'))
            return AddStrictTotals(p);

        const double s = cRule == 'D' && bStrict ? PlainStep(p) : PlainSeconds(L->m_time, p.m_time);
        const double dDays = s * 1.1574074074074073e-05;
        const double h = (L->m_dDoppler + p.m_dDoppler) * dDays * 12.0;
        const double v = (L->m_dVertSpeed + p.m_dVertSpeed) * dDays * 12.0;
        if (cRule == 'C')
            dDistance += Length(*L, p);
        if (cRule == 'D') {
            const double dStep = bStrict ? p.m_dDistance : Length(*L, p);
            const double dz = Kilometres(L->m_nAltitude, p.m_nAltitude);
            dDistance += dz == 0.0 ? dStep : std::sqrt(dStep * dStep + dz * dz);
        }
        if (cRule == 'E')
            dDistance += h;
        if (cRule == 'F' && p.m_dVertSpeed != 0.0)
            dDistance += std::sqrt(h * h + v * v);
        if (cRule == 'F' && p.m_dVertSpeed == 0.0)
            dDistance += (L->m_dDoppler + p.m_dDoppler) * p.m_dDeltaTime * 12.0;
        dTime += dDays;
        dLastSquare = s * s;
        dSquares += s * s;
        L = &p;
        return true;
    }
};

inline SPlainWindow MakePlainWindow(const CDivision& division, bool bDoppler)
{
    SPlainWindow window;
    if (bDoppler)
        window.cRule = division.m_bAccumulation != 0 && division.m_bUseAltitude != 0 ? 'F' : 'E';
    else if (division.m_bAccumulation != 0)
        window.cRule = division.m_bUseAltitude != 0 ? 'D' : 'C';
    else
        window.cRule = division.m_bUseAltitude != 0 ? 'B' : 'A';
    window.bStrict = division.m_bStrict != 0;
    window.bIsDistance = division.m_nKind == 1;
    window.dTarget = window.bIsDistance ? division.m_dMetres * 0.001 : division.m_nSeconds - 0.001;
    return window;
}

inline bool PlainUsesDoppler(const CDivision& division, const CSeries& series)
{
    return division.m_nCalcUsing == 1 || (division.m_nCalcUsing == 2 && series.m_bHasDoppler != 0);
}

inline CResult MakePlainCandidate(const CEvent& event, const CPerson& person, const CSeries& series,
                                  const CDivision& division, const SPlainWindow& window, int i, int j)
{
    const bool bDoppler = PlainUsesDoppler(division, series);
    const CTrackPoint& start = series.m_points[i];
    const CTrackPoint& end = series.m_points[j];
    CResult result;
    result.m_nStartIndex = i;
    result.m_nEndIndex = j;
    result.m_nSeriesIndex = series.m_nSeriesIndex;
    result.m_nPersonIndex = series.m_nPersonIndex;
    result.m_posStart = start.m_position;
    result.m_timeStart = start.m_time;
    result.m_posEnd = end.m_position;
    result.m_timeEnd = end.m_time;
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
        if (dSpeed < result.m_dMinSpeed)
            result.m_dMinSpeed = dSpeed;
        if (dSpeed > result.m_dMaxSpeed)
            result.m_dMaxSpeed = dSpeed;
        if (point.m_dHDOP > result.m_dHDOPMax)
            result.m_dHDOPMax = point.m_dHDOP;
        if (point.m_nSats < result.m_nSatsMin)
            result.m_nSatsMin = point.m_nSats;
    }
    result.m_dDirection = dDirections / (j - i);
    result.m_dWindAngle = PlainWindAngle(result.m_dDirection, series.m_dWindDirection);
    result.m_dAltitude = start.m_nAltitude;
    result.m_dAltChange = static_cast<double>(end.m_nAltitude) - start.m_nAltitude;
    result.m_nRun = bDoppler ? start.m_nDopplerRun : start.m_nRun;
    result.m_strCompetitor = person.m_strName;
    result.m_strDivision = division.m_strName;
    result.m_strSeries = series.m_strName;
    const double e = series.m_dDopplerError != 0.0 ? series.m_dDopplerError : event.m_dDopplerError;
    if (bDoppler && e > 0.0) {
        result.m_dDopplerError =
            e * std::sqrt(window.dSquares - window.dLastSquare * 0.5) / (window.dTime * 86400.0);
        result.m_dClaimed = result.m_dSpeed - 2.0 * result.m_dDopplerError;
    }
    return result;
}

/// True when `a` stands before `b`: slower, or as fast and earlier. No number is slower than any.
inline bool PlainStandsBefore(const CResult& a, const CResult& b)
{
    const double dNone = -std::numeric_limits<double>::infinity();
    const double dA = std::isnan(a.m_dSpeed) ? dNone : a.m_dSpeed;
    const double dB = std::isnan(b.m_dSpeed) ? dNone : b.m_dSpeed;
    return dA < dB || (dA == dB && a.m_timeStart.m_dDays < b.m_timeStart.m_dDays);
}

/// Inserts behind all that do not stand after the result.
inline void PlainInsert(std::vector<CResult>& results, const CResult& result)
{
    std::size_t nPlace = results.size();
    while (nPlace > 0 && PlainStandsBefore(result, results[nPlace - 1]))
        --nPlace;
    results.insert(results.begin() + static_cast<std::ptrdiff_t>(nPlace), result);
}

inline std::vector<CResult> PlainCandidates(const CEvent& event, const CPerson& person, const CSeries& series,
                                            const CDivision& division)
{
    const bool bDoppler = PlainUsesDoppler(division, series);
    const CPoints& points = series.m_points;
    const int n = points.GetCount();
    SPlainWindow window = MakePlainWindow(division, bDoppler);
    std::vector<CResult> candidates;
    int i = 0;
    int j = 1;
    while (i < n - 1) {
        if (!window.Start(points[i])) {
            ++i;
            continue;
        }
        if (window.NeedsRescan())
            j = i + 1;
        j = std::max(j, i + 1);
        int nNext = i + 1;
        while (j < n) {
            const CTrackPoint& c = points[j];
            const double dSpeed = bDoppler ? c.m_dDoppler : c.m_dSpeed;
            const int nRun = bDoppler ? c.m_nDopplerRun : c.m_nRun;
            const int nStartRun = bDoppler ? points[i].m_nDopplerRun : points[i].m_nRun;
            if (division.m_bOneResultPerRun != 0 && (dSpeed < event.m_dStopRunSpeed || nRun != nStartRun)) {
                nNext = j + 1;
                break;
            }
            if (!window.Add(c)) {
                nNext = j + 2;
                j = j + 1;
                break;
            }
            if (window.Reached()) {
                PlainInsert(candidates, MakePlainCandidate(event, person, series, division, window, i, j));
                break;
            }
            if (j + 1 == n)
                break; // j stays at the last point
            ++j;
        }
        i = nNext;
    }
    return candidates;
}

inline std::vector<CResult> PlainWindowResults(const CEvent& event, const CPerson& person,
                                               const CSeries& series, const CDivision& division)
{
    std::vector<CResult> selected;
    const std::vector<CResult> candidates = PlainCandidates(event, person, series, division);
    for (auto it = candidates.rbegin(); it != candidates.rend(); ++it) {
        bool bSkip = false;
        for (const CResult& other : selected) {
            if (division.m_bOneResultPerRun != 0 && other.m_nRun == it->m_nRun)
                bSkip = true;
            if (other.m_timeEnd.m_dDays > it->m_timeStart.m_dDays &&
                other.m_timeStart.m_dDays < it->m_timeEnd.m_dDays)
                bSkip = true;
        }
        if (bSkip)
            continue;
        CResult result = *it;
        result.m_nRank = static_cast<int>(selected.size()) + 1;
        PlainInsert(selected, result);
        const int nSelected = static_cast<int>(selected.size());
        if (nSelected >= event.m_nShowTopRows && nSelected >= division.m_nAverageRuns)
            break;
    }
    return selected;
}

/// What a division that averages N runs makes of the results of one track file.
inline std::vector<CResult> PlainCombined(const std::vector<CResult>& results, int N)
{
    if (N <= 1 || results.empty())
        return results;
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
        for (double SResultValues::*pSum :
             {&SResultValues::m_dDistance, &SResultValues::m_dDirection, &SResultValues::m_dWindAngle,
              &SResultValues::m_dSpeed, &SResultValues::m_dSeconds, &SResultValues::m_dAltitude,
              &SResultValues::m_dAltChange})
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
    for (double SResultValues::*pMean :
         {&SResultValues::m_dDistance, &SResultValues::m_dDirection, &SResultValues::m_dWindAngle,
          &SResultValues::m_dSpeed, &SResultValues::m_dAltitude})
        combined.*pMean /= N;
    combined.m_dDopplerError = std::sqrt(dSquares) / N;
    combined.m_dPosError = std::sqrt(dPosition) / N;
    if (combined.m_dDopplerError > 0.0001)
        combined.m_dClaimed = combined.m_dSpeed - 2.0 * combined.m_dDopplerError;
    return {combined};
}

} // namespace kestrabel::test
