#include "engine/TrackPointDerivation.h"

#include "engine/LostPair.h"
#include "engine/TestEvent.h"
#include "geo/DistanceCalculator.h"
#include "support/Track.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kestrabel::test {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Latitude = -38.85;
constexpr double Longitude = 146.16;

class TrackPointDerivation : public testing::Test
{
protected:
    /// A fix that many seconds into the track and kilometres (by the mean degree) north of its start.
    CTrackPoint& AddFix(double dSecond, double dKilometresNorth)
    {
        return m_series.m_points.Add(MakePoint(dSecond, Latitude + dKilometresNorth / 110.99, Longitude));
    }

    /// One fix a second with those speeds, km/h; the first only marks the start.
    void Ride(const std::vector<double>& speeds)
    {
        double dKilometres = 0.0;
        for (std::size_t i = 0; i < speeds.size(); ++i) {
            dKilometres += i == 0 ? 0.0 : speeds[i] / 3600.0;
            AddFix(static_cast<double>(i), dKilometres);
        }
    }

    /// One fix a second with those Doppler speeds, all on one spot.
    void RideByDoppler(const std::vector<double>& speeds)
    {
        for (std::size_t i = 0; i < speeds.size(); ++i)
            AddFix(static_cast<double>(i), 0.0).m_dDoppler = speeds[i];
    }

    void AllowAnyAcceleration() { m_event.m_dAccThreshold = m_event.m_dDeccThreshold = 1000.0; }

    bool Derive() { return CalculateTrackPoints(m_event, m_person, m_series, m_progress); }

    CTrackPoint& Point(int nIndex) { return m_series.m_points[nIndex]; }

    /// The letters of all points, "-" for a valid one, blanks between.
    std::string Letters(decltype(CTrackPoint::m_nInvalidFlags) nMask = InvalidMask::Any) const
    {
        std::string strLetters;
        for (const CTrackPoint* pPoint : m_series.m_points) {
            const auto nFlags = static_cast<decltype(nMask)>(pPoint->m_nInvalidFlags & nMask);
            const std::string strPoint = InvalidLetters(nFlags);
            strLetters += (strLetters.empty() ? "" : " ") + (strPoint.empty() ? "-" : strPoint);
        }
        return strLetters;
    }

    CEvent m_event{DATE(45444.0)};
    CPerson& m_person = AddPerson(m_event, "Ann");
    CSeries& m_series = AddSeries(m_person, "Morning");
    CProgressRecord m_progress;
};

TEST_F(TrackPointDerivation, FewerThanTwoPointsOnlyResetTheFile)
{
    for (const int nPoints : {0, 1}) {
        if (nPoints == 1) {
            CTrackPoint& point = AddFix(0, 0);
            point.m_nInvalidFlags = 0x7f;
            point.m_nTrack = 9;
            point.m_dSpeed = 5.0;
            point.m_dDoppler = 20.0;
        }
        m_series.m_dTotalDistance = m_series.m_dMaxSpeed = m_series.m_dMinResultSats = 7.0;
        m_series.m_bHasDoppler = 1;
        m_series.m_nSeriesIndex = m_series.m_nPersonIndex = 42;
        m_series.m_rcBounds = {};
        EXPECT_FALSE(Derive());
        EXPECT_EQ(m_series.m_dTotalDistance, 0.0);
        EXPECT_EQ(m_series.m_dMaxSpeed, 0.0);
        EXPECT_EQ(m_series.m_dMinResultSats, 0.0);
        EXPECT_EQ(m_series.m_dMinAltitude, Largest);
        EXPECT_EQ(m_series.m_dMaxAltitude, -Largest);
        EXPECT_EQ(m_series.m_rcBounds, CGeoRect::Empty());
        EXPECT_EQ(m_series.m_bHasDoppler, 0);
        EXPECT_EQ(m_series.m_timeStart, DATE::MakeNull());
        EXPECT_EQ(m_series.m_timeEnd, DATE::MakeNull());
        EXPECT_EQ(m_series.m_nSeriesIndex, 0);
        EXPECT_EQ(m_series.m_nPersonIndex, 0);
    }
    EXPECT_EQ(Point(0).m_nInvalidFlags, 0x7fu);
    EXPECT_EQ(Point(0).m_nTrack, 9);
    EXPECT_EQ(Point(0).m_dSpeed, 5.0);
    EXPECT_TRUE(m_progress.m_begun.empty());
}

