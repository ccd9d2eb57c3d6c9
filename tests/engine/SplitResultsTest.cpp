#include "engine/SplitResults.h"

#include "engine/PathTrack.h"
#include "engine/SeriesResults.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace kestrabel::test {
namespace {

class SplitResults : public testing::Test
{
protected:
    std::string Find()
    {
        m_results.RemoveAll();
        m_bDone = CalculateSplitResults(m_track.event, m_track.person, m_track.series, m_track.division,
                                        m_results, m_progress);
        return Stretches(m_results);
    }

    CPathTrack m_track{DivisionKind::Splits};
    CObjectArray<CResult> m_results;
    CProgressRecord m_progress;
    bool m_bDone = false;
};

TEST_F(SplitResults, ShortTracks)
{
    EXPECT_EQ(Find(), "");
    EXPECT_FALSE(m_bDone);
    EXPECT_TRUE(m_progress.m_begun.empty());
    m_track.Go(0, 0);
    EXPECT_EQ(Find(), "");
    EXPECT_TRUE(m_bDone);
    EXPECT_EQ(m_progress.Count("Calculating Course"), 1);
    m_track.Go(0, 10);
    EXPECT_EQ(Find(), "0-1");
}

TEST_F(SplitResults, EachEndsAtTheFirstPointThatReachesTheTarget)
{
    // 2 km in steps of 16 m: 32 steps are 512 m.
    m_track.Go(0, 0).GoNorthTo(2000, 16);
    ASSERT_EQ(m_track.Last(), 125);
    EXPECT_EQ(Find(), "0-32 32-64 64-96 96-125");
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(m_results[i].m_dDistance, 0.512, 1e-12);
    EXPECT_NEAR(m_results[3].m_dDistance, 2.0 - 3 * 0.512, 1e-12);
    for (const CResult* pSplit : m_results) {
        EXPECT_NEAR(pSplit->m_dSpeed, 57.6, 1e-9);
        EXPECT_EQ(pSplit->m_nRank, -1);
        EXPECT_EQ(pSplit->m_nWaypoint, -1);
        EXPECT_EQ(pSplit->m_nWaypoint2, -1);
        EXPECT_EQ(pSplit->m_strWaypoint, "");
    }
    for (int i = 0; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = i / 64.0; // exact: 32 steps are the 0.5 km
    EXPECT_EQ(Find(), "0-32 32-64 64-96 96-125");
    m_track.division.m_dMetres = 500.001;
    EXPECT_EQ(Find(), "0-33 33-66 66-99 99-125");
    m_track.division.m_dMetres = 1e9;
    EXPECT_EQ(Find(), "0-125");
    m_track.division.m_dMetres = 0.0;
    Find();
    EXPECT_EQ(m_results.GetCount(), 125);
}

TEST_F(SplitResults, AGapEndsTheSplitBehindIt)
{
    m_track.Go(0, 0).GoNorthTo(200, 10).Go(0, 210, 300.0).GoNorthTo(500, 10);
    EXPECT_EQ(Find(), "0-21 21-50");
    EXPECT_EQ(m_results[0].m_dSeconds, 320.0) << "the gap's time is in it";
    EXPECT_NEAR(m_results[0].m_dDistance, 0.21, 1e-12);
    m_track.event.m_nTimeThreshold = 301;
    EXPECT_EQ(Find(), "0-50");
    m_track.Point(30).m_dDeltaTime = 301.0 * DaysPerSecond; // told by the stored step
    EXPECT_EQ(Find(), "0-30 30-50");
}

TEST_F(SplitResults, WhatIsToldAboutASplit)
{
    m_track.Go(0, 0).GoNorthTo(90, 10).NextRun().GoNorthTo(300, 10);
    m_track.division.m_dMetres = 155.0;
    for (int i = 0; i <= m_track.Last(); ++i) {
        CTrackPoint& point = m_track.Point(i);
        point.m_nDopplerRun = 10 + i;
        point.m_nAltitude = -i;
        point.m_dHDOP = 0.1 * i;
        point.m_nSats = 120 - i;
        point.m_dDoppler = 400.0;
        point.m_nInvalidFlags = InvalidFlag::Hdop; // does not matter
        point.m_dTotalDopplerDistance = 0.02 * i;
    }
    m_track.Point(16).m_dSpeed = 72.0; // the end of one and the start of the other
    m_track.event.m_dTrackpointError = 0.005;
    m_track.series.m_dDopplerError = 0.5;
    ASSERT_EQ(Find(), "0-16 16-30");
    const CResult& split = m_results[1];
    const double dRoot = std::sqrt(14.0);
    EXPECT_EQ(split.m_dSeconds, 14.0);
    EXPECT_NEAR(split.m_dPosError, 1.29 * 0.005 / dRoot, 1e-15);
    EXPECT_NEAR(split.m_dClaimed, (0.14 - split.m_dPosError) * 3600.0 / 14.0, 1e-9);
    EXPECT_EQ(split.m_dDopplerError, 0.0);
    EXPECT_EQ(split.m_dMaxSpeed, 72.0);
    EXPECT_EQ(m_results[0].m_dMaxSpeed, 72.0);
    EXPECT_EQ(m_results[0].m_dMinSpeed, 0.0) << "of the first point";
    EXPECT_DOUBLE_EQ(split.m_dHDOPMax, 3.0);
    EXPECT_EQ(split.m_nSatsMin, 90);
    EXPECT_EQ(m_results[0].m_nSatsMin, 100);
    EXPECT_EQ(split.m_dAltitude, -16.0);
    EXPECT_EQ(split.m_dAltChange, -14.0);
    EXPECT_EQ(split.m_nRun, 1);
    EXPECT_EQ(split.m_strCompetitor + split.m_strDivision + split.m_strSeries, "AnnCourseMorning");
    EXPECT_EQ(split.m_timeStart, m_track.Point(16).m_time);
    EXPECT_EQ(split.m_posEnd, m_track.Point(30).m_position);

    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    ASSERT_EQ(Find(), "0-8 8-16 16-24 24-30");
    EXPECT_EQ(m_results[1].m_nRun, 18);
    EXPECT_NEAR(m_results[1].m_dDopplerError, 1.29 * 0.5 / std::sqrt(8.0), 1e-12);
    EXPECT_NEAR(m_results[1].m_dClaimed, 72.0 - m_results[1].m_dDopplerError, 1e-9);
    EXPECT_EQ(m_results[1].m_dPosError, 0.0);
    EXPECT_NEAR(m_results[1].m_dMinSpeed, 36.0, 1e-9) << "by position, also here";
}

TEST_F(SplitResults, AverageAndOrder)
{
    // Splits of 100 m at 36, 72 and 24 km/h: the record has them by speed, or the two fastest as one.
    m_track.Go(0, 0);
    for (int i = 1; i <= 30; ++i)
        m_track.Go(0, 10 * i, i <= 10 ? 1.0 : i <= 20 ? 0.5 : 1.5);
    m_track.division.m_dMetres = 99.0;
    EXPECT_EQ(Find(), "0-10 10-20 20-30");
    CResultList bySpeed;
    CalculateSeriesResults(m_track.event, m_track.person, 0, m_track.division, bySpeed, m_progress);
    EXPECT_EQ(Stretches(bySpeed), "20-30 0-10 10-20");
    m_track.series.m_divisions.RemoveAll();
    m_track.division.m_nAverageRuns = 2;
    CResultList average;
    CalculateSeriesResults(m_track.event, m_track.person, 0, m_track.division, average, m_progress);
    ASSERT_EQ(Stretches(average), "0-20");
    EXPECT_NEAR(average[0].m_dSpeed, 54.0, 1e-9);
    EXPECT_EQ(average[0].m_dSeconds, 15.0);
}

TEST_F(SplitResults, AClockThatWentBackPutsTheLaterFixesFirst)
{
    m_track.Go(0, 0).GoNorthTo(100, 10).Go(0, 110, -50.0).GoNorthTo(300, 10);
    m_track.division.m_dMetres = 105.0;
    EXPECT_EQ(Find(), "11-22 22-30 0-11");
    for (const CResult* pSplit : m_results)
        EXPECT_GT(pSplit->m_dSpeed, 0.0);
}

TEST_F(SplitResults, TotalsThatAreNoNumbersReachNoTarget)
{
    m_track.Go(0, 0).GoNorthTo(300, 10);
    m_track.division.m_dMetres = 105.0;
    for (int i = 15; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Find(), "0-11 11-30");
}

} // namespace
} // namespace kestrabel::test
