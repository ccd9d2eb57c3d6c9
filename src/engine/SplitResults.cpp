#include "engine/SplitResults.h"

#include "engine/ResultBuilder.h"

#include <algorithm>
#include <vector>

namespace kestrabel {

namespace {

std::unique_ptr<CResult> MakeSplit(const CEvent& event, const CPerson& person, const CSeries& series,
                                   const CDivision& division, const CSpeedSource& source, int nStart,
                                   int nEnd)
{
    std::unique_ptr<CResult> pSplit = MakePathResult(person, series, division, source, nStart, nEnd);
    EstimatePathError(*pSplit, source, source.Error(event, series), nEnd - nStart);
    // By position whatever the division judges.
    MeasureExtremes(*pSplit, series, &CTrackPoint::m_dSpeed, nStart, nEnd);
    return pSplit;
}

} // namespace

bool CalculateSplitResults(const CEvent& event, const CPerson& person, const CSeries& series,
                           const CDivision& division, CObjectArray<CResult>& results,
                           CProgressDisplay& progress)
{
    constexpr double dMetresToKilometres = 0.001;
    const CObjectArray<CTrackPoint>& points = series.m_points;
    if (points.IsEmpty())
        return false;
    const int nLast = points.GetCount() - 1;
    CProgress shown(progress, "Calculating " + division.m_strName, nLast);
    const CSpeedSource source(division, series);
    const double dTarget = division.m_dMetres * dMetresToKilometres;

    std::vector<std::unique_ptr<CResult>> splits;
    int nStart = 0;
    for (int i = 1; i <= nLast; ++i) {
        shown.Step();
        const bool bReached = source.Path(points[i]) - source.Path(points[nStart]) >= dTarget;
        if (bReached || i == nLast || StartsGap(points.At(i - 1), points[i], event.m_nTimeThreshold)) {
            splits.push_back(MakeSplit(event, person, series, division, source, nStart, i));
            nStart = i;
        }
    }

    // Only a clock that ran backwards gives another order than that of the track.
    std::stable_sort(splits.begin(), splits.end(), [](const auto& pOne, const auto& pOther) {
        return pOne->m_timeStart.m_dDays < pOther->m_timeStart.m_dDays;
    });
    for (std::unique_ptr<CResult>& pSplit : splits)
        results.Add(std::move(pSplit));
    return true;
}

} // namespace kestrabel
