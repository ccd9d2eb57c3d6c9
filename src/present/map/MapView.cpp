#include "present/map/MapView.h"

#include "model/NumberText.h"
#include "present/scene/FocusStep.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double ClickReach = 3.0; // pixels
constexpr int PointerDecimals = 9;
constexpr int PrefetchDistance = 16;

} // namespace

CMapView::CMapView(const CEvent& event, CUpdateHub& hub, CViewSelection& selection, CSettingsStore& settings)
    : CSceneView(event),
      m_hub(hub),
      m_selection(selection),
      m_settings(settings),
      m_fields(DefaultFields(MapFieldTable))
{
    LoadGridFields(m_settings, MapFieldsTable, m_fields);
    m_hub.Attach(*this);
    ShowAll();
}

CMapView::~CMapView()
{
    m_hub.Detach(*this);
    SaveGridFields(m_settings, MapFieldsTable, m_fields);
}

// What is shown

void CMapView::ShowAll()
{
    m_extent = MapExtent(m_selection);
    m_transform.SetMapping(m_transform.m_rcDevice, m_extent);
}

void CMapView::ShowInMiddle(const CPosition& position)
{
    m_transform.SetDeviceAnchor(m_transform.m_rcDevice.Centre());
    m_transform.SetWorldAnchor(position);
}

void CMapView::OnUpdate(EUpdateHint hint)
{
    if (m_event.m_dZoom > 0.0)
        m_transform.m_dZoomStep = m_event.m_dZoom;
    const std::optional<CPosition> focus = FocusPosition(m_selection);
    if (hint == HINT_FOCUS_MOVED) {
        if (m_transform.IsZoomed() && focus && !m_transform.VisibleWorld().Contains(*focus)) {
            ShowInMiddle(*focus);
            m_bGroundStale = true;
        }
        m_bGroundStale = m_bGroundStale || m_bNeighborhood;
        m_listener.onChanged();
        return;
    }
    m_bTracksStale = true;
    if (hint != HINT_POINTS_CHANGED || !m_transform.IsZoomed()) {
        ShowAll();
    } else {
        m_extent = MapExtent(m_selection);
        m_transform.SetExtent(m_extent);
        if (focus)
            ShowInMiddle(*focus);
        else if (!m_transform.VisibleWorld().Intersects(m_extent))
            ShowAll(); // another file, somewhere else
    }
    m_listener.onChanged();
}

void CMapView::OnSize(int nWidth, int nHeight)
{
    const SSceneArea area = {0, 0, nWidth, nHeight};
    if (area == m_transform.m_rcDevice)
        return;
    const CPosition middle = m_transform.DeviceToWorld(m_transform.m_rcDevice.Centre());
    const double dZoomFactor = m_transform.m_dZoomFactor;
    const bool bZoomed = m_transform.IsZoomed() && m_transform.IsUsable();
    m_transform.SetMapping(area, m_extent);
    if (bZoomed) {
        m_transform.SetWorldAnchor(middle);
        m_transform.ZoomBy(dZoomFactor);
        m_transform.m_dZoomFactor = dZoomFactor; // not a digit of it changes by this
    }
    Refresh();
}

void CMapView::Refresh()
{
    m_bGroundStale = true;
    m_listener.onChanged();
}

void CMapView::ShowNeighborhood(bool bShow)
{
    m_bNeighborhood = bShow;
    Refresh();
}

void CMapView::ApplyFields(const SGridFieldsDialog& dialog)
{
    dialog.ApplyTo(m_fields);
    m_bTracksStale = true;
    Refresh();
}

// The scene

void CMapView::UpdateTracks()
{
    if (!m_bTracksStale)
        return;
    m_tracks = MakeMapTracks(m_event, m_selection, Options().bSpeedColor);
    m_bTracksStale = false;
    m_bGroundStale = true;
}

void CMapView::SetLayer(EMapLayer layer, SSceneLayer now)
{
    now.nVersion = m_scene.layers[layer].nVersion + 1;
    m_scene.layers[layer] = std::move(now);
}

const SScene& CMapView::Scene(const CSceneTextSize& text)
{
    UpdateTracks();
    const SSceneSurface surface = {m_transform, text};
    const SMapOptions options = Options();
    const bool bGround = m_bGroundStale;
    const CViewSelection::CRunKey run = m_selection.RunKey();
    const std::optional<CPosition> focus = FocusPosition(m_selection);
    m_scene.layers.resize(MapLayers);
    if (bGround) {
        SetLayer(MapGround, GroundLayer(surface, m_tracks, m_selection, options));
        SetLayer(MapNames, NamesLayer(surface, m_event, m_tracks, m_selection, options));
    }
    if (bGround || run != m_shownRun)
        SetLayer(MapRun, RunLayer(surface, m_event, m_tracks, m_selection, options));
    if (bGround || focus != m_shownFocus)
        SetLayer(MapFocus, FocusLayer(surface, focus));
    m_bGroundStale = false;
    m_shownRun = run;
    m_shownFocus = focus;
    return m_scene;
}

