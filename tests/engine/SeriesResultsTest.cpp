#include "engine/SeriesResults.h"

#include "engine/LostPair.h"
#include "engine/TrackPointDerivation.h"
#include "engine/WindowTrack.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

class SeriesResults : public testing::Test
{
protected:
    /// Three runs that give windows of 10 s at Brisk (1-11), Fast (13-23) and Slow × 2 (25-35).
    void RideThreeRuns()
    {
        m_track.division.m_bOneResultPerRun = 1;
        m_track.Ride(11, Brisk).NextRun().Ride(12, Fast).NextRun().Ride(12, 2.0 * Slow);
    }

    CResultList Find(int nSeries = 0)
    {
        CResultList results;
        CalculateSeriesResults(m_track.event, m_track.person, nSeries, m_track.division, results, m_progress);
        return results;
    }

    CWindowTrack m_track;
    CProgressRecord m_progress;
};

TEST_F(SeriesResults, NoTrackFileNoResults)
{
    m_track.Ride(20, Brisk);
    CResultList results;
    EXPECT_FALSE(
        CalculateSeriesResults(m_track.event, m_track.person, -1, m_track.division, results, m_progress));
    EXPECT_TRUE(results.IsEmpty());
    EXPECT_TRUE(m_progress.m_begun.empty());
}

TEST_F(SeriesResults, EachDivisionIsCalculatedOnce)
{
    m_track.Ride(20, Brisk);
    const CResultList first = Find();
    ASSERT_EQ(first.GetCount(), 2);
    const CResultList second = Find();
    ASSERT_EQ(second.GetCount(), 2);
    EXPECT_EQ(&first[0], &second[0]) << "the results belong to the record";
    EXPECT_EQ(&first[1], &second[1]);
    EXPECT_EQ(m_progress.Count("Calculating 10 sec"), 1);

    m_track.division.m_strName = "10 SEC"; // the same record
    EXPECT_EQ(Find().GetCount(), 2);
    EXPECT_EQ(m_progress.m_begun.size(), 1u);
    m_track.division.m_strName = "10 seconds"; // another
    EXPECT_EQ(Find().GetCount(), 2);
    EXPECT_EQ(m_progress.m_begun.size(), 2u);
    EXPECT_EQ(m_track.series.m_divisions.GetCount(), 2);
    EXPECT_EQ(m_track.series.m_divisions[1].m_strDivision, "10 seconds");

    m_track.series.m_divisions.RemoveAll();
    Find();
    EXPECT_EQ(m_progress.m_begun.size(), 3u);
}

TEST_F(SeriesResults, FindingNothingIsRememberedToo)
{
    m_track.Ride(5, Brisk);
    EXPECT_TRUE(Find().IsEmpty());
    EXPECT_TRUE(Find().IsEmpty());
    EXPECT_EQ(m_progress.m_begun.size(), 1u);
    ASSERT_EQ(m_track.series.m_divisions.GetCount(), 1);
    EXPECT_TRUE(m_track.series.m_divisions[0].m_results.IsEmpty());
}

TEST_F(SeriesResults, ResultsJoinTheCallersListInOrder)
{
    RideThreeRuns();
    CResult slow;
    slow.m_dSpeed = 30.0;
    CResult fast;
    fast.m_dSpeed = 90.0;
    CResultList results;
    results.InsertInOrder(slow);
    results.InsertInOrder(fast);
    EXPECT_TRUE(
        CalculateSeriesResults(m_track.event, m_track.person, 0, m_track.division, results, m_progress));
    ASSERT_EQ(results.GetCount(), 5);
    EXPECT_DOUBLE_EQ(results[0].m_dSpeed, 2.0 * Slow);
    EXPECT_EQ(&results[1], &slow);
    EXPECT_DOUBLE_EQ(results[2].m_dSpeed, Brisk);
    EXPECT_EQ(&results[3], &fast);
    EXPECT_DOUBLE_EQ(results.Best()->m_dSpeed, Fast);
}

