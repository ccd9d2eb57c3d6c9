#include "engine/DistanceTimeResults.h"

#include "engine/LostPair.h"
#include "engine/TrackPointDerivation.h"
#include "engine/WindowTrack.h"
#include "geo/DistanceCalculator.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

/// A way of measuring, as the division's options choose it.
struct SRule
{
    const char* strName;
    std::uint8_t nUsing;
    std::uint8_t bAccumulation;
    std::uint8_t bAltitude;
};

constexpr SRule Straight = {"straight line", CalcUsing::Trackpoints, 0, 0};
constexpr SRule StraightAltitude = {"straight line with altitude", CalcUsing::Trackpoints, 0, 1};
constexpr SRule Track = {"along the track", CalcUsing::Trackpoints, 1, 0};
constexpr SRule TrackAltitude = {"along the track with altitude", CalcUsing::Trackpoints, 1, 1};
constexpr SRule Doppler = {"Doppler", CalcUsing::Doppler, 1, 0};
constexpr SRule DopplerStraight = {"Doppler, straight with altitude", CalcUsing::Doppler, 0, 1};
constexpr SRule DopplerAltitude = {"Doppler with altitude", CalcUsing::Doppler, 1, 1};
constexpr std::array Rules = {Straight, StraightAltitude, Track,          TrackAltitude,
                              Doppler,  DopplerStraight,  DopplerAltitude};

class DistanceTimeResults : public testing::Test
{
protected:
    void Use(const SRule& rule, bool bStrict = true)
    {
        m_track.division.m_nCalcUsing = rule.nUsing;
        m_track.division.m_bAccumulation = rule.bAccumulation;
        m_track.division.m_bUseAltitude = rule.bAltitude;
        m_track.division.m_bStrict = bStrict ? 1 : 0;
    }

    void ForDistance(double dMetres)
    {
        m_track.division.m_nKind = DivisionKind::Distance;
        m_track.division.m_dMetres = dMetres;
    }

    /// The results as "start-end", from the fastest.
    std::string Find()
    {
        m_results.RemoveAll();
        CalculateWindowResults(m_track.event, m_track.person, m_track.series, m_track.division, m_results,
                               m_progress);
        std::string strFound;
        for (int i = m_results.GetCount() - 1; i >= 0; --i) {
            const CResult& result = m_results[i];
            EXPECT_EQ(result.m_nRank, m_results.GetCount() - i);
            strFound += (strFound.empty() ? "" : " ") + std::to_string(result.m_nStartIndex) + "-" +
                        std::to_string(result.m_nEndIndex);
        }
        return strFound;
    }

    const CResult& Best() { return *m_results.Last(); }

    CWindowTrack m_track;
    CObjectArray<CResult> m_results;
    CProgressRecord m_progress;
};

TEST_F(DistanceTimeResults, TenSecondsHaveAMillisecondOfTolerance)
{
    for (const SRule& rule : Rules) {
        for (const double dLastStep : {1.0, 0.998}) {
            m_track.series.m_points.RemoveAll();
            m_track.Ride(9, Brisk).Ride(1, Brisk, dLastStep);
            Use(rule);
            EXPECT_EQ(Find(), dLastStep == 1.0 ? "0-10" : "") << rule.strName;
        }
    }
    EXPECT_EQ(m_progress.Count("Calculating 10 sec"), 2 * static_cast<int>(Rules.size()));
    EXPECT_EQ(m_progress.m_nEnded, 2 * static_cast<int>(Rules.size()));
}

TEST_F(DistanceTimeResults, ADistanceIsTheShortestWindowThatReachesIt)
{
    // 15.625 m a second: 32 s for 500 m.
    ForDistance(500.0);
    m_track.Ride(32, Brisk);
    EXPECT_EQ(Find(), "0-32");
    EXPECT_EQ(Best().m_dDistance, 0.5);
    m_track.division.m_dMetres = 490.0; // still 32 s, and the speed over all of the 500 m
    EXPECT_EQ(Find(), "0-32");
    EXPECT_EQ(Best().m_dDistance, 0.5);
    EXPECT_DOUBLE_EQ(Best().m_dSpeed, Brisk);
    EXPECT_DOUBLE_EQ(Best().m_dSeconds, 32.0);
    m_track.division.m_dMetres = 500.001;
    EXPECT_EQ(Find(), "");
}

