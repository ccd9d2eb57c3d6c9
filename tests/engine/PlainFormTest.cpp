#include "engine/AlphaResults.h"
#include "engine/Compare.h"
#include "engine/DistanceTimeResults.h"
#include "engine/LapResults.h"
#include "engine/PlainDerivation.h"
#include "engine/PlainKinds.h"
#include "engine/PlainWindows.h"
#include "engine/RandomTrack.h"
#include "engine/SeriesResults.h"
#include "engine/SplitResults.h"
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
            ASSERT_EQ(Difference(series, *pPlain), NoDifference);
            for (int i = 0; i < series.m_points.GetCount(); ++i)
                ASSERT_EQ(Difference(series.m_points[i], pPlain->m_points[i]), NoDifference) << i;
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
        ASSERT_EQ(Difference(results[i], plain[static_cast<std::size_t>(i)]), NoDifference) << i;
}

TEST(PlainForm, WindowsAreTheSameToTheBit)
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
            const SPlainSearch search{event, person, series, division};
            const char cRule = MakePlainWindow(division, search.bDoppler).cRule;
            SCOPED_TRACE(division.m_strName + ", rule " + cRule);
            const std::vector<CResult> plain = PlainWindowResults(search);
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

/// A random track whose rider also goes forth and back, derived.
struct SKindsEvent : SRandomEvent
{
    SKindsEvent(const STrackCase& trackCase, std::uint64_t nSeed) : SRandomEvent(trackCase, nSeed)
    {
        event.m_dTrackpointError = random.OneOf({0.0, 0.003});
        pSeries->m_dTrackError = random.OneOf({0.0, 0.0, 4.0});
        event.m_ellipsoid.SetEllipsoid(random.OneOf({1, 1, 5}), 0.0, 0.0);
        if (random.Chance(0.5))
            Fold();
        if (random.Chance(0.5))
            Constrain();
        CalculateTrackPoints(event, *pPerson, *pSeries, NoProgress());
    }

    /// The second half of the track goes back along the first one, some metres beside it.
    void Fold()
    {
        const CPoints& points = pSeries->m_points;
        const int nCount = points.GetCount();
        const double dAside = random.Between(-0.0004, 0.0004);
        for (int i = nCount / 2; i < nCount; ++i) {
            const CPosition& there = points[nCount - 1 - i].m_position;
            if (points[i].HasPosition() && points[nCount - 1 - i].HasPosition())
                points[i].m_position = MakePosition(there.m_dLatitude + dAside, there.m_dLongitude - dAside);
        }
    }

    void Constrain()
    {
        const CPoints& points = pSeries->m_points;
        event.m_bConstrainDates = random.Below(2);
        event.m_dateStart = points[points.GetCount() / 20].m_time;
        event.m_dateEnd = points[points.GetCount() - 1 - points.GetCount() / 20].m_time;
        event.m_bConstrainRegion = random.Below(2);
        const CPosition& middle = points[points.GetCount() / 2].m_position;
        event.m_posNorthWest = MakePosition(middle.m_dLatitude + 0.03, middle.m_dLongitude - 0.003);
        event.m_posSouthEast = MakePosition(middle.m_dLatitude - 0.03, middle.m_dLongitude + 0.03);
    }

    void SetDivision(CDivision& division, std::uint8_t nKind, int nVariant)
    {
        division.m_strName = "Division " + std::to_string(nVariant) + " of kind " + std::to_string(nKind);
        division.m_nKind = nKind;
        division.m_nCalcUsing = static_cast<std::uint8_t>(nVariant % 3);
        division.m_bStrict = nVariant % 2;
        division.m_nAverageRuns = random.OneOf<std::uint8_t>({1, 1, 3, 12});
        division.m_dProximity = random.OneOf({0.05, 0.02, 0.15, 0.4, 0.003, 0.0});
        division.m_dMetres = nKind == DivisionKind::Splits ? random.OneOf({500.0, 20.0, 100.0, 0.0})
                                                           : random.OneOf({500.0, 2000.0, 10000.0});
        event.m_nShowTopRows = random.OneOf({1, 10, 400});
        AddGates(nKind == DivisionKind::CheckPoints ? pSeries->m_waypoints : division.m_waypoints);
    }

    /// Near the track, and now and then on a fix of it.
    void AddGates(CObjectArray<CWayPoint>& gates)
    {
        gates.RemoveAll();
        for (int i = random.Below(4); i >= 0; --i) {
            CWayPoint& gate = gates.Add(std::make_unique<CWayPoint>());
            gate.m_position = pSeries->m_points[random.Below(pSeries->m_points.GetCount())].m_position;
            if (random.Chance(0.8))
                gate.m_position.m_dLatitude += random.Between(-0.0003, 0.0003);
            gate.m_dProximity = random.OneOf({0.005, 0.02, 0.06, 0.0});
        }
    }
};

TEST(PlainForm, OtherKindsAreTheSameToTheBit)
{
    struct SKind
    {
        std::uint8_t nKind;
        decltype(&CalculateAlphaResults) pCalculate;
        std::vector<CResult> (*pPlain)(const SPlainSearch&);
        int nFewest; ///< results that the tracks must give
    };
    const SKind kinds[] = {
        {DivisionKind::AlphaRacing, CalculateAlphaResults, PlainAlphas, 400},
        {DivisionKind::LapRacing, CalculateLapResults,
         [](const SPlainSearch& search) { return PlainLaps(search, search.division.m_waypoints); }, 500},
        {DivisionKind::CheckPoints, CalculateCheckpointResults,
         [](const SPlainSearch& search) { return PlainLaps(search, search.series.m_waypoints); }, 500},
        {DivisionKind::Splits, CalculateSplitResults, PlainSplits, 1000}};
    for (const SKind& kind : kinds) {
        int nFound = 0;
        for (std::uint64_t nRound = 0; nRound < 6; ++nRound) {
            ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
                SKindsEvent random(trackCase, nSeed + 10000 * nRound);
                for (int nVariant = 0; nVariant < 6; ++nVariant) {
                    CDivision division;
                    random.SetDivision(division, kind.nKind, nVariant);
                    SCOPED_TRACE(division.m_strName);
                    const std::vector<CResult> plain =
                        kind.pPlain({random.event, *random.pPerson, *random.pSeries, division});
                    CObjectArray<CResult> results;
                    kind.pCalculate(random.event, *random.pPerson, *random.pSeries, division, results,
                                    NoProgress());
                    ASSERT_NO_FATAL_FAILURE(ExpectSameResults(results, plain));
                    nFound += results.GetCount();
                    // The record of the file holds them by speed, or the average of the fastest.
                    std::vector<CResult> inOrder;
                    for (const CResult& result : plain)
                        PlainInsert(inOrder, result);
                    CResultList record;
                    CalculateSeriesResults(random.event, *random.pPerson, 0, division, record, NoProgress());
                    ASSERT_NO_FATAL_FAILURE(
                        ExpectSameResults(record, PlainCombined(inOrder, division.m_nAverageRuns)));
                }
            });
        }
        EXPECT_GT(nFound, kind.nFewest);
    }
}

} // namespace
} // namespace kestrabel::test
