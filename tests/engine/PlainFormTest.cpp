#include "engine/Compare.h"
#include "engine/DistanceTimeResults.h"
#include "engine/PlainDerivation.h"
#include "engine/PlainWindows.h"
#include "engine/RandomEvent.h"
#include "engine/SeriesResults.h"
#include "engine/TrackPointDerivation.h"

#include <array>
#include <gtest/gtest.h>
#include <map>

// The engine against the plain form of its rules, over tracks that chance made: every field of every point
// and every result has to be the same to the bit. Both do the same arithmetic in the same order, so no
// tolerance is needed; a track is known by the seed in the message.

namespace kestrabel::test {
namespace {

void ExpectSamePoints(const CSeries& series, const CSeries& plain)
{
    ASSERT_EQ(Differences(StatisticsFields(), series, plain), "");
    for (int i = 0; i < series.m_points.GetCount(); ++i)
        ASSERT_EQ(Differences(PointFields(), series.m_points[i], plain.m_points[i]), "") << "point " << i;
}

TEST(PlainForm, DerivationIsTheSameToTheBit)
{
    std::map<int, int> flagged;
    int nGaps = 0;
    int nMostRuns = 0;
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SRandomEvent random(trackCase, nSeed);
        CSeries& series = *random.pSeries;
        series.m_nSeriesIndex = series.m_nPersonIndex = 0;
        const std::unique_ptr<CSeries> pPlain = CopyTrack(series);
        // Again with another threshold: gap points then keep what the pass before left in them.
        for (const int nThreshold : {random.event.m_nTimeThreshold, 3, random.event.m_nTimeThreshold}) {
            random.event.m_nTimeThreshold = nThreshold;
            ASSERT_TRUE(CalculateTrackPoints(random.event, *random.pPerson, series, NoProgress()));
            PlainDerive(random.event, *pPlain);
            ASSERT_NO_FATAL_FAILURE(ExpectSamePoints(series, *pPlain));
        }
        for (int i = 1; i < series.m_points.GetCount(); ++i) {
            const CTrackPoint& point = series.m_points[i];
            for (const auto nFlag : EveryFlag)
                flagged[nFlag] += point.IsValidFor(nFlag) ? 0 : 1;
            const double dStep = SecondsBetween(series.m_points[i - 1].m_time, point.m_time);
            nGaps += dStep >= random.event.m_nTimeThreshold ? 1 : 0;
            nMostRuns = std::max({nMostRuns, point.m_nRun, point.m_nDopplerRun});
        }
    });
    // The tracks hold what they are meant to hold.
    for (const auto nFlag : EveryFlag)
        EXPECT_GT(flagged[nFlag], 20) << InvalidLetters(nFlag);
    EXPECT_GT(nGaps, 20);
    EXPECT_GT(nMostRuns, 5);
}

constexpr int Combinations = 96;

/// The combination of options with that number; the targets, averages and rows change along with it.
void SetCombination(CDivision& division, CEvent& event, int nCombination, int nVariant)
{
    const auto Bit = [&](int nBit) { return static_cast<std::uint8_t>(nCombination >> nBit & 1); };
    division.m_bAccumulation = Bit(0);
    division.m_bUseAltitude = Bit(1);
    division.m_bOneResultPerRun = Bit(2);
    division.m_bStrict = Bit(3);
    division.m_nKind = Bit(4) == 0 ? DivisionKind::Distance : DivisionKind::Time;
    division.m_nCalcUsing = static_cast<std::uint8_t>(nCombination / 32);
    const auto nChoice = static_cast<std::size_t>(nCombination + nVariant);
    division.m_dMetres = std::array{100.0, 20.0, 250.0}[nChoice % 3];
    division.m_nSeconds = std::array{10, 2, 5, 1}[nChoice % 4];
    division.m_nAverageRuns = std::array<std::uint8_t, 5>{1, 5, 2, 12, 1}[nChoice % 5];
    event.m_nShowTopRows = std::array{10, 1, 3, 50}[(nChoice / 3) % 4];
    division.m_strName = "Division " + std::to_string(nCombination);
}

template <class TResults>
void ExpectSameResults(const TResults& results, const std::vector<CResult>& plain)
{
    ASSERT_EQ(results.GetCount(), static_cast<int>(plain.size()));
    for (int i = 0; i < results.GetCount(); ++i)
        ASSERT_EQ(Differences<SResultValues>(ResultFields(), results[i], plain[static_cast<std::size_t>(i)]),
                  "")
            << "result " << i;
}

std::string Describe(const CDivision& division, const CEvent& event)
{
    return division.m_strName + ": kind " + std::to_string(division.m_nKind) + " acc " +
           std::to_string(division.m_bAccumulation) + " alt " + std::to_string(division.m_bUseAltitude) +
           " one per run " + std::to_string(division.m_bOneResultPerRun) + " strict " +
           std::to_string(division.m_bStrict) + " using " + std::to_string(division.m_nCalcUsing) + " N " +
           std::to_string(division.m_nAverageRuns) + " rows " + std::to_string(event.m_nShowTopRows);
}

TEST(PlainForm, ResultsAreTheSameToTheBit)
{
    std::map<std::string, int> found; // results by rule and strictness
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SRandomEvent random(trackCase, nSeed);
        CEvent& event = random.event;
        CSeries& series = *random.pSeries;
        ASSERT_TRUE(CalculateTrackPoints(event, *random.pPerson, series, NoProgress()));
        for (int i = 0; i < Combinations; ++i) {
            CDivision division;
            SetCombination(division, event, i, static_cast<int>(nSeed));
            SCOPED_TRACE(Describe(division, event));
            const std::vector<CResult> plain = PlainWindowResults(event, *random.pPerson, series, division);
            CObjectArray<CResult> results;
            ASSERT_TRUE(
                CalculateWindowResults(event, *random.pPerson, series, division, results, NoProgress()));
            ASSERT_NO_FATAL_FAILURE(ExpectSameResults(results, plain));

            CResultList combined;
            ASSERT_TRUE(CalculateSeriesResults(event, *random.pPerson, 0, division, combined, NoProgress()));
            ASSERT_NO_FATAL_FAILURE(
                ExpectSameResults(combined, PlainCombined(plain, division.m_nAverageRuns)));

            const bool bDoppler = PlainUsesDoppler(division, series);
            const char cRule = MakePlainWindow(division, bDoppler).cRule;
            found[std::string(1, cRule) + (division.m_bStrict != 0 ? " strict" : "")] +=
                static_cast<int>(plain.size());
        }
    });
    EXPECT_EQ(found.size(), 12u);
    for (const auto& [strRule, nFound] : found)
        EXPECT_GT(nFound, 300) << strRule;
}

} // namespace
} // namespace kestrabel::test