TEST_F(DistanceTimeResults, OfEqualWindowsTheLaterIsTakenFirst)
{
    m_track.Ride(25, Brisk);
    m_track.event.m_nShowTopRows = 1;
    EXPECT_EQ(Find(), "15-25");
    m_track.event.m_nShowTopRows = 10;
    EXPECT_EQ(Find(), "15-25 5-15") << "the second may end where the first begins";
}

TEST_F(DistanceTimeResults, ResultsDoNotOverlap)
{
    m_track.Ride(8, Brisk).Ride(10, Fast).Ride(12, Brisk);
    EXPECT_EQ(Find(), "8-18 20-30") << "0-8 is too short to stand beside the best";
    m_track.Ride(8, Brisk);
    EXPECT_EQ(Find(), "8-18 28-38 18-28");
}

TEST_F(DistanceTimeResults, AsManyAreKeptAsRowsOrAveragedRuns)
{
    struct SCase
    {
        int nRows;
        std::uint8_t nAverage;
        int nExpected;
    };
    m_track.Ride(199, Brisk);
    for (const SCase& c : std::initializer_list<SCase>{
             {10, 5, 10}, {10, 12, 12}, {1, 1, 1}, {50, 1, 19}, {0, 1, 1}, {3, 99, 19}})
    {
        m_track.event.m_nShowTopRows = c.nRows;
        m_track.division.m_nAverageRuns = c.nAverage;
        Find();
        EXPECT_EQ(m_results.GetCount(), c.nExpected) << c.nRows << " rows, average of " << c.nAverage;
    }
}

TEST_F(DistanceTimeResults, AResultStaysWithinOneRun)
{
    m_track.Ride(12, Brisk).NextRun().Ride(15, Fast).NextRun().Ride(9, Fast);
    EXPECT_EQ(Find(), "26-36 16-26 6-16") << "runs do not matter to other divisions";
    m_track.division.m_bOneResultPerRun = 1;
    // 13 to 27 are run 1. Run 2 is 9 s long.
    for (const SRule& rule : Rules) {
        Use(rule);
        const std::string strFound = Find();
        EXPECT_EQ(m_results.GetCount(), 2) << rule.strName << ": " << strFound;
        EXPECT_EQ(Best().m_nRun, 1);
        EXPECT_GE(Best().m_nStartIndex, 13);
        EXPECT_LE(Best().m_nEndIndex, 27);
        EXPECT_LE(m_results[0].m_nEndIndex, 12);
    }
}

TEST_F(DistanceTimeResults, ASlowPointDropsTheWindow)
{
    m_track.division.m_bOneResultPerRun = 1;
    m_track.Ride(14, Brisk).Ride(1, Slow).NextRun().Ride(11, Brisk);
    EXPECT_EQ(Find(), "16-26 4-14") << "the next start is the point behind the slow one";
    m_track.Point(20).m_dSpeed = m_track.event.m_dStopRunSpeed;
    EXPECT_EQ(Find(), "16-26 4-14") << "the stop speed itself is no stop";
    m_track.Point(20).m_dSpeed = 18.5199;
    EXPECT_EQ(Find(), "4-14");
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    EXPECT_EQ(Find(), "16-26 4-14") << "by Doppler it was not slow";
    m_track.division.m_nCalcUsing = CalcUsing::Trackpoints;
    m_track.division.m_bOneResultPerRun = 0;
    EXPECT_EQ(m_results.GetCount(), 2);
}

