#include "ui/scene/ScenePane.h"

#include "present/graph/ResultSpeedGraphView.h"
#include "present/map/MapView.h"
#include "support/Random.h"
#include "support/ScriptedDesktop.h"
#include "support/Track.h"
#include "ui/scene/ScenePainter.h"
#include "ui/TestWindow.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

namespace kestrabel::test {
namespace {

/// A window with a track of two minutes, whose first file is shown.
struct SSceneWindow : SWindowWith<CScriptedDesktop>
{
    SSceneWindow()
    {
        desktop.Files("*.*", {folder.Write("anna.nmea", Sentences(120))});
        pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
        QApplication::processEvents();
    }
    CScenePane& Pane(const char* pName)
    {
        for (CScenePane* pPane : pFrame->findChildren<CScenePane*>()) {
            if (pPane->accessibleName() == pName)
                return *pPane;
        }
        throw std::runtime_error("no such pane");
    }
    CMapView& Map() { return dynamic_cast<CMapView&>(Pane("Map").View()); }
    CResultSpeedGraphView& Graph()
    {
        return dynamic_cast<CResultSpeedGraphView&>(Pane("Speed graph").View());
    }
    QPoint OnGraph(int nPoint)
    {
        const SScenePoint pixel = Graph().Transform().WorldToDevice({nPoint + 0.5, 5.0});
        return {static_cast<int>(pixel.dX), static_cast<int>(pixel.dY)};
    }
    CViewSelection& Selection() { return pFrame->Application().m_document.m_selection; }
    QPoint OnMap(int nPoint)
    {
        const CPosition& position = Selection().GetSeriesPoints(0)[nPoint].m_position;
        const SScenePoint pixel = Map().Transform().WorldToDevice(position);
        return {static_cast<int>(pixel.dX), static_cast<int>(pixel.dY)};
    }
    static void Wheel(CScenePane& pane, const QPoint& at, int nDelta)
    {
        QWheelEvent event(at, pane.viewport()->mapToGlobal(at), {}, {0, nDelta}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(pane.viewport(), &event);
    }
    /// Right-clicks, and chooses the item of the menu that appears.
    static void Choose(CScenePane& pane, const QPoint& at, const QString& strItem)
    {
        bool bChosen = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (pMenu == nullptr)
                return;
            for (QAction* pAction : pMenu->actions()) {
                if (pAction->text() == strItem && pAction->isEnabled()) {
                    bChosen = true;
                    pAction->trigger();
                }
            }
            pMenu->close();
        });
        timer.start(5);
        QTest::mousePress(pane.viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, pane.viewport()->mapToGlobal(at));
        QApplication::sendEvent(pane.viewport(), &event);
        EXPECT_TRUE(bChosen) << FromQt(strItem);
    }
};

/// Pixels of about this colour.
int CountOf(const QImage& picture, const QColor& color, int nReach = 40)
{
    int nCount = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            nCount += std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                          std::abs(pixel.blue() - color.blue()) <=
                      nReach;
        }
    }
    return nCount;
}

