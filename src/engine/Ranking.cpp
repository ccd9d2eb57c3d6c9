#include "engine/Ranking.h"

#include "engine/SeriesResults.h"
#include "engine/TakenTimes.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestrabel {

namespace {

/// A speed that is not a number is faster than none.
bool IsFaster(double dSpeed, double dOther)
{
    return dSpeed > dOther || (std::isnan(dOther) && !std::isnan(dSpeed));
}

/// The fastest result of a track file, or an empty one owned by `results`.
CResult& BestOfSeries(const CEvent& event, const CPerson& person, const CDivision& division, int nSeries,
                      CResultList& results, CProgressDisplay& progress)
{
    CResultList found;
    CalculateSeriesResults(event, person, nSeries, division, found, progress);
    CResult* pBest = found.Best();
    return pBest != nullptr ? *pBest : results.MakeEmptyResult(person.m_strName);
}

} // namespace

bool CompetitorDivisionResults(const CEvent& event, const CPerson& person, int nSeries,
                               const CDivision& division, CResultList& results, CProgressDisplay& progress)
{
    if (!person.TakesPartIn(division.m_strName) || nSeries >= person.m_series.GetCount())
        return false;
    CResultList found;
    const int nFirst = nSeries == -1 ? 0 : nSeries;
    const int nLast = nSeries == -1 ? person.m_series.GetCount() - 1 : nSeries;
    for (int i = nFirst; i <= nLast; ++i)
        CalculateSeriesResults(event, person, i, division, found, progress);

    const int nWanted = std::max<int>(event.m_nShowTopRows, division.m_nAverageRuns);
    CTakenTimes taken;
    std::vector<CResult*> fastestFirst;
    for (int i = found.GetCount() - 1; i >= 0; --i) {
        CResult& result = found[i];
        if (taken.Overlaps(result.m_timeStart, result.m_timeEnd))
            continue;
        taken.Take(result.m_timeStart, result.m_timeEnd);
        fastestFirst.push_back(&result);
        result.m_nRank = static_cast<std::int32_t>(fastestFirst.size());
        result.m_strCompetitor = person.m_strName;
        result.m_strDivision = division.m_strName;
        if (!division.KeepsAllResults() && result.m_nRank >= nWanted)
            break;
    }
    for (auto it = fastestFirst.rbegin(); it != fastestFirst.rend(); ++it)
        results.InsertInOrder(**it);
    return !fastestFirst.empty();
}

void AllResults(const CEvent& event, int nPerson, int nSeries, CResultList& results,
                CProgressDisplay& progress)
{
    for (int i = event.m_persons.GetCount() - 1; i >= 0; --i) {
        const CPerson& person = event.m_persons[i];
        if ((nPerson != -1 && nPerson != i) || person.m_series.IsEmpty())
            continue;
        for (int j = event.m_divisions.GetCount() - 1; j >= 0; --j) {
            CResultList block;
            CompetitorDivisionResults(event, person, nSeries, event.m_divisions[j], block, progress);
            results.AppendAll(std::move(block));
        }
    }
}

void DivisionLeaderboard(const CEvent& event, const CObjectArray<CPerson>& persons, const CDivision& division,
                         CResultList& results, CProgressDisplay& progress)
{
    for (const CPerson* pPerson : persons) {
        if (!pPerson->TakesPartIn(division.m_strName))
            continue;
        CResult* pBest = nullptr;
        for (int i = 0; i < pPerson->m_series.GetCount(); ++i) {
            CResult& best = BestOfSeries(event, *pPerson, division, i, results, progress);
            if (pBest == nullptr || IsFaster(best.m_dSpeed, pBest->m_dSpeed))
                pBest = &best;
        }
        if (pBest == nullptr)
            pBest = &results.MakeEmptyResult(pPerson->m_strName);
        pBest->m_strCompetitor = pPerson->m_strName;
        results.InsertInOrder(*pBest);
    }
    for (int i = 0; i < results.GetCount(); ++i)
        results[i].m_nRank = results.GetCount() - i;
}

bool CompetitorBestResult(const CEvent& event, const CPerson& person, const CDivision& division, int nSeries,
                          CResultList& results, CProgressDisplay& progress)
{
    if (nSeries == -1 || nSeries >= person.m_series.GetCount() || !person.TakesPartIn(division.m_strName))
        return false;
    CResult& best = BestOfSeries(event, person, division, nSeries, results, progress);
    best.m_strCompetitor = person.m_strName;
    best.m_nRank = 1;
    results.InsertInOrder(best);
    return true;
}

} // namespace kestrabel