TEST_F(DistanceTimeResults, RunsBySpeedAndByDopplerAreApart)
{
    m_track.Ride(22, Brisk);
    for (int i = 11; i <= 22; ++i)
        m_track.Point(i).m_nDopplerRun = 1;
    m_track.division.m_bOneResultPerRun = 1;
    const std::string strBySpeed = "12-22";
    const std::string strByDoppler = "12-22 0-10"; // the point that ends the window of one run starts none
    EXPECT_EQ(Find(), strBySpeed);
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    EXPECT_EQ(Find(), strByDoppler);
    EXPECT_EQ(Best().m_nRun, 1);
    m_track.division.m_nCalcUsing = CalcUsing::DopplerIfAvailable;
    EXPECT_EQ(Find(), strBySpeed) << "the track file has none";
    m_track.series.m_bHasDoppler = 1;
    EXPECT_EQ(Find(), strByDoppler);
}

TEST_F(DistanceTimeResults, AZigZagIsLongerThanItsStraightLine)
{
    // Ten metres a step, three steps forth and one back: 20 m in four steps.
    m_track.Ride(18, 36.0);
    for (int i = 0, nMetres = 0; i < 19; ++i, nMetres += i % 4 == 0 ? -10 : 10)
        m_track.Point(i).m_position.m_dLatitude = -38.85 + nMetres * 0.001 / 110.99;
    ForDistance(95.0);
    Use(Straight);
    EXPECT_EQ(Find(), "0-18");
    EXPECT_NEAR(Best().m_dDistance, 0.1, 1e-4);
    Use(Track);
    EXPECT_EQ(Find(), "8-18");
}

TEST_F(DistanceTimeResults, WhatInvalidPointsDoToAWindow)
{
    struct SCase
    {
        const SRule& rule;
        bool bStrict;
        std::vector<int> invalid;
        bool bFound;
    };
    const std::vector<SCase> cases = {
        {Straight, true, {5}, true},
        {Straight, true, {4, 5, 6, 7, 8, 9}, true},
        {Straight, true, {0}, false},
        {Straight, true, {10}, false},
        {Straight, false, {10}, false},
        {StraightAltitude, true, {5}, false},
        {StraightAltitude, false, {5, 6, 7}, true},
        {Track, true, {5}, false},
        {Track, false, {5}, true},
        {Track, false, {5, 6}, false}, // two in a row
        {Track, false, {3, 5, 7, 9}, true},
        {Track, false, {10}, false},
        {TrackAltitude, true, {5}, false},
        {TrackAltitude, false, {5}, true},
        {TrackAltitude, false, {5, 6}, false},
        {Doppler, true, {5}, false},
        {Doppler, false, {5}, true},
        {Doppler, false, {5, 6}, false},
        {DopplerAltitude, true, {5}, false},
        {DopplerAltitude, false, {5}, true},
        {DopplerAltitude, false, {5, 6}, false},
    };
    for (const SCase& c : cases) {
        m_track.series.m_points.RemoveAll();
        m_track.Ride(10, Brisk);
        for (const int nPoint : c.invalid)
            m_track.Point(nPoint).m_nInvalidFlags = InvalidFlag::User;
        Use(c.rule, c.bStrict);
        EXPECT_EQ(Find(), c.bFound ? "0-10" : "") << c.rule.strName << (c.bStrict ? ", strict, " : ", ")
                                                  << c.invalid.size() << " invalid from " << c.invalid[0];
        // A level point behind a skipped one adds its own step alone to the summed Doppler way.
        const bool bLevel = c.rule.strName == DopplerAltitude.strName;
        if (c.bFound) {
            EXPECT_NEAR(Best().m_dSpeed, bLevel ? Brisk * 0.9 : Brisk, 0.02) << c.rule.strName;
        }
    }
}