TEST_F(TrackPointDerivation, IndexesAreFoundByNameWithoutRegardToCase)
{
    AddPerson(m_event, "Ben");
    CPerson stranger;
    stranger.m_strName = "BEN";
    AddSeries(stranger, "other");
    CSeries& series = AddSeries(stranger, "EVENING");
    series.m_points.Add(MakePoint(0, Latitude, Longitude));
    series.m_points.Add(MakePoint(1, Latitude, Longitude));
    CalculateTrackPoints(m_event, stranger, series, m_progress);
    EXPECT_EQ(series.m_nPersonIndex, 1);
    EXPECT_EQ(series.m_nSeriesIndex, 1);
    EXPECT_EQ(series.m_points[1].m_nSeriesIndex, 1);

    series.m_strName = "morning";
    stranger.m_strName = "Cid";
    CSeries& combined = stranger.m_combined;
    combined.m_strName = "not in the list";
    combined.m_points.Add(MakePoint(0, Latitude, Longitude));
    combined.m_points.Add(MakePoint(1, Latitude, Longitude));
    CalculateTrackPoints(m_event, stranger, combined, m_progress);
    EXPECT_EQ(combined.m_nPersonIndex, -1);
    EXPECT_EQ(combined.m_nSeriesIndex, -1);
    EXPECT_EQ(combined.m_points[0].m_nSeriesIndex, 255) << "one byte, widened";
    EXPECT_EQ(combined.m_points[1].m_nSeriesIndex, 255);
}

TEST_F(TrackPointDerivation, CheckpointsGetABoxAroundThem)
{
    CWayPoint& wayPoint = m_series.m_waypoints.Add(std::make_unique<CWayPoint>());
    wayPoint.m_position = MakePosition(60.0, 10.0);
    wayPoint.m_dProximity = 1.1112; // 0.01° of latitude
    Derive();
    EXPECT_NEAR(wayPoint.m_rcExtent.m_dNorth, 60.01, 1e-12);
    EXPECT_NEAR(wayPoint.m_rcExtent.m_dSouth, 59.99, 1e-12);
    EXPECT_NEAR(wayPoint.m_rcExtent.m_dEast, 10.02, 1e-12);
    EXPECT_NEAR(wayPoint.m_rcExtent.m_dWest, 9.98, 1e-12);
}

TEST_F(TrackPointDerivation, AStepIsMeasuredFromThePointBefore)
{
    AddFix(0, 0).m_dDoppler = 30.0;
    AddFix(2, 0.02).m_dDoppler = 36.0;
    AddFix(2.5, 0.025).m_dDoppler = 36.0;
    m_series.m_dWindDirection = 90.0;
    ASSERT_TRUE(Derive());
    CDistanceCalculator calculator;
    const double dStep = calculator.Distance(Point(0).m_position, Point(1).m_position);
    EXPECT_NEAR(dStep, 0.02, 1e-5);
    EXPECT_EQ(Point(1).m_nTrack, 1);
    EXPECT_EQ(Point(1).m_dDeltaTime, 2.0 * 1.1574074074074073e-05);
    EXPECT_EQ(Point(1).m_dDistance, dStep);
    EXPECT_EQ(Point(1).m_dSpeed, dStep * 3600.0 / 2.0);
    EXPECT_EQ(Point(1).m_dTotalDistance, dStep);
    EXPECT_EQ(Point(1).m_dDirection, 0.0);
    EXPECT_NEAR(Point(1).m_dWindAngle, 1.5707963, 1e-7);
    EXPECT_NEAR(Point(1).m_dDopplerStep, 33.0 / 3600.0 * 2.0, 1e-15);
    EXPECT_NEAR(Point(2).m_dTotalDopplerDistance, (33.0 * 2.0 + 36.0 * 0.5) / 3600.0, 1e-15);
    EXPECT_EQ(Point(2).m_dSumStepSquares, 4.25);
    EXPECT_EQ(m_series.m_dTravelTime, 2.5);
    EXPECT_EQ(m_series.m_dTotalDistance, Point(2).m_dTotalDistance);
    EXPECT_EQ(m_series.m_dTotalDopplerDistance, Point(2).m_dTotalDopplerDistance);
    EXPECT_EQ(m_progress.m_begun, std::vector<std::string>{"Calculating track points"});
    EXPECT_EQ(m_progress.m_nEnded, 1);
}

