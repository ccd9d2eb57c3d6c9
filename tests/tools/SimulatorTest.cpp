#include "app/NewProject.h"
#include "engine/SeriesResults.h"
#include "engine/TrackPointDerivation.h"
#include "geo/DistanceCalculator.h"
#include "simulator/BestSpeeds.h"
#include "simulator/SessionSimulator.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

constexpr double KnotInKmh = 1.852;

/// A session of so many minutes.
SSessionOptions Minutes(std::uint64_t nSeed, double dRate, double dMinutes)
{
    SSessionOptions options;
    options.nSeed = nSeed;
    options.dRate = dRate;
    options.nFixes = std::llround(dMinutes * 60.0 * dRate);
    return options;
}

TEST(BestSpeeds, FindsWindowsThatBeginBetweenFixes)
{
    // 10 m/s, then 5 s of 20 m/s, then 10 m/s, one fix a second: 50 + 50 + 100 m.
    std::vector<double> distances = {0.0};
    for (int i = 0; i < 40; ++i)
        distances.push_back(distances.back() + (i >= 20 && i < 25 ? 20.0 : 10.0));
    const SBestSpeeds best = FindBestSpeeds(distances, 1.0);
    EXPECT_NEAR(best.dSeconds2, 72.0, 1e-9);
    EXPECT_NEAR(best.dMetres250, 45.0, 1e-9);                                   // 5 s and 15 s
    EXPECT_DOUBLE_EQ(best.dMetres500, 0.0);                                     // 450 m sailed
    EXPECT_NEAR(FindBestSpeeds(distances, 0.7).dSeconds2, 102.857142857, 1e-6); // ends between fixes
}

TEST(Session, TrueMotionIsPlausibleAndNothingIsAsFastAsThePlantedRun)
{
    for (std::uint64_t nSeed = 1; nSeed <= 30; ++nSeed) {
        const double dRate = std::array{1.0, 2.0, 5.0, 10.0}[nSeed % 4];
        SSessionOptions options = Minutes(nSeed, dRate, nSeed % 3 == 0 ? 5.0 : 30.0);
        options.receiver = {.dDropoutsPerHour = 0.0, .nColdStartFixes = 0, .bNoise = false};
        CSeries series;
        const STruth truth = SimulateSession(options, series);
        ASSERT_TRUE(truth.planted.has_value()) << "seed " << nSeed;
        EXPECT_NEAR(truth.planted->dLength, options.rider.dPlantedLength, 25.0);
        EXPECT_LT(truth.dFastestElsewhere + 3.0 * KnotInKmh, truth.planted->best.dMetres500);
        CDistanceCalculator calculator;
        for (int i = 1; i < series.m_points.GetCount(); ++i) {
            const CTrackPoint& point = series.m_points[i];
            const double dBefore = series.m_points[i - 1].m_dDoppler;
            const bool bPlanted = i >= truth.planted->nFirstFix && i <= truth.planted->nLastFix;
            // Its ramp, and the braking behind it, are part of the reach.
            const bool bElsewhere = SecondsBetween(point.m_time, truth.planted->timeFirst) > 25.0 ||
                                    SecondsBetween(truth.planted->timeLast, point.m_time) > 20.0;
            ASSERT_TRUE(!bPlanted || point.m_dDoppler > 38.49 * KnotInKmh) << nSeed << " fix " << i;
            ASSERT_TRUE(!bElsewhere || point.m_dDoppler <= truth.dFastestElsewhere + 1e-9) << nSeed;
            ASSERT_LT(std::abs((point.m_dDoppler - dBefore) * dRate + 4.63), 13.89)
                << "acceleration at " << i;
            // The positions tell the same story as the Doppler speed.
            const double dKm = calculator.Distance(series.m_points[i - 1].m_position, point.m_position);
            const double dMean = 0.5 * (dBefore + point.m_dDoppler);
            ASSERT_TRUE(dMean < 10.0 || std::abs(dKm * 3600.0 * dRate - dMean) < 0.01) << i;
            ASSERT_LT(calculator.Distance(options.position, point.m_position), 3.0) << "sails away";
        }
    }
}