TEST_F(DistanceTimeResults, WhichFlagsCountDependsOnTheSpeed)
{
    m_track.Ride(10, Brisk);
    for (const SRule& rule : {Track, TrackAltitude, Doppler, DopplerAltitude}) {
        Use(rule);
        for (const auto nFlag : EveryFlag) {
            m_track.Point(5).m_nInvalidFlags = nFlag;
            const bool bHarmless = rule.nUsing == CalcUsing::Doppler
                                       ? nFlag == InvalidFlag::SpeedSpike || nFlag == InvalidFlag::NoPosition
                                       : nFlag == InvalidFlag::DopplerSpike;
            EXPECT_EQ(Find(), bHarmless ? "0-10" : "") << rule.strName << " " << InvalidLetters(nFlag);
        }
    }
}

TEST_F(DistanceTimeResults, ARefusedPointStartsNoWindowNorDoesTheNext)
{
    m_track.Ride(6, Brisk).Ride(10, Fast).Ride(14, Brisk);
    m_track.Point(6).m_dDoppler = Fast;
    m_track.event.m_nShowTopRows = 1;
    for (const SRule& rule : {Track, TrackAltitude, Doppler, DopplerAltitude}) {
        Use(rule);
        m_track.Point(5).m_nInvalidFlags = 0;
        EXPECT_EQ(Find(), "6-16") << rule.strName;
        m_track.Point(5).m_nInvalidFlags = InvalidFlag::User;
        EXPECT_EQ(Find(), "7-17") << rule.strName;
    }
}

TEST_F(DistanceTimeResults, AltitudeLengthensTheWay)
{
    // Steps of 30 m forth and 40 m up: 50 m each.
    m_track.Ride(10, 108.0);
    for (int i = 0; i <= 10; ++i)
        m_track.Point(i).m_nAltitude = 40 * i;
    Use(TrackAltitude);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 0.5, 1e-12);
    EXPECT_NEAR(Best().m_dSpeed, 180.0, 1e-9);
    EXPECT_EQ(Best().m_dAltitude, 0.0);
    EXPECT_EQ(Best().m_dAltChange, 400.0);
    Use(TrackAltitude, false);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 0.5, 1e-4);
    Use(StraightAltitude);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 0.5, 1e-4);
    Use(Track);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 0.3, 1e-12);
    // Up and down counts step by step, but not between both ends.
    m_track.Point(5).m_nAltitude = 0;
    Use(StraightAltitude);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 0.5, 1e-4);
    Use(TrackAltitude);
    Find();
    EXPECT_NEAR(Best().m_dDistance, 8 * 0.05 + std::hypot(0.03, 0.16) + std::hypot(0.03, 0.24), 1e-12);
}

TEST_F(DistanceTimeResults, VerticalSpeedLengthensTheDopplerWay)
{
    m_track.Ride(10, 36.0);
    for (int i = 0; i <= 10; ++i)
        m_track.Point(i).m_dVertSpeed = 27.0;
    for (const bool bStrict : {true, false}) {
        Use(DopplerAltitude, bStrict);
        Find();
        EXPECT_NEAR(Best().m_dSpeed, 45.0, 1e-9);
        Use(Doppler, bStrict);
        Find();
        EXPECT_NEAR(Best().m_dSpeed, 36.0, 1e-9);
        Use(DopplerStraight, bStrict);
        Find();
        EXPECT_NEAR(Best().m_dSpeed, 36.0, 1e-9) << "only the summed way knows of altitude";
    }
    // A point without vertical speed is level; the next one takes the mean of both.
    m_track.Point(5).m_dVertSpeed = 0.0;
    Use(DopplerAltitude);
    Find();
    EXPECT_NEAR(Best().m_dSpeed, (8 * 45.0 + 36.0 + std::hypot(36.0, 13.5)) / 10.0, 1e-9);
}

TEST_F(DistanceTimeResults, StraightLinesAreMeasuredOnWgs84)
{
    m_track.Ride(10, Brisk);
    m_track.series.m_ellipsoid.SetEllipsoid(5, 0.0, 0.0);
    Use(Straight);
    Find();
    CDistanceCalculator wgs84;
    EXPECT_EQ(Best().m_dDistance, wgs84.Distance(m_track.Point(0).m_position, m_track.Point(10).m_position));
}