TEST_F(TrackPointDerivation, DistancesAreMeasuredOnTheFilesOwnEllipsoid)
{
    m_series.m_ellipsoid.SetEllipsoid(5, 0.0, 0.0);
    AddFix(0, 0);
    m_series.m_points.Add(MakePoint(1, Latitude + 0.001, Longitude));
    Derive();
    EXPECT_NEAR(Point(1).m_dDistance, 6371.0 * 0.001 * 3.141592653589793 / 180.0, 1e-9);
}

TEST_F(TrackPointDerivation, GapAtThresholdIsInclusive)
{
    struct SCase
    {
        double dStep;
        bool bGap;
    };
    for (const SCase& c : std::initializer_list<SCase>{{199.999, false}, {200.0, true}, {200.001, true}}) {
        m_series.m_points.RemoveAll();
        AddFix(0, 0);
        AddFix(1, 0.01);
        CTrackPoint& point = AddFix(1 + c.dStep, 0.02);
        point.m_dSpeed = 77.0;
        point.m_dDistance = 0.5;
        point.m_dDirection = 1.25;
        point.m_dWindAngle = 0.75;
        AddFix(2 + c.dStep, 0.03);
        Derive();
        const double dTotalBefore = Point(1).m_dTotalDistance;
        EXPECT_EQ(point.m_dSpeed == 77.0, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dDistance == 0.5, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dDirection == 1.25, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dWindAngle == 0.75, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dDeltaTime == 0.0, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dTotalDistance == dTotalBefore, c.bGap) << c.dStep;
        EXPECT_EQ(point.m_dSumStepSquares == 1.0, c.bGap) << c.dStep;
        EXPECT_EQ(!point.IsValidFor(InvalidFlag::Time), c.bGap) << "a stored step of 0 is judged later";
        EXPECT_EQ(m_series.m_dTravelTime, c.bGap ? 2.0 : 2.0 + c.dStep);
    }
}

TEST_F(TrackPointDerivation, AGapKeepsTheStepItHeldBefore)
{
    AllowAnyAcceleration();
    Ride({0, 36, 36, 36});
    Derive();
    m_event.m_nTimeThreshold = 1; // now every step is a gap
    Derive();
    EXPECT_EQ(Letters(), "- - - -") << "their steps are still there";
    EXPECT_NEAR(Point(2).m_dSpeed, 36.0, 0.01);
    EXPECT_EQ(m_series.m_dTotalDistance, 0.0);
    EXPECT_EQ(m_series.m_dTravelTime, 0.0);
}

TEST_F(TrackPointDerivation, TooShortAStepOrTooOldATimeIsFlagged)
{
    struct SCase
    {
        const char* strName;
        double dStep;
        bool bFlagged;
    };
    for (const SCase& c : std::initializer_list<SCase>{{"equal times", 0.0, true},
                                                       {"rounds to nothing", 0.0004, true},
                                                       {"rounds to 1 ms", 0.0006, false},
                                                       {"1 ms", 0.001, false},
                                                       {"backward", -1.0, true}})
    {
        m_series.m_points.RemoveAll();
        AddFix(0, 0);
        AddFix(1, 0.01);
        AddFix(1 + c.dStep, 0.02);
        AddFix(5, 0.03);
        Derive();
        EXPECT_EQ(!Point(2).IsValidFor(InvalidFlag::Time), c.bFlagged) << c.strName;
        EXPECT_TRUE(Point(1).IsValidFor(InvalidFlag::Time)) << c.strName;
        EXPECT_TRUE(Point(3).IsValidFor(InvalidFlag::Time)) << c.strName;
    }

    const double dMillennium = 36526.0;
    for (const double dSecond : {-2.0, -1.0, 0.0, 1.0})
        AddFix(0, 0).m_time = DATE(dMillennium + dSecond / 86400.0);
    for (int i = 0; i < 4; ++i)
        m_series.m_points.RemoveAt(0);
    Derive();
    EXPECT_EQ(Letters(InvalidFlag::Time), "- T - -") << "the first point is never judged";
}

TEST_F(TrackPointDerivation, AnInvalidTimeIsFlaggedAndThePointBehindItStartsAnew)
{
    Ride({0, 36, 36, 36, 36});
    Point(2).m_time = DATE::MakeInvalid();
    Derive();
    EXPECT_EQ(Letters(InvalidFlag::Time), "- - T T -");
}

