#include "engine/LapResults.h"

#include "engine/PathTrack.h"
#include "engine/SeriesResults.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace kestrabel::test {
namespace {

class LapResults : public testing::Test
{
protected:
    CWayPoint& AddGate(std::string_view strName, double dEast, double dNorth, double dMetres = 15.0)
    {
        return m_track.AddGate(m_track.division.m_waypoints, strName, dEast, dNorth, dMetres);
    }

    bool Calculate()
    {
        m_results.RemoveAll();
        return CalculateLapResults(m_track.event, m_track.person, m_track.series, m_track.division, m_results,
                                   m_progress);
    }

    std::string Find()
    {
        EXPECT_TRUE(Calculate());
        return Stretches(m_results);
    }

    CPathTrack m_track{DivisionKind::LapRacing};
    int m_nNorth = 0;
    CObjectArray<CResult> m_results;
    CProgressRecord m_progress;
};

TEST_F(LapResults, NothingToDo)
{
    EXPECT_FALSE(Calculate()) << "neither points nor gates";
    AddGate("A", 0, 100);
    EXPECT_FALSE(Calculate()) << "no points";
    m_track.Go(0, 100);
    EXPECT_EQ(Find(), "") << "one point";
    EXPECT_EQ(m_progress.Count("Calculating Course"), 1);
    m_track.division.m_waypoints.RemoveAll();
    EXPECT_FALSE(Calculate()) << "no gates";
}

TEST_F(LapResults, EveryPassOfTheOnlyGateEndsALapAndStartsTheNext)
{
    // 0 to 300 m and back and forth; the gate at 100 m is entered at 90 m from the south, 110 m from the
    // north.
    AddGate("Gate", 0, 100);
    m_track.Go(0, 0).GoNorthTo(300, 10).GoNorthTo(0, 10).GoNorthTo(300, 10);
    EXPECT_EQ(Find(), "9-49 49-69") << "the slower ones first, equal ones as they were sailed";
    for (const CResult* pLap : m_results) {
        EXPECT_NEAR(pLap->m_dSpeed, 36.0, 1e-9);
        EXPECT_EQ(pLap->m_nWaypoint, 0);
        EXPECT_EQ(pLap->m_nWaypoint2, 0);
        EXPECT_EQ(pLap->m_strWaypoint, "Gate-Gate");
        EXPECT_EQ(pLap->m_nRank, -1);
    }
}

TEST_F(LapResults, APassBeforeTwiceTheGatesRadiusDoesNotCloseTheLap)
{
    // Out to 125 m and back: 35 m from the entry at 90 m to the turn and 15 more to 110 m, over twice 15 m.
    AddGate("Gate", 0, 100, 15.0);
    m_track.Go(0, 0).GoNorthTo(125, 10).GoNorthTo(100, 5).GoNorthTo(0, 10);
    EXPECT_EQ(Find(), "9-16");
    // 12 m aside the gate reaches from 91 to 109 m: in at 95 m, out at 110 m, and in again after 22 m.
    m_track.series.m_points.RemoveAll();
    m_track.Go(12, 0).GoNorthTo(90, 10).GoNorthTo(110, 5).Go(12, 111).Go(12, 105).Go(40, 105);
    EXPECT_EQ(Find(), "");
    m_track.Go(12, 150).GoNorthTo(50, 10);
    EXPECT_EQ(Find(), "10-22") << "the next pass closes it";
    EXPECT_EQ(m_track.Point(22).m_position, CPathTrack::At(12, 100));
    // Exactly twice the radius is not enough.
    m_track.series.m_points.RemoveAll();
    m_track.division.m_waypoints.RemoveAll();
    m_track.Go(0, 0).GoNorthTo(125, 10).GoNorthTo(100, 5).GoNorthTo(0, 10);
    AddGate("Gate", 0, 100, 31.25);
    ASSERT_EQ(m_track.division.m_waypoints[0].m_dProximity * 2.0, 0.0625);
    for (int i = 0; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = i < 12 ? 0.0 : 0.0625;
    EXPECT_EQ(Find(), "");
    m_track.Point(m_track.Last()).m_dTotalDistance = 0.07; // at 0 m, out of the gate
    EXPECT_EQ(Find(), "");
    m_track.Point(12).m_dTotalDistance = 0.0626;
    EXPECT_EQ(Find(), "7-12");
}

TEST_F(LapResults, TheSecondFixOfAPassClosesNothing)
{
    // The pass south has its fixes at 110, 105, ... 90 m within the gate: only the first closes a lap.
    AddGate("Gate", 0, 100);
    m_track.Go(0, 0).GoNorthTo(200, 10).GoNorthTo(0, 5);
    EXPECT_EQ(Find(), "9-38");
    EXPECT_EQ(m_track.Point(38).m_position, CPathTrack::At(0, 110));
}

TEST_F(LapResults, AStepAcrossTheGateCountsAndTheOneThatLeavesItDoesNot)
{
    AddGate("South", 1, 100, 4.0);
    AddGate("North", 1, 250, 4.0);
    // From 94 m, 4, to 114 m and from 234 m, 11, to 254 m, and back, with none of these fixes within 4 m.
    m_track.Go(0, 14).GoNorthTo(394, 20).GoNorthTo(14, 20);
    EXPECT_EQ(Find(), "5-12 12-27 27-34") << "South-North, North-North, North-South";
    EXPECT_EQ(m_results[0].m_strWaypoint, "South-North");
    EXPECT_EQ(m_results[1].m_strWaypoint, "North-North");
    EXPECT_EQ(m_results[2].m_strWaypoint, "North-South");
    // A step from within the gate to beyond it crosses it as well, and yet does not close the lap.
    m_track.series.m_points.RemoveAll();
    m_track.division.m_waypoints.RemoveAll();
    AddGate("A", 0, 0, 4.0);
    AddGate("B", 0, 100, 4.0);
    m_track.Go(0, -10).Go(0, 5).Go(0, 60).Go(0, 99).Go(0, 120).Go(0, 180);
    EXPECT_EQ(Find(), "1-3");
}

TEST_F(LapResults, TheFirstGateInTheListIsTaken)
{
    AddGate("A", 0, 100, 20.0);
    AddGate("B", 0, 105, 20.0);
    AddGate("C", 0, 300, 20.0);
    m_track.Go(0, 0).GoNorthTo(400, 10);
    EXPECT_EQ(Find(), "9-29");
    EXPECT_EQ(m_results[0].m_strWaypoint, "A-C");
    std::swap(m_track.division.m_waypoints[0], m_track.division.m_waypoints[1]);
    EXPECT_EQ(Find(), "9-29");
    EXPECT_EQ(m_results[0].m_strWaypoint, "B-C");
    EXPECT_EQ(m_results[0].m_nWaypoint, 0);
    EXPECT_EQ(m_results[0].m_nWaypoint2, 2);
}

TEST_F(LapResults, LapsStandByTheirStartGateAndThenBySpeed)
{
    AddGate("A", 0, 100);
    AddGate("B", 0, 300);
    m_track.Go(0, 0);
    for (const double dPace : {1.0, 2.0, 0.5}) {
        while (m_track.Point(m_track.Last()).m_position.m_dLatitude < CPathTrack::At(0, 395).m_dLatitude)
            m_track.Go(0, m_nNorth += 10, dPace);
        while (m_nNorth > 0)
            m_track.Go(0, m_nNorth -= 10, dPace);
    }
    Find();
    ASSERT_GT(m_results.GetCount(), 8);
    for (int i = 1; i < m_results.GetCount(); ++i) {
        const CResult& one = m_results[i - 1];
        const CResult& other = m_results[i];
        EXPECT_LE(one.m_nWaypoint, other.m_nWaypoint);
        if (one.m_nWaypoint == other.m_nWaypoint) {
            EXPECT_LE(one.m_dSpeed, other.m_dSpeed);
        }
    }
    EXPECT_EQ(m_results[0].m_nWaypoint, 0);
    EXPECT_EQ(m_results.Last()->m_nWaypoint, 1);
}

TEST_F(LapResults, AGapLosesTheLapInProgress)
{
    struct SCase
    {
        double dGap;        ///< seconds between the recorded fixes
        double dStoredStep; ///< seconds in the point behind
        const char* pLaps;
    };
    for (const SCase& c : std::initializer_list<SCase>{{1.0, 1.0, "9-49 49-69"},
                                                       {199.9, 199.9, "9-49 49-69"},
                                                       {200.0, 0.0, "49-69"},
                                                       {1.0, 200.0, "49-69"}}) // from another derivation
    {
        m_track.series.m_points.RemoveAll();
        m_track.division.m_waypoints.RemoveAll();
        AddGate("Gate", 0, 100);
        m_track.Go(0, 0).GoNorthTo(200, 10).Go(0, 210, c.dGap);
        m_track.Point(21).m_dDeltaTime = c.dStoredStep * DaysPerSecond;
        m_track.GoNorthTo(300, 10).GoNorthTo(0, 10).GoNorthTo(300, 10);
        std::string strFound = Find();
        // By speed: the gap made the first one slow, or lost it.
        EXPECT_EQ(strFound, c.pLaps) << c.dGap << " s, stored " << c.dStoredStep << " s";
    }
}

TEST_F(LapResults, NamesAreCutAtTenCharacters)
{
    struct SCase
    {
        const char* pFrom;
        const char* pTo;
        const char* pLap;
    };
    m_track.Go(0, 0).GoNorthTo(400, 10);
    for (const SCase& c : std::initializer_list<SCase>{
             {"Northern Gate", "Southern Mark", "Northern G-Southern M"},
             {"Ten chars.", "", "Ten chars.-"},
             {"J\xC3\xBCrgens B\xC3\xB6jenpunkt", "\xE2\x82\xAC\xE2\x82\xAC",
              "J\xC3\xBCrgens B\xC3\xB6-\xE2\x82\xAC\xE2\x82\xAC"},
             {"Nine so \xC3\xBC\xC3\xB6\xC3\xA4", "x", "Nine so \xC3\xBC\xC3\xB6-x"}})
    {
        m_track.division.m_waypoints.RemoveAll();
        AddGate(c.pFrom, 0, 100);
        AddGate(c.pTo, 0, 300);
        ASSERT_EQ(Find(), "9-29");
        EXPECT_EQ(m_results[0].m_strWaypoint, c.pLap);
    }
}

TEST_F(LapResults, WhatIsToldAboutALap)
{
    AddGate("A", 0, 100);
    AddGate("B", 0, 300);
    m_track.Go(0, 0).GoNorthTo(90, 10).NextRun().GoNorthTo(400, 10);
    for (int i = 0; i <= m_track.Last(); ++i) {
        CTrackPoint& point = m_track.Point(i);
        point.m_nRun = i >= 9 ? 3 : 0;
        point.m_nDopplerRun = 7;
        point.m_nAltitude = 2 * i;
        point.m_dHDOP = 0.1 * i;
        point.m_nSats = 30 - i;
        point.m_dDoppler = 500.0;
        point.m_nInvalidFlags = InvalidFlag::User; // does not matter
        point.m_dTotalDopplerDistance = 0.012 * i;
    }
    m_track.Point(9).m_dSpeed = 12.0; // the start counts too
    m_track.event.m_dTrackpointError = 0.005;
    m_track.event.m_dDopplerError = 0.5;
    ASSERT_EQ(Find(), "9-29");
    const CResult& lap = m_results[0];
    const double dRoot = std::sqrt(20.0); // steps
    EXPECT_EQ(lap.m_dSeconds, 20.0);
    EXPECT_NEAR(lap.m_dDistance, 0.2, 1e-12);
    EXPECT_NEAR(lap.m_dSpeed, 36.0, 1e-9);
    EXPECT_NEAR(lap.m_dPosError, 1.29 * 0.005 / dRoot, 1e-15);
    EXPECT_NEAR(lap.m_dClaimed, (0.2 - lap.m_dPosError) * 180.0, 1e-9);
    EXPECT_EQ(lap.m_dDopplerError, 0.0);
    EXPECT_EQ(lap.m_dMinSpeed, 12.0);
    EXPECT_NEAR(lap.m_dMaxSpeed, 36.0, 1e-9);
    EXPECT_DOUBLE_EQ(lap.m_dHDOPMax, 2.9);
    EXPECT_EQ(lap.m_nSatsMin, 1);
    EXPECT_EQ(lap.m_dAltitude, 18.0);
    EXPECT_EQ(lap.m_dAltChange, 40.0);
    EXPECT_EQ(lap.m_nRun, 3);
    EXPECT_EQ(lap.m_nWaypoint, 0);
    EXPECT_EQ(lap.m_nWaypoint2, 1);
    EXPECT_EQ(lap.m_nSeriesIndex, 2);
    EXPECT_EQ(lap.m_nPersonIndex, 5);
    EXPECT_EQ(lap.m_strCompetitor + lap.m_strDivision + lap.m_strSeries, "AnnCourseMorning");
    EXPECT_EQ(lap.m_dDirection, 0.0);
    EXPECT_EQ(lap.m_posStart, m_track.Point(9).m_position);
    EXPECT_EQ(lap.m_timeEnd, m_track.Point(29).m_time);

    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    ASSERT_EQ(Find(), "9-29");
    EXPECT_NEAR(m_results[0].m_dDistance, 0.24, 1e-12);
    EXPECT_EQ(m_results[0].m_nRun, 7);
    EXPECT_NEAR(m_results[0].m_dDopplerError, 1.29 * 0.5 / dRoot, 1e-15);
    EXPECT_NEAR(m_results[0].m_dClaimed, 43.2 - 1.29 * 0.5 / dRoot, 1e-9);
    EXPECT_EQ(m_results[0].m_dPosError, 0.0);
    EXPECT_NEAR(m_results[0].m_dMaxSpeed, 36.0, 1e-9) << "by position, also here";
}

TEST_F(LapResults, CheckpointsAreTheTrackFilesOwn)
{
    m_track.division.m_nKind = DivisionKind::CheckPoints;
    m_track.Go(0, 0).GoNorthTo(400, 10);
    AddGate("Ignored", 0, 50);
    const auto CalculateCheckpoints = [&] {
        m_results.RemoveAll();
        return CalculateCheckpointResults(m_track.event, m_track.person, m_track.series, m_track.division,
                                          m_results, m_progress);
    };
    EXPECT_TRUE(CalculateCheckpoints()) << "without checkpoints";
    EXPECT_TRUE(m_results.IsEmpty());
    m_track.AddGate(m_track.series.m_waypoints, "CP1", 0, 100, 15.0);
    m_track.AddGate(m_track.series.m_waypoints, "CP2", 0, 300, 15.0);
    EXPECT_TRUE(CalculateCheckpoints());
    EXPECT_EQ(Stretches(m_results), "9-29");
    EXPECT_EQ(m_results[0].m_strWaypoint, "CP1-CP2");
    EXPECT_EQ(m_track.division.m_waypoints.GetCount(), 1);
    EXPECT_EQ(m_track.series.m_waypoints.GetCount(), 2);
    m_track.series.m_points.RemoveAll();
    EXPECT_FALSE(CalculateCheckpoints());
}

TEST_F(LapResults, AGateWithoutProximityIsPassedOnItsCentreOnly)
{
    AddGate("A", 0, 100, 0.0);
    AddGate("B", 0, 300, 0.0);
    m_track.Go(0, 5).GoNorthTo(400, 10);
    EXPECT_EQ(Find(), "10-30") << "straight across both";
    m_track.series.m_points.RemoveAll();
    m_track.Go(0.1, 5).GoNorthTo(400, 10);
    EXPECT_EQ(Find(), "");
}

TEST_F(LapResults, AnAverageHasTheGatesOfTheFastestButNoNames)
{
    AddGate("A", 0, 100);
    AddGate("B", 0, 300);
    m_track.Go(0, 0).GoNorthTo(400, 10).GoNorthTo(0, 20);
    m_track.division.m_nAverageRuns = 2;
    CResultList results;
    ASSERT_TRUE(
        CalculateSeriesResults(m_track.event, m_track.person, 0, m_track.division, results, m_progress));
    ASSERT_EQ(results.GetCount(), 1);
    ASSERT_EQ(Stretches(results), "29-55");
    Find();
    ASSERT_EQ(m_results.GetCount(), 3);
    // A-B at 36, B-B between, B-A at 72 km/h.
    const CResult& fastest = m_results[2];
    const CResult& second = m_results[1];
    EXPECT_EQ(fastest.m_nWaypoint, 1);
    EXPECT_EQ(fastest.m_nWaypoint2, 0);
    EXPECT_DOUBLE_EQ(results[0].m_dSpeed, (fastest.m_dSpeed + second.m_dSpeed) / 2.0);
    EXPECT_EQ(results[0].m_dSeconds, fastest.m_dSeconds + second.m_dSeconds);
    EXPECT_EQ(results[0].m_nWaypoint, 1);
    EXPECT_EQ(results[0].m_strWaypoint, "");
}

TEST_F(LapResults, SingleLapsKeepTheirNamesInTheRecord)
{
    AddGate("A", 0, 100);
    AddGate("B", 0, 300);
    m_track.Go(0, 0).GoNorthTo(400, 10).GoNorthTo(0, 20);
    CResultList results;
    CalculateSeriesResults(m_track.event, m_track.person, 0, m_track.division, results, m_progress);
    ASSERT_EQ(results.GetCount(), 3);
    EXPECT_EQ(results.Best()->m_strWaypoint, "B-A");
}

TEST_F(LapResults, TotalsThatAreNoNumbersCloseNoLap)
{
    AddGate("A", 0, 100);
    m_track.Go(0, 0).GoNorthTo(300, 10).GoNorthTo(0, 10);
    for (int i = 40; i <= m_track.Last(); ++i)
        m_track.Point(i).m_dTotalDistance = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Find(), "");
}

} // namespace
} // namespace kestrabel::test
