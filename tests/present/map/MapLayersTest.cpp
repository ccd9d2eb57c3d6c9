#include "geo/Angle.h"
#include "present/map/MapColors.h"
#include "present/map/MapWorld.h"
#include "present/scene/SceneParts.h"

namespace kestrabel::test {
namespace {

/// A map of 200 x 100 pixels, a thousandth of a degree each, with (0, 0) at the left in the middle.
struct SLayers : SMapWorld
{
    SLayers()
    {
        transform.SetMapping({0, 0, 200, 100}, {0.0, 0.05, 0.2, -0.05});
        selection.m_nSeries = 0;
        selection.m_dViewMaxSpeed = 40.0;
    }
    SSceneLayer Ground(const SMapOptions& options = {})
    {
        return GroundLayer(surface, Tracks(options.bSpeedColor), selection, options);
    }
    SSceneLayer Run(const SMapOptions& options = {})
    {
        return RunLayer(surface, event, Tracks(), selection, options);
    }
    SSceneLayer Names(const SMapOptions& options)
    {
        return NamesLayer(surface, event, Tracks(), selection, options);
    }
    void PickRun(int nStart, int nEnd, int nKind, int nDivision = -1)
    {
        selection.m_nRunCompetitor = selection.m_nRunSeries = 0;
        selection.m_nRunStart = nStart;
        selection.m_nRunEnd = nEnd;
        selection.m_nRunKind = nKind;
        selection.m_nRunDivision = nDivision;
    }
    static CWayPoint& AddWayPoint(CObjectArray<CWayPoint>& wayPoints, double dLongitude, double dRadius,
                                  const char* pName = "WP")
    {
        CWayPoint& wayPoint = wayPoints.Add(std::make_unique<CWayPoint>());
        wayPoint.m_position = {.m_dLongitude = dLongitude, .m_dLatitude = 0.0};
        wayPoint.m_dProximity = dRadius;
        wayPoint.m_strName = pName;
        return wayPoint;
    }

