#include "present/graph/ResultSpeedGraphView.h"

#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"
#include "present/graph/GraphGrid.h"
#include "present/scene/FocusStep.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr int SpeedDecimals = 3;
constexpr int DistanceDecimals = 2;
constexpr int PlaceDecimals = 9;
constexpr double MetresPerKilometre = 1000.0;

/// Fewer would be but a line from nowhere to nowhere.
constexpr double FewestPoints = 2.0;

/// A pane that has no size yet.
constexpr SSceneArea UnknownArea = {0, 0, 100, 100};

} // namespace

CResultSpeedGraphView::CResultSpeedGraphView(const CEvent& event, CUpdateHub& hub, CViewSelection& selection,
                                             CSettingsStore& settings)
    : CSceneView(event),
      m_hub(hub),
      m_selection(selection),
      m_settings(settings),
      m_fields(DefaultFields(GraphFieldTable)),
      m_area(UnknownArea)
{
    LoadGridFields(m_settings, GraphFieldsTable, m_fields);
    m_hub.Attach(*this);
    m_transform.m_rcDevice = m_area;
    ShowAll();
}

CResultSpeedGraphView::~CResultSpeedGraphView()
{
    m_hub.Detach(*this);
    SaveGridFields(m_settings, GraphFieldsTable, m_fields);
}

// What is shown

CGeoRect CResultSpeedGraphView::Extent() const
{
    return {.m_dWest = 0.0,
            .m_dNorth = GraphTop(m_selection),
            .m_dEast = std::max(Points().GetCount() - 1.0, 0.0),
            .m_dSouth = 0.0};
}

std::optional<int> CResultSpeedGraphView::FocusIndex() const
{
    return ShownIndex(m_selection, m_selection.m_nFocusSeries, m_selection.m_dFocusPoint);
}

void CResultSpeedGraphView::ShowAll()
{
    m_transform.SetMapping(m_transform.m_rcDevice, Extent());
}

/// As many points as before around a place of the list.
void CResultSpeedGraphView::ShowInMiddle(double dIndex)
{
    const double dZoom = m_transform.m_dZoomFactor;
    const double dHalf = dZoom * Points().GetCount() * 0.5;
    CGeoRect world = Extent();
    m_transform.SetMapping(m_transform.m_rcDevice, world);
    world.m_dWest = dIndex - dHalf;
    world.m_dEast = dIndex + dHalf;
    m_transform.SetWorld(world);
    m_transform.m_dZoomFactor = dZoom;
}

void CResultSpeedGraphView::ShowFrom(double dFirst)
{
    m_transform.m_dWorldAnchorX += dFirst - m_transform.VisibleWorld().m_dWest;
}

void CResultSpeedGraphView::OnUpdate(EUpdateHint hint)
{
    if (m_event.m_dZoom > 0.0)
        m_transform.m_dZoomStep = m_event.m_dZoom;
    if (hint != HINT_FOCUS_MOVED) {
        m_bTracksStale = true;
        m_bAllStale = true;
    }
    const std::optional<int> focus = m_transform.IsZoomed() ? FocusIndex() : std::nullopt;
    if (focus) {
        ShowInMiddle(*focus);
        m_bAllStale = true;
    } else if (hint != HINT_FOCUS_MOVED) {
        ShowAll();
    }
    m_listener.onChanged();
}

void CResultSpeedGraphView::OnSize(int nWidth, int nHeight)
{
    const SSceneArea area = nWidth > 0 && nHeight > 0 ? SSceneArea{0, 0, nWidth, nHeight} : UnknownArea;
    if (area == m_area)
        return;
    m_area = area;
    Refresh();
}

void CResultSpeedGraphView::Refresh()
{
    m_bAllStale = true;
    m_listener.onChanged();
}

void CResultSpeedGraphView::ApplyFields(const SGridFieldsDialog& dialog)
{
    dialog.ApplyTo(m_fields);
    m_bTracksStale = true;
    Refresh();
}

// The scene

void CResultSpeedGraphView::UpdateTracks()
{
    if (m_bTracksStale)
        m_tracks = MakeGraphTracks(m_event, m_selection, m_fields);
    m_bTracksStale = false;
}

void CResultSpeedGraphView::UpdateLayout(const CSceneTextSize& text)
{
    m_layout = LayoutGraph(m_area, text, m_selection, m_fields);
    if (m_layout.plot == m_transform.m_rcDevice)
        return;
    const double dMiddle = m_transform.DeviceToWorld(m_transform.m_rcDevice.Centre()).m_dLongitude;
    m_transform.m_rcDevice = m_layout.plot;
    if (m_transform.IsZoomed())
        ShowInMiddle(dMiddle);
    else
        ShowAll();
}

