#include "engine/Ranking.h"

#include "engine/TestEvent.h"

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
        for (const CResult* pResult : results) {
            strText += (strText.empty() ? "" : ", ") + std::to_string(pResult->m_nRank) + " " +
                       pResult->m_strCompetitor + " " + std::to_string(static_cast<int>(pResult->m_dSpeed));
        }
        return strText;
    }

    std::string OfCompetitor(const CPerson& person, int nSeries = -1)
    {
        CResultList results;
        const bool bTaken =
            CompetitorDivisionResults(m_event, person, nSeries, m_distance, results, m_progress);
        EXPECT_EQ(bTaken, !results.IsEmpty());
        return Describe(results);
    }

    std::string Leaderboard()
    {
        CResultList results;
        DivisionLeaderboard(m_event, m_event.m_persons, m_distance, results, m_progress);
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
    CProgressRecord m_progress;
};

TEST_F(Ranking, TwoLoggersOnOneBoardGiveOneResult)
{
    AddFound(m_annOne, "500 m", 50, 100, 120);
    AddFound(m_annOne, "500 m", 40, 200, 220);
    AddFound(m_annOne, "500 m", 30, 300, 320);
    AddFound(m_annTwo, "500 m", 51, 101, 121);   // the same run as the 50
    AddFound(m_annTwo, "500 m", 39, 219.5, 240); // overlaps the 40 by half a second
    AddFound(m_annTwo, "500 m", 20, 320, 340);   // touches the 30
    EXPECT_EQ(OfCompetitor(m_ann), "4 Ann 20, 3 Ann 30, 2 Ann 40, 1 Ann 51");
    EXPECT_EQ(OfCompetitor(m_ann, 0), "3 Ann 30, 2 Ann 40, 1 Ann 50");
    EXPECT_EQ(OfCompetitor(m_ann, 1), "3 Ann 20, 2 Ann 39, 1 Ann 51");
}

TEST_F(Ranking, AResultGetsTheNamesOfCompetitorAndDivision)
{
    CResult& found = AddFound(m_annOne, "500 M", 50, 100, 120);
    found.m_strCompetitor = "old name";
    found.m_strDivision = "old division";
    EXPECT_EQ(OfCompetitor(m_ann), "1 Ann 50");
    EXPECT_EQ(found.m_strDivision, "500 m") << "the record is found without regard to case";
}

TEST_F(Ranking, AsManyAreTakenAsRowsOrAveragedRuns)
{
    for (int i = 0; i < 12; ++i)
        AddFound(m_annOne, "500 m", 30 + i, 100 * i, 100 * i + 20);
    struct SCase
    {
        int nRows;
        std::uint8_t nAverage;
        std::uint8_t nKind;
        int nExpected;
    };
    for (const SCase& c : std::initializer_list<SCase>{{10, 1, DivisionKind::Distance, 10},
                                                       {3, 1, DivisionKind::Time, 3},
                                                       {3, 5, DivisionKind::Distance, 5},
                                                       {3, 1, DivisionKind::AlphaRacing, 3},
                                                       {3, 1, DivisionKind::LapRacing, 12},
                                                       {3, 1, DivisionKind::Splits, 12},
                                                       {3, 1, DivisionKind::CheckPoints, 12}})
    {
        m_event.m_nShowTopRows = c.nRows;
        m_distance.m_nAverageRuns = c.nAverage;
        m_distance.m_nKind = c.nKind;
        CResultList results;
        CompetitorDivisionResults(m_event, m_ann, -1, m_distance, results, m_progress);
        EXPECT_EQ(results.GetCount(), c.nExpected) << "kind " << int{c.nKind};
        EXPECT_EQ(results.Best()->m_dSpeed, 41.0);
        EXPECT_EQ(results[0].m_nRank, c.nExpected);
    }
}

TEST_F(Ranking, WhoDoesNotTakePartIsNowhere)
{
    AddFound(m_annOne, "500 m", 50, 100, 120);
    AddFound(m_benOne, "500 m", 60, 100, 120);
    m_ben.m_divisionNames = {"500 M"}; // here the case counts
    EXPECT_EQ(OfCompetitor(m_ben), "");
    EXPECT_EQ(Leaderboard(), "2 Cid 0, 1 Ann 50");
    CResultList results;
    EXPECT_FALSE(CompetitorBestResult(m_event, m_ben, m_distance, 0, results, m_progress));
    AllResults(m_event, 1, -1, results, m_progress);
    EXPECT_TRUE(results.IsEmpty());
}

TEST_F(Ranking, TheLeaderboardHasEachCompetitorsBest)
{
    AddFound(m_annOne, "500 m", 55, 100, 120);
    AddFound(m_annTwo, "500 m", 30, 300, 320);
    AddFound(m_annTwo, "500 m", 56, 100, 120);
    AddFound(m_benOne, "500 m", 40, 100, 120);
    EXPECT_EQ(Leaderboard(), "3 Cid 0, 2 Ben 40, 1 Ann 56");
}

