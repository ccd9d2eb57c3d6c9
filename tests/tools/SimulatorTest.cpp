#include "geo/DistanceCalculator.h"
#include "simulator/BestSpeeds.h"
#include "simulator/SessionSimulator.h"
#include "simulator/Trigonometry.h"
#include "tools/SessionOptionsFor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrabel {
namespace {

using test::KnotInKmh;
using test::Minutes;
using test::Session;

/// The drop-outs from here on are long ones, as are gaps.
constexpr int GapSeconds = 200;

double Metres(const CPosition& one, const CPosition& other)
{
    constexpr double dDegree = 111200.0; // metres of latitude; within a percent
    const double dNorth = (other.m_dLatitude - one.m_dLatitude) * dDegree;
    const double dEast =
        (other.m_dLongitude - one.m_dLongitude) * dDegree * std::cos(one.m_dLatitude * 0.0174533);
    return std::hypot(dNorth, dEast);
}

TEST(RandomSource, GivesThePublishedNumbers)
{
    // The reference values of SplitMix64 for this seed that implementations are usually checked with.
    CRandomSource random(1234567);
    for (const std::uint64_t nExpected : {6457827717110365317U, 3203168211198807973U, 9817491932198370423U,
                                          4593380528125082431U, 16408922859458223821U})
        EXPECT_EQ(random.Next(), nExpected);
}

TEST(RandomSource, HasTheMomentsThatTheNoiseIsBuiltOn)
{
    CRandomSource random(5);
    constexpr int nDraws = 200000;
    double dSum = 0.0;
    double dSquares = 0.0;
    double dUniform = 0.0;
    for (int i = 0; i < nDraws; ++i) {
        const double d = random.Normal();
        dSum += d;
        dSquares += d * d;
        dUniform += random.Uniform();
    }
    // Five standard errors.
    EXPECT_NEAR(dSum / nDraws, 0.0, 0.012);
    EXPECT_NEAR(dSquares / nDraws, 1.0, 0.016);
    EXPECT_NEAR(dUniform / nDraws, 0.5, 0.0033);
}

TEST(Trigonometry, AgreesWithTheLibrary)
{
    for (double dAngle = -50.0; dAngle < 50.0; dAngle += 0.0137) {
        EXPECT_NEAR(SineCosine(dAngle).dSine, std::sin(dAngle), 1e-13) << dAngle;
        EXPECT_NEAR(SineCosine(dAngle).dCosine, std::cos(dAngle), 1e-13) << dAngle;
    }
}

TEST(BestSpeeds, FindsWindowsThatBeginBetweenFixes)
{
    // 10 m/s, then 5 s of 20 m/s, then 10 m/s, one fix a second: 50 + 50 + 100 m.
    std::vector<double> distances = {0.0};
    for (int i = 0; i < 40; ++i)
        distances.push_back(distances.back() + (i >= 20 && i < 25 ? 20.0 : 10.0));
    const SBestSpeeds best = FindBestSpeeds(distances, 1.0);
    EXPECT_NEAR(best.dSeconds2, 72.0, 1e-9);
    EXPECT_NEAR(best.dSeconds10, 54.0, 1e-9);                                   // 150 m in 10 s
    EXPECT_NEAR(best.dMetres100, 72.0, 1e-9);                                   // all of the fast part
    EXPECT_NEAR(best.dMetres250, 45.0, 1e-9);                                   // 5 s and 15 s
    EXPECT_DOUBLE_EQ(best.dMetres500, 0.0);                                     // 450 m sailed
    EXPECT_NEAR(FindBestSpeeds(distances, 0.7).dSeconds2, 102.857142857, 1e-6); // ends between fixes
    EXPECT_DOUBLE_EQ(FindBestSpeeds({}, 1.0).dSeconds2, 0.0);
}

TEST(Session, HasTheRateAndTheCountThatWereAskedFor)
{
    for (const double dRate : {1.0, 1.25, 2.0, 4.0, 5.0, 8.0, 10.0}) {
        SSessionOptions options = Session(3, dRate, 4321);
        options.receiver.dDropoutsPerHour = 0.0;
        CSeries series;
        const STruth truth = SimulateSession(options, series);
        ASSERT_EQ(series.m_points.GetCount(), 4321);
        EXPECT_EQ(truth.nFixes, 4321);
        const DATE& start = series.m_points[0].m_time;
        for (int i = 0; i < series.m_points.GetCount(); ++i) {
            ASSERT_EQ(SecondsBetween(start, series.m_points[i].m_time),
                      std::round(i * 1000.0 / dRate) / 1000.0)
                << dRate << " Hz, fix " << i;
        }
    }
}

TEST(Session, AShortOneEndsCleanly)
{
    for (const std::int64_t nFixes : {1, 2, 7, 60}) {
        SSessionOptions options = Session(1, 1.0, nFixes);
        options.receiver.nColdStartFixes = std::min<std::int64_t>(nFixes, 5);
        CSeries series;
        const STruth truth = SimulateSession(options, series);
        EXPECT_EQ(series.m_points.GetCount(), nFixes);
        EXPECT_EQ(ComplaintAbout(options), "");
        EXPECT_FALSE(truth.planted.has_value());
    }
}

TEST(Session, RefusesWhatCannotBeSimulated)
{
    struct SCase
    {
        const char* pWhat;
        void (*pSpoil)(SSessionOptions&);
    };
    const std::array<SCase, 8> cases = {{
        {"whole number of milliseconds", [](SSessionOptions& o) { o.dRate = 3.0; }},
        {"fixes a second", [](SSessionOptions& o) { o.dRate = 0.5; }},
        {"fixes a second", [](SSessionOptions& o) { o.dRate = std::nan(""); }},
        {"number of fixes", [](SSessionOptions& o) { o.nFixes = 0; }},
        {"number of fixes", [](SSessionOptions& o) { o.nFixes = 2147483648; }},
        {"cold-start", [](SSessionOptions& o) { o.receiver.nColdStartFixes = o.nFixes + 1; }},
        {"latitude", [](SSessionOptions& o) { o.position.m_dLatitude = 89.0; }},
        {"date", [](SSessionOptions& o) { o.timeStart = DATE::MakeInvalid(); }},
    }};
    EXPECT_EQ(ComplaintAbout(SSessionOptions()), "");
    for (const SCase& row : cases) {
        SSessionOptions options;
        row.pSpoil(options);
        EXPECT_NE(ComplaintAbout(options).find(row.pWhat), std::string::npos) << ComplaintAbout(options);
    }
}

TEST(Session, NothingElseIsAsFastAsThePlantedRun)
{
    for (std::uint64_t nSeed = 1; nSeed <= 30; ++nSeed) {
        const std::array<double, 4> rates = {1.0, 2.0, 5.0, 10.0};
        SSessionOptions options = Minutes(nSeed, rates[nSeed % rates.size()], nSeed % 3 == 0 ? 5.0 : 30.0);
        options.receiver.bNoise = false;
        CSeries series;
        const STruth truth = SimulateSession(options, series);
        ASSERT_TRUE(truth.planted.has_value()) << "seed " << nSeed;
        const SPlantedRun& planted = *truth.planted;
        EXPECT_NEAR(planted.dLength, options.rider.dPlantedLength, 25.0);
        EXPECT_LT(truth.dFastestElsewhere + 3.0 * KnotInKmh, planted.best.dMetres500);
        EXPECT_EQ(planted.timeFirst, series.m_points[static_cast<int>(planted.nFirstFix)].m_time);
        EXPECT_EQ(planted.timeLast, series.m_points[static_cast<int>(planted.nLastFix)].m_time);
        for (int i = 0; i < series.m_points.GetCount(); ++i) {
            const CTrackPoint& point = series.m_points[i];
            const bool bPlanted = i >= planted.nFirstFix && i <= planted.nLastFix;
            // Its ramp, and the braking behind it, are part of the reach.
            const bool bElsewhere = SecondsBetween(point.m_time, planted.timeFirst) > 25.0 ||
                                    SecondsBetween(planted.timeLast, point.m_time) > 20.0;
            ASSERT_TRUE(!bPlanted || point.m_dDoppler > 38.49 * KnotInKmh)
                << "seed " << nSeed << " fix " << i;
            ASSERT_TRUE(!bElsewhere || point.m_dDoppler <= truth.dFastestElsewhere + 1e-9)
                << "seed " << nSeed << " fix " << i;
        }
    }
}

TEST(Session, TrueMotionIsPlausible)
{
    for (const double dRate : {1.0, 5.0, 10.0}) {
        SSessionOptions options = Minutes(17, dRate, 120.0);
        options.receiver = {.dDropoutsPerHour = 0.0, .nColdStartFixes = 0, .bNoise = false};
        CSeries series;
        const STruth truth = SimulateSession(options, series);
        CDistanceCalculator calculator;
        int nReaching = 0;
        int nSlow = 0;
        for (int i = 1; i < series.m_points.GetCount(); ++i) {
            const CTrackPoint& before = series.m_points[i - 1];
            const CTrackPoint& point = series.m_points[i];
            const double dAcceleration = (point.m_dDoppler - before.m_dDoppler) * dRate;
            ASSERT_LT(dAcceleration, 9.26) << dRate << " Hz, fix " << i;
            ASSERT_GT(dAcceleration, -18.52) << dRate << " Hz, fix " << i;
            // The positions tell the same story as the Doppler speed.
            const double dMean = 0.5 * (before.m_dDoppler + point.m_dDoppler);
            const double dKm = calculator.Distance(before.m_position, point.m_position);
            if (dMean > 10.0) {
                ASSERT_NEAR(dKm * 3600.0 * dRate, dMean, 0.01) << dRate << " Hz, fix " << i;
            }
            const double dKnots = point.m_dDoppler / KnotInKmh;
            nReaching += dKnots > 15.0 ? 1 : 0;
            nSlow += dKnots < 3.0 ? 1 : 0;
            ASSERT_LT(Metres(options.position, point.m_position), 3000.0) << "the rider sails away";
        }
        const auto nFixes = static_cast<double>(series.m_points.GetCount());
        EXPECT_GT(nReaching / nFixes, 0.4);
        EXPECT_GT(nSlow / nFixes, 0.03);
        EXPECT_GT(truth.motion.nJibes, 60);
        EXPECT_GT(truth.motion.nStops + truth.motion.nRests, 3);
    }
}

TEST(Session, FaultsAreThoseThatTheTruthTells)
{
    SSessionOptions options = Minutes(8, 5.0, 300.0);
    options.receiver.dDropoutsPerHour = 30.0;
    options.receiver.dSpikesPerHour = 30.0;
    options.receiver.nColdStartFixes = 12;
    CSeries noisy;
    const STruth truth = SimulateSession(options, noisy);
    options.receiver.bNoise = false;
    CSeries clean;
    SimulateSession(options, clean);

    SFaultCounts found;
    ASSERT_EQ(noisy.m_points.GetCount(), clean.m_points.GetCount());
    for (int i = 0; i < noisy.m_points.GetCount(); ++i) {
        ASSERT_EQ(noisy.m_points[i].m_time, clean.m_points[i].m_time); // the same session, fix by fix
        const bool bPlanted = i >= truth.planted->nFirstFix && i <= truth.planted->nLastFix;
        const double dStep =
            i == 0 ? 0.0 : SecondsBetween(noisy.m_points[i - 1].m_time, noisy.m_points[i].m_time);
        const bool bDropout = dStep > 0.3;
        const double dError = Metres(clean.m_points[i].m_position, noisy.m_points[i].m_position);
        const bool bSpike = dError > 12.0;
        found.nColdStartFixes += noisy.m_points[i].HasPosition() ? 0 : 1;
        found.nDropouts += bDropout ? 1 : 0;
        found.nLongDropouts += dStep > GapSeconds ? 1 : 0;
        found.nSpikes += bSpike ? 1 : 0;
        EXPECT_FALSE(bPlanted && (bDropout || bSpike)) << i;
        EXPECT_TRUE(bSpike || dError < 6.0) << i << ": " << dError;
    }
    EXPECT_EQ(found.nColdStartFixes, 12);
    EXPECT_EQ(found.nColdStartFixes, truth.faults.nColdStartFixes);
    EXPECT_EQ(found.nDropouts, truth.faults.nDropouts);
    EXPECT_EQ(found.nLongDropouts, truth.faults.nLongDropouts);
    EXPECT_EQ(found.nSpikes, truth.faults.nSpikes);
    EXPECT_GT(found.nDropouts, 60);
    EXPECT_GT(found.nLongDropouts, 3);
    EXPECT_GT(found.nSpikes, 60);
}

} // namespace
} // namespace kestrabel
