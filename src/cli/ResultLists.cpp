#include "cli/ResultLists.h"

#include "engine/Ranking.h"

namespace kestrabel {

std::vector<SCompetitorResults> CollectResults(const CEvent& event, CDivisionSpan divisions,
                                               CProgressDisplay& progress)
{
    std::vector<SCompetitorResults> competitors;
    for (const CPerson* pPerson : event.m_persons) {
        SCompetitorResults& competitor = competitors.emplace_back();
        competitor.pPerson = pPerson;
        for (const CDivision* pDivision : divisions) {
            SDivisionResults& found = competitor.divisions.emplace_back();
            found.pDivision = pDivision;
            CompetitorDivisionResults(event, *pPerson, -1, *pDivision, found.results, progress);
        }
    }
    return competitors;
}

std::vector<SDivisionResults> CollectLeaderboards(const CEvent& event, CDivisionSpan divisions,
                                                  CProgressDisplay& progress)
{
    std::vector<SDivisionResults> leaderboards;
    for (const CDivision* pDivision : divisions) {
        SDivisionResults& found = leaderboards.emplace_back();
        found.pDivision = pDivision;
        DivisionLeaderboard(event, event.m_persons, *pDivision, found.results, progress);
    }
    return leaderboards;
}

} // namespace kestrabel
