#include "engine/PlainKinds.h"
#include "engine/AlphaResults.h"
#include "engine/Compare.h"
#include "engine/LapResults.h"
#include "engine/RandomEvent.h"
#include "engine/SeriesResults.h"
#include "engine/SplitResults.h"
#include "engine/TrackPointDerivation.h"

#include <algorithm>
#include <gtest/gtest.h>

// Alphas, laps and splits against the plain form of their rules, over random tracks: every field to the bit.

namespace kestrabel::test {
namespace {

using CPlainResults = std::vector<std::unique_ptr<CResult>>;

void ExpectSame(const CObjectArray<CResult>& results, const CPlainResults& plain)
{
    ASSERT_EQ(results.GetCount(), static_cast<int>(plain.size()));
    for (int i = 0; i < results.GetCount(); ++i) {
        const CResult& expected = *plain[static_cast<std::size_t>(i)];
        ASSERT_EQ(Differences<SResultValues>(ResultFields(), results[i], expected), "") << "result " << i;
        ASSERT_EQ(results[i].m_strWaypoint, expected.m_strWaypoint);
    }
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
        division.m_strName = "Division " + std::to_string(nVariant);
        division.m_nKind = nKind;
        division.m_nCalcUsing = static_cast<std::uint8_t>(nVariant % 3);
        division.m_bStrict = nVariant % 2;
        division.m_nAverageRuns = random.OneOf<std::uint8_t>({1, 1, 3, 12});
        event.m_nShowTopRows = random.OneOf({1, 10, 400});
    }
};

TEST(PlainKinds, AlphasAreTheSameToTheBit)
{
    int nFound = 0;
    int nTracksWithSome = 0;
    for (int nRound = 0; nRound < 6; ++nRound) {
        ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
            SKindsEvent random(trackCase, nSeed + 10000u * static_cast<std::uint64_t>(nRound));
            int nOfTrack = 0;
            for (int nVariant = 0; nVariant < 6; ++nVariant) {
                CDivision division;
                random.SetDivision(division, DivisionKind::AlphaRacing, nVariant);
                division.m_dProximity = random.random.OneOf({0.05, 0.02, 0.15, 0.4, 0.003, 0.0});
                division.m_dMetres = random.random.OneOf({500.0, 2000.0, 10000.0});
                SCOPED_TRACE("variant " + std::to_string(nVariant) + " proximity " +
                             std::to_string(division.m_dProximity));
                CObjectArray<CResult> results;
                CalculateAlphaResults(random.event, *random.pPerson, *random.pSeries, division, results,
                                      NoProgress());
                const CPlainResults plain =
                    PlainAlphas(random.event, *random.pPerson, *random.pSeries, division);
                ASSERT_NO_FATAL_FAILURE(ExpectSame(results, plain));
                nOfTrack += results.GetCount();
            }
            nFound += nOfTrack;
            nTracksWithSome += nOfTrack > 0 ? 1 : 0;
        });
    }
    EXPECT_GT(nFound, 400);
    EXPECT_GT(nTracksWithSome, 50);
}

TEST(PlainKinds, LapsAreTheSameToTheBit)
{
    int nFound = 0;
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SKindsEvent random(trackCase, nSeed);
        const CPoints& points = random.pSeries->m_points;
        for (int nVariant = 0; nVariant < 12; ++nVariant) {
            CDivision division;
            random.SetDivision(division, DivisionKind::LapRacing, nVariant);
            division.m_nAverageRuns = 1;
            random.pSeries->m_waypoints.RemoveAll();
            const int nGates = 1 + random.random.Below(4);
            for (int i = 0; i < nGates; ++i) {
                // Near the track, and now and then on a fix of it.
                CWayPoint& gate = division.m_waypoints.Add(std::make_unique<CWayPoint>());
                gate.m_strName = std::string("G\xC3\xBCt te\xC3\xA4\xE2\x82\xACne lang") + std::to_string(i);
                gate.m_position = points[random.random.Below(points.GetCount())].m_position;
                if (random.random.Chance(0.8))
                    gate.m_position.m_dLatitude += random.random.Between(-0.0003, 0.0003);
                gate.m_dProximity = random.random.OneOf({0.005, 0.02, 0.06, 0.0});
                random.pSeries->m_waypoints.Add(std::make_unique<CWayPoint>(gate));
            }
            SCOPED_TRACE("variant " + std::to_string(nVariant));
            const CPlainResults plain =
                PlainLaps(random.event, *random.pPerson, *random.pSeries, division, division.m_waypoints);
            CObjectArray<CResult> results;
            ASSERT_TRUE(CalculateLapResults(random.event, *random.pPerson, *random.pSeries, division, results,
                                            NoProgress()));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(results, plain));
            division.m_waypoints.RemoveAll();
            results.RemoveAll();
            ASSERT_TRUE(CalculateCheckpointResults(random.event, *random.pPerson, *random.pSeries, division,
                                                   results, NoProgress()));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(results, plain));
            nFound += results.GetCount();
        }
    });
    EXPECT_GT(nFound, 500);
}

