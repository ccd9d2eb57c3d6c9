#include "present/graph/CurveLines.h"

#include "present/graph/GraphWorld.h"
#include "present/scene/Picture.h"
#include "support/Random.h"

namespace kestrabel::test {
namespace {

struct SCurveReduction : SGraphWorld
{
    /// A rider with runs, rests and pauses of the logger, whose fixes are bad now and then.
    void AddRandomTrack(CRandom& random, int nPoints, double dFirstSecond)
    {
        std::vector<double> speeds;
        double dSpeed = 20.0;
        const double dNoise = random.Fraction() * 10.0;
        for (int i = 0; i < nPoints; ++i) {
            dSpeed = std::clamp(dSpeed + (random.Fraction() - 0.5) * dNoise, 0.0, 90.0);
            const bool bSpike = random.OneIn(300);
            speeds.push_back(bSpike ? 1e9 : dSpeed);
        }
        CSeries& series = AddSpeeds(speeds, dFirstSecond);
        int nInvalid = 0;
        const int nSpan = 1 + random.Below(6);
        for (CTrackPoint* pPoint : series.m_points) {
            pPoint->m_dUSOG = random.OneIn(400) ? std::nan("") : pPoint->m_dSpeed - 3.0;
            pPoint->m_dVertSpeed = 5.0 * (random.Fraction() - 0.5);
            nInvalid = nInvalid > 0 ? nInvalid - 1 : random.OneIn(10) ? random.Below(nSpan) : 0;
            if (nInvalid > 0)
                pPoint->m_nInvalidFlags = InvalidFlag::Hdop;
            if (random.OneIn(200))
                pPoint->m_dDeltaTime = 300.0 * DaysPerSecond;
        }
    }
};

std::size_t LineCount(const SSceneLayer& layer)
{
    std::size_t nCount = 0;
    for (const SSceneLines& lines : layer.lines)
        nCount += lines.Count();
    return nCount;
}

TEST_F(SCurveReduction, NothingThatIsSeenIsLost)
{
    CRandom random(29);
    std::size_t nPlain = 0;
    std::size_t nReduced = 0;
    const CGridFields fields =
        GraphFields({EGraphField::Speed, EGraphField::UnfilteredDoppler, EGraphField::Vmg,
                     EGraphField::SmoothedSpeed, EGraphField::MergedDoppler});
    for (int nRound = 0; nRound < 40; ++nRound) {
        Person().m_series.RemoveAll();
        for (int nFile = 1 + random.Below(3); nFile > 0; --nFile)
            AddRandomTrack(random, 100 + random.Below(4000), 0.3 * nFile);
        layout.area = {0, 0, 100 + random.Below(200), 60 + random.Below(100)};
        layout.plot = {20, 7, layout.area.nRight, layout.area.nBottom - 14};
        layout.dSpeedPerLine = 10.0;
        const int nCount = selection.GetSeriesPoints(selection.m_nSeries).GetCount();
        transform.SetMapping(layout.plot, {0.0, 80.0, nCount - 1.0, 0.0});
        transform.m_dZoomStep = 1.7;
        for (int nZoom = random.Below(14); nZoom > 0; --nZoom) {
            transform.AnchorAt({20.0 + random.Below(80), 30.0});
            transform.ZoomIn();
        }
        const SSceneSurface scene = {transform, text};
        const std::vector<SGraphTrack> tracks = MakeGraphTracks(event, selection, fields);
        const SSceneLayer plain = GraphCurveLayer({scene, layout, false}, tracks, false);
        const SSceneLayer reduced = GraphCurveLayer({scene, layout, true}, tracks, false);
        EXPECT_EQ(Painted(reduced, layout.area), Painted(plain, layout.area)) << "round " << nRound;
        nPlain += LineCount(plain);
        nReduced += LineCount(reduced);
    }
    EXPECT_LT(nReduced * 2, nPlain) << "and it is worth it";
    EXPECT_GT(nReduced, 0U);
}

TEST_F(SCurveReduction, AColumnIsOneLineForEachStretchThatIsSeen)
{
    const SScenePen valid = {ESceneRole::Data, {0, 0, 255}};
    const SScenePen invalid = {ESceneRole::Invalid, {255, 0, 0}};
    const struct
    {
        const char* pWhat;
        std::vector<std::pair<double, bool>> points; ///< y, and whether it is invalid; nan: a gap
        std::string strLines;
    } cases[] = {
        {"a peak", {{50, false}, {10, false}, {80, false}, {60, false}}, "0000ff 5,10 5,80;\n"},
        {"a red stretch on top",
         {{50, false}, {10, false}, {20, true}, {30, true}},
         "0000ff 5,10 5,50;\nff0000 5,10 5,30;\n"},
        {"a red stretch beneath what follows",
         {{50, false}, {40, true}, {50, true}, {30, false}, {60, false}},
         "0000ff 5,30 5,60;\n"},
        {"two parts",
         {{50, false}, {40, false}, {std::nan(""), false}, {20, false}, {10, false}},
         "0000ff 5,40 5,50; 5,10 5,20;\n"},
    };
    for (const auto& [pWhat, points, strLines] : cases) {
        SSceneLayer layer;
        {
            CCurveLines lines({0, 0, 10, 100}, {0, 0, 10, 100}, true, layer);
            bool bFrom = false;
            double dX = 4.6;
            for (const auto& [dY, bInvalid] : points) {
                dX += 0.1;
                if (bFrom && !std::isnan(dY))
                    lines.LineTo({dX, dY}, bInvalid ? invalid : valid);
                else if (!std::isnan(dY))
                    lines.MoveTo({dX, dY});
                bFrom = !std::isnan(dY);
            }
        }
        EXPECT_EQ(CurvesText(layer), strLines) << pWhat;
    }
}

} // namespace
} // namespace kestrabel::test