TEST_F(SeriesResults, AnAverageOfFiveDividesByFiveEvenOfThree)
{
    RideThreeRuns();
    m_track.division.m_nAverageRuns = 5;
    for (int i = 0; i < 36; ++i) {
        m_track.Point(i).m_dDirection = 0.1 * m_track.Point(i).m_nRun + 1.0;
        m_track.Point(i).m_nAltitude = i;
        m_track.Point(i).m_nSats = 30 - m_track.Point(i).m_nRun;
        m_track.Point(i).m_dHDOP = 1.0 + m_track.Point(i).m_nRun;
    }
    const CResultList results = Find();
    ASSERT_EQ(results.GetCount(), 1);
    const CResult& combined = results[0];
    const double dKilometres = 10.0 / 64.0 + 10.0 / 32.0 + 10.0 / 128.0;
    EXPECT_DOUBLE_EQ(combined.m_dSpeed, (Brisk + Fast + 2.0 * Slow) / 5.0);
    EXPECT_DOUBLE_EQ(combined.m_dDistance, dKilometres / 5.0);
    EXPECT_DOUBLE_EQ(combined.m_dSeconds, 30.0) << "a sum";
    EXPECT_NEAR(combined.m_dDirection, (1.0 + 1.1 + 1.2) / 5.0, 1e-12);
    EXPECT_NEAR(combined.m_dWindAngle, (1.0 + 1.1 + 1.2) / 5.0, 1e-12);
    EXPECT_DOUBLE_EQ(combined.m_dAltitude, (1 + 13 + 25) / 5.0);
    EXPECT_EQ(combined.m_dAltChange, 30.0) << "a sum";
    EXPECT_EQ(combined.m_dMinSpeed, 2.0 * Slow);
    EXPECT_EQ(combined.m_dMaxSpeed, Fast);
    EXPECT_EQ(combined.m_dHDOPMax, 3.0);
    EXPECT_EQ(combined.m_nSatsMin, 28);
    EXPECT_EQ(combined.m_nStartIndex, 1);
    EXPECT_EQ(combined.m_nEndIndex, 35);
    EXPECT_EQ(combined.m_timeStart, m_track.Point(1).m_time);
    EXPECT_EQ(combined.m_posStart, m_track.Point(1).m_position);
    EXPECT_EQ(combined.m_timeEnd, m_track.Point(35).m_time);
    EXPECT_EQ(combined.m_posEnd, m_track.Point(35).m_position);
    EXPECT_EQ(combined.m_nRank, 1);
    EXPECT_EQ(combined.m_nRun, 1) << "of the fastest";
    EXPECT_EQ(combined.m_dClaimed, 0.0);
    EXPECT_EQ(combined.m_dPosError, 0.0);
}

TEST_F(SeriesResults, OnlyTheFastestAreAveraged)
{
    RideThreeRuns();
    m_track.division.m_nAverageRuns = 2;
    const CResultList results = Find();
    ASSERT_EQ(results.GetCount(), 1);
    EXPECT_DOUBLE_EQ(results[0].m_dSpeed, (Brisk + Fast) / 2.0);
    EXPECT_DOUBLE_EQ(results[0].m_dMinSpeed, Brisk);
    EXPECT_EQ(results[0].m_nEndIndex, 23);
}

TEST_F(SeriesResults, ErrorsOfAnAverageAddAsSquares)
{
    struct SCase
    {
        double dError;
        int nRuns;
        bool bClaimChanges;
    };
    for (const SCase& c : std::initializer_list<SCase>{{1.0, 2, true}, {1.0, 5, true}, {0.0003, 3, false}}) {
        m_track.series.m_points.RemoveAll();
        m_track.series.m_divisions.RemoveAll();
        m_track.event.m_dDopplerError = c.dError;
        m_track.division.m_nCalcUsing = CalcUsing::Doppler;
        m_track.division.m_nAverageRuns = 1;
        RideThreeRuns();
        const double dOne = c.dError * std::sqrt(9.5) / 10.0;
        const double dClaimOfFastest = Find().Best()->m_dClaimed;
        EXPECT_NEAR(dClaimOfFastest, Fast - 2.0 * dOne, 1e-9);

        m_track.series.m_divisions.RemoveAll();
        m_track.division.m_nAverageRuns = static_cast<std::uint8_t>(c.nRuns);
        const CResultList results = Find();
        const double dCombined = dOne * std::sqrt(std::min(c.nRuns, 3)) / c.nRuns;
        EXPECT_NEAR(results[0].m_dDopplerError, dCombined, 1e-12);
        EXPECT_NEAR(results[0].m_dClaimed,
                    c.bClaimChanges ? results[0].m_dSpeed - 2.0 * dCombined : dClaimOfFastest, 1e-12);
    }
}

TEST_F(SeriesResults, ARunWithoutDistanceDoesNotSpoilTheAverage)
{
    const auto [from, to] = FindLostPair();
    m_track.Ride(20, Brisk);
    m_track.Point(0).m_position = from;
    m_track.Point(10).m_position = to;
    m_track.division.m_bAccumulation = 0;
    ASSERT_TRUE(std::isnan(Find()[0].m_dSpeed)) << "the slower of the two results";
    m_track.series.m_divisions.RemoveAll();
    m_track.division.m_nAverageRuns = 5;
    EXPECT_GT(Find().Best()->m_dSpeed, 0.0);
    EXPECT_NEAR(Find().Best()->m_dSeconds, 10.0, 1e-9);
}

} // namespace
} // namespace kestrabel::test