SSceneLayer CResultSpeedGraphView::GridLayer(const SGraphSurface& surface, bool& bTicks) const
{
    SSceneLayer layer;
    bTicks = true;
    if (!IsShown(m_fields, EGraphField::Grid) || !surface.scene.transform.IsUsable() || Points().IsEmpty())
        return layer;
    AddSpeedGrid(surface.scene, surface.layout, layer);
    bTicks = AddTimeTicks(surface.scene, surface.layout, Points(), m_event.m_dTimezone,
                          IsShown(m_fields, EGraphField::Zoom), layer);
    return layer;
}

SSceneLayer CResultSpeedGraphView::FocusLayer(const SGraphSurface& surface, std::optional<int> focus,
                                              bool bTicks) const
{
    SSceneLayer layer = GraphFocusLayer(surface, focus);
    if (!bTicks && !layer.IsEmpty())
        AddTimeOfPoint(surface.scene, surface.layout, Points(), *focus, m_event.m_dTimezone, layer);
    return layer;
}

SSceneLayer CResultSpeedGraphView::CurveLayer(const SGraphSurface& surface) const
{
    SSceneLayer layer = GraphCurveLayer(surface, m_tracks, IsShown(m_fields, EGraphField::Nodes));
    if (IsShown(m_fields, EGraphField::Zoom) && !Points().IsEmpty())
        layer.texts.push_back(ZoomText(surface.layout.area, surface.scene.transform.m_dZoomFactor));
    return layer;
}

void CResultSpeedGraphView::SetLayer(EGraphLayer layer, SSceneLayer now)
{
    now.nVersion = m_scene.layers[layer].nVersion + 1;
    m_scene.layers[layer] = std::move(now);
}

const SScene& CResultSpeedGraphView::Scene(const CSceneTextSize& text)
{
    UpdateTracks();
    const bool bAll = m_bAllStale;
    if (bAll)
        UpdateLayout(text);
    const SSceneSurface scene = {m_transform, text};
    const SGraphSurface surface = {scene, m_layout};
    const CViewSelection::CRunKey run = m_selection.RunKey();
    const std::optional<int> focus = FocusIndex();
    m_scene.layers.resize(GraphLayers);
    if (bAll || run != m_shownRun)
        SetLayer(GraphRun, GraphRunLayer(surface, m_selection));
    if (bAll) {
        SetLayer(GraphGrid, GridLayer(surface, m_bTicks));
        SetLayer(GraphCurves, CurveLayer(surface));
    }
    if (bAll || focus != m_shownFocus)
        SetLayer(GraphFocus, FocusLayer(surface, focus, m_bTicks));
    m_bAllStale = false;
    m_shownRun = run;
    m_shownFocus = focus;
    return m_scene;
}

SScene CResultSpeedGraphView::PrintScene(const SSceneArea& area, double dScale, const CSceneTextSize& text)
{
    UpdateTracks();
    const SGraphLayout layout = LayoutGraph(area, text, m_selection, m_fields);
    CMapTransform transform(false);
    CGeoRect world = Extent();
    transform.SetMapping(layout.plot, world);
    if (m_transform.IsZoomed() && m_transform.IsUsable()) {
        const CGeoRect visible = m_transform.VisibleWorld();
        world.m_dWest = visible.m_dWest;
        world.m_dEast = visible.m_dEast;
        transform.SetWorld(world);
        transform.m_dZoomFactor = m_transform.m_dZoomFactor;
    }
    const SSceneSurface scene = {transform, text, dScale};
    const SGraphSurface surface = {scene, layout};
    bool bTicks = true;
    SSceneLayer grid = GridLayer(surface, bTicks);
    return {{GraphRunLayer(surface, m_selection), std::move(grid), FocusLayer(surface, FocusIndex(), bTicks),
             CurveLayer(surface)}};
}

// Scroll bar and mouse

SScrollBar CResultSpeedGraphView::ScrollBar(EScrollBar bar) const
{
    const int nCount = Points().GetCount();
    if (bar == EScrollBar::Vertical || nCount == 0 || !m_transform.IsZoomed())
        return {};
    const int nPage =
        static_cast<int>(std::clamp(std::round(m_transform.m_dZoomFactor * nCount), 1.0, nCount + 0.0));
    const double dFirst = std::round(m_transform.VisibleWorld().m_dWest);
    return {.bShown = true,
            .nRange = nCount,
            .nPage = nPage,
            .nPosition = static_cast<int>(std::clamp(dFirst, 0.0, nCount - nPage + 0.0))};
}

void CResultSpeedGraphView::OnScroll(EScrollBar bar, EScroll scroll, int nThumb)
{
    const SScrollBar now = ScrollBar(bar);
    if (!now.bShown)
        return;
    ShowFrom(PositionAfter(now, scroll, nThumb));
    Refresh();
}