TEST_F(TrackPointDerivation, APositionOfZeroIsNoPosition)
{
    for (const bool bLatitude : {false, true}) {
        m_series.m_points.RemoveAll();
        Ride({0, 36, 36, 36, 36});
        (bLatitude ? Point(2).m_position.m_dLatitude : Point(2).m_position.m_dLongitude) = 0.0;
        Derive();
        EXPECT_EQ(Letters(InvalidFlag::NoPosition), "- - L - -");
        EXPECT_EQ(Point(2).m_dSpeed, 0.0);
        EXPECT_EQ(Point(2).m_dDistance, 0.0);
        EXPECT_EQ(Point(2).m_dTotalDistance, Point(1).m_dTotalDistance);
        EXPECT_EQ(m_series.m_rcBounds.m_dEast, Longitude) << "nor part of the box";
        EXPECT_LT(m_series.m_rcBounds.m_dNorth, -38.0);
    }
}

TEST_F(TrackPointDerivation, ADistanceThatIsNoNumberIsNoPosition)
{
    const auto [from, to] = FindLostPair();
    Ride({0, 36, 36, 36, 36});
    Point(1).m_position = from;
    Point(2).m_position = to;
    Derive();
    EXPECT_EQ(Letters(InvalidFlag::NoPosition), "- - L - -");
    EXPECT_EQ(Point(2).m_dSpeed, 0.0);
    EXPECT_EQ(Point(2).m_dTotalDistance, Point(1).m_dTotalDistance);
    EXPECT_TRUE(std::isfinite(m_series.m_dTotalDistance));
}

TEST_F(TrackPointDerivation, SpikesAreFoundWithALookAhead)
{
    constexpr double dAny = 1000.0; // never exceeded
    struct SCase
    {
        const char* strName;
        double dAcceleration;
        double dDeceleration;
        std::vector<double> speeds; ///< km/h; steps of 1 s
        const char* strSpeed;       ///< flags by position-derived speed
        const char* strDoppler;     ///< by Doppler, without look-ahead
    };
    const std::vector<SCase> cases = {
        // In steps of a second a speed is expected halfway between that of its anchor and that of its
        // successor.
        {"60 too fast", 9.26, dAny, {20, 20, 80, 20, 20, 20}, "- - S - - -", "- - D - - -"},
        {"gentle", 9.26, 18.52, {20, 20, 29, 20, 20, 20}, "- - - - - -", "- - - - - -"},
        // The anchor stays the point before the first: 80 is 30 too fast, the last of them 60.
        {"three", 9.26, dAny, {20, 20, 80, 80, 80, 20, 20}, "- - S S S - -", "- - D - - - -"},
        {"a fourth is out of reach",
         9.26,
         dAny,
         {20, 20, 80, 80, 80, 80, 20},
         "- - S S S - -",
         "- - D - - - -"},
        // 31 before 80 would be 19 off from the anchor's 20, but 0 passed before.
        {"the first to pass ends it",
         9.26,
         dAny,
         {20, 20, 80, 0, 31, 80, 80},
         "- - S - - S -",
         "- - D - - D -"},
        {"braking by 15", dAny, 18.52, {60, 60, 45, 60, 60, 60}, "- - - - - -", "- - - - - -"},
        {"braking by 20", dAny, 18.52, {60, 60, 40, 60, 60, 60}, "- - S - - -", "- - D - - -"},
        // 20 before 80 is 30 off. As fast as the anchor counts as braking, and so does 20 behind 80.
        {"as fast", dAny, 20.0, {20, 20, 80, 20, 20, 20}, "- S - S S -", "- D - D - -"},
        {"too fast at any rate", dAny, dAny, {90, 90, 92, 93, 93, 92, 90}, "- - - S S - -", "- - - D D - -"},
        {"the last is never judged", 9.26, dAny, {20, 20, 20, 20, 80}, "- - - - -", "- - - - -"},
        {"not even by look-ahead", 9.26, dAny, {20, 20, 80, 80}, "- - S -", "- - D -"},
    };
    for (const SCase& c : cases) {
        // The first point of a file has no speed: ride up to the first of the table.
        std::vector<double> speeds;
        for (int i = 0; i < 10; ++i)
            speeds.push_back(c.speeds[0] * i / 10.0);
        speeds.insert(speeds.end(), c.speeds.begin(), c.speeds.end());
        m_event.m_dAccThreshold = c.dAcceleration;
        m_event.m_dDeccThreshold = c.dDeceleration;
        const std::string strRide = "- - - - - - - - - - ";
        m_series.m_points.RemoveAll();
        Ride(speeds);
        Derive();
        EXPECT_EQ(Letters(InvalidFlag::SpeedSpike), strRide + c.strSpeed) << c.strName;
        m_series.m_points.RemoveAll();
        RideByDoppler(speeds);
        Derive();
        EXPECT_EQ(Letters(InvalidFlag::DopplerSpike), strRide + c.strDoppler) << c.strName;
    }
}