TEST_F(DistanceTimeResults, TheClaimIsTheSpeedLessTwiceItsError)
{
    struct SCase
    {
        double dEventError;
        double dSeriesError;
        SRule rule;
        double dExpected; ///< the error that counts
    };
    for (const SCase& c : std::initializer_list<SCase>{{1.0, 0.0, Doppler, 1.0},
                                                       {1.0, 2.0, Doppler, 2.0},
                                                       {0.0, 0.5, DopplerAltitude, 0.5},
                                                       {0.0, 0.0, Doppler, 0.0},
                                                       {-1.0, 0.0, Doppler, 0.0},
                                                       {1.0, 2.0, Track, 0.0}})
    {
        for (const bool bStrict : {true, false}) {
            m_track.series.m_points.RemoveAll();
            m_track.Ride(8, Brisk).Ride(1, Brisk, 2.0);
            m_track.event.m_dDopplerError = c.dEventError;
            m_track.series.m_dDopplerError = c.dSeriesError;
            Use(c.rule, bStrict);
            ASSERT_EQ(Find(), "0-9");
            // Eight steps of 1 s and a last one of 2 s, which counts half: √(8 + 4 / 2) / 10.
            const double dError = c.dExpected * std::sqrt(10.0) / 10.0;
            EXPECT_NEAR(Best().m_dDopplerError, dError, 1e-12) << c.rule.strName;
            EXPECT_NEAR(Best().m_dClaimed, dError == 0.0 ? 0.0 : Best().m_dSpeed - 2.0 * dError, 1e-12);
            EXPECT_EQ(Best().m_dPosError, 0.0);
        }
    }
}

TEST_F(DistanceTimeResults, TheStartPointIsNoPartOfMeansAndExtremes)
{
    m_track.NextRun().Ride(10, Brisk);
    m_track.series.m_dWindDirection = 90.0;
    m_track.series.m_nSeriesIndex = 3;
    m_track.series.m_nPersonIndex = 4;
    for (int i = 0; i <= 10; ++i) {
        CTrackPoint& point = m_track.Point(i);
        point.m_dDirection = i == 0 ? 6.0 : i % 2 == 0 ? 1.0 : 0.5;
        point.m_dHDOP = i == 0 ? 99.0 : 0.1 * i;
        point.m_nSats = i == 0 ? 1 : 20 - i;
        point.m_nAltitude = i * i;
    }
    m_track.Point(0).m_dSpeed = 200.0;
    m_track.Point(4).m_dSpeed = 40.0;
    m_track.Point(7).m_dSpeed = 60.0;
    m_track.Point(7).m_dDoppler = 50.0;
    ASSERT_EQ(Find(), "0-10");
    EXPECT_NEAR(Best().m_dDirection, 0.75, 1e-12);
    EXPECT_NEAR(Best().m_dWindAngle, 1.5707963267948966 - 0.75, 1e-12);
    EXPECT_EQ(Best().m_dMinSpeed, 40.0);
    EXPECT_EQ(Best().m_dMaxSpeed, 60.0);
    EXPECT_EQ(Best().m_dHDOPMax, 1.0);
    EXPECT_EQ(Best().m_nSatsMin, 10);
    EXPECT_EQ(Best().m_dAltChange, 100.0);
    EXPECT_EQ(Best().m_nRun, 1);
    EXPECT_EQ(Best().m_nSeriesIndex, 3);
    EXPECT_EQ(Best().m_nPersonIndex, 4);
    EXPECT_EQ(Best().m_strCompetitor, "Ann");
    EXPECT_EQ(Best().m_strDivision, "10 sec");
    EXPECT_EQ(Best().m_strSeries, "Morning");
    EXPECT_EQ(Best().m_strWaypoint, "");
    EXPECT_EQ(Best().m_nWaypoint, -1);
    EXPECT_EQ(Best().m_posStart, m_track.Point(0).m_position);
    EXPECT_EQ(Best().m_posEnd, m_track.Point(10).m_position);
    EXPECT_EQ(Best().m_timeStart, m_track.Point(0).m_time);
    EXPECT_EQ(Best().m_timeEnd, m_track.Point(10).m_time);
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    Find();
    EXPECT_EQ(Best().m_dMinSpeed, 50.0);
    EXPECT_EQ(Best().m_dMaxSpeed, Brisk);
    for (int i = 1; i <= 10; ++i)
        m_track.Point(i).m_nSats = 120;
    Find();
    EXPECT_EQ(Best().m_nSatsMin, 100);
}