TEST(ScenePane, AClickOnTheMapMovesTheFocusEverywhere)
{
    SSceneWindow window;
    CScenePane& map = window.Pane("Map");
    QTest::mouseClick(map.viewport(), Qt::LeftButton, {}, window.OnMap(30));
    EXPECT_TRUE(map.hasFocus());
    const int nFocus = static_cast<int>(window.Selection().m_dFocusPoint);
    EXPECT_NEAR(nFocus, 30, 2) << "the first one within three pixels";
    EXPECT_EQ(window.Grid("Track points").SelectedRows(), std::vector{nFocus});
    EXPECT_NE(window.Status(0), "SPEED");

    QTest::keyClick(&map, Qt::Key_Right);
    EXPECT_EQ(window.Grid("Track points").SelectedRows(), std::vector{nFocus + 1});
    QTest::keyClick(&map, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(window.Grid("Track points").SelectedRows(), std::vector{119});
    QTest::keyClick(&map, Qt::Key_Delete);
    EXPECT_EQ(window.Selection().GetSeriesPoints(0).GetCount(), 119);
    QTest::keyClick(&map, Qt::Key_Backspace);
    EXPECT_EQ(window.Selection().GetSeriesPoints(0).GetCount(), 118);

    QTest::mouseMove(map.viewport(), QPoint(10, 12));
    EXPECT_EQ(window.Status(0), "SPEED");
    EXPECT_EQ(window.Status(3).substr(0, 3), "52.") << "where the pointer is";
}

TEST(ScenePane, APickedResultIsMarkedInEveryPane)
{
    SSceneWindow window;
    const QColor run(255, 50, 255);
    CScenePane& map = window.Pane("Map");
    EXPECT_EQ(CountOf(map.viewport()->grab().toImage(), run), 0);
    CGridView& results = window.Grid("Results");
    int nRow = 0;
    while (nRow < results.model()->rowCount() && !SSceneWindow::Cell(results, nRow, 0).startsWith("250"))
        ++nRow;
    QTest::mouseClick(results.viewport(), Qt::LeftButton, {},
                      results.visualRect(results.model()->index(nRow, 0)).center());
    EXPECT_GE(window.Selection().m_nRunStart, 0);
    EXPECT_GT(CountOf(map.viewport()->grab().toImage(), run), 20);
    CScenePane& graph = window.Pane("Speed graph");
    EXPECT_GT(CountOf(graph.viewport()->grab().toImage(), QColor(255, 180, 255)), 200);
}

TEST(ScenePane, AClickInTheGraphMovesTheFocusEverywhere)
{
    SSceneWindow window;
    CScenePane& graph = window.Pane("Speed graph");
    const QImage mapBefore = window.Pane("Map").viewport()->grab().toImage();
    QTest::mouseClick(graph.viewport(), Qt::LeftButton, {}, window.OnGraph(30));
    EXPECT_TRUE(graph.hasFocus());
    EXPECT_EQ(window.Selection().m_dFocusPoint, 30.0);
    EXPECT_EQ(window.Grid("Track points").SelectedRows(), std::vector{30});
    EXPECT_NE(window.Pane("Map").viewport()->grab().toImage(), mapBefore) << "the cross";
    const QColor focus(50, 50, 200);
    EXPECT_GE(CountOf(graph.viewport()->grab().toImage(), focus), 20) << "a line through the graph";
    QTest::keyClick(&graph, Qt::Key_Left);
    EXPECT_EQ(window.Grid("Track points").SelectedRows(), std::vector{29});
    QTest::mouseMove(graph.viewport(), window.OnGraph(50));
    EXPECT_EQ(window.Status(3).substr(0, 3), "52.") << "of the point under the pointer";

    const QScrollBar& bar = *graph.horizontalScrollBar();
    SSceneWindow::Wheel(graph, window.OnGraph(29), -480);
    QApplication::processEvents();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_FALSE(graph.verticalScrollBar()->isVisible());
    EXPECT_EQ(bar.value(), window.Graph().ScrollBar(EScrollBar::Horizontal).nPosition);
    // The focus moves elsewhere: the graph follows.
    window.Grid("Track points").setCurrentIndex(window.Grid("Track points").model()->index(110, 0));
    QApplication::processEvents();
    EXPECT_TRUE(window.Graph().Transform().VisibleWorld().Contains({110.0, 1.0}));
    SSceneWindow::Choose(graph, graph.viewport()->rect().center(), "Zoom All");
    QApplication::processEvents();
    EXPECT_FALSE(bar.isVisible());

    window.desktop.Dialog<SWayPointDialog>([](SWayPointDialog& /*dialog*/) { return true; });
    SSceneWindow::Choose(graph, window.OnGraph(5), "Add Waypoint...");
    const CEvent& event = window.pFrame->Application().m_document.m_event;
    ASSERT_EQ(event.m_waypoints.GetCount(), 1);
    EXPECT_EQ(event.m_waypoints[0].m_position, window.Selection().GetSeriesPoints(0)[110].m_position)
        << "at the focus point, not where the menu was opened";
    QTest::keyClick(&graph, Qt::Key_Delete);
    EXPECT_EQ(window.Selection().GetSeriesPoints(0).GetCount(), 119);
}

TEST(ScenePane, TheMapZoomsScrollsAndIsDragged)
{
    SSceneWindow window;
    CScenePane& map = window.Pane("Map");
    const QScrollBar& bar = *map.horizontalScrollBar();
    EXPECT_FALSE(bar.isVisible());
    const QPoint middle = map.viewport()->rect().center();
    SSceneWindow::Wheel(map, middle, -60);
    EXPECT_FALSE(window.Map().Transform().IsZoomed()) << "half a step of a fine wheel";
    SSceneWindow::Wheel(map, middle, -60);
    EXPECT_TRUE(window.Map().Transform().IsZoomed());
    SSceneWindow::Wheel(map, middle, -240);
    QApplication::processEvents();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), window.Map().ScrollBar(EScrollBar::Horizontal).nPosition);

    const auto west = [&] { return window.Map().Transform().VisibleWorld().m_dWest; };
    const double dWest = west();
    map.horizontalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_GT(west(), dWest);
    EXPECT_EQ(bar.value(), bar.maximum());
    map.horizontalScrollBar()->setSliderPosition(0); // dragged
    EXPECT_LT(west(), dWest);
    QTest::mousePress(map.viewport(), Qt::LeftButton, {}, middle);
    const double dBefore = west();
    QMouseEvent move(QEvent::MouseMove, middle + QPoint(-40, 0),
                     map.viewport()->mapToGlobal(middle + QPoint(-40, 0)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(map.viewport(), &move);
    QTest::mouseRelease(map.viewport(), Qt::LeftButton, {}, middle + QPoint(-40, 0));
    EXPECT_NEAR(west() - dBefore, 40.0 * window.Map().Transform().m_dUnitsPerPixelX, 1e-9);
    EXPECT_EQ(bar.value(), window.Map().ScrollBar(EScrollBar::Horizontal).nPosition);

    QTest::keyClick(&map, Qt::Key_Plus);
    QTest::keyClick(&map, Qt::Key_Minus);
    SSceneWindow::Choose(map, middle, "Zoom All");
    QApplication::processEvents();
    EXPECT_FALSE(window.Map().Transform().IsZoomed());
    EXPECT_FALSE(bar.isVisible());
}

TEST(ScenePane, ItsMenuActsWhereItWasOpened)
{
    SSceneWindow window;
    CScenePane& map = window.Pane("Map");
    const CEvent& event = window.pFrame->Application().m_document.m_event;
    const QPoint onTrack = window.OnMap(60);
    const QPoint beside = onTrack + QPoint(0, 50);
    const auto accept = [](SWayPointDialog& /*dialog*/) { return true; };
    window.desktop.Dialog<SWayPointDialog>(accept);
    SSceneWindow::Choose(map, beside, "Add Waypoint...");
    ASSERT_EQ(event.m_waypoints.GetCount(), 1);
    const SScenePoint pixel = window.Map().Transform().WorldToDevice(event.m_waypoints[0].m_position);
    EXPECT_EQ(pixel.dX, beside.x());
    EXPECT_EQ(pixel.dY, beside.y());
    window.desktop.Dialog<SWayPointDialog>(accept);
    SSceneWindow::Choose(map, onTrack, "Add Waypoint...");
    ASSERT_EQ(event.m_waypoints.GetCount(), 2);
    const int nFocus = static_cast<int>(window.Selection().m_dFocusPoint);
    EXPECT_NEAR(nFocus, 60, 2);
    EXPECT_EQ(event.m_waypoints[1].m_position, window.Selection().GetSeriesPoints(0)[nFocus].m_position);

    SSceneWindow::Choose(map, onTrack, "Mark as &Invalid");
    EXPECT_EQ(window.Selection().GetSeriesPoints(0)[nFocus].m_nInvalidFlags & InvalidFlag::User,
              InvalidFlag::User);
}

TEST(ScenePane, ColoursFollowTheTheme)
{
    SSceneWindow window;
    CScenePane& map = window.Pane("Map");
    const QPoint corner(2, 2);
    EXPECT_EQ(map.viewport()->grab().toImage().pixelColor(corner), map.palette().color(QPalette::Base));
    QPalette dark = map.palette();
    dark.setColor(QPalette::Base, Qt::black);
    map.setPalette(dark);
    const QImage picture = map.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(corner), QColor(Qt::black));
    int nLightest = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y)
            nLightest = std::max(nLightest, picture.pixelColor(x, y).lightness());
    }
    EXPECT_GT(nLightest, 120) << "the track is seen";
}

