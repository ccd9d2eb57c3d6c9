#include "present/graph/ResultSpeedGraphView.h"

#include "present/graph/GraphWorld.h"

namespace kestrabel::test {
namespace {

using testing::ElementsAre;

constexpr SModifiers Plain = {};
constexpr SModifiers Shift = {.bShift = true};
constexpr SModifiers Ctrl = {.bCtrl = true};

/// A graph without labels over a file of 101 points, five pixels per point.
struct SGraphView : SGraphWorld
{
    SGraphView()
    {
        AddSpeeds(std::vector<double>(101, 20.0));
        selection.m_dViewMaxSpeed = 50.0;
        event.m_dZoom = 2.0;
        event.m_nTimeThreshold = 200;
        view.SetListener({.onChanged = [this] { ++nChanged; },
                          .onStatus = [this] { ++nStatus; },
                          .onDelete = [this](bool bBefore) { strDeleted += bBefore ? "<" : "."; }});
        Choose({EGraphField::Speed});
        view.OnSize(500, 102);
        view.OnUpdate(HINT_ALL);
        view.Scene(text);
    }
    void Choose(std::initializer_list<EGraphField> shown)
    {
        SGridFieldsDialog dialog = view.FieldsDialog();
        for (std::size_t i = 0; i < dialog.rows.size(); ++i)
            dialog.rows[i].second = std::ranges::count(shown, static_cast<EGraphField>(i)) > 0;
        view.ApplyFields(dialog);
    }
    std::pair<int, double> Focus() const { return {selection.m_nFocusSeries, selection.m_dFocusPoint}; }
    /// The points at the left and the right edge.
    std::string Shown()
    {
        view.Scene(text);
        const CGeoRect visible = view.Transform().VisibleWorld();
        return FormatNumber(visible.m_dWest, 2, true) + ".." + FormatNumber(visible.m_dEast, 2, true);
    }
    double Zoom() const { return view.Transform().m_dZoomFactor; }

