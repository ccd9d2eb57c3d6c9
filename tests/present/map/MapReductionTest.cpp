#include "present/map/MapCover.h"
#include "present/map/MapWorld.h"
#include "support/Random.h"

#include <map>
#include <set>

namespace kestrabel::test {
namespace {

TEST(MapCover, LinesAreCutToTheBox)
{
    const double dFar = 1e9;
    const struct
    {
        SMapPoint from;
        SMapPoint to;
        bool bSeen;
        SMapPoint cutFrom = {};
        SMapPoint cutTo = {};
    } cases[] = {
        {{10, 10}, {90, 40}, true, {10, 10}, {90, 40}},
        {{-50, 25}, {150, 25}, true, {0, 25}, {100, 25}},
        {{150, 75}, {50, 25}, true, {100, 50}, {50, 25}},
        {{-10, 40}, {20, 60}, true, {0, 140.0 / 3.0}, {5, 50}},
        {{-10, 30}, {-5, 20}, false},
        {{-10, 45}, {10, 60}, false}, // past a corner
        {{100, 50}, {120, 70}, true, {100, 50}, {100, 50}},
        {{30, -5}, {30, 55}, true, {30, 0}, {30, 50}},
        {{-5, 10}, {-5, 20}, false},
        {{20, 20}, {20, 20}, true, {20, 20}, {20, 20}},
        {{-dFar, 25}, {dFar, 25}, true, {0, 25}, {100, 25}},
        {{std::nan(""), 10}, {20, 20}, false},
        {{10, 10}, {HUGE_VAL, 10}, false},
    };
    for (const auto& [from, to, bSeen, cutFrom, cutTo] : cases) {
        for (const bool bTurned : {false, true}) {
            SMapPoint one = bTurned ? to : from;
            SMapPoint other = bTurned ? from : to;
            ASSERT_EQ(ClipLine(0, 0, 100, 50, one, other), bSeen) << from.dX << "," << from.dY;
            if (!bSeen)
                continue;
            const SMapPoint& first = bTurned ? other : one;
            const SMapPoint& last = bTurned ? one : other;
            EXPECT_NEAR(first.dX, cutFrom.dX, 1e-6);
            EXPECT_NEAR(first.dY, cutFrom.dY, 1e-9);
            EXPECT_NEAR(last.dX, cutTo.dX, 1e-6);
            EXPECT_NEAR(last.dY, cutTo.dY, 1e-9);
        }
    }
    // What a damaged file gives still ends within.
    SMapPoint from = {-1e300, -1e300};
    SMapPoint to = {1e300, 1.5e300};
    if (ClipLine(0, 0, 100, 50, from, to)) {
        for (const SMapPoint& end : {from, to})
            EXPECT_TRUE(end.dX >= 0 && end.dX <= 100 && end.dY >= 0 && end.dY <= 50);
    }
}

TEST(MapCover, ALineClaimsEveryPixelOnce)
{
    CMapCover cover({0, 0, 20, 10});
    EXPECT_TRUE(cover.Claim(2, 3, 12, 7));
    EXPECT_FALSE(cover.Claim(2, 3, 12, 7));
    EXPECT_FALSE(cover.Claim(7, 5, 7, 5)) << "in the middle of it";
    EXPECT_TRUE(cover.Claim(7, 5, 7, 6)) << "one of two is new";
    EXPECT_TRUE(cover.Claim(cover.Left(), cover.Top(), cover.Right(), cover.Bottom()));
    EXPECT_FALSE(cover.Claim(cover.Right(), cover.Bottom(), cover.Right(), cover.Bottom()));
    EXPECT_TRUE(cover.Claim(cover.Left(), cover.Bottom(), cover.Left(), cover.Bottom()));
    EXPECT_TRUE(cover.Claim(cover.Right(), cover.Top(), cover.Right(), cover.Top()));
    cover.Clear();
    EXPECT_TRUE(cover.Claim(7, 5, 7, 5));
}

/// A picture as a widget without smoothing paints it: which pixels each pen reaches.
using CPicture = std::map<std::pair<int, int>, std::set<std::tuple<int, int, int>>>;

std::tuple<int, int, int> ColorOf(const SMapPen& pen)
{
    return {pen.color.nRed, pen.color.nGreen, pen.color.nBlue};
}

void Paint(CPicture& picture, const SMapArea& area, const SMapPen& pen, const SMapPoint& from,
           const SMapPoint& to)
{
    const auto pixel = [](double dPlace) { return static_cast<int>(std::floor(dPlace + 0.5)); };
    CMapCover::ForEachPixel(pixel(from.dX), pixel(from.dY), pixel(to.dX), pixel(to.dY), [&](int nX, int nY) {
        if (nX >= area.nLeft && nX < area.nRight && nY >= area.nTop && nY < area.nBottom)
            picture[{nX, nY}].insert(ColorOf(pen));
    });
}

CPicture Painted(const SMapLayer& layer, const SMapArea& area)
{
    CPicture picture;
    for (const SMapLines& lines : layer.lines) {
        for (std::size_t i = 0; i + 1 < lines.ends.size(); i += 2)
            Paint(picture, area, lines.pen, lines.ends[i], lines.ends[i + 1]);
    }
    for (const SMapPolyline& line : layer.polylines) {
        for (std::size_t i = 1; i < line.points.size(); ++i)
            Paint(picture, area, line.pen, line.points[i], line.points[i - 1]);
    }
    return picture;
}

/// The colour on top of each pixel when the files' lines are painted one after the other: points in their
/// order, then each file's invalid stretches.
std::map<std::pair<int, int>, std::tuple<int, int, int>> OnTop(std::span<const SMapTrack> tracks,
                                                               const CMapTransform& transform)
{
    std::map<std::pair<int, int>, std::tuple<int, int, int>> top;
    for (const SMapTrack& track : tracks) {
        for (const bool bInvalid : {false, true}) {
            for (std::size_t i = 1; i < track.positions.size(); ++i) {
                if ((track.pens[i] == SMapTrack::InvalidPen) != bInvalid)
                    continue;
                SMapPoint from = transform.Project(track.positions[i - 1]);
                SMapPoint to = transform.Project(track.positions[i]);
                if (!CMapCover(transform.m_rcDevice).Clip(from, to))
                    continue;
                CPicture line;
                const SMapPen pen =
                    bInvalid ? SMapPen{EMapRole::Invalid, {255, 0, 0}} : track.palette[track.pens[i]];
                Paint(line, transform.m_rcDevice, pen, from, to);
                for (const auto& [pixel, colors] : line)
                    top[pixel] = *colors.begin();
            }
        }
    }
    return top;
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
        const SMapSurface surface = {transform, text};
        const SMapArea& area = transform.m_rcDevice;

        const SMapLayer plain = GroundLayer(surface, tracks, selection, {.bReduce = false});
        const SMapLayer reduced = GroundLayer(surface, tracks, selection, {});
        const CPicture all = Painted(plain, area);
        CPicture seen = Painted(reduced, area);
        EXPECT_EQ(all.size(), seen.size()) << "pixels of round " << nRound;
        for (const auto& [pixel, colors] : seen)
            EXPECT_TRUE(std::ranges::includes(all.at(pixel), colors)) << "nothing is made up";
        for (const auto& [pixel, color] : OnTop(tracks, transform))
            ASSERT_TRUE(seen[pixel].contains(color)) << pixel.first << "," << pixel.second;
        for (const SMapLines& lines : plain.lines)
            nPlain += lines.Count();
        for (const SMapLines& lines : reduced.lines)
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
    const SMapSurface surface = {transform, text};
    std::vector<SMapTrack> tracks = Tracks();
    const SMapLayer with = GroundLayer(surface, tracks, selection, {.bReduce = false});
    tracks[0].blocks.clear();
    const SMapLayer without = GroundLayer(surface, tracks, selection, {.bReduce = false});
    ASSERT_EQ(with.lines.size(), 1U);
    EXPECT_EQ(with.lines[0].Count(), 5U) << "two short ones, there, back and through twice";
    EXPECT_EQ(with.lines[0].ends, without.lines[0].ends);
}

} // namespace
} // namespace kestrabel::test
