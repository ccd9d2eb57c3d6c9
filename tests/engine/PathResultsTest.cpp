#include "engine/AlphaGrid.h"
#include "engine/AlphaResults.h"
#include "engine/LapResults.h"
#include "engine/PathTrack.h"
#include "engine/SeriesResults.h"
#include "engine/SplitResults.h"
#include "geo/DistanceCalculator.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

// Alphas, laps and splits on courses worked out by hand: the exact bounds that chance never meets.

namespace kestrabel::test {
namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

class PathResults : public testing::Test
{
protected:
    bool Calculate()
    {
        const auto pCalculate = m_division.m_nKind == DivisionKind::AlphaRacing   ? CalculateAlphaResults
                                : m_division.m_nKind == DivisionKind::LapRacing   ? CalculateLapResults
                                : m_division.m_nKind == DivisionKind::CheckPoints ? CalculateCheckpointResults
                                                                                  : CalculateSplitResults;
        m_results.RemoveAll();
        return pCalculate(m_track.event, m_track.person, m_track.series, m_division, m_results, NoProgress());
    }

    /// "start-end" of every result, as they stand in the list.
    std::string Find()
    {
        EXPECT_TRUE(Calculate());
        std::string strFound;
        for (const CResult* pResult : m_results)
            strFound += (strFound.empty() ? "" : " ") + std::to_string(pResult->m_nStartIndex) + "-" +
                        std::to_string(pResult->m_nEndIndex);
        return strFound;
    }

    void ForAlphas(double dProximity)
    {
        m_division.m_nKind = DivisionKind::AlphaRacing;
        m_division.m_dProximity = dProximity;
        m_division.m_bStrict = 0;
        m_track.event.m_nShowTopRows = 1;
    }

    /// North for 200 m, 20 m aside, and back by the next run: 21 points a leg.
    void SailForthAndBack() { m_track.Start(0, 0).GoNorthTo(200, 10).NextRun().Go(20, 200).GoNorthTo(0, 10); }

    /// The ends that an alpha from point 10 may have, found with all other points out of the way.
    std::string Ends()
    {
        std::string strEnds;
        for (int nEnd = 0; nEnd <= m_track.Last(); ++nEnd) {
            for (int i = 0; i <= m_track.Last(); ++i)
                m_track.Point(i).m_nInvalidFlags = i == 10 || i == nEnd ? 0 : InvalidFlag::User;
            if (!Find().empty())
                strEnds += (strEnds.empty() ? "" : " ") + std::to_string(nEnd);
        }
        return strEnds;
    }

    struct SGate
    {
        const char* pName;
        double dNorth;
        double dMetres;
    };
    void SetGates(std::initializer_list<SGate> gates)
    {
        const bool bOfFile = m_division.m_nKind == DivisionKind::CheckPoints;
        CObjectArray<CWayPoint>& wayPoints = bOfFile ? m_track.series.m_waypoints : m_division.m_waypoints;
        wayPoints.RemoveAll();
        for (const SGate& gate : gates) {
            CWayPoint& wayPoint = wayPoints.Add(std::make_unique<CWayPoint>());
            wayPoint.m_strName = gate.pName;
            wayPoint.m_position = CPathTrack::At(0, gate.dNorth);
            wayPoint.m_dProximity = gate.dMetres * 0.001;
        }
    }