TEST_F(TrackPointDerivation, TheExpectedSpeedGoesWithTheTime)
{
    // 30 a second behind 20, with 60 three seconds later: 30 is expected. A second later it would be 40.
    for (const double dNextStep : {3.0, 1.0}) {
        m_series.m_points.RemoveAll();
        AddFix(0, 0).m_dDoppler = 20.0;
        AddFix(1, 0).m_dDoppler = 20.0;
        AddFix(2, 0).m_dDoppler = 30.0;
        AddFix(2 + dNextStep, 0).m_dDoppler = 60.0;
        Derive();
        EXPECT_EQ(Point(2).IsValidFor(InvalidFlag::DopplerSpike), dNextStep == 3.0);
    }
}

TEST_F(TrackPointDerivation, LimitsOfReception)
{
    AllowAnyAcceleration();
    Ride({0, 36, 36, 36, 36, 36, 36});
    m_event.m_dMaxHDOP = 4.0;
    m_event.m_nMinSats = 5;
    const std::array<double, 7> hdops = {50, 4.0, 4.001, 12.0, 9.5, 1, 9.9};
    const std::array<int, 7> sats = {20, 5, 9, 4, 3, 6, 30};
    for (int i = 0; i < 7; ++i) {
        Point(i).m_dHDOP = hdops[static_cast<std::size_t>(i)];
        Point(i).m_nSats = sats[static_cast<std::size_t>(i)];
        Point(i).m_nAltitude = 10 * i;
    }
    Derive();
    EXPECT_EQ(Letters(), "- - H AH AH - -") << "neither the first nor the last is judged";
    EXPECT_EQ(m_series.m_dMaxResultHDOP, 9.5) << "12 never counts, an invalid point does";
    EXPECT_EQ(m_series.m_dMinResultSats, 9.0) << "the most satellites of all but the first and the last";
    EXPECT_EQ(m_series.m_dMinAltitude, 10.0) << "of the valid points";
    EXPECT_EQ(m_series.m_dMaxAltitude, 50.0);
    EXPECT_EQ(m_series.m_rcBounds.m_dSouth, Latitude) << "the first point is in the box";
    EXPECT_EQ(m_series.m_rcBounds.m_dNorth, Point(5).m_position.m_dLatitude) << "the last is not";
}

TEST_F(TrackPointDerivation, MaximumSpeedsAreThoseOfValidPoints)
{
    RideByDoppler({20, 20, 80, 20, 25, 24, 60});
    Point(1).m_nInvalidFlags = InvalidFlag::User;
    Point(1).m_dDoppler = 28.0;
    Derive();
    EXPECT_EQ(m_series.m_dMaxDoppler, 25.0) << Letters();
    EXPECT_EQ(m_series.m_dMaxSpeed, 0.0);
    EXPECT_EQ(m_series.m_bHasDoppler, 1);
}

TEST_F(TrackPointDerivation, TheFirstPointNeedsAPositionForTheBox)
{
    for (const CPosition& position : {MakePosition(0, 150), MakePosition(-50, 0)}) {
        m_series.m_points.RemoveAll();
        Ride({0, 36, 36, 36});
        Point(0).m_position = position;
        Derive();
        EXPECT_EQ(m_series.m_rcBounds.m_dWest, Longitude);
        EXPECT_EQ(m_series.m_rcBounds.m_dEast, Longitude);
    }
    Point(0).m_position = MakePosition(-50, 150);
    Point(0).m_nInvalidFlags = InvalidFlag::User;
    Derive();
    EXPECT_EQ(m_series.m_rcBounds.m_dEast, Longitude) << "marked by the user";
    Point(0).m_nInvalidFlags = 0;
    Derive();
    EXPECT_EQ(m_series.m_rcBounds.m_dEast, 150.0);
}

TEST_F(TrackPointDerivation, OnlyTheUsersMarkSurvives)
{
    AllowAnyAcceleration();
    Ride({0, 36, 36, 36, 36});
    for (CTrackPoint* pPoint : m_series.m_points)
        pPoint->m_nInvalidFlags = 0x7e;
    Point(0).m_nInvalidFlags = 0x7f;
    Point(2).m_nInvalidFlags = 0x7f;
    Point(4).m_nInvalidFlags = 0x7f;
    Derive();
    EXPECT_EQ(Letters(), "P - P - P");
}

