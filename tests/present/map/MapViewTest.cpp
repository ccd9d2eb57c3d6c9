#include "present/map/MapView.h"

#include "present/map/MapWorld.h"

namespace kestrabel::test {
namespace {

using testing::ElementsAre;

constexpr SModifiers Plain = {};
constexpr SModifiers Shift = {.bShift = true};
constexpr SModifiers Ctrl = {.bCtrl = true};

/// A map of 420 x 210 pixels over a file of 21 points, which lie 20 pixels apart in its middle.
struct SView : SMapWorld
{
    SView()
    {
        AddLine(21, 0.01);
        selection.m_nSeries = 0;
        event.m_dZoom = 2.0;
        view.SetListener({.onChanged = [this] { ++nChanged; },
                          .onStatus = [this] { ++nStatus; },
                          .onDelete = [this](bool bBefore) { strDeleted += bBefore ? "<" : "."; }});
        view.OnSize(420, 210);
        view.OnUpdate(HINT_ALL);
    }
    SScenePoint PixelOf(int nPoint)
    {
        return view.Transform().WorldToDevice(
            selection.GetSeriesPoints(selection.m_nSeries)[nPoint].m_position);
    }
    double Units() const { return view.Transform().m_dUnitsPerPixelX; }
    std::pair<int, double> Focus() const { return {selection.m_nFocusSeries, selection.m_dFocusPoint}; }

