#include "present/graph/GraphLayers.h"

#include "present/graph/GraphWorld.h"

namespace kestrabel::test {
namespace {

struct SGraphLayersTest : SGraphWorld
{
    /// The band of the picked run as "from-to", for the whole of what is shown on ten pixels per point.
    std::string Band(int nStart, int nEnd)
    {
        Curves({});
        selection.m_nRunCompetitor = 0;
        selection.m_nRunStart = nStart;
        selection.m_nRunEnd = nEnd;
        const SSceneSurface scene = {transform, text};
        const SSceneLayer layer = GraphRunLayer({scene, layout}, selection);
        if (layer.bands.empty())
            return "";
        EXPECT_EQ(layer.bands.size(), 1U);
        EXPECT_EQ(layer.bands[0].from.dY, 0.0);
        EXPECT_EQ(layer.bands[0].to.dY, 100.0);
        return FormatNumber(layer.bands[0].from.dX, 0, true) + "-" +
               FormatNumber(layer.bands[0].to.dX, 0, true);
    }
};

TEST_F(SGraphLayersTest, EverySeriesHasItsColourPlaceAndMask)
{
    AddSpeeds({10.0, 20.0});
    Series(0).m_bHasDoppler = 1;
    for (CTrackPoint* pPoint : Series(0).m_points) {
        pPoint->m_dDoppler = pPoint->m_dUSOG = pPoint->m_dVertSpeed = pPoint->m_dSpeed;
        pPoint->m_nAltitude = pPoint->m_nSats = static_cast<int>(pPoint->m_dSpeed);
        pPoint->m_dHDOP = pPoint->m_dSpeed;
    }
    constexpr unsigned All = 0x7f;
    const struct
    {
        EGraphField field;
        const char* pColor;
        bool bShifted;
        unsigned nRedFor;
    } cases[] = {
        {EGraphField::Sats, "ff7d00", false, 0},
        {EGraphField::Altitude, "6400c8", false, 0},
        {EGraphField::Hdop, "646464", false, 0},
        {EGraphField::SmoothedSpeed, "0032ff", true, 0x79},
        {EGraphField::Speed, "ff0000", true, All},
        {EGraphField::Vmg, "6464fa", true, 0},
        {EGraphField::Doppler, "329632", false, 0x75},
        {EGraphField::UnfilteredDoppler, "963296", false, 0x75},
        {EGraphField::MergedDoppler, "963232", false, 0x75},
    };
    event.m_nSmoothing = 1;
    const CGridFields all = DefaultFields(GraphFieldTable);
    for (const auto& [field, pColor, bShifted, nRedFor] : cases) {
        for (unsigned nBit = 1; nBit <= 0x40; nBit *= 2) {
            Series(0).m_points[1].m_nInvalidFlags = static_cast<std::uint8_t>(nBit);
            layout.sats = layout.hdop = layout.altitude = {0.0, 10.0}; // as high as speeds
            // The first point of a shifted one lies left of the plot, whose edge cuts the line.
            const std::string strExpected = std::string((nRedFor & nBit) != 0 ? "ff0000" : pColor) +
                                            (bShifted ? " -.5,88 7.5,80;\n" : " 0,90 10,80;\n");
            EXPECT_EQ(CurvesText(Curves({field})), strExpected)
                << all[static_cast<std::size_t>(field)].m_strTitle << " with flag " << nBit;
        }
    }
}

TEST_F(SGraphLayersTest, CurvesAreDrawnFileByFileInTheirOrder)
{
    AddSpeeds({10.0, 10.0});
    AddSpeeds({30.0, 30.0}, 0.5);
    for (CSeries* pSeries : Person().m_series) {
        for (CTrackPoint* pPoint : pSeries->m_points) {
            pPoint->m_dDoppler = pPoint->m_dSpeed;
            pPoint->m_nSats = 0;
        }
    }
    EXPECT_EQ(
        CurvesText(Curves({EGraphField::UnfilteredDoppler, EGraphField::Sats, EGraphField::MergedDoppler})),
        "ff7d00 0,100 20,100;\n963296 0,100 20,100;\n"
        "ff7d00 10,100 30,100;\n963296 10,100 30,100;\n"
        "963232 0,90 10,70; 10,70 20,90; 20,90 30,70;\n");
}

TEST_F(SGraphLayersTest, LinesBreakAtGapsAndAtWhatIsNoNumber)
{
    AddSpeeds({10.0, 20.0, 30.0, 40.0, 50.0, 60.0, 70.0});
    for (CTrackPoint* pPoint : Series(0).m_points)
        pPoint->m_dUSOG = pPoint->m_dSpeed;
    event.m_nTimeThreshold = 10;
    Series(0).m_points[2].m_dDeltaTime = 10.0 * DaysPerSecond;
    Series(0).m_points[5].m_dUSOG = std::nan("");
    EXPECT_EQ(CurvesText(Curves({EGraphField::UnfilteredDoppler})),
              "963296 0,90 10,80; 20,70 30,60; 30,60 40,50;\n");
    // Points far above and below leave the plot; the lines to them are cut at the edge of the picture.
    Series(0).m_points[3].m_dUSOG = HUGE_VAL;
    Series(0).m_points[4].m_dUSOG = -7e10;
    const SSceneLayer layer = Curves({EGraphField::UnfilteredDoppler});
    for (const SSceneLines& lines : layer.lines) {
        for (const SScenePoint& end : lines.ends) {
            EXPECT_GE(end.dY, -10.0);
            EXPECT_LE(end.dY, 110.0);
        }
    }
}

TEST_F(SGraphLayersTest, NodesNeedFourPixels)
{
    AddSpeeds({10.0, 20.0, 30.0});
    const SSceneLayer with = Curves({EGraphField::UnfilteredDoppler, EGraphField::Nodes});
    ASSERT_EQ(with.circles.size(), 3U);
    EXPECT_EQ(with.circles[1].centre, (SScenePoint{10.0, 100.0}));
    EXPECT_EQ(with.circles[1].dRadiusX, 1.0);
    EXPECT_TRUE(Curves({EGraphField::UnfilteredDoppler}).circles.empty());
    const std::vector<SGraphTrack> tracks =
        MakeGraphTracks(event, selection, GraphFields({EGraphField::UnfilteredDoppler}));
    for (const auto& [nWidth, nNodes] : {std::pair{8, 3U}, {7, 0U}}) {
        layout.area = layout.plot = {0, 0, nWidth, 100};
        transform.SetMapping(layout.plot, {0.0, 100.0, 2.0, 0.0});
        const SSceneSurface scene = {transform, text};
        EXPECT_EQ(GraphCurveLayer({scene, layout}, tracks, true).circles.size(), nNodes) << nWidth;
    }
}

TEST_F(SGraphLayersTest, TheBandOfTheRunIsFoundInEveryList)
{
    AddSpeeds(std::vector<double>(20, 10.0));
    selection.m_nRunSeries = 0;
    EXPECT_EQ(Band(3, 8), "30-81");
    EXPECT_EQ(Band(3, 3), "30-31") << "a run of one point is seen";
    EXPECT_EQ(Band(-1, 8), "");
    EXPECT_EQ(Band(3, 20), "") << "beyond the list: the points went";
    transform.SetMapping(layout.plot, {5.0, 100.0, 10.0, 0.0}); // 5 to 10 on 190 pixels
    const SSceneSurface scene = {transform, text};
    selection.m_nRunStart = 3;
    selection.m_nRunEnd = 8;
    const SSceneLayer zoomed = GraphRunLayer({scene, layout}, selection);
    ASSERT_EQ(zoomed.bands.size(), 1U);
    EXPECT_EQ(zoomed.bands[0].from.dX, 0.0) << "from the edge on";
    selection.m_nRunEnd = 4;
    EXPECT_TRUE(GraphRunLayer({scene, layout}, selection).bands.empty()) << "out of sight";

    // Every second point of the merged list is one of the other file.
    AddSpeeds(std::vector<double>(20, 10.0), 0.5);
    EXPECT_EQ(Band(3, 8), "60-161");
    selection.m_nRunSeries = 1;
    EXPECT_EQ(Band(3, 8), "70-171");
    selection.m_nSeries = 0;
    EXPECT_EQ(Band(3, 8), "") << "of a file that is not shown";
    selection.m_nRunSeries = 0;
    selection.m_nRunCompetitor = 1;
    EXPECT_EQ(ShownIndex(selection, 0, 5.0), 5);
}

} // namespace
} // namespace kestrabel::test
