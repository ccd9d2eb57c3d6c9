#include "present/graph/GraphData.h"

#include "present/graph/GraphWorld.h"
#include "support/Random.h"

namespace kestrabel::test {
namespace {

using testing::ElementsAre;

struct SGraphData : SGraphWorld
{
    std::vector<SGraphTrack> TracksOf(std::initializer_list<EGraphField> shown)
    {
        return MakeGraphTracks(event, selection, GraphFields(shown));
    }
};

TEST_F(SGraphData, EachSeriesHasItsValuesInTheDisplayedUnit)
{
    CTrackPoint& point = AddSpeeds({18.52}).m_points[0];
    Series(0).m_bHasDoppler = 1;
    point.m_dDoppler = 37.04;
    point.m_dUSOG = 9.26;
    point.m_dVertSpeed = -1.852;
    point.m_nAltitude = -3;
    point.m_dHDOP = 1.5;
    point.m_nSats = 9;
    const struct
    {
        EGraphField field;
        float fKnots;
    } cases[] = {{EGraphField::Speed, 10.0F},         {EGraphField::Doppler, 20.0F},
                 {EGraphField::Vmg, -1.0F},           {EGraphField::Altitude, -3.0F},
                 {EGraphField::Hdop, 1.5F},           {EGraphField::Sats, 9.0F},
                 {EGraphField::SmoothedSpeed, 10.0F}, {EGraphField::UnfilteredDoppler, 5.0F},
                 {EGraphField::MergedDoppler, 20.0F}};
    event.m_nSpeedUnits = SpeedUnit::Knots;
    for (const auto& [field, fKnots] : cases) {
        const std::vector<SGraphTrack> tracks = TracksOf({field});
        const SGraphTrack& track = field == EGraphField::MergedDoppler ? tracks.at(1) : tracks.at(0);
        ASSERT_EQ(track.curves.size(), 1U) << static_cast<int>(field);
        EXPECT_FLOAT_EQ(track.curves[0].values.at(0), fKnots) << static_cast<int>(field);
    }
    // A logger that never told a Doppler speed would have a line at 0.
    Series(0).m_bHasDoppler = 0;
    EXPECT_TRUE(TracksOf({EGraphField::Doppler}).at(0).curves.empty());
    EXPECT_EQ(TracksOf({EGraphField::MergedDoppler}).at(1).curves.size(), 1U);
}

TEST_F(SGraphData, FilesKeepTheirPlacesInTheMergedList)
{
    AddSpeeds({1.0, 2.0, 3.0});
    AddSpeeds({10.0, 20.0}, 0.5);
    const std::vector<SGraphTrack> tracks = TracksOf({EGraphField::Speed, EGraphField::MergedDoppler});
    ASSERT_EQ(tracks.size(), 3U);
    EXPECT_THAT(tracks[0].entries, ElementsAre(0, 2, 4));
    EXPECT_THAT(tracks[0].curves.at(0).values, ElementsAre(1.0F, 2.0F, 3.0F));
    EXPECT_THAT(tracks[1].entries, ElementsAre(1, 3));
    EXPECT_THAT(tracks[1].curves.at(0).values, ElementsAre(10.0F, 20.0F));
    EXPECT_TRUE(tracks[2].entries.empty()) << "the list itself";
    EXPECT_EQ(tracks[2].Count(), 5);

    selection.m_nSeries = 1;
    EXPECT_EQ(TracksOf({EGraphField::Speed}).size(), 1U);
    EXPECT_THAT(TracksOf({EGraphField::Speed})[0].curves.at(0).values, ElementsAre(10.0F, 20.0F));
    selection.m_nCompetitor = -1;
    EXPECT_TRUE(TracksOf({EGraphField::Speed}).empty());
}

TEST_F(SGraphData, GapsAreThoseOfTheFileAndOfTheMergedList)
{
    event.m_nTimeThreshold = 10;
    // The first logger pauses for 20 seconds, in which the second one goes on.
    AddSpeeds({1.0, 2.0});
    Series(0).m_points[1].m_time = Series(0).m_points[0].m_time.Plus(20.0 * DaysPerSecond);
    AddSpeeds({1.0, 1.0, 1.0}, 6.0);
    Series(1).m_points[1].m_dDeltaTime = 12.0 * DaysPerSecond; // as stored by a download program
    const std::vector<SGraphTrack> tracks = TracksOf({EGraphField::Speed, EGraphField::MergedDoppler});
    constexpr std::uint8_t Gap = SGraphTrack::StartsGapMark;
    EXPECT_THAT(tracks[0].invalid, ElementsAre(0, Gap));
    EXPECT_THAT(tracks[1].invalid, ElementsAre(0, Gap, 0));
    EXPECT_THAT(tracks[2].invalid, ElementsAre(0, 0, Gap, 0, Gap)) << "8 s to the last: 20 - 8 = 12 s";
}

TEST_F(SGraphData, TheMeanLeavesOutWhatIsInvalid)
{
    AddSpeeds({10.0, 20.0, 30.0, 40.0, 50.0, 60.0});
    const CObjectArray<CTrackPoint>& points = Series(0).m_points;
    EXPECT_THAT(SmoothedSpeeds(points, 1), ElementsAre(10.0, 20.0, 30.0, 40.0, 50.0, 60.0));
    EXPECT_THAT(SmoothedSpeeds(points, 5), ElementsAre(20.0, 25.0, 30.0, 40.0, 45.0, 50.0));
    EXPECT_THAT(SmoothedSpeeds(points, 4), ElementsAre(15.0, 20.0, 25.0, 35.0, 45.0, 50.0));
    EXPECT_THAT(SmoothedSpeeds(points, 2147483647), testing::Each(35.0));
    Series(0).m_points[2].m_nInvalidFlags = InvalidFlag::Hdop;
    Series(0).m_points[3].m_nInvalidFlags = InvalidFlag::SpeedSpike; // counts: a spike is what it smooths
    EXPECT_THAT(SmoothedSpeeds(points, 3), ElementsAre(15.0, 15.0, 30.0, 45.0, 50.0, 55.0));
    for (CTrackPoint* pPoint : Series(0).m_points)
        pPoint->m_nInvalidFlags = InvalidFlag::User;
    EXPECT_THAT(SmoothedSpeeds(points, 3), testing::Each(0.0));
    EXPECT_TRUE(SmoothedSpeeds(CObjectArray<CTrackPoint>(), 3).empty());
}

TEST_F(SGraphData, TheRunningMeanIsThePlainOne)
{
    CRandom random(3);
    std::vector<double> speeds;
    for (int i = 0; i < 500; ++i)
        speeds.push_back(random.OneIn(50) ? 7e10 * random.Fraction() : 60.0 * random.Fraction());
    CSeries& series = AddSpeeds(speeds);
    for (CTrackPoint* pPoint : series.m_points)
        pPoint->m_nInvalidFlags = random.OneIn(3) ? InvalidFlag::Satellites : std::uint8_t{0};
    for (const int nCount : {2, 3, 7, 20}) {
        const CLargeVector<double> means = SmoothedSpeeds(series.m_points, nCount);
        for (int i = 0; i < 500; ++i) {
            double dSum = 0.0;
            int nValid = 0;
            for (int j = std::max(i - nCount / 2, 0); j < std::min(i + (nCount + 1) / 2, 500); ++j) {
                if (series.m_points[j].IsValidFor(InvalidMask::Fix)) {
                    dSum += series.m_points[j].m_dSpeed;
                    ++nValid;
                }
            }
            const double dMean = nValid > 0 ? dSum / nValid : 0.0;
            // What is left of the highest spike in a sum of doubles; far below a pixel.
            ASSERT_NEAR(means[static_cast<std::size_t>(i)], dMean, 1e-3) << i << " of " << nCount;
        }
    }
}

} // namespace
} // namespace kestrabel::test