/// A picture of the ground of a map.
QImage Drawn(const SSceneLayer& layer, const QSize& size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    PaintDenseLayer(picture, layer, {});
    return picture;
}

TEST(ScenePane, TheReducedMapLooksLikeTheWholeOne)
{
    SSceneWindow window;
    CPerson& person = window.pFrame->Application().m_document.m_event.m_persons[0];
    CRandom random(5);
    CSeries& series = person.m_series[0];
    // A rider who criss-crosses a bay for thirty thousand fixes.
    const CPosition start = series.m_points[0].m_position;
    double dHeading = 0.0;
    CPosition at = start;
    for (int i = 0; i < 30000; ++i) {
        dHeading += (random.Fraction() - 0.5) * 0.2;
        at.m_dLatitude += 2e-5 * std::cos(dHeading) + (start.m_dLatitude - at.m_dLatitude) * 1e-3;
        at.m_dLongitude += 3e-5 * std::sin(dHeading) + (start.m_dLongitude - at.m_dLongitude) * 1e-3;
        CTrackPoint& point = series.m_points.Add(MakePoint(i, at.m_dLatitude, at.m_dLongitude));
        point.m_dSpeed = 25.0 + 25.0 * std::sin(i / 300.0);
        point.m_nInvalidFlags = i % 500 < 20 ? InvalidFlag::SpeedSpike : std::uint8_t{0};
        series.m_rcBounds.Extend(at);
    }
    CViewSelection& selection = window.Selection();
    selection.m_dViewMaxSpeed = 50.0;
    const std::vector<SMapTrack> tracks =
        MakeMapTracks(window.pFrame->Application().m_document.m_event, selection, true);
    CMapTransform transform;
    const QSize size(500, 400);
    transform.SetMapping({0, 0, size.width(), size.height()}, MapExtent(selection));
    const CFontTextSize text{QFont()};
    for (const int nZoom : {0, 3, 8}) {
        CMapTransform zoomed = transform;
        zoomed.m_dZoomStep = 1.5;
        for (int i = 0; i < nZoom; ++i)
            zoomed.ZoomIn();
        const SSceneLayer whole = GroundLayer({zoomed, text}, tracks, selection, {.bReduce = false});
        const SSceneLayer reduced = GroundLayer({zoomed, text}, tracks, selection, {});
        const QImage picture = Drawn(whole, size);
        EXPECT_GT(CountOf(picture, Qt::red), 10);
        EXPECT_EQ(Drawn(reduced, size), picture) << "zoomed " << nZoom << " times";
    }
}