    CResultSpeedGraphView view{event, hub, selection, settings};
    int nChanged = 0;
    int nStatus = 0;
    std::string strDeleted;
};

TEST_F(SGraphView, AClickFocusesThePointLeftOfIt)
{
    const struct
    {
        double dX;
        double dPoint;
    } clicks[] = {{250.0, 50.0}, {254.9, 50.0}, {255.0, 51.0}, {-8.0, 0.0}, {499.0, 99.0}, {700.0, 100.0}};
    for (const auto& [dX, dPoint] : clicks) {
        hints.clear();
        view.OnLButtonDown({dX, 30.0}, Plain);
        view.OnLButtonUp();
        EXPECT_EQ(Focus(), std::pair(0, dPoint)) << dX;
        EXPECT_THAT(hints, ElementsAre(HINT_FOCUS_MOVED)) << "the other panes are told";
    }
    EXPECT_EQ(Zoom(), 1.0);

    AddSpeeds(std::vector<double>(101, 20.0), 0.5);
    view.OnUpdate(HINT_POINTS_CHANGED);
    view.Scene(text);
    view.OnLButtonDown({253.0, 30.0}, Plain);
    EXPECT_EQ(Focus(), std::pair(1, 50.0)) << "entry 101 of the merged list";
    Person().m_series.RemoveAll();
    selection.ForgetPoints();
    selection.SetFocusPoint(-1, -1.0);
    view.OnUpdate(HINT_POINTS_CHANGED);
    view.OnLButtonDown({250.0, 30.0}, Plain);
    EXPECT_EQ(Focus(), std::pair(-1, -1.0));
}

TEST_F(SGraphView, ZoomingKeepsThePlaceAndTheSpeeds)
{
    const CGeoRect whole = view.Transform().VisibleWorld();
    EXPECT_EQ(Shown(), "0..100");
    EXPECT_EQ(whole.m_dNorth, 51.0);
    view.OnLButtonDown({100.0, 30.0}, Ctrl);
    view.OnLButtonUp();
    EXPECT_EQ(Shown(), "10..60") << "about point 20";
    EXPECT_EQ(Focus(), std::pair(0, 20.0));
    EXPECT_EQ(view.Transform().VisibleWorld().m_dNorth, 51.0);
    view.OnMouseWheel({500.0, 30.0}, false);
    EXPECT_EQ(Shown(), "35..60");
    view.OnRButtonDown({0.0, 30.0});
    EXPECT_TRUE(view.OnCommand(ECommand::ZoomOut));
    EXPECT_EQ(Shown(), "35..85");
    EXPECT_TRUE(view.OnCommand(ECommand::ZoomIn));
    EXPECT_EQ(Shown(), "35..60");
    view.OnLButtonDown({50.0, 30.0}, Shift);
    view.OnLButtonUp();
    EXPECT_EQ(Shown(), "24.38..49.62") << "101 points / 4 about point 37";
    EXPECT_FALSE(view.OnCommand(ECommand::Recalculate));
    view.OnMouseWheel({50.0, 30.0}, true);
    view.OnMouseWheel({50.0, 30.0}, true);
    EXPECT_EQ(Shown(), "0..100") << "snaps back";
    EXPECT_FALSE(view.ScrollBar(EScrollBar::Horizontal).bShown);
    for (int i = 0; i < 50; ++i)
        view.OnMouseWheel({200.0, 30.0}, false);
    EXPECT_GT(view.Transform().VisibleWorld().Width(), 1.0) << "there is always something to see";
    EXPECT_TRUE(view.OnCommand(ECommand::ZoomAll));
    EXPECT_EQ(Shown(), "0..100");
}

TEST_F(SGraphView, TheScrollBarCountsPoints)
{
    EXPECT_FALSE(view.ScrollBar(EScrollBar::Horizontal).bShown);
    view.OnScroll(EScrollBar::Horizontal, EScroll::Last);
    EXPECT_EQ(Shown(), "0..100") << "all is there already";
    view.OnMouseWheel({0.0, 0.0}, false);
    view.OnMouseWheel({0.0, 0.0}, false);
    EXPECT_EQ(view.ScrollBar(EScrollBar::Horizontal),
              (SScrollBar{.bShown = true, .nRange = 101, .nPage = 25, .nPosition = 0}));
    EXPECT_FALSE(view.ScrollBar(EScrollBar::Vertical).bShown);
    const struct
    {
        EScroll scroll;
        const char* pShown;
    } steps[] = {{EScroll::LineOn, "1..26"},   {EScroll::PageOn, "26..51"},    {EScroll::Last, "76..101"},
                 {EScroll::PageOn, "76..101"}, {EScroll::LineBack, "75..100"}, {EScroll::PageBack, "50..75"},
                 {EScroll::First, "0..25"},    {EScroll::Thumb, "40..65"}};
    for (const auto& [scroll, pShown] : steps) {
        view.OnScroll(EScrollBar::Horizontal, scroll, 40);
        EXPECT_EQ(Shown(), pShown) << static_cast<int>(scroll);
    }
    EXPECT_EQ(view.ScrollBar(EScrollBar::Horizontal).nPosition, 40);
}

TEST_F(SGraphView, ItIsDraggedWhileZoomed)
{
    view.OnLButtonDown({250.0, 30.0}, Plain);
    view.OnMouseMove({240.0, 30.0}, true);
    EXPECT_EQ(Shown(), "0..100") << "a click with an unsteady hand";
    view.OnLButtonUp();
    view.OnMouseWheel({0.0, 0.0}, false);
    view.OnLButtonDown({250.0, 30.0}, Plain);
    view.OnMouseMove({150.0, 90.0}, true);
    EXPECT_EQ(Shown(), "10..60");
    view.OnMouseMove({200.0, 30.0}, true);
    EXPECT_EQ(Shown(), "5..55");
    view.OnLButtonUp();
    view.OnMouseMove({300.0, 30.0}, true);
    EXPECT_EQ(Shown(), "5..55") << "the button went down elsewhere";
    EXPECT_EQ(view.Transform().VisibleWorld().m_dNorth, 51.0);
}

TEST_F(SGraphView, ThePointerTellsThePointUnderIt)
{
    event.m_nTimePrecision = 1;
    event.m_dTimezone = 2.0;
    Series(0).m_points[7].m_dTotalDistance = 1.2345;
    EXPECT_FALSE(view.OnMouseMove({39.0, 5.0}, false));
    EXPECT_THAT(selection.m_statusTexts, ElementsAre("20.000", "AVG", "1234.50", "0", ".007", "12:00:07.0"));
    EXPECT_EQ(nStatus, 1);
    view.OnMouseMove({39.0, 5.0}, false);
    EXPECT_EQ(nStatus, 1) << "it did not move";
    for (const double dX : {-1.0, 505.0}) {
        view.OnMouseMove({dX, 5.0}, false);
        EXPECT_THAT(selection.m_statusTexts,
                    ElementsAre("SPEED", "AVG", "DIST", "LATITUDE", "LONGITUDE", "TIME"));
    }
    event.m_bCaptureFocus = 1;
    EXPECT_TRUE(view.OnMouseMove({40.0, 5.0}, false)) << "takes the keyboard";
    EXPECT_FALSE(view.OnMouseMove({41.0, 5.0}, true));
}

TEST_F(SGraphView, KeysStepTheFocusAndScroll)
{
    view.OnMouseWheel({0.0, 0.0}, false);
    view.OnMouseWheel({0.0, 0.0}, false);
    const struct
    {
        EViewKey key;
        SModifiers modifiers;
        double dFocus;
        const char* pShown;
    } steps[] = {
        {EViewKey::Right, Plain, 0.0, "0..25"},     {EViewKey::Right, Plain, 1.0, "0..25"},
        {EViewKey::Right, Ctrl, 100.0, "76..101"},  {EViewKey::Right, Plain, 100.0, "76..101"},
        {EViewKey::Home, Plain, 100.0, "0..25"},    {EViewKey::Left, Plain, 99.0, "86.38..111.62"},
        {EViewKey::End, Plain, 99.0, "76..101.25"}, {EViewKey::Left, Ctrl, 0.0, "0..25.25"},
        {EViewKey::Right, Shift, 0.0, "25..50.25"}, {EViewKey::Left, Shift, 0.0, "0..25.25"},
    };
    for (const auto& [key, modifiers, dFocus, pShown] : steps) {
        EXPECT_TRUE(view.OnKeyDown(key, modifiers));
        EXPECT_EQ(Focus(), std::pair(0, dFocus));
        EXPECT_EQ(Shown(), pShown) << dFocus;
    }
    // One step out of sight: the next page.
    view.OnScroll(EScrollBar::Horizontal, EScroll::Thumb, 30);
    selection.SetFocusPoint(0, 55.0);
    view.OnKeyDown(EViewKey::Right, Plain);
    EXPECT_EQ(Shown(), "55..80.25");
    EXPECT_FALSE(view.OnKeyDown(EViewKey::Up, Plain));
    EXPECT_TRUE(view.OnKeyDown(EViewKey::Delete, Plain));
    EXPECT_TRUE(view.OnKeyDown(EViewKey::Backspace, Plain));
    EXPECT_EQ(strDeleted, ".<");
    Series(0).m_points.RemoveAll();
    EXPECT_FALSE(view.OnKeyDown(EViewKey::Delete, Plain));
}

TEST_F(SGraphView, UpdatesKeepTheZoomOnlyAroundAFocus)
{
    view.OnMouseWheel({250.0, 0.0}, false);
    selection.SetFocusPoint(0, 90.0);
    for (const EUpdateHint hint : {HINT_FOCUS_MOVED, HINT_POINTS_CHANGED, HINT_RESULTS_CHANGED}) {
        view.OnScroll(EScrollBar::Horizontal, EScroll::First);
        view.OnUpdate(hint);
        EXPECT_EQ(Shown(), "64.75..115.25") << hint;
        EXPECT_EQ(Zoom(), 0.5);
    }
    selection.SetFocusPoint(-1, -1.0);
    view.OnUpdate(HINT_FOCUS_MOVED);
    EXPECT_EQ(Shown(), "64.75..115.25") << "nothing to follow";
    view.OnUpdate(HINT_POINTS_CHANGED);
    EXPECT_EQ(Shown(), "0..100");

    // The list became longer, and the zoom step is another.
    AddSpeeds(std::vector<double>(51, 20.0), 200.0);
    selection.m_dViewMaxSpeed = 100.0;
    event.m_dZoom = 4.0;
    view.OnUpdate(HINT_RESULTS_CHANGED);
    EXPECT_EQ(Shown(), "0..151");
    EXPECT_EQ(view.Transform().VisibleWorld().m_dNorth, 102.0);
    view.OnMouseWheel({0.0, 0.0}, false);
    EXPECT_EQ(Zoom(), 0.25);
}

TEST_F(SGraphView, OnlyWhatChangedIsComputedAgain)
{
    const auto versions = [&] {
        std::array<unsigned, GraphLayers> now{};
        for (std::size_t i = 0; i < GraphLayers; ++i)
            now[i] = view.Scene(text).layers[i].nVersion;
        return now;
    };
    auto changed = [&, before = versions()]() mutable {
        std::string strLayers;
        const auto now = versions();
        for (std::size_t i = 0; i < GraphLayers; ++i)
            strLayers += now[i] != before[i] ? "RGFC"[i] : '.';
        before = now;
        return strLayers;
    };
    EXPECT_EQ(changed(), "....");
    view.OnLButtonDown({100.0, 10.0}, Plain);
    EXPECT_EQ(changed(), "..F.");
    view.OnLButtonDown({100.0, 10.0}, Plain);
    EXPECT_EQ(changed(), "....") << "the same point";
    selection.m_nRunStart = 3;
    EXPECT_EQ(changed(), "R...");
    for (const auto& act : {std::function<void()>([&] { view.OnSize(400, 102); }), std::function<void()>([&] {
                                view.OnMouseWheel({9.0, 9.0}, false);
                            }),
                            std::function<void()>([&] { view.OnUpdate(HINT_POINTS_CHANGED); }),
                            std::function<void()>([&] { view.Refresh(); }),
                            std::function<void()>([&] { Choose({EGraphField::Grid}); })})
    {
        act();
        EXPECT_EQ(changed(), "RGFC");
    }
}

TEST_F(SGraphView, TheFocusIsALineAndItsTimeWhereNoMinuteIs)
{
    Choose({EGraphField::Grid});
    selection.SetFocusPoint(0, 30.0);
    const SScene& whole = view.Scene(text);
    ASSERT_EQ(whole.layers[GraphFocus].lines.size(), 1U);
    const SSceneLines& line = whole.layers[GraphFocus].lines[0];
    EXPECT_EQ(line.ends[0].dX, line.ends[1].dX);
    EXPECT_EQ(line.ends[1].dY - line.ends[0].dY, view.Transform().m_rcDevice.Height());
    EXPECT_TRUE(whole.layers[GraphFocus].texts.empty()) << "10:01 is there";
    for (int i = 0; i < 4; ++i) {
        const SScenePoint at = view.Transform().WorldToDevice({30.0, 0.0});
        view.OnMouseWheel(at, false);
    }
    const SScene& zoomed = view.Scene(text);
    ASSERT_EQ(zoomed.layers[GraphFocus].texts.size(), 1U);
    EXPECT_EQ(zoomed.layers[GraphFocus].texts[0].strText, "10:00:30");
    selection.SetFocusPoint(0, 99.0);
    EXPECT_TRUE(view.Scene(text).layers[GraphFocus].IsEmpty()) << "out of sight";
}

TEST_F(SGraphView, EmptyListsSizesAndSpeedsDrawNothing)
{
    const auto isEmpty = [&] {
        for (const SSceneLayer& layer : view.Scene(text).layers) {
            if (!layer.IsEmpty())
                return false;
        }
        return true;
    };
    Choose({EGraphField::Grid, EGraphField::Speed, EGraphField::Nodes});
    selection.SetFocusPoint(0, 3.0);
    EXPECT_FALSE(isEmpty());
    view.OnSize(20, 10);
    EXPECT_TRUE(isEmpty()) << "all of it is label";
    view.OnSize(500, 102);
    EXPECT_FALSE(isEmpty());
    selection.m_dViewMaxSpeed = 0.0;
    view.OnUpdate(HINT_POINTS_CHANGED);
    EXPECT_TRUE(isEmpty());
    selection.m_dViewMaxSpeed = 50.0;
    Series(0).m_points.RemoveAll();
    selection.SetFocusPoint(-1, -1.0);
    view.OnUpdate(HINT_POINTS_CHANGED);
    EXPECT_TRUE(isEmpty());
    EXPECT_EQ(view.ScrollBar(EScrollBar::Horizontal), SScrollBar{});
}

TEST_F(SGraphView, ShortListsAndOddZoomStepsKeepTheirNumbersFinite)
{
    Choose({EGraphField::Grid, EGraphField::Zoom, EGraphField::Speed, EGraphField::Sats, EGraphField::Nodes,
            EGraphField::MergedDoppler});
    for (const int nPoints : {1, 2, 3, 101}) {
        while (Series(0).m_points.GetCount() > nPoints)
            Series(0).m_points.RemoveAt(nPoints);
        if (Series(0).m_points.GetCount() < nPoints)
            AddSpeeds(std::vector<double>(static_cast<std::size_t>(nPoints), 20.0));
        selection.ForgetPoints();
        for (const double dStep : {0.2, 1.0, 3.0, -1.0}) {
            event.m_dZoom = dStep;
            selection.SetFocusPoint(0, 0.0);
            view.OnUpdate(HINT_POINTS_CHANGED);
            for (int i = 0; i < 12; ++i) {
                view.OnMouseWheel({300.0, 10.0}, i % 3 == 2);
                view.OnKeyDown(i % 2 == 0 ? EViewKey::Right : EViewKey::End, Plain);
                view.OnScroll(EScrollBar::Horizontal, EScroll::PageOn);
                const SScrollBar bar = view.ScrollBar(EScrollBar::Horizontal);
                EXPECT_LE(bar.nPosition + bar.nPage, bar.nRange);
                for (const SSceneLayer& layer : view.Scene(text).layers) {
                    for (const SSceneLines& lines : layer.lines) {
                        for (const SScenePoint& end : lines.ends)
                            EXPECT_TRUE(std::isfinite(end.dX) && std::isfinite(end.dY));
                    }
                }
            }
        }
    }
}

TEST_F(SGraphView, PaperHasWhatIsOnTheScreen)
{
    Choose({EGraphField::Grid, EGraphField::Zoom, EGraphField::Speed});
    view.OnUpdate(HINT_ALL);
    view.OnMouseWheel({250.0, 10.0}, false);
    const std::string strShown = Shown();
    const SScene page = view.PrintScene({0, 0, 2000, 1200}, 3.0, text);
    ASSERT_EQ(page.layers.size(), GraphLayers);
    const SSceneLayer& curves = page.layers[GraphCurves];
    ASSERT_EQ(curves.texts.size(), 1U);
    EXPECT_EQ(curves.texts[0].strText, "Zoom=2.0");
    EXPECT_EQ(curves.texts[0].at, (SScenePoint{2000.0, 1200.0}));
    ASSERT_EQ(curves.lines.size(), 1U);
    double dLeft = HUGE_VAL;
    double dRight = 0.0;
    for (const SScenePoint& end : curves.lines[0].ends) {
        dLeft = std::min(dLeft, end.dX);
        dRight = std::max(dRight, end.dX);
    }
    EXPECT_LT(dLeft, 60.0);
    EXPECT_GE(dRight, 1999.0);
    EXPECT_EQ(Shown(), strShown) << "the screen stays as it was";
}

TEST(ResultSpeedGraphView, TheChoiceOfFieldsIsKept)
{
    CMemorySettings settings;
    CEvent event;
    CUpdateHub hub;
    CViewSelection selection(event, hub, NoProgress());
    const auto shown = [&] {
        std::string strShown;
        for (const auto& [strTitle, bShown] :
             CResultSpeedGraphView(event, hub, selection, settings).FieldsDialog().rows)
            strShown += bShown ? std::string(strTitle) + " " : "";
        return strShown;
    };
    EXPECT_EQ(shown(), "Grid Zoom Speed ") << "a fresh installation";
    {
        CResultSpeedGraphView view(event, hub, selection, settings);
        SGridFieldsDialog dialog = view.FieldsDialog();
        dialog.Toggle(1);
        dialog.Toggle(7);
        view.ApplyFields(dialog);
    }
    EXPECT_EQ(shown(), "Grid Speed Sats ");
    EXPECT_EQ(settings.Read("Grid Fields/Graph1/Sats", "Display"), "1");
}

} // namespace
} // namespace kestrabel::test