TEST(Session, FaultsAreThoseThatTheTruthTells)
{
    SSessionOptions options = Minutes(8, 5.0, 300.0);
    options.receiver.dDropoutsPerHour = 30.0;
    options.receiver.dSpikesPerHour = 30.0;
    options.receiver.nColdStartFixes = 12;
    CSeries noisy, clean;
    const STruth truth = SimulateSession(options, noisy);
    options.receiver.bNoise = false;
    SimulateSession(options, clean);
    ASSERT_EQ(noisy.m_points.GetCount(), clean.m_points.GetCount());
    CDistanceCalculator calculator;
    SFaultCounts found;
    for (int i = 0; i < noisy.m_points.GetCount(); ++i) {
        const CTrackPoint& point = noisy.m_points[i];
        ASSERT_EQ(point.m_time, clean.m_points[i].m_time); // the same session, fix by fix
        const bool bPlanted = i >= truth.planted->nFirstFix && i <= truth.planted->nLastFix;
        const double dStep = i == 0 ? 0.2 : SecondsBetween(noisy.m_points[i - 1].m_time, point.m_time);
        const double dError = 1000.0 * calculator.Distance(clean.m_points[i].m_position, point.m_position);
        found.nColdStartFixes += point.HasPosition() ? 0 : 1;
        found.nDropouts += dStep > 0.3 ? 1 : 0;
        found.nLongDropouts += dStep > 200.0 ? 1 : 0;
        found.nSpikes += dError > 12.0 ? 1 : 0;
        EXPECT_FALSE(bPlanted && (dStep > 0.3 || dError > 12.0)) << i;
        EXPECT_FALSE(dError >= 6.0 && dError <= 12.0) << i << ": " << dError;
    }
    EXPECT_EQ(std::tuple(found.nColdStartFixes, found.nDropouts, found.nLongDropouts, found.nSpikes),
              std::tuple(12, truth.faults.nDropouts, truth.faults.nLongDropouts, truth.faults.nSpikes));
    EXPECT_TRUE(found.nDropouts > 60 && found.nLongDropouts > 3 && found.nSpikes > 60);
}

/// Every division that does not average runs finds the planted run: within its time, at its true speed.
void ExpectPlantedRunFound(const SSessionOptions& options, std::uint8_t nCalcUsing)
{
    CEvent event;
    FillNewProject(event, options.timeStart);
    CPerson& person = AddCompetitor(event, "Anna");
    CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
    const SPlantedRun planted = SimulateSession(options, series).planted.value();
    ASSERT_TRUE(CalculateTrackPoints(event, person, series, NoProgress()));
    const SBestSpeeds& s = planted.best;
    // In the order of the divisions; the second averages runs.
    const double speeds[] = {s.dSeconds2, 0.0, s.dSeconds10, s.dMetres100, s.dMetres250, s.dMetres500};
    for (int i = 0; i < event.m_divisions.GetCount(); ++i) {
        CDivision& division = event.m_divisions[i];
        if (division.m_nAverageRuns > 1)
            continue;
        division.m_nCalcUsing = nCalcUsing;
        CResultList results;
        ASSERT_TRUE(CalculateSeriesResults(event, person, 0, division, results, NoProgress()));
        ASSERT_NE(results.Best(), nullptr) << i;
        const CResult& result = *results.Best();
        // The wind-up may be part of it when the noise is greater than what the speed still rises.
        EXPECT_LT(SecondsBetween(result.m_timeStart, planted.timeFirst), 1.01);
        EXPECT_LT(SecondsBetween(planted.timeLast, result.m_timeEnd), 1.01);
        // km/h: a time is met to the rounding; a distance ends at the first fix behind it, up to 20 m
        // farther, where the run is a bit slower.
        const double dExact = division.m_nKind == DivisionKind::Time ? 0.001 : 0.03;
        EXPECT_NEAR(result.m_dSpeed, speeds[i], options.receiver.bNoise ? 0.6 : dExact) << i;
    }
}

TEST(PlantedRun, IsFoundByTheEngine)
{
    for (std::uint64_t nSeed = 101; nSeed <= 116; ++nSeed) {
        SSessionOptions options = Minutes(nSeed, std::array{1.0, 2.0, 5.0, 10.0}[nSeed % 4], 25.0);
        for (const bool bNoise : {true, false}) {
            options.receiver.bNoise = bNoise;
            ExpectPlantedRunFound(options, CalcUsing::Trackpoints);
            ExpectPlantedRunFound(options, CalcUsing::Doppler);
        }
    }
}

} // namespace
} // namespace kestrabel