TEST(ScenePane, TheReducedGraphLooksLikeTheWholeOne)
{
    SSceneWindow window;
    CEvent& event = window.pFrame->Application().m_document.m_event;
    CSeries& series = event.m_persons[0].m_series[0];
    CRandom random(6);
    for (int i = 0; i < 30000; ++i) {
        CTrackPoint& point = series.m_points.Add(MakePoint(200 + i, 52.0, 5.0));
        point.m_dUSOG = 40.0 + 20.0 * std::sin(i / 700.0) + 10.0 * random.Fraction();
        point.m_nInvalidFlags = i % 500 < 20 ? InvalidFlag::Hdop : std::uint8_t{0};
        point.m_dDeltaTime = i % 4000 == 0 ? 1.0 : DaysPerSecond;
    }
    CViewSelection& selection = window.Selection();
    selection.m_dViewMaxSpeed = 50.0;
    CGridFields fields = DefaultFields(GraphFieldTable);
    for (const EGraphField field : {EGraphField::Speed, EGraphField::UnfilteredDoppler})
        fields[static_cast<std::size_t>(field)].m_bDisplay = true;
    const std::vector<SGraphTrack> tracks = MakeGraphTracks(event, selection, fields);
    const QSize size(500, 200);
    const CFontTextSize text{QFont()};
    const SGraphLayout layout = LayoutGraph({0, 0, size.width(), size.height()}, text, selection, fields);
    CMapTransform transform(false);
    transform.SetMapping(layout.plot, {0.0, layout.dTop, 30119.0, 0.0});
    transform.m_dZoomStep = 3.0;
    for (const int nZoom : {0, 1, 5}) {
        CMapTransform zoomed = transform;
        for (int i = 0; i < nZoom; ++i)
            zoomed.ZoomIn();
        const SSceneSurface surface = {zoomed, text};
        const SSceneLayer whole = GraphCurveLayer({surface, layout, false}, tracks, false);
        const SSceneLayer reduced = GraphCurveLayer({surface, layout, true}, tracks, false);
        const QImage picture = Drawn(whole, size);
        EXPECT_GT(CountOf(picture, QColor(150, 50, 150)), 300);
        EXPECT_EQ(Drawn(reduced, size), picture) << "zoomed " << nZoom << " times";
        EXPECT_LE(PrimitiveCount(reduced) * (nZoom < 5 ? 5 : 1), PrimitiveCount(whole));
    }
}

} // namespace
} // namespace kestrabel::test