void CResultSpeedGraphView::ZoomAt(const SScenePoint& point, bool bIn)
{
    if (bIn && m_transform.VisibleWorld().Width() <= FewestPoints)
        return;
    m_transform.AnchorAt(point);
    if (bIn)
        m_transform.ZoomIn();
    else
        m_transform.ZoomOut();
    Refresh();
}

void CResultSpeedGraphView::ZoomAll()
{
    ShowAll();
    Refresh();
}

void CResultSpeedGraphView::OnLButtonDown(const SScenePoint& point, SModifiers modifiers)
{
    const CObjectArray<CTrackPoint>& points = Points();
    if (points.IsEmpty())
        return;
    m_dragged = point;
    const double dIndex = std::floor(m_transform.DeviceToWorld(point).m_dLongitude);
    const double dShown = std::clamp(std::isnan(dIndex) ? 0.0 : dIndex, 0.0, points.GetCount() - 1.0);
    const CTrackPoint& clicked = points[static_cast<int>(dShown)];
    m_selection.MoveFocus(this, clicked.m_nSeriesIndex, clicked.m_nTrack);
    if (modifiers.bCtrl) {
        ZoomAt(point, true);
    } else if (modifiers.bShift && m_transform.IsZoomed()) {
        ShowInMiddle(dShown);
        Refresh();
    } else {
        m_listener.onChanged();
    }
}

/// A part of the graph is dragged; the whole has nowhere to go.
void CResultSpeedGraphView::Drag(const SScenePoint& from, const SScenePoint& to)
{
    if (!m_transform.IsZoomed() || from.dX == to.dX)
        return;
    m_transform.m_dWorldAnchorX += (from.dX - to.dX) * m_transform.m_dUnitsPerPixelX;
    Refresh();
}

void CResultSpeedGraphView::ShowPointer(const SScenePoint& point)
{
    const CObjectArray<CTrackPoint>& points = Points();
    const double dIndex = std::floor(m_transform.DeviceToWorld(point).m_dLongitude);
    m_selection.m_statusTexts = {"SPEED", "AVG", "DIST", "LATITUDE", "LONGITUDE", "TIME"};
    if (dIndex >= 0.0 && dIndex < points.GetCount()) {
        const CTrackPoint& under = points[static_cast<int>(dIndex)];
        const double dFactor = SpeedUnitOf(m_event.m_nSpeedUnits).dDisplayFactor;
        m_selection.m_statusTexts = {
            FormatNumber(under.m_dSpeed * dFactor, SpeedDecimals, false),
            "AVG",
            FormatNumber(under.m_dTotalDistance * MetresPerKilometre, DistanceDecimals, false),
            FormatNumber(under.m_position.m_dLatitude, PlaceDecimals, false),
            FormatNumber(under.m_position.m_dLongitude, PlaceDecimals, false),
            FormatTimeOfDay(ShiftToTimezone(under.m_time, m_event.m_dTimezone), m_event.m_nTimePrecision)};
    }
    m_listener.onStatus();
}

// Keys

bool CResultSpeedGraphView::OnKeyDown(EViewKey key, SModifiers modifiers)
{
    if (m_selection.GetSeriesPoints(m_selection.m_nFocusSeries).IsEmpty())
        return false;
    switch (key) {
    case EViewKey::Left:
    case EViewKey::Right: {
        const bool bOn = key == EViewKey::Right;
        if (modifiers.bShift) {
            OnScroll(EScrollBar::Horizontal, bOn ? EScroll::PageOn : EScroll::PageBack);
            return true;
        }
        if (!StepFocus(m_selection, this, bOn, modifiers.bCtrl))
            return false;
        if (modifiers.bCtrl)
            OnScroll(EScrollBar::Horizontal, bOn ? EScroll::Last : EScroll::First);
        FollowFocus(bOn);
        return true;
    }
    case EViewKey::Home: OnScroll(EScrollBar::Horizontal, EScroll::First); return true;
    case EViewKey::End: OnScroll(EScrollBar::Horizontal, EScroll::Last); return true;
    case EViewKey::Delete: m_listener.onDelete(false); return true;
    case EViewKey::Backspace: m_listener.onDelete(true); return true;
    case EViewKey::Up:
    case EViewKey::Down: break;
    }
    return false;
}

void CResultSpeedGraphView::FollowFocus(bool bOn)
{
    const std::optional<int> focus = FocusIndex();
    const auto isSeen = [&] {
        const CGeoRect visible = m_transform.VisibleWorld();
        return !focus || (*focus >= visible.m_dWest && *focus <= visible.m_dEast);
    };
    if (!isSeen())
        OnScroll(EScrollBar::Horizontal, bOn ? EScroll::PageOn : EScroll::PageBack);
    if (!isSeen() && m_transform.IsZoomed()) {
        ShowInMiddle(*focus);
        m_bAllStale = true;
    }
    m_listener.onChanged();
}

} // namespace kestrabel
