#pragma once

#include "engine/PlainDerivation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

// What the plain searches have in common: the values of a stretch, the order of results, the average of runs.

namespace kestrabel::test {

/// A track file and the division that results are searched for.
struct SPlainSearch
{
    const CEvent& event;
    const CPerson& person;
    const CSeries& series;
    const CDivision& division;
    const CPoints& points = series.m_points;
    bool bDoppler = division.m_nCalcUsing == 1 || (division.m_nCalcUsing == 2 && series.m_bHasDoppler != 0);

    int Run(int i) const { return bDoppler ? points[i].m_nDopplerRun : points[i].m_nRun; }
    double Speed(int i) const { return bDoppler ? points[i].m_dDoppler : points[i].m_dSpeed; }
    double Total(int i) const
    {
        return bDoppler ? points[i].m_dTotalDopplerDistance : points[i].m_dTotalDistance;
    }
    double DopplerError() const
    {
        return series.m_dDopplerError != 0.0 ? series.m_dDopplerError : event.m_dDopplerError;
    }
    bool StartsGap(int i) const
    {
        const double dThreshold = event.m_nTimeThreshold;
        return i > 0 && (PlainStep(points[i]) >= dThreshold ||
                         PlainSeconds(points[i - 1].m_time, points[i].m_time) >= dThreshold);
    }

    /// From point i to point k, with the extremes from point `nFirst` on.
    CResult Stretch(int i, int k, int nFirst, bool bDopplerExtremes) const
    {
        CResult result;
        result.m_nStartIndex = i;
        result.m_nEndIndex = k;
        result.m_nSeriesIndex = series.m_nSeriesIndex;
        result.m_nPersonIndex = series.m_nPersonIndex;
        result.m_posStart = points[i].m_position;
        result.m_timeStart = points[i].m_time;
        result.m_posEnd = points[k].m_position;
        result.m_timeEnd = points[k].m_time;
        result.m_dAltitude = points[i].m_nAltitude;
        result.m_dAltChange = static_cast<double>(points[k].m_nAltitude) - points[i].m_nAltitude;
        result.m_nRun = Run(i);
        result.m_strCompetitor = person.m_strName;
        result.m_strDivision = division.m_strName;
        result.m_strSeries = series.m_strName;
        result.m_dMinSpeed = std::numeric_limits<double>::max();
        result.m_nSatsMin = 100;
        for (int n = nFirst; n <= k; ++n) {
            const CTrackPoint& point = points[n];
            const double dSpeed = bDopplerExtremes ? point.m_dDoppler : point.m_dSpeed;
            result.m_dMinSpeed = std::min(result.m_dMinSpeed, dSpeed);
            result.m_dMaxSpeed = std::max(result.m_dMaxSpeed, dSpeed);
            result.m_dHDOPMax = std::max(result.m_dHDOPMax, point.m_dHDOP);
            result.m_nSatsMin = std::min(result.m_nSatsMin, point.m_nSats);
        }
        return result;
    }
};

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