TEST_F(Ranking, EqualBestsAreOrderedByTheirStart)
{
    AddFound(m_annOne, "500 m", 50, 200, 220);
    AddFound(m_annTwo, "500 m", 50, 100, 120).m_strSeries = "not taken";
    AddFound(m_benOne, "500 m", 50, 150, 170);
    CResultList results;
    DivisionLeaderboard(m_event, m_event.m_persons, m_distance, results, m_progress);
    EXPECT_EQ(Describe(results), "3 Cid 0, 2 Ben 50, 1 Ann 50") << "the earlier start stands behind";
    EXPECT_EQ(results[2].m_strSeries, "a1") << "of a competitor's equal bests the earlier track file's stays";
}

TEST_F(Ranking, WithoutResultsEveryoneStandsInTheList)
{
    m_annOne.m_divisions.RemoveAll();
    EXPECT_EQ(Leaderboard(), "3 Ann 0, 2 Ben 0, 1 Cid 0");
    CResultList results;
    DivisionLeaderboard(m_event, m_event.m_persons, m_distance, results, m_progress);
    EXPECT_EQ(results[0].m_nStartIndex, -1);
    EXPECT_EQ(results[0].m_strSeries, "");
    EXPECT_EQ(results[0].m_strDivision, "");
}

TEST_F(Ranking, ASpeedThatIsNoNumberBeatsNone)
{
    AddFound(m_annOne, "500 m", NoNumber, 100, 120);
    AddFound(m_annTwo, "500 m", 20, 300, 320);
    AddFound(m_benOne, "500 m", NoNumber, 100, 120);
    CResultList results;
    DivisionLeaderboard(m_event, m_event.m_persons, m_distance, results, m_progress);
    ASSERT_EQ(results.GetCount(), 3);
    EXPECT_EQ(results[0].m_strCompetitor, "Ben");
    EXPECT_EQ(results[1].m_strCompetitor, "Cid");
    EXPECT_EQ(results[2].m_strCompetitor, "Ann");
    EXPECT_EQ(results[2].m_dSpeed, 20.0);

    CResultList ofAnn;
    CompetitorDivisionResults(m_event, m_ann, -1, m_distance, ofAnn, m_progress);
    ASSERT_EQ(ofAnn.GetCount(), 2);
    EXPECT_EQ(ofAnn[1].m_nRank, 1);
    EXPECT_EQ(ofAnn[1].m_dSpeed, 20.0);
}

TEST_F(Ranking, AllResultsAreBlocksFromTheLastToTheFirst)
{
    CDivision& time = AddDivision(m_event, "10 sec", DivisionKind::Time);
    AddFound(m_annOne, "500 m", 50, 100, 120);
    AddFound(m_annOne, "500 m", 52, 200, 220);
    AddFound(m_annTwo, "500 m", 51, 300, 320);
    AddFound(m_annOne, "10 sec", 10, 100, 110);
    AddFound(m_benOne, "500 m", 49, 100, 120);
    AddFound(m_benOne, "10 sec", 90, 100, 110);
    AddFound(m_benOne, "10 sec", 91, 200, 210);
    struct SCase
    {
        int nPerson;
        int nSeries;
        const char* strExpected;
    };
    const std::string strBen = "2 Ben 90, 1 Ben 91, 1 Ben 49";
    const std::string strAnn = "1 Ann 10, 3 Ann 50, 2 Ann 51, 1 Ann 52";
    CResultList results;
    AllResults(m_event, -1, -1, results, m_progress);
    EXPECT_EQ(Describe(results), strBen + ", " + strAnn);
    for (const SCase& c : std::initializer_list<SCase>{{0, -1, strAnn.c_str()},
                                                       {0, 0, "1 Ann 10, 2 Ann 50, 1 Ann 52"},
                                                       {0, 1, "1 Ann 51"},
                                                       {1, 0, strBen.c_str()},
                                                       {2, -1, ""},
                                                       {2, 0, ""}})
    {
        CResultList some;
        AllResults(m_event, c.nPerson, c.nSeries, some, m_progress);
        EXPECT_EQ(Describe(some), c.strExpected) << c.nPerson << ", " << c.nSeries;
    }
    m_ben.m_divisionNames = {time.m_strName};
    CResultList some;
    AllResults(m_event, 1, -1, some, m_progress);
    EXPECT_EQ(Describe(some), "2 Ben 90, 1 Ben 91");
}

TEST_F(Ranking, TheBestOfOneTrackFile)
{
    AddFound(m_annTwo, "500 m", 30, 100, 120);
    AddFound(m_annTwo, "500 m", 31, 200, 220).m_nRank = 7;
    struct SCase
    {
        int nSeries;
        bool bTaken;
        const char* strExpected;
    };
    for (const SCase& c :
         std::initializer_list<SCase>{{-1, false, ""}, {0, true, "1 Ann 0"}, {1, true, "1 Ann 31"}})
    {
        CResultList results;
        EXPECT_EQ(CompetitorBestResult(m_event, m_ann, m_distance, c.nSeries, results, m_progress), c.bTaken);
        EXPECT_EQ(Describe(results), c.strExpected) << c.nSeries;
    }
}

} // namespace
} // namespace kestrabel::test
