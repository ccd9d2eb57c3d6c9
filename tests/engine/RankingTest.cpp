#include "engine/Ranking.h"

#include "engine/RandomTrack.h"
#include "engine/TakenTimes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

/// Three competitors; what their track files gave is put into the records.
class Ranking : public testing::Test
{
protected:
    /// "rank competitor speed" of each, in the order of the list.
    static std::string Describe(const CResultList& results)
    {
        std::string strText;
        for (const CResult* p : results)
            strText += (strText.empty() ? "" : ", ") + std::to_string(p->m_nRank) + " " + p->m_strCompetitor +
                       " " +
                       (std::isnan(p->m_dSpeed) ? "none" : std::to_string(static_cast<int>(p->m_dSpeed)));
        return strText;
    }

    std::string OfCompetitor(const CPerson& person, int nSeries = -1)
    {
        CResultList results;
        const bool bTaken =
            CompetitorDivisionResults(m_event, person, nSeries, m_distance, results, NoProgress());
        EXPECT_EQ(bTaken, !results.IsEmpty());
        return Describe(results);
    }

    std::string Leaderboard()
    {
        CResultList results;
        DivisionLeaderboard(m_event, m_event.m_persons, m_distance, results, NoProgress());
        return Describe(results);
    }

    std::string All(int nPerson, int nSeries)
    {
        CResultList results;
        AllResults(m_event, nPerson, nSeries, results, NoProgress());
        return Describe(results);
    }

    CEvent m_event{DATE(45444.0)};
    CPerson& m_ann = AddPerson(m_event, "Ann");
    CPerson& m_ben = AddPerson(m_event, "Ben");
    CPerson& m_cid = AddPerson(m_event, "Cid");
    CSeries& m_annOne = AddSeries(m_ann, "a1");
    CSeries& m_annTwo = AddSeries(m_ann, "a2");
    CSeries& m_benOne = AddSeries(m_ben, "b1");
    CDivision& m_distance = AddDivision(m_event, "500 m");
};

TEST_F(Ranking, TwoLoggersOnOneBoardGiveOneResult)
{
    AddFound(m_annOne, "500 m", 50, 100, 120).m_strCompetitor = "old name";
    AddFound(m_annOne, "500 m", 40, 200, 220);
    AddFound(m_annOne, "500 m", 30, 300, 320);
    AddFound(m_annTwo, "500 m", 51, 101, 121);   // the same run as the 50
    AddFound(m_annTwo, "500 m", 39, 219.5, 240); // overlaps the 40 by half a second
    AddFound(m_annTwo, "500 m", 20, 320, 340);   // touches the 30
    EXPECT_EQ(OfCompetitor(m_ann), "4 Ann 20, 3 Ann 30, 2 Ann 40, 1 Ann 51");
    EXPECT_EQ(OfCompetitor(m_ann, 0), "3 Ann 30, 2 Ann 40, 1 Ann 50");
}

TEST_F(Ranking, AsManyAreTakenAsRowsOrAveragedRuns)
{
    for (int i = 0; i < 12; ++i)
        AddFound(m_annOne, "500 m", 30 + i, 100 * i, 100 * i + 20);
    for (const auto& [nRows, nAverage, nKind, nExpected] :
         std::initializer_list<std::array<int, 4>>{{10, 1, DivisionKind::Distance, 10},
                                                   {3, 5, DivisionKind::Time, 5},
                                                   {3, 1, DivisionKind::AlphaRacing, 3},
                                                   {3, 1, DivisionKind::LapRacing, 12},
                                                   {3, 1, DivisionKind::Splits, 12},
                                                   {3, 1, DivisionKind::CheckPoints, 12}})
    {
        m_event.m_nShowTopRows = nRows;
        m_distance.m_nAverageRuns = static_cast<std::uint8_t>(nAverage);
        m_distance.m_nKind = static_cast<std::uint8_t>(nKind);
        const std::string strAll = OfCompetitor(m_ann);
        EXPECT_TRUE(strAll.starts_with(std::to_string(nExpected) + " ") && strAll.ends_with("1 Ann 41"))
            << strAll;
    }
}

TEST_F(Ranking, WhoDoesNotTakePartIsNowhere)
{
    AddFound(m_annOne, "500 m", 50, 100, 120);
    AddFound(m_benOne, "500 m", 60, 100, 120);
    m_ben.m_divisionNames = {"500 M"}; // here the case counts
    EXPECT_EQ(OfCompetitor(m_ben) + All(1, -1), "");
    EXPECT_EQ(Leaderboard(), "2 Cid 0, 1 Ann 50");
    CResultList results;
    EXPECT_FALSE(CompetitorBestResult(m_event, m_ben, m_distance, 0, results, NoProgress()));
}