SScene CMapView::PrintScene(const SSceneArea& area, double dScale, const CSceneTextSize& text)
{
    UpdateTracks();
    CMapTransform transform = m_transform;
    transform.SetDeviceRect(area);
    const SSceneSurface surface = {transform, text, dScale};
    const SMapOptions options = Options();
    return {{GroundLayer(surface, m_tracks, m_selection, options),
             RunLayer(surface, m_event, m_tracks, m_selection, options),
             NamesLayer(surface, m_event, m_tracks, m_selection, options),
             FocusLayer(surface, FocusPosition(m_selection))}};
}

// Scroll bars and mouse

void CMapView::OnScroll(EScrollBar bar, EScroll scroll, int nThumb)
{
    if (!m_transform.IsZoomed())
        return;
    ScrollMap(m_transform, m_extent, bar, scroll, nThumb);
    Refresh();
}

void CMapView::ZoomAt(const SScenePoint& point, bool bIn)
{
    m_transform.AnchorAt(point);
    if (bIn)
        m_transform.ZoomIn();
    else
        m_transform.ZoomOut();
    Refresh();
}

void CMapView::ZoomAll()
{
    ShowAll();
    Refresh();
}

const CTrackPoint* CMapView::PointAt(const SScenePoint& point)
{
    if (!m_transform.IsUsable())
        return nullptr;
    const CPosition northWest = m_transform.DeviceToWorld({point.dX - ClickReach, point.dY - ClickReach});
    const CPosition southEast = m_transform.DeviceToWorld({point.dX + ClickReach, point.dY + ClickReach});
    const CGeoRect box = {.m_dWest = northWest.m_dLongitude,
                          .m_dNorth = northWest.m_dLatitude,
                          .m_dEast = southEast.m_dLongitude,
                          .m_dSouth = southEast.m_dLatitude};
    const CObjectArray<CTrackPoint>& points = m_selection.GetSeriesPoints(m_selection.m_nSeries);
    for (int i = 0; i < points.GetCount(); ++i) {
        points.Prefetch(i + PrefetchDistance);
        if (box.Contains(points[i].m_position))
            return points.At(i);
    }
    return nullptr;
}

void CMapView::FocusOn(const CTrackPoint& point, const CPane* pSender)
{
    m_selection.MoveFocus(pSender, point.m_nSeriesIndex, point.m_nTrack);
}

void CMapView::OnLButtonDown(const SScenePoint& point, SModifiers modifiers)
{
    m_dragged = point;
    if (modifiers.bCtrl) {
        ZoomAt(point, true);
    } else if (modifiers.bShift) {
        ShowInMiddle(m_transform.DeviceToWorld(point));
        Refresh();
    } else {
        if (const CTrackPoint* pPoint = PointAt(point)) {
            FocusOn(*pPoint, this);
            m_bGroundStale = m_bGroundStale || m_bNeighborhood;
        }
        m_listener.onChanged();
    }
}

void CMapView::Drag(const SScenePoint& from, const SScenePoint& to)
{
    const CPosition grabbed = m_transform.DeviceToWorld(from);
    const CPosition reached = m_transform.DeviceToWorld(to);
    m_transform.m_dWorldAnchorX += grabbed.m_dLongitude - reached.m_dLongitude;
    m_transform.m_dWorldAnchorY += grabbed.m_dLatitude - reached.m_dLatitude;
    Refresh();
}

void CMapView::ShowPointer(const SScenePoint& point)
{
    const CPosition position = m_transform.DeviceToWorld(point);
    m_selection.m_statusTexts = {"SPEED",
                                 "AVG",
                                 "DIST",
                                 FormatNumber(position.m_dLatitude, PointerDecimals, false),
                                 FormatNumber(position.m_dLongitude, PointerDecimals, false),
                                 "TIME"};
    m_listener.onStatus();
}

// Keys

bool CMapView::OnKeyDown(EViewKey key, SModifiers modifiers)
{
    if (m_selection.GetSeriesPoints(m_selection.m_nFocusSeries).IsEmpty())
        return false;
    switch (key) {
    case EViewKey::Left:
    case EViewKey::Right:
    case EViewKey::Up:
    case EViewKey::Down:
        if (!modifiers.bShift)
            return StepFocus(m_selection, nullptr, key == EViewKey::Right || key == EViewKey::Down,
                             modifiers.bCtrl);
        ScrollPage(key);
        return true;
    case EViewKey::Home:
    case EViewKey::End:
        return !modifiers.bShift && !modifiers.bCtrl && StepFocus(m_selection, nullptr, true, false);
    case EViewKey::Delete: m_listener.onDelete(false); return true;
    case EViewKey::Backspace: m_listener.onDelete(true); return true;
    }
    return false;
}

void CMapView::ScrollPage(EViewKey key)
{
    const bool bHorizontal = key == EViewKey::Left || key == EViewKey::Right;
    const bool bOn = key == EViewKey::Right || key == EViewKey::Down;
    OnScroll(bHorizontal ? EScrollBar::Horizontal : EScrollBar::Vertical,
             bOn ? EScroll::PageOn : EScroll::PageBack);
}

std::optional<CPosition> CMapView::PlaceForNewPoint()
{
    const CTrackPoint* pPoint = PointAt(m_rightClicked);
    if (pPoint == nullptr)
        return m_transform.DeviceToWorld(m_rightClicked);
    FocusOn(*pPoint, nullptr);
    return std::nullopt;
}

} // namespace kestrabel
