#include "engine/AlphaResults.h"

#include "engine/AlphaGrid.h"
#include "engine/PathTrack.h"
#include "geo/DistanceCalculator.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestrabel::test {
namespace {

class AlphaResults : public testing::Test
{
protected:
    AlphaResults()
    {
        m_track.event.m_nShowTopRows = 1;
        m_track.division.m_dProximity = 0.05;
        m_track.division.m_bStrict = 0;
    }

    /// North for 200 m, 20 m aside, and back by the next run: 21 points a leg, 1 s apart.
    void SailForthAndBack() { m_track.Go(0, 0).GoNorthTo(200, 10).NextRun().Go(20, 200).GoNorthTo(0, 10); }

    std::string Find()
    {
        m_results.RemoveAll();
        m_bDone = CalculateAlphaResults(m_track.event, m_track.person, m_track.series, m_track.division,
                                        m_results, m_progress);
        return Stretches(m_results);
    }

    /// The ends that an alpha from that start may have, found with all other points out of the way.
    std::string EndsFrom(int nStart)
    {
        std::string strEnds;
        for (int nEnd = 0; nEnd <= m_track.Last(); ++nEnd) {
            for (int i = 0; i <= m_track.Last(); ++i)
                m_track.Point(i).m_nInvalidFlags = i == nStart || i == nEnd ? 0 : InvalidFlag::User;
            if (!Find().empty())
                strEnds += (strEnds.empty() ? "" : " ") + std::to_string(nEnd);
        }
        return strEnds;
    }

    /// Leaves only that start.
    void StartOnlyAt(int nStart)
    {
        for (int i = 0; m_track.Point(i).m_nRun == 0; ++i)
            m_track.Point(i).m_nInvalidFlags = i == nStart ? 0 : InvalidFlag::User;
    }