TEST_F(DistanceTimeResults, AWindowWithoutDistanceNeverBeatsANumber)
{
    const auto [from, to] = FindLostPair();
    m_track.Ride(20, Brisk);
    m_track.Point(0).m_position = from;
    m_track.Point(10).m_position = to;
    Use(Straight);
    Find();
    ASSERT_TRUE(std::isnan(m_results[0].m_dSpeed)) << "the window that this is about";
    EXPECT_GT(Best().m_dSpeed, 0.0);
    m_track.event.m_nShowTopRows = 1;
    Find();
    EXPECT_GT(Best().m_dSpeed, 0.0);
}

TEST_F(DistanceTimeResults, RunsCanOverlapWhereTheClockWentBack)
{
    // The first run, 0 to 30 s, is fastest in its last ten. Then the clock goes back to 22 s, and the second
    // run is faster still. It leaves of the first only what ended by then.
    m_track.event.m_dAccThreshold = m_track.event.m_dDeccThreshold = m_track.event.m_dSpeedThreshold = 1000.0;
    m_track.Ride(20, Brisk).Ride(10, Fast).Ride(1, Slow, 0.5).Ride(1, 2.0 * Fast, -8.5).Ride(12, 2.0 * Fast);
    m_track.Ride(2, Slow);
    ASSERT_TRUE(CalculateTrackPoints(m_track.event, m_track.person, m_track.series, m_progress));
    ASSERT_EQ(m_track.Point(30).m_nDopplerRun, 0);
    ASSERT_EQ(m_track.Point(33).m_nDopplerRun, 1);
    m_track.division.m_nCalcUsing = CalcUsing::Doppler;
    for (const bool bOneResultPerRun : {false, true}) {
        m_track.division.m_bOneResultPerRun = bOneResultPerRun ? 1 : 0;
        Find();
        ASSERT_EQ(m_results.GetCount(), bOneResultPerRun ? 2 : 3);
        EXPECT_DOUBLE_EQ(Best().m_dSpeed, 2.0 * Fast);
        const CResult& second = m_results[m_results.GetCount() - 2];
        EXPECT_EQ(second.m_nEndIndex, 24);
    }
}

TEST_F(DistanceTimeResults, AnyOtherKindIsCalculatedAsTime)
{
    m_track.Ride(10, Brisk);
    m_track.division.m_dMetres = 1.0;
    for (const int nKind : {0, 2, 7, 255}) {
        m_track.division.m_nKind = static_cast<std::uint8_t>(nKind);
        EXPECT_EQ(Find(), "0-10") << nKind;
    }
}

TEST_F(DistanceTimeResults, ShortTracks)
{
    EXPECT_FALSE(CalculateWindowResults(m_track.event, m_track.person, m_track.series, m_track.division,
                                        m_results, m_progress));
    EXPECT_TRUE(m_progress.m_begun.empty());
    m_track.Ride(0, Brisk);
    EXPECT_TRUE(CalculateWindowResults(m_track.event, m_track.person, m_track.series, m_track.division,
                                       m_results, m_progress));
    EXPECT_TRUE(m_results.IsEmpty());
    m_track.Ride(1, Brisk, 10.0);
    for (const SRule& rule : Rules) {
        Use(rule);
        EXPECT_EQ(Find(), "0-1") << rule.strName;
    }
}

} // namespace
} // namespace kestrabel::test
