#include "present/map/MapWorld.h"
#include "present/scene/Picture.h"
#include "support/Random.h"

namespace kestrabel::test {
namespace {

/// What the files' lines leave when they are painted one after the other, points in their order.
CPicture PaintedOneByOne(std::span<const SMapTrack> tracks, const CMapTransform& transform)
{
    CPicture picture;
    for (const SMapTrack& track : tracks) {
        for (std::size_t i = 1; i < track.positions.size(); ++i) {
            SScenePoint from = transform.Project(track.positions[i - 1]);
            SScenePoint to = transform.Project(track.positions[i]);
            if (!CPixelCover(transform.m_rcDevice).Clip(from, to))
                continue;
            const bool bInvalid = track.pens[i] == SMapTrack::InvalidPen;
            const SScenePen pen =
                bInvalid ? SScenePen{ESceneRole::Invalid, {255, 0, 0}} : track.palette[track.pens[i]];
            Paint(picture, transform.m_rcDevice, pen, from, to);
        }
    }
    return picture;
}

struct SReduction : SMapWorld
{
    /// A rider who sails to and fro, rests, and whose logger jumps now and then.
    void AddRandomTrack(CRandom& random, int nPoints)
    {
        std::vector<CPosition> positions;
        double dLatitude = 52.0;
        double dLongitude = 5.0;
        double dHeading = 0.0;
        double dStep = 1e-5;
        for (int i = 0; i < nPoints; ++i) {
            if (random.OneIn(50))
                dStep = random.OneIn(3) ? 0.0 : random.Fraction() * 2e-4;
            dHeading += random.Fraction() - 0.5;
            dLatitude += dStep * std::cos(dHeading);
            dLongitude += dStep * std::sin(dHeading);
            positions.push_back({dLongitude, dLatitude});
            if (random.OneIn(200))
                positions.back().m_dLatitude += random.Fraction() - 0.5;
            if (random.OneIn(2000))
                positions.back() = {std::nan(""), 0.0};
        }
        CSeries& series = AddFile(positions);
        int nInvalid = 0;
        for (CTrackPoint* pPoint : series.m_points) {
            pPoint->m_dSpeed = random.Fraction() * 50.0;
            nInvalid = nInvalid > 0 ? nInvalid - 1 : random.OneIn(100) ? random.Below(5) : 0;
            if (nInvalid > 0)
                pPoint->m_nInvalidFlags = InvalidFlag::SpeedSpike;
        }
        selection.m_dViewMaxSpeed = 50.0;
    }
};

TEST_F(SReduction, NothingThatIsSeenIsLost)
{
    CRandom random(17);
    std::size_t nPlain = 0;
    std::size_t nReduced = 0;
    for (int nRound = 0; nRound < 30; ++nRound) {
        Person().m_series.RemoveAll();
        const int nFiles = 1 + random.Below(3);
        selection.m_nSeries = nFiles == 1 ? 0 : -1;
        for (int i = 0; i < nFiles; ++i)
            AddRandomTrack(random, 300 + random.Below(3000));
        const std::vector<SMapTrack> tracks = Tracks(!random.OneIn(4));
        CMapTransform transform;
        transform.SetMapping({3, 5, 60 + random.Below(200), 50 + random.Below(150)}, MapExtent(selection));
        for (int nZoom = random.Below(12); nZoom > 0; --nZoom) {
            transform.AnchorAt(
                {static_cast<double>(random.Below(200)), static_cast<double>(random.Below(150))});
            transform.ZoomIn();
        }
        selection.m_nRunCompetitor = 0;
        selection.m_nRunSeries = random.Below(nFiles);
        selection.m_nRunStart = random.Below(300);
        selection.m_nRunEnd = selection.m_nRunStart + random.Below(1000);
        const SSceneSurface surface = {transform, text};
        const SSceneArea& area = transform.m_rcDevice;

        const SSceneLayer plain = GroundLayer(surface, tracks, selection, {.bReduce = false});
        const SSceneLayer reduced = GroundLayer(surface, tracks, selection, {});
        const CPicture onTop = PaintedOneByOne(tracks, transform);
        EXPECT_EQ(Painted(plain, area), onTop) << "round " << nRound;
        EXPECT_EQ(Painted(reduced, area), onTop) << "round " << nRound;
        for (const SSceneLines& lines : plain.lines)
            nPlain += lines.Count();
        for (const SSceneLines& lines : reduced.lines)
            nReduced += lines.Count();

        EXPECT_EQ(Painted(RunLayer(surface, event, tracks, selection, {.bReduce = false}), area),
                  Painted(RunLayer(surface, event, tracks, selection, {}), area));
    }
    EXPECT_LT(nReduced * 3, nPlain) << "and it is worth it";
    EXPECT_GT(nReduced, 0U);
}

TEST_F(SReduction, BlocksOutOfViewAreSkippedBetweenLongJumps)
{
    // Between two points of the view the track is away for some blocks, and comes back by one long line.
    std::vector<CPosition> positions(1000, {.m_dLongitude = 20.0, .m_dLatitude = 20.0});
    positions[0] = {0.0, 0.0};
    positions[1] = {0.001, 0.0};
    positions[511] = {-20.0, -20.0}; // through the view, as the last point of a block
    positions[999] = {0.002, 0.001};
    AddFile(positions);
    selection.m_nSeries = 0;
    CMapTransform transform;
    transform.SetMapping({0, 0, 300, 300}, {-0.003, 0.003, 0.003, -0.003});
    const SSceneSurface surface = {transform, text};
    std::vector<SMapTrack> tracks = Tracks();
    const SSceneLayer with = GroundLayer(surface, tracks, selection, {.bReduce = false});
    tracks[0].blocks.clear();
    const SSceneLayer without = GroundLayer(surface, tracks, selection, {.bReduce = false});
    ASSERT_EQ(with.lines.size(), 1U);
    EXPECT_EQ(with.lines[0].Count(), 5U) << "two short ones, there, back and through twice";
    EXPECT_EQ(with.lines[0].ends, without.lines[0].ends);
}

} // namespace
} // namespace kestrabel::test