    CMapTransform transform;
    SSceneSurface surface{transform, text};
};

TEST_F(SLayers, AnyFlagMakesTheLineToItsPointRed)
{
    AddLine(5, 0.01);
    Series(0).m_points[2].m_nInvalidFlags = InvalidFlag::DopplerSpike;
    Series(0).m_points[4].m_nInvalidFlags = 0x80; // none that is known
    EXPECT_EQ(LinesText(Ground(), ESceneRole::Track), "0,50 10,50; 30,50 40,50; 20,50 30,50; ");
    EXPECT_EQ(LinesText(Ground(), ESceneRole::Invalid), "10,50 20,50; ");
    // Lines lie over each other in the order of the points: here the way back over an invalid stretch.
    std::vector<CPosition> positions;
    for (const double dX : {0.0, 0.01, 0.02, 0.01, 0.0})
        positions.push_back({dX, 0.0});
    AddFile(positions).m_points[2].m_nInvalidFlags = InvalidFlag::User;
    selection.m_nSeries = 1;
    const SSceneLayer all = Ground({.bReduce = false});
    ASSERT_EQ(all.lines.size(), 3U);
    EXPECT_EQ(all.lines[1].pen, ScenePen::Invalid);
    EXPECT_EQ(LinesText(all, ESceneRole::Invalid), "10,50 20,50; ");
    EXPECT_EQ(LinesText(Ground(), ESceneRole::Invalid), "") << "not seen";
    Series(1).m_points[2].m_nInvalidFlags = 0;
    Series(1).m_points[3].m_nInvalidFlags = InvalidFlag::User;
    EXPECT_EQ(LinesText(Ground(), ESceneRole::Invalid), "20,50 10,50; ");
}

TEST_F(SLayers, SpeedsAreInDisplayUnitsAndEachFileHasItsColours)
{
    for (int i = 0; i < 5; ++i) {
        AddLine(3, 0.01);
        Series(i).m_points[1].m_dSpeed = 18.53;
        Series(i).m_points[2].m_dSpeed = 37.05;
        for (CTrackPoint* pPoint : Series(i).m_points)
            pPoint->m_position.m_dLatitude = 0.01 * i;
    }
    event.m_nSpeedUnits = SpeedUnit::Knots;
    const auto colors = [&] {
        std::string strColors;
        for (const SSceneLines& lines : Ground({.bSpeedColor = true}).lines)
            strColors += std::to_string(lines.pen.color.nRed) + " " + std::to_string(lines.pen.color.nGreen) +
                         " " + std::to_string(lines.pen.color.nBlue) + "; ";
        return strColors;
    };
    EXPECT_EQ(colors(), "0 50 150; 0 100 100; ") << "10 and 20 of 40 knots";
    selection.m_nSeries = 2;
    EXPECT_EQ(colors(), "0 50 150; 0 100 100; ") << "any file alone has the first one's";
    selection.m_nSeries = -1;
    EXPECT_EQ(colors(), "0 50 150; 0 100 100; 50 50 150; 100 100 100; 0 32 98; 0 65 65; 50 98 98; 100 65 65; "
                        "0 0 0; ");
    selection.m_dViewMaxSpeed = 0.5;
    selection.m_nSeries = 0;
    EXPECT_EQ(colors(), "0 100 100; ");
    EXPECT_EQ(Ground().lines[0].pen, ScenePen::Track) << "without colours";
}

TEST_F(SLayers, TheNeighbourhoodIsTwoHundredAndOnePoints)
{
    AddLine(1000, 0.0001);
    AddLine(1000, 0.0001);
    selection.m_nSeries = -1;
    const auto count = [&](int nFocus) {
        selection.m_nFocusSeries = nFocus < 0 ? -1 : 1;
        selection.m_dFocusPoint = nFocus;
        std::size_t nCount = 0;
        for (const SSceneLines& lines : Ground({.bNeighborhood = true, .bReduce = false}).lines)
            nCount += lines.Count();
        return nCount;
    };
    EXPECT_EQ(count(500), 201U) << "of the focus's file only";
    EXPECT_EQ(count(0), 100U);
    EXPECT_EQ(count(950), 150U);
    EXPECT_EQ(count(-1), 1998U) << "no focus, no neighbourhood";

    PickRun(450, 990, DivisionKind::Time);
    selection.m_nFocusSeries = 0;
    selection.m_dFocusPoint = 500;
    EXPECT_EQ(Run({.bNeighborhood = true, .bReduce = false}).polylines.at(0).points.size(), 151U);
    EXPECT_EQ(Run({.bReduce = false}).polylines.at(0).points.size(), 541U);
}

TEST_F(SLayers, NodesAreShownWhereTheyAreSparse)
{
    AddLine(5, 0.01);
    Series(0).m_points[3].m_nInvalidFlags = InvalidFlag::User;
    Series(0).m_points[4].m_position = {.m_dLongitude = 7.0, .m_dLatitude = 7.0};
    Series(0).m_dTotalDistance = 0.66; // km: 0.2 degrees of 5 points are 1.5 of them
    const SMapOptions nodes = {.bNodes = true};
    EXPECT_EQ(Ground(nodes).circles.size(), 0U);
    Series(0).m_dTotalDistance = 0.67;
    const SSceneLayer layer = Ground(nodes);
    ASSERT_EQ(layer.circles.size(), 4U) << "one is out of view";
    EXPECT_EQ(layer.circles[1].centre, (SScenePoint{10.0, 50.0}));
    EXPECT_EQ(layer.circles[1].dRadiusX, 1.0);
    EXPECT_EQ(layer.circles[3].pen, ScenePen::Invalid);
    EXPECT_TRUE(Ground().circles.empty());
    Series(0).m_dTotalDopplerDistance = 0.5;
    EXPECT_TRUE(Ground(nodes).circles.empty()) << "by Doppler speed where there is one";
    Series(0).m_dTotalDopplerDistance = Series(0).m_dTotalDistance = 0.0;
    EXPECT_TRUE(Ground(nodes).circles.empty()) << "nobody moved";
}

TEST_F(SLayers, ThePickedRunHasItsCircles)
{
    AddLine(20, 0.01);
    CDivision& laps = event.m_divisions.Add(std::make_unique<CDivision>());
    AddWayPoint(laps.m_waypoints, 0.02, 1.1112);
    AddWayPoint(laps.m_waypoints, 0.1, 0.5556);
    AddWayPoint(laps.m_waypoints, 0.3, 1.0); // out of view
    AddWayPoint(Series(0).m_waypoints, 0.05, 2.2224);
    const auto circles = [&] {
        std::string strCircles;
        for (const SSceneCircle& circle : Run().circles) {
            EXPECT_EQ(circle.pen, MapPen::Gate);
            strCircles += std::to_string(std::lround(circle.centre.dX)) + " r" +
                          std::to_string(std::lround(circle.dRadiusX)) + "," +
                          std::to_string(std::lround(circle.dRadiusY)) + "; ";
        }
        return strCircles;
    };
    EXPECT_TRUE(Run().IsEmpty());
    PickRun(2, 5, DivisionKind::Time);
    EXPECT_EQ(circles(), "");
    const SSceneLayer run = Run();
    ASSERT_EQ(run.polylines.size(), 1U);
    EXPECT_EQ(run.polylines[0].pen, MapPen::Run);
    EXPECT_EQ(run.polylines[0].pen.nWidth, 3);
    ASSERT_EQ(run.polylines[0].points.size(), 4U);
    EXPECT_NEAR(run.polylines[0].points.front().dX, 50.0, 1e-9);
    EXPECT_NEAR(run.polylines[0].points.back().dX, 20.0, 1e-9);

    PickRun(3, 5, DivisionKind::AlphaRacing, 0);
    EXPECT_EQ(circles(), "") << "no proximity";
    selection.m_dRunProximity = 0.55560;
    EXPECT_EQ(circles(), "30 r5,5; ");
    const struct
    {
        int nKind;
        int nDivision;
        int nOne;
        int nOther;
        std::string strCircles;
    } cases[] = {
        {DivisionKind::LapRacing, 0, 0, 1, "20 r10,10; 100 r5,5; "},
        {DivisionKind::LapRacing, 0, 1, -1, "100 r5,5; "},
        {DivisionKind::LapRacing, 0, 2, 3, ""}, // unseen, and none
        {DivisionKind::Splits, 0, -1, 0, "20 r10,10; "},
        {DivisionKind::CheckPoints, -1, 0, 1, "50 r20,20; "},
        {DivisionKind::LapRacing, 7, 0, 1, ""}, // a division that was deleted
        {DivisionKind::Distance, 0, 0, 1, ""},
    };
    for (const auto& [nKind, nDivision, nOne, nOther, strCircles] : cases) {
        PickRun(3, 5, nKind, nDivision);
        selection.m_nRunWaypoint = nOne;
        selection.m_nRunWaypoint2 = nOther;
        EXPECT_EQ(circles(), strCircles) << nKind;
    }
    PickRun(18, 400, DivisionKind::Time);
    EXPECT_EQ(Run().polylines.at(0).points.size(), 2U) << "clamped to the file";
    PickRun(400, 500, DivisionKind::AlphaRacing);
    EXPECT_TRUE(Run().IsEmpty());
    PickRun(3, 5, DivisionKind::Time);
    selection.m_nRunSeries = 4;
    EXPECT_TRUE(Run().IsEmpty()) << "no such file";

    // At 60 degrees a kilometre has twice as many degrees of longitude, and as many pixels.
    for (CTrackPoint* pPoint : Series(0).m_points)
        pPoint->m_position.m_dLatitude = 60.0;
    transform.SetMapping({0, 0, 200, 100}, {0.0, 60.05, 0.4, 59.95});
    PickRun(3, 5, DivisionKind::AlphaRacing);
    const SSceneCircle circle = Run().circles.at(0);
    EXPECT_NEAR(circle.dRadiusX, circle.dRadiusY, circle.dRadiusY * 1e-3);
}

TEST_F(SLayers, NamesZoomAndFocus)
{
    AddLine(5, 0.01);
    AddWayPoint(event.m_waypoints, 0.02, 0.0, "here");
    AddWayPoint(event.m_waypoints, 0.03, -1.0, "off");
    AddWayPoint(event.m_waypoints, 0.5, 1.0, "away");
    AddWayPoint(Series(0).m_waypoints, 0.1, -1.0, "check");
    const SSceneLayer names = Names({.bZoom = true, .bWayPoints = true});
    ASSERT_EQ(names.texts.size(), 3U);
    EXPECT_EQ(names.texts[0].strText, "here");
    EXPECT_EQ(names.texts[0].at, (SScenePoint{20.0, 50.0}));
    EXPECT_EQ(names.texts[0].horizontal, ESceneAlign::Middle);
    EXPECT_EQ(names.texts[0].vertical, ESceneAlign::High);
    EXPECT_EQ(names.texts[1].strText, "check");
    EXPECT_EQ(names.texts[2].strText, "Zoom=1.0");
    EXPECT_EQ(names.texts[2].at, (SScenePoint{200.0, 100.0}));
    transform.ZoomBy(0.5);
    EXPECT_EQ(Names({.bZoom = true}).texts.at(0).strText, "Zoom=2.0");
    transform.ZoomReset();
    EXPECT_TRUE(Names({}).IsEmpty());

    EXPECT_TRUE(FocusLayer(surface, FocusPosition(selection)).IsEmpty());
    selection.SetFocusPoint(0, 3.0);
    EXPECT_EQ(LinesText(FocusLayer(surface, FocusPosition(selection)), ESceneRole::Focus),
              "5,50 55,50; 30,25 30,75; ");
    EXPECT_EQ(LinesText(FocusLayer({transform, text, 2.0}, FocusPosition(selection)), ESceneRole::Focus),
              "-20,50 80,50; 30,0 30,100; ")
        << "a page has more pixels";
    EXPECT_TRUE(FocusLayer(surface, CPosition{.m_dLongitude = 9.0, .m_dLatitude = 9.0}).IsEmpty());

    // Nothing but the background without a point.
    Series(0).m_points.RemoveAll();
    const SMapOptions everything = {true, true, true, true, true, true};
    EXPECT_TRUE(Ground(everything).IsEmpty());
    EXPECT_TRUE(Names(everything).IsEmpty());
    selection.m_nCompetitor = -1;
    EXPECT_TRUE(Ground(everything).IsEmpty());
}

} // namespace
} // namespace kestrabel::test
