#include "engine/SeriesResults.h"

#include "engine/AlphaResults.h"
#include "engine/DistanceTimeResults.h"
#include "engine/LapResults.h"
#include "engine/SplitResults.h"
#include "platform/Path.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestrabel {

namespace {

constexpr double SmallestError = 0.0001; // km/h; below it an error estimate changes no claim

CSeriesDivision* FindRecord(const CSeries& series, const std::string& strDivision)
{
    for (CSeriesDivision* pRecord : series.m_divisions) {
        if (EqualNoCase(pRecord->m_strDivision, strDivision))
            return pRecord;
    }
    return nullptr;
}

void Calculate(const CEvent& event, const CPerson& person, const CSeries& series, const CDivision& division,
               CObjectArray<CResult>& found, CProgressDisplay& progress)
{
    switch (division.m_nKind) {
    case DivisionKind::AlphaRacing:
        CalculateAlphaResults(event, person, series, division, found, progress);
        break;
    case DivisionKind::LapRacing:
        CalculateLapResults(event, person, series, division, found, progress);
        break;
    case DivisionKind::Splits: CalculateSplitResults(event, person, series, division, found, progress); break;
    case DivisionKind::CheckPoints:
        CalculateCheckpointResults(event, person, series, division, found, progress);
        break;
    default: CalculateWindowResults(event, person, series, division, found, progress);
    }
}

void AddToCombined(CResult& combined, const CResult& other)
{
    if (other.m_timeStart.m_dDays < combined.m_timeStart.m_dDays) {
        combined.m_posStart = other.m_posStart;
        combined.m_timeStart = other.m_timeStart;
    }
    if (other.m_timeEnd.m_dDays > combined.m_timeEnd.m_dDays) {
        combined.m_posEnd = other.m_posEnd;
        combined.m_timeEnd = other.m_timeEnd;
    }
    combined.m_dDistance += other.m_dDistance;
    combined.m_dDirection += other.m_dDirection;
    combined.m_dWindAngle += other.m_dWindAngle;
    combined.m_dSpeed += other.m_dSpeed;
    combined.m_dSeconds += other.m_dSeconds;
    combined.m_dAltitude += other.m_dAltitude;
    combined.m_dAltChange += other.m_dAltChange;
    combined.m_dMinSpeed = std::min(combined.m_dMinSpeed, other.m_dMinSpeed);
    combined.m_nSatsMin = std::min(combined.m_nSatsMin, other.m_nSatsMin);
    combined.m_dMaxSpeed = std::max(combined.m_dMaxSpeed, other.m_dMaxSpeed);
    combined.m_dHDOPMax = std::max(combined.m_dHDOPMax, other.m_dHDOPMax);
    combined.m_nStartIndex = std::min(combined.m_nStartIndex, other.m_nStartIndex);
    combined.m_nEndIndex = std::max(combined.m_nEndIndex, other.m_nEndIndex);
    combined.m_nSeriesIndex = other.m_nSeriesIndex;
    combined.m_nPersonIndex = other.m_nPersonIndex;
}

/// One result for the average of the `nRuns` fastest of a list that is not empty.
std::unique_ptr<CResult> Combine(const CObjectArray<CResult>& found, int nRuns)
{
    std::vector<const CResult*> fastestFirst(found.begin(), found.end());
    // Laps and splits stand in another order than that of speed.
    std::stable_sort(fastestFirst.begin(), fastestFirst.end(),
                     [](const CResult* pOne, const CResult* pOther) { return IsSlower(*pOne, *pOther); });
    std::reverse(fastestFirst.begin(), fastestFirst.end());
    fastestFirst.resize(std::min(fastestFirst.size(), static_cast<std::size_t>(nRuns)));
    // A speed that is not a number would make the whole average none.
    while (fastestFirst.size() > 1 && std::isnan(fastestFirst.back()->m_dSpeed))
        fastestFirst.pop_back();

    auto pCombined = std::make_unique<CResult>(*fastestFirst.front());
    double dDopplerSquares = 0.0;
    double dPositionSquares = 0.0;
    for (const CResult* pResult : fastestFirst) {
        if (pResult != fastestFirst.front())
            AddToCombined(*pCombined, *pResult);
        dDopplerSquares += pResult->m_dDopplerError * pResult->m_dDopplerError;
        dPositionSquares += pResult->m_dPosError * pResult->m_dPosError;
    }
    pCombined->m_dDistance /= nRuns;
    pCombined->m_dDirection /= nRuns;
    pCombined->m_dWindAngle /= nRuns;
    pCombined->m_dSpeed /= nRuns;
    pCombined->m_dAltitude /= nRuns;
    pCombined->m_dPosError = std::sqrt(dPositionSquares) / nRuns;
    pCombined->m_dDopplerError = std::sqrt(dDopplerSquares) / nRuns;
    if (pCombined->m_dDopplerError > SmallestError)
        pCombined->m_dClaimed = pCombined->m_dSpeed - 2.0 * pCombined->m_dDopplerError;
    return pCombined;
}

CSeriesDivision& MakeRecord(const CEvent& event, const CPerson& person, CSeries& series,
                            const CDivision& division, CProgressDisplay& progress)
{
    CObjectArray<CResult> found;
    Calculate(event, person, series, division, found, progress);
    auto pRecord = std::make_unique<CSeriesDivision>();
    pRecord->m_strDivision = division.m_strName;
    if (division.m_nAverageRuns > 1 && !found.IsEmpty())
        pRecord->m_results.Add(Combine(found, division.m_nAverageRuns));
    else
        pRecord->m_results.TakeAll(found);
    return series.m_divisions.Add(std::move(pRecord));
}

} // namespace

bool CalculateSeriesResults(const CEvent& event, const CPerson& person, int nSeries,
                            const CDivision& division, CResultList& results, CProgressDisplay& progress)
{
    if (nSeries == -1)
        return false;
    CSeries& series = person.m_series[nSeries];
    CSeriesDivision* pRecord = FindRecord(series, division.m_strName);
    if (pRecord == nullptr)
        pRecord = &MakeRecord(event, person, series, division, progress);
    results.InsertAllInOrder(pRecord->m_results);
    return true;
}

} // namespace kestrabel