TEST_F(Ranking, TheLeaderboardHasEachCompetitorsBest)
{
    EXPECT_EQ(Leaderboard(), "3 Ann 0, 2 Ben 0, 1 Cid 0");
    m_annOne.m_divisions.RemoveAll(); // forget that nothing was found
    m_annTwo.m_divisions.RemoveAll();
    m_benOne.m_divisions.RemoveAll();
    AddFound(m_annOne, "500 m", NoNumber, 100, 120);
    AddFound(m_benOne, "500 m", NoNumber, 100, 120);
    EXPECT_EQ(Leaderboard(), "3 Ben none, 2 Ann 0, 1 Cid 0") << "a number beats none";
    AddFound(m_annOne, "500 m", 55, 100, 120);
    AddFound(m_annTwo, "500 m", 56, 300, 320);
    AddFound(m_benOne, "500 m", 40, 100, 120);
    EXPECT_EQ(Leaderboard(), "3 Cid 0, 2 Ben 40, 1 Ann 56");
    AddFound(m_benOne, "500 m", 56, 150, 170);
    EXPECT_EQ(Leaderboard(), "3 Cid 0, 2 Ben 56, 1 Ann 56")
        << "of equal bests the earlier start stands behind";
    AddFound(m_annOne, "500 m", 56, 50, 70);
    EXPECT_EQ(Leaderboard(), "3 Cid 0, 2 Ann 56, 1 Ben 56")
        << "and of one competitor's the first file's counts";
}

TEST_F(Ranking, AllResultsAreBlocksFromTheLastToTheFirst)
{
    AddDivision(m_event, "10 sec", DivisionKind::Time);
    AddFound(m_annOne, "500 m", 50, 100, 120);
    AddFound(m_annTwo, "500 m", 51, 300, 320);
    AddFound(m_annOne, "10 sec", 10, 100, 110);
    AddFound(m_benOne, "500 m", 49, 100, 120);
    AddFound(m_benOne, "10 sec", 90, 100, 110);
    EXPECT_EQ(All(-1, -1), "1 Ben 90, 1 Ben 49, 1 Ann 10, 2 Ann 50, 1 Ann 51");
    EXPECT_EQ(All(0, 1), "1 Ann 51");
    EXPECT_EQ(All(1, 0), "1 Ben 90, 1 Ben 49");
    EXPECT_EQ(All(2, 0), "");
    for (const auto& [nSeries, strBest] : {std::pair(-1, ""), std::pair(0, "1 Ann 50"), std::pair(2, "")}) {
        CResultList results;
        CompetitorBestResult(m_event, m_ann, m_distance, nSeries, results, NoProgress());
        EXPECT_EQ(Describe(results), strBest);
    }
}

TEST(ResultList, InsertingAllIsInsertingOneAfterAnother)
{
    CRandom random(11);
    for (int nRound = 0; nRound < 300; ++nRound) {
        CResultList atOnce;
        CResultList oneByOne;
        std::array<CObjectArray<CResult>, 3> records;
        for (CObjectArray<CResult>& record : records) {
            // Few values, so that ties are common; a record of laps is in no order.
            for (int j = random.Below(12); j > 0; --j) {
                CResult& result = record.Add(std::make_unique<CResult>());
                result.m_dSpeed = random.Chance(0.15) ? NoNumber : random.Below(4);
                result.m_timeStart = DATE(random.Below(3));
            }
            atOnce.InsertAllInOrder(record);
            for (CResult* pResult : record)
                oneByOne.InsertInOrder(*pResult);
        }
        for (int i = 0; i < atOnce.GetCount(); ++i) {
            ASSERT_EQ(&atOnce[i], &oneByOne[i]) << "round " << nRound << ", result " << i;
            ASSERT_FALSE(i > 0 && IsSlower(atOnce[i], atOnce[i - 1]));
        }
    }
}

TEST(TakenTimes, AgreesWithAListOfAll)
{
    CRandom random(7);
    for (int nRound = 0; nRound < 500; ++nRound) {
        CTakenTimes taken;
        std::vector<std::pair<double, double>> naive;
        for (int i = 0; i < 30; ++i) {
            const double dStart = random.Below(60);
            const double dEnd = dStart + random.Below(8) - (random.Chance(0.15) ? 8 : 0); // or backward
            const bool bOverlaps = std::any_of(naive.begin(), naive.end(), [&](const auto& other) {
                return other.second > dStart && other.first < dEnd;
            });
            ASSERT_EQ(taken.Overlaps(DATE(dStart), DATE(dEnd)), bOverlaps) << dStart << " to " << dEnd;
            if (bOverlaps)
                continue;
            taken.Take(DATE(dStart), DATE(dEnd));
            naive.emplace_back(dStart, dEnd);
        }
    }
}

} // namespace
} // namespace kestrabel::test