    CPathTrack m_track;
    CDivision& m_division = m_track.division;
    CObjectArray<CResult> m_results;
};

TEST_F(PathResults, TracksTooShort)
{
    ForAlphas(0.05);
    EXPECT_FALSE(Calculate()) << "one fix";
    m_track.GoNorthTo(49, 7).NextRun().GoNorthTo(0, 7);
    EXPECT_FALSE(Calculate()) << "all within the gate";
    SailForthAndBack();
    m_division.m_dProximity = 0.0;
    EXPECT_EQ(Find(), "");
    m_division.m_nKind = DivisionKind::LapRacing;
    EXPECT_FALSE(Calculate()) << "no gates";
    m_division.m_nKind = DivisionKind::CheckPoints;
    EXPECT_EQ(Find(), "") << "this one is done with it";
    m_division.m_nKind = DivisionKind::Splits;
    m_track.Start(0, 0);
    EXPECT_EQ(Find(), "");
    m_track.Go(0, 10);
    EXPECT_EQ(Find(), "0-1");
    m_track.series.m_points.RemoveAll();
    for (const auto nKind : {DivisionKind::AlphaRacing, DivisionKind::LapRacing, DivisionKind::Splits}) {
        m_division.m_nKind = nKind;
        SetGates({{"A", 0, 10}});
        EXPECT_FALSE(Calculate());
    }
}

TEST_F(PathResults, AnAlphaEndsWhereItComesBackToItsStart)
{
    ForAlphas(0.05);
    SailForthAndBack();
    // From 100 m north: 50 m around it, 20 m aside, are 46 m of the return, which is at 200 - 10 × (i - 21).
    EXPECT_EQ(Ends(), "27 28 29 30 31 32 33 34 35");
    // A small gate, passed by fixes 31 and 32 of the return, which has 206 - 10 × (i - 21) otherwise.
    ForAlphas(0.005);
    m_track.Start(0, 0).GoNorthTo(200, 10).NextRun().Go(12, 206).GoNorthTo(86, 10);
    const struct
    {
        CPosition before, behind;
        const char* pEnds;
    } cases[] = {
        {CPathTrack::At(1, 106), CPathTrack::At(1, 96), "32"},
        {CPathTrack::At(1, 106), CPathTrack::At(1, 94), "32"}, // both outside, the step between is not
        {CPathTrack::At(6, 106), CPathTrack::At(6, 94), ""},
        // in the corner of the gate's box: the next step passes, or goes away
        {CPathTrack::At(3.4, 104), CPathTrack::At(-3, 95), "31 32"},
        {CPathTrack::At(3.4, 104), CPathTrack::At(12, 112), ""}};
    for (const auto& c : cases) {
        m_track.Point(31).m_position = c.before;
        m_track.Point(32).m_position = c.behind;
        EXPECT_EQ(Ends(), c.pEnds);
    }
    // The last point has to be within the gate itself, and not exactly at the proximity.
    m_track.Start(0, 0).GoNorthTo(200, 10).NextRun().Go(1, 200).GoNorthTo(106, 10).Go(1, 94);
    EXPECT_EQ(Ends(), "");
    CPosition& last = m_track.Point(m_track.Last()).m_position;
    last = CPathTrack::At(1, 96);
    EXPECT_EQ(Ends(), std::to_string(m_track.Last()));
    m_division.m_dProximity = CDistanceCalculator().Distance(last, m_track.Point(10).m_position);
    EXPECT_EQ(Ends(), "");
}

TEST_F(PathResults, AnAlphasPathIsFromTwiceTheProximityToTheTarget)
{
    ForAlphas(0.0625); // exact
    for (const auto nUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
        m_division.m_nCalcUsing = nUsing;
        for (const auto& [dPath, bFound] : {std::pair(0.125, true),
                                            {std::nextafter(0.125, 0.0), false},
                                            {0.5, true},
                                            {0.501, false},
                                            {NoNumber, false}})
        {
            SailForthAndBack();
            for (int i = 0; i <= m_track.Last(); ++i)
                m_track.Point(i).m_dTotalDistance = m_track.Point(i).m_dTotalDopplerDistance =
                    i < 11 ? 0.0 : dPath;
            EXPECT_EQ(Find().empty() || !(m_results[0].m_dSpeed > 0.0), !bFound) << dPath;
        }
    }
    // A receiver can give negative speeds. The return begins too far away and comes near.
    SailForthAndBack();
    const std::string strEnds = Ends();
    for (int i = 21; i < 26; ++i)
        m_track.Point(i).m_dTotalDopplerDistance = 10.0;
    EXPECT_EQ(Ends(), strEnds);
}

TEST(AlphaGrid, PointsBeyondTheBoxGoIntoTheLastCells)
{
    CSeries series;
    for (const auto& [dLatitude, dLongitude] : {std::pair(50.0, 10.0),
                                                {50.4, 10.4},
                                                {50.9, 10.9},
                                                {58.0, 13.0},
                                                {49.95, 9.95},
                                                {1e300, -1e300},
                                                {0.0, 10.4}})
        series.m_points.Add(MakePoint(0.0, dLatitude, dLongitude));
    series.m_rcBounds = {.m_dWest = 10.0, .m_dNorth = 50.9, .m_dEast = 10.9, .m_dSouth = 50.0};
    const CAlphaGrid grid(series, 0.3); // 4 × 4, of which the last begins at the edge
    EXPECT_EQ(grid.PointCount(), 6u);
    EXPECT_EQ(grid.PointsIn(grid.CellAt(0, 0)).size(), 1u);
    EXPECT_EQ(grid.PointsIn(grid.CellAt(1, 1)).size(), 2u) << "one cell before the first as one behind it";
    EXPECT_EQ(grid.PointsIn(grid.CellCount() - 1).back(), 5);
}

TEST_F(PathResults, LapsFromGateToGate)
{
    const auto Expect = [&](const char* pWhat, std::initializer_list<SGate> gates, const char* pLaps,
                            const char* pNames) {
        SCOPED_TRACE(pWhat);
        SetGates(gates);
        EXPECT_EQ(Find(), pLaps);
        std::string strNames;
        for (const CResult* pLap : m_results)
            strNames += (strNames.empty() ? "" : " ") + pLap->m_strWaypoint;
        EXPECT_EQ(strNames, pNames);
    };
    for (const auto nKind : {DivisionKind::LapRacing, DivisionKind::CheckPoints}) {
        m_division.m_nKind = nKind;
        m_track.Start(0, 0).GoNorthTo(300, 10).GoNorthTo(0, 10).GoNorthTo(300, 10);
        Expect("every pass ends one and starts the next", {{"G", 100, 15}}, "9-49 49-69", "G-G G-G");
        m_track.Start(0, 0).GoNorthTo(200, 10).GoNorthTo(0, 5);
        Expect("the second fix of a pass closes nothing", {{"G", 100, 15}}, "9-38", "G-G");
        m_track.Start(0, 14).GoNorthTo(394, 20).GoNorthTo(14, 20);
        Expect("steps across", {{"S", 100, 4}, {"N", 250, 4}}, "5-12 12-27 27-34", "S-N N-N N-S");
        m_track.Start(0, -10).Go(0, 5).Go(0, 60).Go(0, 99).Go(0, 120).Go(0, 180);
        Expect("the step that leaves a gate", {{"A", 0, 4}, {"B", 100, 4}}, "1-3", "A-B");
        m_track.Start(0, 0).GoNorthTo(400, 10);
        Expect("the first in the list", {{"B", 105, 20}, {"A", 100, 20}, {"C", 300, 20}}, "9-29", "B-C");
        Expect("only ten characters, not bytes",
               {{"J\xC3\xBCrgens B\xC3\xB6jenpunkt", 100, 15}, {"\xE2\x82\xAC Ten chars", 300, 15}}, "9-29",
               "J\xC3\xBCrgens B\xC3\xB6-\xE2\x82\xAC Ten char");
        Expect("straight across", {{"", 105, 0}, {"B", 305, 0}}, "11-31", "-B");
        m_track.Start(0.1, 0).GoNorthTo(400, 10);
        Expect("not straight across", {{"A", 105, 0}, {"B", 305, 0}}, "", "");
    }
}

TEST_F(PathResults, ALapIsLongerThanTwiceTheGatesRadius)
{
    m_division.m_nKind = DivisionKind::LapRacing;
    SetGates({{"G", 100, 31.25}});
    m_track.Start(0, 0).GoNorthTo(125, 10).GoNorthTo(100, 5).GoNorthTo(0, 10);
    for (const auto& [dPath, pLaps] : {std::pair(0.0625, ""), {0.0626, "7-12"}, {NoNumber, ""}}) {
        for (int i = 0; i <= m_track.Last(); ++i)
            m_track.Point(i).m_dTotalDistance = i < 12 ? 0.0 : dPath;
        EXPECT_EQ(Find(), pLaps) << dPath;
    }
}

TEST_F(PathResults, TheAverageOfLapsHasTheGatesOfTheFastestButNoNames)
{
    m_division.m_nKind = DivisionKind::LapRacing;
    SetGates({{"A", 100, 15}, {"B", 300, 15}});
    m_track.Start(0, 0).GoNorthTo(400, 10).GoNorthTo(0, 20);
    for (const int nAverage : {1, 2}) {
        m_division.m_nAverageRuns = static_cast<std::uint8_t>(nAverage);
        m_track.series.m_divisions.RemoveAll();
        CResultList results;
        CalculateSeriesResults(m_track.event, m_track.person, 0, m_division, results, NoProgress());
        EXPECT_EQ(results.GetCount(), nAverage == 1 ? 3 : 1);
        EXPECT_EQ(results.Best()->m_nWaypoint, 1);
        EXPECT_EQ(results.Best()->m_strWaypoint, nAverage == 1 ? "B-A" : "");
    }
}

TEST_F(PathResults, AGapLosesTheLapAndEndsTheSplit)
{
    SetGates({{"G", 100, 15}});
    m_division.m_dMetres = 1e9;
    const struct
    {
        double dGap;        ///< seconds between the recorded fixes
        double dStoredStep; ///< seconds in the point behind
        const char* pLaps;
        const char* pSplits;
    } cases[] = {{199.9, 199.9, "9-49 49-69", "0-90"},
                 {200.0, 0.0, "49-69", "0-21 21-90"},
                 {1.0, 200.0, "49-69", "0-21 21-90"}}; // from another derivation
    for (const auto& c : cases) {
        m_track.Start(0, 0).GoNorthTo(200, 10).Go(0, 210, c.dGap);
        m_track.GoNorthTo(300, 10).GoNorthTo(0, 10).GoNorthTo(300, 10);
        m_track.Point(21).m_dDeltaTime = c.dStoredStep * DaysPerSecond;
        m_division.m_nKind = DivisionKind::LapRacing;
        EXPECT_EQ(Find(), c.pLaps) << c.dGap;
        m_division.m_nKind = DivisionKind::Splits;
        EXPECT_EQ(Find(), c.pSplits) << c.dGap;
        EXPECT_NEAR(m_results[0].m_dSeconds, c.dStoredStep == 199.9 ? 288.9 : 20.0 + c.dGap, 1e-9)
            << "the gap's time is in it";
    }
}

TEST_F(PathResults, ASplitEndsAtTheFirstPointThatReachesTheTarget)
{
    m_division.m_nKind = DivisionKind::Splits;
    m_track.GoNorthTo(2000, 16);
    for (int i = 0; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = i / 64.0; // exact: 32 steps are 500 m
    EXPECT_EQ(Find(), "0-32 32-64 64-96 96-125");
    m_division.m_dMetres = 500.001;
    EXPECT_EQ(Find(), "0-33 33-66 66-99 99-125");
    for (int i = 50; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = NoNumber;
    EXPECT_EQ(Find(), "0-33 33-125");
    m_track.Start(0, 0).GoNorthTo(100, 10).Go(0, 110, -50.0).GoNorthTo(300, 10);
    m_division.m_dMetres = 105.0;
    EXPECT_EQ(Find(), "11-22 22-30 0-11") << "a clock that went back puts the later fixes first";
}

TEST_F(PathResults, TheErrorIsThatOfAllPointsOfAnAlphaAndAllStepsOfOthers)
{
    m_track.event.m_dTrackpointError = 0.004;
    SetGates({{"G", 100, 15}});
    for (const auto nKind : {DivisionKind::AlphaRacing, DivisionKind::LapRacing, DivisionKind::Splits}) {
        ForAlphas(0.05);
        m_division.m_nKind = nKind;
        m_track.Start(0, 0).GoNorthTo(200, 10).NextRun().GoNorthTo(0, 10);
        ASSERT_NE(Find(), "");
        const CResult& result = m_results[0];
        const int nSteps = result.m_nEndIndex - result.m_nStartIndex;
        const double dValues = nKind == DivisionKind::AlphaRacing ? nSteps + 1 : nSteps;
        EXPECT_NEAR(result.m_dPosError, 1.29 * 0.004 / std::sqrt(dValues), 1e-15);
        EXPECT_NEAR(result.m_dClaimed, (0.01 * nSteps - result.m_dPosError) * 3600.0 / nSteps, 1e-9);
    }
}

} // namespace
} // namespace kestrabel::test