TEST_F(TrackPointDerivation, TheLastPointKeepsItsRuns)
{
    m_event.m_nMinSats = 5;
    m_event.m_dMaxHDOP = 2.0;
    RideByDoppler({30, 30, 30, 30, 30, 30, 30, 5, 5, 200});
    for (CTrackPoint* pPoint : m_series.m_points) {
        pPoint->m_nSats = 5;
        pPoint->m_nRun = 42;
        pPoint->m_nDopplerRun = 43;
    }
    Point(9).m_dHDOP = 100.0;
    Point(9).m_nSats = 0;
    Derive();
    EXPECT_EQ(Point(9).m_nInvalidFlags, 0u);
    EXPECT_EQ(Point(9).m_nRun, 42);
    EXPECT_EQ(Point(9).m_nDopplerRun, 43);
    EXPECT_EQ(Point(0).m_nDopplerRun, 0);
    EXPECT_EQ(Point(6).m_nDopplerRun, 0);
    EXPECT_EQ(Point(8).m_nRun, 0) << "by position nobody moved";
    EXPECT_EQ(Point(9).m_nTrack, 9);
    EXPECT_EQ(m_series.m_dMaxDoppler, 30.0);
}

TEST_F(TrackPointDerivation, TheStopSpeedIsAtLeastOneDisplayUnit)
{
    m_event.m_dStopRunSpeed = 0.0;
    const std::array<double, 5> leastStopSpeeds = {1.852, 1.0, 3.6, 1.609344, 3.6};
    for (int nUnit = 0; nUnit < 5; ++nUnit) {
        m_event.m_nSpeedUnits = nUnit;
        const double dStop = leastStopSpeeds[static_cast<std::size_t>(nUnit)];
        for (const double dOff : {-0.49, -0.51}) {
            m_series.m_points.RemoveAll();
            std::vector<double> speeds(8, dStop + 0.51);
            speeds.resize(12, dStop + dOff);
            RideByDoppler(speeds);
            Derive();
            EXPECT_EQ(Point(10).m_nDopplerRun, dOff < -0.5 ? 1 : 0) << "unit " << nUnit << " off " << dOff;
        }
    }
}

TEST_F(TrackPointDerivation, ACourseFromTheFileIsKeptOnlyWithDoppler)
{
    for (const bool bDoppler : {false, true}) {
        m_series.m_points.RemoveAll();
        Ride({0, 36, 36, 36});
        for (CTrackPoint* pPoint : m_series.m_points)
            pPoint->m_dDirection = 1.5;
        Point(2).m_dDirection = 0.0;
        Point(2).m_position.m_dLongitude += 0.0001;
        Point(3).m_dDoppler = bDoppler ? 36.0 : -36.0;
        Derive();
        EXPECT_EQ(m_series.m_bHasDoppler, bDoppler ? 1 : 0) << "only a speed above 0 is one";
        EXPECT_EQ(Point(0).m_dDirection, 1.5);
        EXPECT_EQ(Point(1).m_dDirection, bDoppler ? 1.5 : 0.0);
        EXPECT_NEAR(Point(2).m_dDirection, 0.71, 0.02) << "none in the file";
    }
}

TEST_F(TrackPointDerivation, RecalculatingEmptiesTheRecordsOfTheFileAlone)
{
    Ride({0, 36, 36});
    CSeries& other = AddSeries(m_person, "Evening");
    AddFound(m_series, "500 m", 30, 0, 10);
    AddFound(other, "500 m", 31, 0, 10);
    AddFound(m_person.m_combined, "500 m", 32, 0, 10);
    m_person.m_results.Borrow(other.m_divisions[0].m_results[0]);
    RecalculateTrackPoints(m_event, m_person, m_series, m_progress);
    EXPECT_TRUE(m_series.m_divisions.IsEmpty())
        << "an empty record left behind would never be calculated again";
    EXPECT_TRUE(m_person.m_combined.m_divisions.IsEmpty());
    EXPECT_TRUE(m_person.m_results.IsEmpty());
    EXPECT_EQ(other.m_divisions.GetCount(), 1);
    EXPECT_GT(Point(1).m_dSpeed, 0.0);
}

} // namespace
} // namespace kestrabel::test
