#include "app/NewProject.h"
#include "engine/SeriesResults.h"
#include "engine/TrackPointDerivation.h"
#include "simulator/SessionSimulator.h"
#include "tools/SessionOptionsFor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <set>

namespace kestrabel {
namespace {

using test::Minutes;

double TruthFor(const CDivision& division, const SBestSpeeds& best)
{
    if (division.m_nKind == DivisionKind::Time)
        return division.m_nSeconds == 2 ? best.dSeconds2 : best.dSeconds10;
    return division.m_dMetres < 200.0   ? best.dMetres100
           : division.m_dMetres < 400.0 ? best.dMetres250
                                        : best.dMetres500;
}

/// The share of the points that the derivation marks with one of the flags.
double ShareMarked(const CSeries& series, std::uint32_t nFlags)
{
    const auto nMarked =
        std::count_if(series.m_points.begin(), series.m_points.end(),
                      [&](const CTrackPoint* pPoint) { return (pPoint->m_nInvalidFlags & nFlags) != 0; });
    return static_cast<double>(nMarked) / series.m_points.GetCount();
}

/// How far a result may be off the truth, km/h. Without noise a time is met to the rounding; a distance ends
/// at the first fix behind it, up to 20 m farther, where the run is a bit slower.
struct STolerance
{
    double dTime;
    double dDistance;
};

/// Every division that does not average runs finds the planted run: within its time, at its true speed.
void ExpectPlantedRunFound(const SSessionOptions& options, std::uint8_t nCalcUsing,
                           const STolerance& tolerance)
{
    CEvent event;
    FillNewProject(event, options.timeStart);
    CPerson& person = AddCompetitor(event, "Anna");
    CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
    const STruth truth = SimulateSession(options, series);
    ASSERT_TRUE(truth.planted.has_value());
    ASSERT_TRUE(CalculateTrackPoints(event, person, series, NoProgress()));
    // The planted spikes mark some fixes each, and so do drop-outs: the rest of the track is fit for use.
    EXPECT_LT(ShareMarked(series, InvalidFlag::SpeedSpike), 0.02);
    EXPECT_LT(ShareMarked(series, InvalidFlag::DopplerSpike), 0.005);

    std::set<std::string> divisions;
    for (CDivision* pDivision : event.m_divisions) {
        SCOPED_TRACE(pDivision->m_strName);
        pDivision->m_nCalcUsing = nCalcUsing;
        CResultList results;
        ASSERT_TRUE(CalculateSeriesResults(event, person, 0, *pDivision, results, NoProgress()));
        ASSERT_NE(results.Best(), nullptr);
        const CResult& best = *results.Best();
        if (pDivision->m_nAverageRuns > 1) {
            EXPECT_LT(best.m_dSpeed, truth.planted->best.dSeconds10);
            continue;
        }
        // The wind-up may be part of it when the noise is greater than what the speed still rises.
        EXPECT_LT(SecondsBetween(best.m_timeStart, truth.planted->timeFirst), 1.01);
        EXPECT_LT(SecondsBetween(truth.planted->timeLast, best.m_timeEnd), 1.01);
        EXPECT_NEAR(best.m_dSpeed, TruthFor(*pDivision, truth.planted->best),
                    pDivision->m_nKind == DivisionKind::Time ? tolerance.dTime : tolerance.dDistance);
        divisions.insert(pDivision->m_strName);
    }
    EXPECT_EQ(divisions.size(), 5U);
}

TEST(PlantedRun, IsFoundByTheEngine)
{
    for (std::uint64_t nSeed = 101; nSeed <= 116; ++nSeed) {
        const std::array<double, 4> rates = {1.0, 2.0, 5.0, 10.0};
        SSessionOptions options = Minutes(nSeed, rates[nSeed % rates.size()], 25.0);
        for (const std::uint8_t nCalcUsing : {CalcUsing::Trackpoints, CalcUsing::Doppler}) {
            SCOPED_TRACE("seed " + std::to_string(nSeed) +
                         (nCalcUsing == CalcUsing::Doppler ? ", Doppler" : ""));
            options.receiver.bNoise = true;
            ExpectPlantedRunFound(options, nCalcUsing, {.dTime = 0.6, .dDistance = 0.6});
            options.receiver.bNoise = false;
            ExpectPlantedRunFound(options, nCalcUsing, {.dTime = 0.001, .dDistance = 0.03});
        }
    }
}

} // namespace
} // namespace kestrabel