TEST(PlainKinds, SplitsAreTheSameToTheBit)
{
    int nFound = 0;
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SKindsEvent random(trackCase, nSeed);
        for (int nVariant = 0; nVariant < 12; ++nVariant) {
            CDivision division;
            random.SetDivision(division, DivisionKind::Splits, nVariant);
            division.m_dMetres = random.random.OneOf({500.0, 20.0, 100.0, 0.0});
            CObjectArray<CResult> results;
            ASSERT_TRUE(CalculateSplitResults(random.event, *random.pPerson, *random.pSeries, division,
                                              results, NoProgress()));
            const CPlainResults plain = PlainSplits(random.event, *random.pPerson, *random.pSeries, division);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(results, plain));
            nFound += results.GetCount();
        }
    });
    EXPECT_GT(nFound, 1000);
}

/// The record of a track file holds what the calculator of the division's kind found, or the average of it.
TEST(PlainKinds, RecordsHoldTheAverageOfTheFastest)
{
    ForEachTrack([&](const STrackCase& trackCase, std::uint64_t nSeed) {
        SKindsEvent random(trackCase, nSeed);
        for (const std::uint8_t nKind : {DivisionKind::AlphaRacing, DivisionKind::LapRacing,
                                         DivisionKind::Splits, DivisionKind::CheckPoints})
        {
            for (int nVariant = 0; nVariant < 3; ++nVariant) {
                CDivision division;
                random.SetDivision(division, nKind, nVariant);
                division.m_strName += " of kind " + std::to_string(nKind);
                division.m_dProximity = 0.1;
                division.m_dMetres = nKind == DivisionKind::Splits ? 50.0 : 2000.0;
                random.pSeries->m_waypoints.RemoveAll();
                for (const double dPart : {0.1, 0.4}) {
                    const CPoints& points = random.pSeries->m_points;
                    CWayPoint& gate = division.m_waypoints.Add(std::make_unique<CWayPoint>());
                    gate.m_position = points[static_cast<int>(dPart * points.GetCount())].m_position;
                    gate.m_dProximity = 0.02;
                    random.pSeries->m_waypoints.Add(std::make_unique<CWayPoint>(gate));
                }
                CPlainResults plain;
                if (nKind == DivisionKind::AlphaRacing)
                    plain = PlainAlphas(random.event, *random.pPerson, *random.pSeries, division);
                else if (nKind == DivisionKind::Splits)
                    plain = PlainSplits(random.event, *random.pPerson, *random.pSeries, division);
                else
                    plain = PlainLaps(random.event, *random.pPerson, *random.pSeries, division,
                                      division.m_waypoints);
                std::vector<CResult> inOrder;
                for (const auto& pResult : plain)
                    PlainInsert(inOrder, *pResult);
                const std::vector<CResult> expected = PlainCombined(inOrder, division.m_nAverageRuns);
                CResultList results;
                ASSERT_TRUE(CalculateSeriesResults(random.event, *random.pPerson, 0, division, results,
                                                   NoProgress()));
                ASSERT_EQ(results.GetCount(), static_cast<int>(expected.size()));
                for (int i = 0; i < results.GetCount(); ++i)
                    ASSERT_EQ(Differences<SResultValues>(ResultFields(), results[i],
                                                         expected[static_cast<std::size_t>(i)]),
                              "");
            }
        }
    });
}

} // namespace
} // namespace kestrabel::test
