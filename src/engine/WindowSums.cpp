#include "engine/WindowSums.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

constexpr double LongestStep = 1e5; // km; more than twice around the Earth
constexpr double LongestTime = 1e6; // seconds
constexpr int CoarserBy = 4;        // bits
constexpr double MillisecondsPerSecond = 1000.0;
constexpr double Rounding = 0x1p-52; // twice what one operation may be off, of its result

} // namespace

CWindowSums::CWindowSums(const CObjectArray<CTrackPoint>& points, CWindowAccumulator& accumulator)
    : m_points(points), m_accumulator(accumulator)
{
    m_totals.reserve(static_cast<std::size_t>(points.GetCount()));
    STotals totals;
    const CTrackPoint* pLast = nullptr; // the point that a window would have added last
    for (int i = 0; i < points.GetCount(); ++i) {
        const CTrackPoint& point = points[i];
        const bool bValid = accumulator.IsValid(point);
        if (pLast == nullptr) {
            pLast = bValid ? &point : nullptr;
        } else {
            accumulator.Start(*pLast);
            if (!accumulator.Add(point)) {
                m_refused.Add(i);
                pLast = bValid ? &point : nullptr;
            } else if (bValid) {
                AddStep(i, accumulator.Distance(), accumulator.Time() * SecondsPerDay, totals);
                pLast = &point;
            }
        }
        m_totals.push_back(totals);
    }
}

void CWindowSums::AddStep(int nPoint, double dDistance, double dSeconds, STotals& totals)
{
    if (std::isnan(dDistance))
        m_noDistance.Add(nPoint);
    else if (dDistance >= 0.0 && dDistance <= LongestStep)
        AddDistance(dDistance, totals);
    else
        m_oddDistance.Add(nPoint);
    if (dSeconds >= 0.0 && dSeconds <= LongestTime)
        totals.nMilliseconds += std::llround(dSeconds * MillisecondsPerSecond);
    else
        m_oddTime.Add(nPoint);
}

/// A track so long that its total does not fit is counted in coarser units from the start.
void CWindowSums::AddDistance(double dDistance, STotals& totals)
{
    while (totals.nDistance > std::numeric_limits<std::int64_t>::max() / 2) {
        m_dUnit *= 1 << CoarserBy;
        totals.nDistance >>= CoarserBy;
        for (STotals& earlier : m_totals)
            earlier.nDistance >>= CoarserBy;
    }
    totals.nDistance += std::llround(dDistance / m_dUnit);
}

CWindowSums::SEstimate CWindowSums::Estimate(int nStart, int nEnd) const
{
    const STotals& start = m_totals[static_cast<std::size_t>(nStart)];
    const STotals& end = m_totals[static_cast<std::size_t>(nEnd)];
    const double dSteps = nEnd - nStart + 8; // some operations more than there are steps
    const double dDistance = static_cast<double>(end.nDistance - start.nDistance) * m_dUnit;
    const double dRelative = dSteps * Rounding;
    return {.dDistance = dDistance,
            .dDistanceError = dSteps * m_dUnit + dDistance * dRelative,
            .dSeconds = static_cast<double>(end.nMilliseconds - start.nMilliseconds) / MillisecondsPerSecond,
            .dRelativeError = dRelative};
}

bool CWindowSums::IsClearlyBelow(const SEstimate& estimate) const
{
    return m_accumulator.IsDistance()
               ? estimate.dDistance + estimate.dDistanceError < m_accumulator.Target()
               : estimate.dSeconds * (1.0 + estimate.dRelativeError) < m_accumulator.Target();
}

bool CWindowSums::IsClearlyReached(const SEstimate& estimate) const
{
    return m_accumulator.IsDistance()
               ? estimate.dDistance - estimate.dDistanceError >= m_accumulator.Target()
               : estimate.dSeconds * (1.0 - estimate.dRelativeError) >= m_accumulator.Target();
}

std::optional<SCandidate> CWindowSums::Find(int nStart, int nLimit)
{
    const bool bIsDistance = m_accumulator.IsDistance();
    // Behind a distance that is not a number no window reaches a distance.
    if (bIsDistance)
        nLimit = std::min(nLimit, m_noDistance.FirstAfter(nStart, nLimit));
    // The later a window starts, the later it ends, as far as the totals know.
    m_nEnd = std::max(m_nEnd, nStart + 1);
    while (m_nEnd < nLimit && IsClearlyBelow(Estimate(nStart, m_nEnd)))
        ++m_nEnd;
    int nEnd = std::min(m_nEnd, nLimit);
    const int nOdd = (bIsDistance ? m_oddDistance : m_oddTime).FirstAfter(nStart, nLimit);
    const bool bDoubt = nEnd < nLimit && !IsClearlyReached(Estimate(nStart, nEnd));
    if (bDoubt || nOdd <= std::min(nEnd, nLimit - 1))
        nEnd = EndByAccumulator(nStart, nLimit);
    if (nEnd >= nLimit)
        return std::nullopt;
    return SCandidate{SpeedOf(nStart, nEnd), nStart, nEnd};
}

/// The end of the window as the accumulator finds it; `nLimit` when there is none before it.
int CWindowSums::EndByAccumulator(int nStart, int nLimit)
{
    m_accumulator.Start(m_points[nStart]);
    for (int i = nStart + 1; i < nLimit; ++i) {
        m_accumulator.Add(m_points[i]);
        if (m_accumulator.Reached())
            return i;
    }
    return nLimit;
}

/// The speed of a window, or an upper bound of it.
double CWindowSums::SpeedOf(int nStart, int nEnd)
{
    constexpr double dSecondsPerHour = 3600.0;
    const SEstimate estimate = Estimate(nStart, nEnd);
    const int nBehind = nEnd + 1;
    const bool bOdd = m_noDistance.FirstAfter(nStart, nBehind) < nBehind ||
                      m_oddDistance.FirstAfter(nStart, nBehind) < nBehind ||
                      m_oddTime.FirstAfter(nStart, nBehind) < nBehind;
    if (!bOdd && estimate.dSeconds > 0.0)
        return (estimate.dDistance + estimate.dDistanceError) * dSecondsPerHour / estimate.dSeconds *
               (1.0 + 2.0 * estimate.dRelativeError);
    m_accumulator.Start(m_points[nStart]);
    for (int i = nStart + 1; i <= nEnd; ++i)
        m_accumulator.Add(m_points[i]);
    return m_accumulator.Speed();
}

} // namespace kestrabel
