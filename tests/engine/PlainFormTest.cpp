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

TEST(PlainForm, DerivationIsTheSameToTheBit)
{
    std::map<int, int> flagged;
    int nMostRuns = 0;
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SRandomEvent random(trackCase, nSeed);
        CEvent& event = random.event;
        const CPerson& person = *random.pPerson;
        CSeries& series = *random.pSeries;
        series.m_nSeriesIndex = series.m_nPersonIndex = 0;
        const std::unique_ptr<CSeries> pPlain = CopyTrack(series);
        // Again with another threshold: gap points then keep what the pass before left in them.
        for (const int nThreshold : {event.m_nTimeThreshold, 3, event.m_nTimeThreshold}) {
            event.m_nTimeThreshold = nThreshold;
            ASSERT_TRUE(CalculateTrackPoints(event, person, series, NoProgress()));
            PlainDerive(event, *pPlain);
            ASSERT_EQ(Differences(StatisticsFields(), series, *pPlain), "");
            for (int i = 0; i < series.m_points.GetCount(); ++i)
                ASSERT_EQ(Differences(PointFields(), series.m_points[i], pPlain->m_points[i]), "") << i;
        }
        for (const CTrackPoint* pPoint : series.m_points) {
            for (const auto nFlag : EveryFlag)
                flagged[nFlag] += pPoint->IsValidFor(nFlag) ? 0 : 1;
            nMostRuns = std::max({nMostRuns, pPoint->m_nRun, pPoint->m_nDopplerRun});
        }
    });
    // The tracks hold what they are meant to hold.
    for (const auto nFlag : EveryFlag)
        EXPECT_GT(flagged[nFlag], 20) << InvalidLetters(nFlag);
    EXPECT_GT(nMostRuns, 5);
}

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
                  "");
}

TEST(PlainForm, ResultsAreTheSameToTheBit)
{
    std::map<std::string, int> found; // results by rule and strictness
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SRandomEvent random(trackCase, nSeed);
        CEvent& event = random.event;
        const CPerson& person = *random.pPerson;
        CSeries& series = *random.pSeries;
        ASSERT_TRUE(CalculateTrackPoints(event, person, series, NoProgress()));
        for (int i = 0; i < 96; ++i) {
            CDivision division;
            SetCombination(division, event, i, static_cast<int>(nSeed));
            const char cRule = MakePlainWindow(division, PlainUsesDoppler(division, series)).cRule;
            SCOPED_TRACE(division.m_strName + ", rule " + cRule);
            const std::vector<CResult> plain = PlainWindowResults(event, person, series, division);
            CObjectArray<CResult> results;
            ASSERT_TRUE(CalculateWindowResults(event, person, series, division, results, NoProgress()));
            ASSERT_NO_FATAL_FAILURE(ExpectSameResults(results, plain));
            CResultList combined;
            ASSERT_TRUE(CalculateSeriesResults(event, person, 0, division, combined, NoProgress()));
            ASSERT_NO_FATAL_FAILURE(
                ExpectSameResults(combined, PlainCombined(plain, division.m_nAverageRuns)));
            found[cRule + std::string(division.m_bStrict != 0 ? " strict" : "")] += results.GetCount();
        }
    });
    EXPECT_EQ(found.size(), 12u);
    for (const auto& [strRule, nFound] : found)
        EXPECT_GT(nFound, 300) << strRule;
}

} // namespace
} // namespace kestrabel::test