    CPathTrack m_track{DivisionKind::AlphaRacing};
    CObjectArray<CResult> m_results;
    CProgressRecord m_progress;
    bool m_bDone = false;
};

TEST_F(AlphaResults, ATrackWithinTheGateIsNotSearched)
{
    m_track.Go(0, 0).GoNorthTo(49, 7).NextRun().GoNorthTo(0, 7);
    EXPECT_EQ(Find(), "");
    EXPECT_FALSE(m_bDone);
    m_track.series.m_points.RemoveAll();
    EXPECT_EQ(Find(), "");
    EXPECT_FALSE(m_bDone);
    EXPECT_TRUE(m_progress.m_begun.empty());
    SailForthAndBack();
    Find();
    EXPECT_TRUE(m_bDone);
    EXPECT_EQ(m_progress.Count("Calculating Course"), 1);
}

TEST_F(AlphaResults, WithoutProximityThereIsNoAlpha)
{
    SailForthAndBack();
    m_track.division.m_dProximity = 0.0;
    EXPECT_EQ(Find(), "");
    EXPECT_TRUE(m_bDone);
}

TEST_F(AlphaResults, OneFixAlone)
{
    m_track.Go(0, 0);
    EXPECT_EQ(Find(), "");
    EXPECT_FALSE(m_bDone);
    m_track.series.m_rcBounds = CGeoRect::Empty(); // as when no fix was valid
    m_track.division.m_dProximity = 0.0;
    EXPECT_EQ(Find(), "");
}

TEST_F(AlphaResults, EveryFixOfTheReturnWithinTheGateMayEndIt)
{
    SailForthAndBack();
    // From 100 m north: 50 m around it, 20 m aside, are 46 m of the return, which is at 200 - 10 × (i - 21).
    // At 150 m, point 26, the gate is still 54 m away.
    EXPECT_EQ(EndsFrom(10), "27 28 29 30 31 32 33 34 35");
}

TEST_F(AlphaResults, AStepPastTheStartCountsWithBothFixesOutside)
{
    m_track.division.m_dProximity = 0.005;
    m_track.Go(0, 0).GoNorthTo(100, 10).GoNorthTo(200, 10).NextRun().Go(1, 206).GoNorthTo(86, 10);
    ASSERT_EQ(m_track.Point(10).m_position, CPathTrack::At(0, 100));
    // The fixes at 106 m, 31, and 96 m, 32: the second is within the gate. 6 m off are both of 106 and 94.
    EXPECT_EQ(EndsFrom(10), "32");
    m_track.Point(31).m_position = CPathTrack::At(1, 106);
    m_track.Point(32).m_position = CPathTrack::At(1, 94);
    EXPECT_EQ(EndsFrom(10), "32");
    // 6 m aside, the nearest point of the step is outside too.
    m_track.Point(31).m_position = CPathTrack::At(6, 106);
    m_track.Point(32).m_position = CPathTrack::At(6, 94);
    EXPECT_EQ(EndsFrom(10), "");
}

TEST_F(AlphaResults, AFixInTheCornerCountsWhenTheNextStepPasses)
{
    m_track.division.m_dProximity = 0.005;
    m_track.Go(0, 0).GoNorthTo(200, 10).NextRun().Go(5, 200).GoNorthTo(120, 10);
    m_track.Go(5, 114).Go(3.4, 104).Go(-3, 95).Go(-5, 60).GoNorthTo(0, 10);
    const int nCorner = 31;
    ASSERT_EQ(m_track.Point(nCorner).m_position, CPathTrack::At(3.4, 104));
    EXPECT_EQ(EndsFrom(10), "31 32") << "and the fix behind the step";
    // The next step goes away.
    m_track.Point(nCorner + 1).m_position = CPathTrack::At(12, 112);
    EXPECT_EQ(EndsFrom(10), "");
}

TEST_F(AlphaResults, OfOnePassTheFasterEndCounts)
{
    // Forth at 20 m/s. A slow return is best where it enters the gate: 40 m off at 140 m north, although the
    // next fix is nearer. A fast one is best at the last fix in the gate. The fix that leaves it is none.
    for (const bool bSlowReturn : {true, false}) {
        SCOPED_TRACE(bSlowReturn);
        m_track.series.m_points.RemoveAll();
        m_track.Go(0, 0).GoNorthTo(200, 20).NextRun().Go(20, 200, bSlowReturn ? 10.0 : 1.0);
        while (m_track.Point(m_track.Last()).m_dTotalDistance < 0.42)
            m_track.Go(20, 200 - 20 * (m_track.Last() - 10), bSlowReturn ? 4.0 : 0.5);
        for (auto* pPoint : m_track.series.m_points)
            pPoint->m_nRun = pPoint->m_nTrack > 10 ? 1 : 0;
        StartOnlyAt(5);
        EXPECT_EQ(Find(), bSlowReturn ? "5-14" : "5-18");
    }
}

TEST_F(AlphaResults, TheReturnIsTheNextRun)
{
    SailForthAndBack();
    StartOnlyAt(10);
    EXPECT_NE(Find(), "");
    const auto ReturnInRun = [&](int nRun) {
        for (int i = 21; i <= m_track.Last(); ++i)
            m_track.Point(i).m_nRun = nRun;
    };
    ReturnInRun(0);
    EXPECT_EQ(Find(), "");
    ReturnInRun(2);
    EXPECT_EQ(Find(), "");
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    EXPECT_NE(Find(), "") << "by Doppler it is";
}

TEST_F(AlphaResults, LengthOfThePath)
{
    struct SCase
    {
        double dPath; ///< km
        bool bFound;
    };
    m_track.division.m_dProximity = 0.0625; // exact
    m_track.division.m_dMetres = 500.0;
    SailForthAndBack();
    for (const auto nUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
        m_track.division.m_nCalcUsing = nUsing;
        for (const SCase& c : std::initializer_list<SCase>{
                 {0.125, true}, {std::nextafter(0.125, 0.0), false}, {0.5, true}, {0.501, false}})
        {
            for (int i = 0; i <= 10; ++i)
                m_track.Point(i).m_dTotalDistance = m_track.Point(i).m_dTotalDopplerDistance = 0.0;
            for (int i = 11; i <= m_track.Last(); ++i)
                m_track.Point(i).m_dTotalDistance = m_track.Point(i).m_dTotalDopplerDistance = c.dPath;
            StartOnlyAt(10);
            EXPECT_EQ(!Find().empty(), c.bFound) << c.dPath;
        }
    }
}

/// A start at 100 m and a return at twice the speed, so that the last end is the best. The cells are 49.5 m
/// high: of the return the points 22 to 26 are in the cell north of the start's, 27 to 31 in that one and 32
/// to 36 in the one south of it. 27 to 35 are within the gate.
class AlphaConstraints : public AlphaResults
{
protected:
    AlphaConstraints()
    {
        m_track.division.m_dProximity = 0.0495;
        m_track.Go(0, 0).GoNorthTo(200, 10).NextRun();
        for (int i = 0; i <= 20; ++i)
            m_track.Go(20, 200 - 10 * i, 0.5);
        StartOnlyAt(10);
    }
};

TEST_F(AlphaConstraints, APointBeyondThemEndsTheSearchInItsCell)
{
    struct SCase
    {
        std::vector<int> gaps;
        const char* pBest;
    };
    for (const SCase& c : std::initializer_list<SCase>{{{}, "10-35"},
                                                       {{22}, "10-35"},
                                                       {{36}, "10-35"},
                                                       {{35}, "10-34"},
                                                       {{32}, "10-31"},
                                                       {{27}, "10-35"},
                                                       {{29, 32}, "10-28"},
                                                       {{27, 34}, "10-33"},
                                                       {{27, 32}, ""},
                                                       // in the start's cell too, but on the way out
                                                       {{12, 32}, "10-31"}})
    {
        for (int i = 0; i <= m_track.Last(); ++i)
            m_track.Point(i).m_dDeltaTime = DaysPerSecond;
        for (const int nPoint : c.gaps)
            m_track.Point(nPoint).m_dDeltaTime = 200.0 * DaysPerSecond;
        EXPECT_EQ(Find(), c.pBest) << testing::PrintToString(c.gaps);
    }
    // Valid, the point on the way out is met in the cell and ends the search there before the return: for the
    // start at 100 m nothing is left. Its own start, at 120 m, has the north cell.
    m_track.event.m_nShowTopRows = 10;
    m_track.Point(12).m_nInvalidFlags = 0;
    EXPECT_EQ(Find(), "12-26");
}

TEST_F(AlphaConstraints, DatesAndRegionBoundTheEnds)
{
    m_track.event.m_bConstrainDates = 1;
    m_track.event.m_dateStart = m_track.Point(0).m_time;
    m_track.event.m_dateEnd = m_track.Point(m_track.Last()).m_time;
    EXPECT_NE(Find(), "");
    m_track.event.m_dateEnd = m_track.Point(20).m_time;
    EXPECT_EQ(Find(), "") << "the return came too late";
    m_track.event.m_dateStart = m_track.Point(15).m_time;
    m_track.event.m_dateEnd = m_track.Point(m_track.Last()).m_time;
    EXPECT_NE(Find(), "") << "only ends are constrained";
    m_track.event.m_bConstrainDates = 0;
    m_track.event.m_bConstrainRegion = 1;
    m_track.event.m_posNorthWest = CPathTrack::At(-1, 300);
    m_track.event.m_posSouthEast = CPathTrack::At(30, -300);
    EXPECT_NE(Find(), "");
    m_track.event.m_posSouthEast = CPathTrack::At(10, -300);
    EXPECT_EQ(Find(), "") << "the return was too far east";
}

TEST_F(AlphaResults, StrictDopplerToleratesNoFlagBetween)
{
    SailForthAndBack();
    for (const auto nUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
        for (const std::int32_t bStrict : {0, 1}) {
            m_track.division.m_nCalcUsing = nUsing;
            m_track.division.m_bStrict = bStrict;
            for (const auto nFlag : EveryFlag) {
                m_track.Point(21).m_nInvalidFlags = nFlag;
                EXPECT_EQ(!Find().empty(), nUsing != CalcUsing::Doppler || bStrict == 0)
                    << InvalidLetters(nFlag);
            }
            m_track.Point(21).m_nInvalidFlags = 0;
        }
    }
    // The start itself may carry a flag that leaves it a fix.
    StartOnlyAt(10);
    for (int i = 11; i <= 20; ++i)
        m_track.Point(i).m_nInvalidFlags = 0;
    m_track.Point(10).m_nInvalidFlags = InvalidFlag::SpeedSpike;
    Find();
    EXPECT_GE(m_results.Last()->m_nStartIndex, 10);
}

TEST_F(AlphaResults, WhatIsToldAboutAnAlpha)
{
    SailForthAndBack();
    StartOnlyAt(10);
    for (int i = 0; i <= m_track.Last(); ++i) {
        CTrackPoint& point = m_track.Point(i);
        point.m_nAltitude = i * i;
        point.m_dHDOP = i == 10 ? 50.0 : 1.0 + 0.1 * i;
        point.m_nSats = i == 10 ? 2 : 40 - i;
        point.m_dDoppler = point.m_dSpeed + 5.0;
        point.m_dDirection = 1.0;
        if (i > 27)
            point.m_nInvalidFlags = InvalidFlag::User; // 27 is the only end
    }
    m_track.Point(15).m_dSpeed = 30.0;
    m_track.Point(16).m_dSpeed = 44.0;
    m_track.event.m_dTrackpointError = 0.004;
    m_track.event.m_dDopplerError = 1.0;
    ASSERT_EQ(Find(), "10-27");
    const CResult& result = *m_results.Last();
    const double dPath = 0.1 + 0.02 + 0.06;
    const double dRoot = std::sqrt(18.0); // points, both ends counted
    EXPECT_EQ(result.m_nRank, 1);
    EXPECT_NEAR(result.m_dDistance, dPath, 1e-12);
    EXPECT_EQ(result.m_dSeconds, 17.0);
    EXPECT_NEAR(result.m_dSpeed, dPath * 3600.0 / 17.0, 1e-9);
    EXPECT_NEAR(result.m_dPosError, 1.29 * 0.004 / dRoot, 1e-15);
    EXPECT_NEAR(result.m_dClaimed, (dPath - result.m_dPosError) * 3600.0 / 17.0, 1e-9);
    EXPECT_EQ(result.m_dDopplerError, 0.0);
    EXPECT_EQ(result.m_dMinSpeed, 30.0);
    EXPECT_NEAR(result.m_dMaxSpeed, 72.0, 1e-9) << "the 20 m aside";
    EXPECT_DOUBLE_EQ(result.m_dHDOPMax, 3.7) << "the start's does not count";
    EXPECT_EQ(result.m_nSatsMin, 13);
    EXPECT_EQ(result.m_dAltitude, 100.0);
    EXPECT_EQ(result.m_dAltChange, 27.0 * 27.0 - 100.0);
    EXPECT_EQ(result.m_dDirection, 0.0);
    EXPECT_EQ(result.m_dWindAngle, 0.0);
    EXPECT_EQ(result.m_nRun, 0);
    EXPECT_EQ(result.m_nSeriesIndex, 2);
    EXPECT_EQ(result.m_nPersonIndex, 5);
    EXPECT_EQ(result.m_strCompetitor + result.m_strDivision + result.m_strSeries, "AnnCourseMorning");
    EXPECT_EQ(result.m_nWaypoint, -1);
    EXPECT_EQ(result.m_timeStart, m_track.Point(10).m_time);
    EXPECT_EQ(result.m_posEnd, m_track.Point(27).m_position);

    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    m_track.series.m_dDopplerError = 2.0; // the file's own goes first
    ASSERT_EQ(Find(), "10-27");
    EXPECT_NEAR(m_results.Last()->m_dDopplerError, 1.29 * 2.0 / dRoot, 1e-12);
    EXPECT_NEAR(m_results.Last()->m_dClaimed, dPath * 3600.0 / 17.0 - 2.58 / dRoot, 1e-9);
    EXPECT_EQ(m_results.Last()->m_dPosError, 0.0);
    EXPECT_NEAR(m_results.Last()->m_dMinSpeed, 41.0, 1e-9) << "by Doppler";

    m_track.division.m_nCalcUsing = CalcUsing::Trackpoints;
    m_track.series.m_dTrackError = 6.0; // metres
    Find();
    EXPECT_NEAR(m_results.Last()->m_dPosError, 1.29 * 0.006 / dRoot, 1e-15);
    m_track.series.m_dTrackError = m_track.event.m_dTrackpointError = 0.0;
    Find();
    EXPECT_EQ(m_results.Last()->m_dPosError, 0.0);
    EXPECT_EQ(m_results.Last()->m_dClaimed, 0.0);
}

TEST_F(AlphaResults, AlphasThatOverlapAreSkipped)
{
    // Three times forth and back, faster each time; the pause before each keeps them apart.
    for (int i = 0; i < 3; ++i) {
        const double dPace = 1.0 - 0.1 * i;
        m_track.Go(0, 0, 30.0);
        for (int n = 1; n <= 20; ++n)
            m_track.Go(0, 10 * n, dPace);
        m_track.NextRun();
        for (int n = 20; n >= 0; --n)
            m_track.Go(20, 10 * n, dPace);
        m_track.NextRun();
    }
    m_track.event.m_nShowTopRows = 50;
    Find();
    ASSERT_GE(m_results.GetCount(), 3);
    for (int i = 0; i < m_results.GetCount(); ++i) {
        EXPECT_EQ(m_results[i].m_nRank, m_results.GetCount() - i);
        for (int j = 0; j < i; ++j)
            EXPECT_FALSE(m_results[i].Overlaps(m_results[j]));
    }
    EXPECT_GT(m_results.Last()->m_nStartIndex, 80) << "the last round was the fastest";
    const int nAll = m_results.GetCount();
    m_track.event.m_nShowTopRows = 1;
    Find();
    EXPECT_EQ(m_results.GetCount(), 1);
    m_track.division.m_nAverageRuns = 2;
    Find();
    EXPECT_EQ(m_results.GetCount(), 2);
    m_track.division.m_nAverageRuns = 99;
    Find();
    EXPECT_EQ(m_results.GetCount(), nAll);
}

TEST_F(AlphaResults, TheLastPointHasToBeWithinTheGateItself)
{
    m_track.division.m_dProximity = 0.005;
    m_track.Go(0, 0).GoNorthTo(200, 10).NextRun().Go(1, 200).GoNorthTo(106, 10).Go(1, 94);
    EXPECT_EQ(EndsFrom(10), "") << "the step past it does not count for the last";
    m_track.Point(m_track.Last()).m_position = CPathTrack::At(1, 96);
    EXPECT_EQ(EndsFrom(10), std::to_string(m_track.Last()));
    // Exactly at the proximity is not below it.
    CDistanceCalculator calculator;
    m_track.division.m_dProximity =
        calculator.Distance(m_track.Point(m_track.Last()).m_position, m_track.Point(10).m_position);
    EXPECT_EQ(EndsFrom(10), "");
}

TEST_F(AlphaResults, TotalsThatAreNoNumbersGiveNoFastAlpha)
{
    SailForthAndBack();
    const std::string strFound = Find();
    m_track.Point(21).m_dTotalDistance = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Find(), strFound);
    for (int i = 21; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = std::numeric_limits<double>::quiet_NaN();
    Find();
    for (const CResult* pResult : m_results)
        EXPECT_FALSE(pResult->m_dSpeed > 0.0);
}

TEST_F(AlphaResults, APathThatGetsShorterIsSearchedToItsEnd)
{
    // A receiver can give negative speeds. The return begins too far away and comes near.
    SailForthAndBack();
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    StartOnlyAt(10);
    const std::string strFound = Find();
    ASSERT_NE(strFound, "");
    for (int i = 21; i < 27; ++i)
        m_track.Point(i).m_dTotalDopplerDistance = 10.0;
    EXPECT_EQ(Find(), strFound);
}

TEST(AlphaGrid, CellsAreNeverSmallerThanTheProximity)
{
    struct SCase
    {
        double dExtent; ///< degrees
        double dProximity;
        int nCells;
    };
    for (const SCase& c : std::initializer_list<SCase>{{3.0, 0.01, 31}, // 30 cells and the edge itself
                                                       {3.0, 0.5, 7},
                                                       {3.0, 3.0, 2},
                                                       {3.0, 3.1, 1},
                                                       {0.0, 0.1, 1}})
    {
        CSeries series;
        series.m_rcBounds = {
            .m_dWest = 10.0, .m_dNorth = 50.0, .m_dEast = 10.0 + c.dExtent, .m_dSouth = 50.0};
        const CAlphaGrid grid(series, c.dProximity);
        EXPECT_NEAR(grid.Columns(), c.nCells, c.nCells == 31 ? 1 : 0) << c.dExtent;
        EXPECT_EQ(grid.Rows(), 1);
    }
}

TEST(AlphaGrid, PointsBeyondTheBoxGoIntoTheLastCells)
{
    CSeries series;
    const std::array<CPosition, 6> positions = {MakePosition(50.0, 10.0),  MakePosition(50.4, 10.4),
                                                MakePosition(50.9, 10.9),  MakePosition(58.0, 13.0),
                                                MakePosition(49.95, 9.95), MakePosition(1e300, -1e300)};
    for (const CPosition& position : positions)
        series.m_points.Add(MakePoint(0.0, position.m_dLatitude, position.m_dLongitude));
    series.m_points.Add(MakePoint(0.0, 0.0, 10.4));
    series.m_points.Add(MakePoint(0.0, 50.4, 10.4)).m_nInvalidFlags = InvalidFlag::Hdop;
    series.m_rcBounds = {.m_dWest = 10.0, .m_dNorth = 50.9, .m_dEast = 10.9, .m_dSouth = 50.0};
    const CAlphaGrid grid(series, 0.3); // 4 × 4, of which the last begins at the edge
    const auto In = [&](int nColumn, int nRow) {
        const auto points = grid.PointsIn(grid.CellAt(nColumn, nRow));
        return std::vector<int>(points.begin(), points.end());
    };
    const int nLastColumn = grid.Columns() - 1;
    EXPECT_EQ(grid.PointCount(), 6u) << "neither the one without a position nor the invalid one";
    EXPECT_EQ(In(0, 0), std::vector<int>{0});
    EXPECT_EQ(In(1, 1), (std::vector<int>{1, 4})) << "one cell before the first counts as one behind it";
    EXPECT_EQ(In(nLastColumn, grid.Rows() - 1).back(), 5);
    EXPECT_EQ(grid.ColumnsAround(0).nFirst, 0);
    EXPECT_EQ(grid.ColumnsAround(0).nLast, 1);
    EXPECT_EQ(grid.ColumnsAround(nLastColumn).nLast, nLastColumn);
}

} // namespace
} // namespace kestrabel::test