    CMapView view{event, hub, selection, settings};
    int nChanged = 0;
    int nStatus = 0;
    std::string strDeleted;
};

TEST_F(SView, AClickTakesTheFirstPointWithinThreePixels)
{
    EXPECT_EQ(PixelOf(1).dX - PixelOf(0).dX, 20.0);
    const SScenePoint third = PixelOf(3);
    const struct
    {
        SScenePoint at;
        std::pair<int, double> focus;
    } clicks[] = {
        {{third.dX + 4.0, third.dY}, {-1, -1.0}},
        {{third.dX + 3.0, third.dY - 3.0}, {0, 3.0}},
        {{third.dX, third.dY + 4.0}, {0, 3.0}},
        {PixelOf(7), {0, 7.0}},
    };
    for (const auto& [at, focus] : clicks) {
        nChanged = 0;
        view.OnLButtonDown(at, Plain);
        EXPECT_EQ(Focus(), focus);
        EXPECT_GT(nChanged, 0) << "drawn in any case";
    }
    EXPECT_THAT(hints, ElementsAre(HINT_FOCUS_MOVED, HINT_FOCUS_MOVED)) << "the other panes are told";

    // The rider came by earlier: the earlier point is taken; of two files that shown first in time.
    Series(0).m_points[9].m_position = Series(0).m_points[7].m_position;
    view.OnLButtonDown(PixelOf(9), Plain);
    EXPECT_EQ(Focus(), std::pair(0, 7.0));
    AddLine(21, 0.01);
    selection.m_nSeries = -1;
    selection.ForgetPoints();
    view.OnUpdate(HINT_POINTS_CHANGED);
    view.OnLButtonDown(view.Transform().WorldToDevice(Series(1).m_points[9].m_position), Plain);
    EXPECT_EQ(Focus(), std::pair(1, 9.0)) << "file and index, not the place in the merged list";
}

TEST_F(SView, ButtonsWheelAndCommandsMoveTheView)
{
    const SScenePoint place = {100.0, 60.0};
    const auto staysAt = [&](auto&& act, double dFactor) {
        const CPosition before = view.Transform().DeviceToWorld(place);
        const double dUnits = Units();
        act();
        EXPECT_NEAR(Units() / dUnits, dFactor, 1e-12);
        EXPECT_NEAR(view.Transform().DeviceToWorld(place).m_dLongitude, before.m_dLongitude, 1e-12);
        EXPECT_NEAR(view.Transform().DeviceToWorld(place).m_dLatitude, before.m_dLatitude, 1e-12);
    };
    staysAt([&] { view.OnLButtonDown(place, Ctrl); }, 0.5);
    view.OnLButtonUp();
    staysAt([&] { view.OnMouseWheel(place, false); }, 0.5);
    staysAt([&] { view.OnMouseWheel(place, true); }, 2.0);
    view.OnRButtonDown(place);
    staysAt([&] { EXPECT_TRUE(view.OnCommand(ECommand::ZoomIn)); }, 0.5);
    staysAt([&] { EXPECT_TRUE(view.OnCommand(ECommand::ZoomOut)); }, 2.0);
    EXPECT_FALSE(view.OnCommand(ECommand::Recalculate));
    EXPECT_EQ(Focus(), std::pair(-1, -1.0)) << "none of these is a click";

    const CPosition there = view.Transform().DeviceToWorld(place);
    view.OnLButtonDown(place, Shift);
    view.OnLButtonUp();
    EXPECT_NEAR(view.Transform().DeviceToWorld({210.0, 105.0}).m_dLongitude, there.m_dLongitude, 1e-12);

    // What was under the pointer stays under it while it is dragged.
    const CPosition grabbed = view.Transform().DeviceToWorld({50.0, 50.0});
    view.OnLButtonDown({50.0, 50.0}, Plain);
    EXPECT_FALSE(view.OnMouseMove({70.0, 41.0}, true));
    EXPECT_FALSE(view.OnMouseMove({80.0, 45.0}, true));
    EXPECT_NEAR(view.Transform().DeviceToWorld({80.0, 45.0}).m_dLongitude, grabbed.m_dLongitude, 1e-12);
    EXPECT_NEAR(view.Transform().DeviceToWorld({80.0, 45.0}).m_dLatitude, grabbed.m_dLatitude, 1e-12);
    const SScrollBar scroll = view.ScrollBar(EScrollBar::Horizontal);
    EXPECT_TRUE(scroll.bShown);
    EXPECT_EQ(scroll.nPage, 500);
    view.OnLButtonUp();
    const CGeoRect visible = view.Transform().VisibleWorld();
    view.OnMouseMove({10.0, 10.0}, true);
    EXPECT_EQ(view.Transform().VisibleWorld(), visible) << "the button went down elsewhere";
    view.OnScroll(EScrollBar::Vertical, EScroll::First);
    EXPECT_EQ(view.ScrollBar(EScrollBar::Vertical).nPosition, 0);

    view.OnMouseWheel(place, true);
    EXPECT_FALSE(view.ScrollBar(EScrollBar::Horizontal).bShown) << "the whole extent again";
    view.OnMouseWheel(place, false);
    EXPECT_TRUE(view.OnCommand(ECommand::ZoomAll));
    EXPECT_EQ(view.Transform().m_dZoomFactor, 1.0);
    const CGeoRect all = view.Transform().VisibleWorld();
    view.OnScroll(EScrollBar::Horizontal, EScroll::PageOn);
    EXPECT_EQ(view.Transform().VisibleWorld(), all) << "no bar, no scrolling";
}

TEST_F(SView, KeysStepTheFocus)
{
    const struct
    {
        EViewKey key;
        SModifiers modifiers;
        double dPoint;
    } keys[] = {
        {EViewKey::Right, Plain, 0.0}, // the first step
        {EViewKey::Right, Plain, 1.0}, {EViewKey::Down, Plain, 2.0},  {EViewKey::Left, Plain, 1.0},
        {EViewKey::Up, Plain, 0.0},    {EViewKey::Left, Plain, 0.0},  {EViewKey::Home, Plain, 1.0},
        {EViewKey::End, Plain, 2.0},   {EViewKey::Right, Ctrl, 20.0}, {EViewKey::Right, Plain, 20.0},
        {EViewKey::Up, Ctrl, 0.0},     {EViewKey::Down, Ctrl, 20.0},  {EViewKey::Left, Ctrl, 0.0},
        {EViewKey::Right, Shift, 0.0}, // scrolls
    };
    for (const auto& [key, modifiers, dPoint] : keys) {
        EXPECT_TRUE(view.OnKeyDown(key, modifiers));
        EXPECT_EQ(Focus(), std::pair(0, dPoint)) << static_cast<int>(key);
    }
    EXPECT_FALSE(view.OnKeyDown(EViewKey::Home, Ctrl));
    EXPECT_FALSE(view.OnKeyDown(EViewKey::End, Shift));
    view.OnKeyDown(EViewKey::Delete, Plain);
    view.OnKeyDown(EViewKey::Backspace, Plain);
    EXPECT_EQ(strDeleted, ".<");

    view.OnMouseWheel({210.0, 105.0}, false);
    view.OnMouseWheel({210.0, 105.0}, false);
    const int nPosition = view.ScrollBar(EScrollBar::Horizontal).nPosition;
    view.OnKeyDown(EViewKey::Right, Shift);
    EXPECT_EQ(view.ScrollBar(EScrollBar::Horizontal).nPosition, nPosition + 250);
    view.OnKeyDown(EViewKey::Left, Shift);
    EXPECT_EQ(view.ScrollBar(EScrollBar::Horizontal).nPosition, nPosition);

    selection.m_nSeries = -1; // all files: the first step is to the first of the merged points
    AddLine(3);
    selection.ForgetPoints();
    selection.SetFocusPoint(-1, -1.0);
    EXPECT_TRUE(view.OnKeyDown(EViewKey::Right, Plain));
    EXPECT_EQ(Focus(), std::pair(0, 0.0));

    Person().m_series.RemoveAll();
    selection.Reset();
    strDeleted.clear();
    EXPECT_FALSE(view.OnKeyDown(EViewKey::Right, Plain));
    EXPECT_FALSE(view.OnKeyDown(EViewKey::Delete, Plain));
    EXPECT_EQ(strDeleted, "");
}

TEST_F(SView, TheViewFollowsTheFocusOnlyWhenItMust)
{
    const auto focus = [&](double dPoint) {
        const CGeoRect before = view.Transform().VisibleWorld();
        selection.MoveFocus(nullptr, 0, dPoint);
        return !(view.Transform().VisibleWorld() == before);
    };
    EXPECT_FALSE(focus(20.0)) << "unzoomed all is seen";
    for (int i = 0; i < 3; ++i)
        view.OnMouseWheel(PixelOf(10), false);
    EXPECT_FALSE(focus(11.0));
    EXPECT_TRUE(focus(20.0));
    EXPECT_EQ(PixelOf(20), (SScenePoint{210.0, 105.0})) << "in the middle";

    // Edited points keep the zoom, and the focus in the middle.
    const double dUnits = Units();
    Series(0).m_points[20].m_position.m_dLongitude = 0.3;
    Series(0).m_rcBounds.m_dEast = 0.3;
    hub.UpdateAllViews(nullptr, HINT_POINTS_CHANGED);
    EXPECT_EQ(Units(), dUnits);
    EXPECT_EQ(PixelOf(20), (SScenePoint{210.0, 105.0}));
    for (int i = 0; i < 3; ++i)
        view.OnMouseWheel({0.0, 0.0}, true);
    EXPECT_NEAR(view.Transform().VisibleWorld().Width(), 0.3 * 1.05, 1e-9)
        << "zooming out finds the new extent";

    // Another file, far away, is shown whole, zoomed or not.
    AddFile({{50.0, 10.0}, {50.1, 10.0}});
    for (const bool bZoomed : {false, true}) {
        selection.m_nSeries = 0;
        view.OnUpdate(HINT_ALL);
        if (bZoomed)
            view.OnMouseWheel({1.0, 1.0}, false);
        selection.m_nSeries = 1;
        selection.SetFocusPoint(-1, -1.0);
        view.OnUpdate(HINT_POINTS_CHANGED);
        EXPECT_TRUE(view.Transform().VisibleWorld().Contains({50.1, 10.0}));
    }
    view.OnMouseWheel({1.0, 1.0}, false);
    event.m_dZoom = 3.0;
    for (const EUpdateHint hint : {HINT_RESULTS_CHANGED, HINT_TRACKFILE_CHANGED, HINT_ALL}) {
        view.OnMouseWheel({1.0, 1.0}, false);
        view.OnUpdate(hint);
        EXPECT_FALSE(view.Transform().IsZoomed());
        EXPECT_EQ(view.Transform().m_dZoomStep, 3.0);
    }
}

TEST_F(SView, AResizedPaneKeepsItsMiddleAndItsZoom)
{
    view.OnMouseWheel({100.0, 60.0}, false);
    const CPosition middle = view.Transform().DeviceToWorld({210.0, 105.0});
    const double dUnits = Units();
    view.OnSize(0, 0); // the splitter hides the pane
    view.OnSize(840, 420);
    EXPECT_FALSE(view.Transform().IsZoomed()) << "a hidden pane has no view to keep";
    view.OnUpdate(HINT_ALL);
    view.OnSize(420, 210);
    view.OnMouseWheel({100.0, 60.0}, false);
    view.OnSize(840, 420);
    EXPECT_NEAR(view.Transform().DeviceToWorld({420.0, 210.0}).m_dLongitude, middle.m_dLongitude, 1e-12);
    EXPECT_NEAR(Units(), dUnits / 2.0, 1e-12);
    EXPECT_EQ(view.Transform().m_dZoomFactor, 0.5);
    view.OnSize(420, 210);
    EXPECT_NEAR(Units(), dUnits, 1e-12);
}

TEST_F(SView, OnlyWhatChangedIsComputedAgain)
{
    const auto numbers = [&] {
        const SScene& scene = view.Scene(text);
        return std::array{scene.layers[MapGround].nVersion, scene.layers[MapRun].nVersion,
                          scene.layers[MapNames].nVersion, scene.layers[MapFocus].nVersion};
    };
    const auto first = numbers();
    EXPECT_EQ(numbers(), first);
    selection.MoveFocus(nullptr, 0, 5.0);
    auto after = numbers();
    EXPECT_THAT(after, ElementsAre(first[0], first[1], first[2], first[3] + 1)) << "a step of the focus";
    EXPECT_FALSE(view.Scene(text).layers[MapFocus].IsEmpty());
    selection.m_nRunSeries = selection.m_nRunCompetitor = 0;
    selection.m_nRunStart = 2;
    selection.m_nRunEnd = 6;
    hub.UpdateAllViews(nullptr, HINT_FOCUS_MOVED);
    EXPECT_EQ(numbers()[1], first[1] + 1) << "a picked run";
    EXPECT_EQ(numbers()[0], first[0]);
    EXPECT_EQ(view.Scene(text).layers[MapRun].polylines.size(), 1U);
    view.OnMouseWheel({0.0, 0.0}, false);
    EXPECT_EQ(numbers()[0], first[0] + 1);
    view.ShowNeighborhood(true);
    after = numbers();
    selection.MoveFocus(nullptr, 0, 6.0);
    EXPECT_EQ(numbers()[0], after[0] + 1) << "the neighbourhood goes with the focus";
    view.OnLButtonDown(PixelOf(7), Plain);
    EXPECT_EQ(selection.m_dFocusPoint, 7.0);
    EXPECT_EQ(numbers()[0], after[0] + 2);
    // Marked points come as other results.
    Series(0).m_points[7].m_nInvalidFlags = InvalidFlag::User;
    hub.UpdateAllViews(nullptr, HINT_RESULTS_CHANGED);
    EXPECT_NE(LinesText(view.Scene(text).layers[MapGround], ESceneRole::Invalid), "");
}

TEST_F(SView, ThePageShowsWhatTheScreenShows)
{
    event.m_persons[0].m_series[0].m_points[1].m_nInvalidFlags = InvalidFlag::User;
    view.OnMouseWheel({0.0, 105.0}, false);
    const SScene page = view.PrintScene({200, 100, 200 + 4200, 100 + 2100}, 10.0, text);
    const SScene& screen = view.Scene(text);
    const auto first = [](const SScene& scene) {
        for (const SSceneLines& lines : scene.layers[MapGround].lines) {
            if (lines.pen.role == ESceneRole::Invalid)
                return lines.ends.at(0);
        }
        return SScenePoint{};
    };
    EXPECT_NEAR(first(page).dX, 200.0 + 10.0 * first(screen).dX, 1e-6);
    EXPECT_NEAR(first(page).dY, 100.0 + 10.0 * first(screen).dY, 1e-6);
    EXPECT_EQ(page.layers[MapNames].texts.at(0).strText, "Zoom=2.0");
    EXPECT_EQ(view.Transform().m_rcDevice, (SSceneArea{0, 0, 420, 210})) << "the screen's is as it was";
}

TEST_F(SView, ThePointerIsShownAndMayTakeTheKeyboard)
{
    EXPECT_FALSE(view.OnMouseMove({210.0, 105.0}, false));
    EXPECT_EQ(nStatus, 1);
    EXPECT_THAT(selection.m_statusTexts, ElementsAre("SPEED", "AVG", "DIST", "0", ".100000000", "TIME"));
    view.OnMouseMove({210.0, 105.0}, false);
    EXPECT_EQ(nStatus, 1) << "it did not move";
    event.m_bCaptureFocus = 1;
    EXPECT_TRUE(view.OnMouseMove({211.0, 105.0}, false));
    EXPECT_FALSE(view.OnMouseMove({212.0, 105.0}, true)) << "while it drags";
}

TEST_F(SView, NewWaypointsGoToThePointOrToTheClickedPosition)
{
    view.OnRButtonDown({PixelOf(4).dX + 2.0, PixelOf(4).dY});
    EXPECT_EQ(view.PlaceForNewPoint(), std::nullopt);
    EXPECT_EQ(Focus(), std::pair(0, 4.0));
    view.OnRButtonDown({100.0, 10.0});
    const CPosition place = view.PlaceForNewPoint().value();
    EXPECT_EQ(view.Transform().WorldToDevice(place), (SScenePoint{100.0, 10.0}));
    EXPECT_EQ(Focus(), std::pair(0, 4.0)) << "stays";
}

TEST_F(SView, TheChoiceOfFieldsIsKept)
{
    const auto shown = [](const CMapView& map) {
        std::string strShown;
        for (const auto& [strTitle, bShown] : map.FieldsDialog().rows)
            strShown += bShown ? std::string(strTitle) + ";" : "";
        return strShown;
    };
    EXPECT_EQ(shown(view), "Grid;Zoom;Speed Color;") << "at the first start";
    SGridFieldsDialog dialog = view.FieldsDialog();
    dialog.Toggle(0);
    dialog.Toggle(2);
    dialog.Toggle(4);
    {
        CMapView other(event, hub, selection, settings);
        other.OnSize(420, 210);
        EXPECT_FALSE(LinesText(other.Scene(text).layers[MapGround], ESceneRole::Data).empty());
        other.ApplyFields(dialog);
        EXPECT_TRUE(LinesText(other.Scene(text).layers[MapGround], ESceneRole::Data).empty());
        EXPECT_FALSE(LinesText(other.Scene(text).layers[MapGround], ESceneRole::Track).empty());
    }
    EXPECT_EQ(shown(CMapView(event, hub, selection, settings)), "Zoom;WayPoints;");
    EXPECT_EQ(settings.Read("Grid Fields/Map1/Speed Color", "Display"), "0");
}

TEST(MapView, WithoutFilesThereIsNothingButNoHarm)
{
    CEvent event;
    CUpdateHub hub;
    CViewSelection selection(event, hub, NoProgress());
    CMemorySettings settings;
    CMapView view(event, hub, selection, settings);
    const CFixedText text;
    for (const int nSize : {0, 300}) {
        view.OnSize(nSize, nSize);
        view.OnInitialUpdate();
        view.OnLButtonDown({10.0, 10.0}, Plain);
        view.OnMouseMove({20.0, 20.0}, true);
        view.OnMouseWheel({10.0, 10.0}, false);
        view.OnCommand(ECommand::ZoomOut);
        view.OnScroll(EScrollBar::Vertical, EScroll::PageOn);
        view.OnUpdate(HINT_POINTS_CHANGED);
        const SScene& scene = view.Scene(text);
        EXPECT_TRUE(std::ranges::all_of(scene.layers, &SSceneLayer::IsEmpty));
    }
}

} // namespace
} // namespace kestrabel::test
