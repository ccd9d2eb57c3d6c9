#include "present/map/MapLayers.h"

#include "present/map/MapColors.h"
#include "present/map/MapSegments.h"
#include "present/scene/SceneParts.h"

namespace kestrabel {

namespace {

constexpr double CrossArm = 25.0; // pixels of the screen

/// The points of the picked run's file, from the tracks when it is shown, else copied into `copy`.
SMapPath RunPath(const CViewSelection& selection, std::span<const SMapTrack> tracks,
                 std::vector<CPosition>& copy)
{
    for (const SMapTrack& track : tracks) {
        if (track.nSeries == selection.m_nRunSeries && selection.m_nRunCompetitor == selection.m_nCompetitor)
            return {track.positions, track.blocks};
    }
    const CPerson* pPerson = selection.GetCurrentPerson();
    if (pPerson == nullptr || selection.m_nRunSeries >= pPerson->m_series.GetCount())
        return {};
    for (const CTrackPoint* pPoint : pPerson->m_series[selection.m_nRunSeries].m_points)
        copy.push_back(pPoint->m_position);
    return {copy, {}};
}

void AddCircle(const SSceneSurface& surface, const CPosition& centre, double dRadius, SSceneLayer& layer)
{
    const CGeoRect box = BoxAround(centre, dRadius);
    if (!box.Intersects(surface.transform.VisibleWorld()))
        return;
    layer.circles.push_back({MapPen::Gate, surface.transform.Project(centre),
                             box.Width() / 2.0 / surface.transform.m_dUnitsPerPixelX,
                             box.Height() / 2.0 / -surface.transform.m_dUnitsPerPixelY});
}

/// The gates of laps and splits are the division's, those of checkpoints the file's.
const CObjectArray<CWayPoint>* RunWayPoints(const CEvent& event, const CViewSelection& selection)
{
    if (selection.m_nRunDivision != -1) {
        const bool bThere = selection.m_nRunDivision < event.m_divisions.GetCount();
        return bThere ? &event.m_divisions[selection.m_nRunDivision].m_waypoints : nullptr;
    }
    const CPerson* pPerson = selection.GetCurrentPerson();
    const bool bThere = pPerson != nullptr && selection.m_nRunSeries < pPerson->m_series.GetCount();
    return bThere ? &pPerson->m_series[selection.m_nRunSeries].m_waypoints : nullptr;
}

void AddGates(const SSceneSurface& surface, const CEvent& event, const CViewSelection& selection,
              SSceneLayer& layer)
{
    const CObjectArray<CWayPoint>* pWayPoints = RunWayPoints(event, selection);
    for (const int nWayPoint : {selection.m_nRunWaypoint, selection.m_nRunWaypoint2}) {
        if (pWayPoints == nullptr || nWayPoint < 0 || nWayPoint >= pWayPoints->GetCount())
            continue;
        const CWayPoint& wayPoint = (*pWayPoints)[nWayPoint];
        AddCircle(surface, wayPoint.m_position, wayPoint.m_dProximity, layer);
    }
}

/// The lines come from the run's end; each begins where the one after it ends, unless something between them
/// is not seen.
void AddRunLines(const SSceneSurface& surface, const SMapPath& path, SMapRange range, bool bReduce,
                 SSceneLayer& layer)
{
    CPixelCover cover(surface.transform.m_rcDevice);
    ForEachVisibleLine(path, range, surface.transform, cover, bReduce,
                       [&](int, const SScenePoint& from, const SScenePoint& to) {
                           if (layer.polylines.empty() || layer.polylines.back().points.back() != to)
                               layer.polylines.push_back({MapPen::Run, {to}});
                           layer.polylines.back().points.push_back(from);
                       });
}

void AddName(const SSceneSurface& surface, const CGeoRect& visible, const CWayPoint& wayPoint,
             SSceneLayer& layer)
{
    if (visible.Contains(wayPoint.m_position))
        layer.texts.push_back({ESceneRole::WayPointName, WayPointNameColor,
                               surface.transform.WorldToDevice(wayPoint.m_position), ESceneAlign::Middle,
                               ESceneAlign::High, wayPoint.m_strName});
}

} // namespace

SMapOptions MapOptions(const CGridFields& fields, bool bNeighborhood)
{
    return {.bGrid = IsShown(fields, EMapField::Grid),
            .bZoom = IsShown(fields, EMapField::Zoom),
            .bSpeedColor = IsShown(fields, EMapField::SpeedColor),
            .bNodes = IsShown(fields, EMapField::Nodes),
            .bWayPoints = IsShown(fields, EMapField::WayPoints),
            .bScaleGrid = IsShown(fields, EMapField::ScaleGrid),
            .bNeighborhood = bNeighborhood};
}

SSceneLayer RunLayer(const SSceneSurface& surface, const CEvent& event, std::span<const SMapTrack> tracks,
                     const CViewSelection& selection, const SMapOptions& options)
{
    SSceneLayer layer;
    if (tracks.empty() || !surface.transform.IsUsable() || selection.m_nRunSeries < 0 ||
        selection.m_nRunStart < 0)
        return layer;
    std::vector<CPosition> copy;
    const SMapPath path = RunPath(selection, tracks, copy);
    const int nStart = selection.m_nRunStart;
    if (nStart >= static_cast<int>(path.positions.size()))
        return layer;

    const bool bGates = selection.m_nRunKind == DivisionKind::LapRacing ||
                        selection.m_nRunKind == DivisionKind::Splits ||
                        selection.m_nRunKind == DivisionKind::CheckPoints;
    if (selection.m_nRunKind == DivisionKind::AlphaRacing && selection.m_dRunProximity > 0.0)
        AddCircle(surface, path.positions[static_cast<std::size_t>(nStart)], selection.m_dRunProximity,
                  layer);
    else if (bGates)
        AddGates(surface, event, selection, layer);

    const SMapRange shown = ShownRange(selection, selection.m_nRunSeries, options.bNeighborhood);
    AddRunLines(
        surface, path,
        {.nFirst = std::max(nStart + 1, shown.nFirst), .nLast = std::min(selection.m_nRunEnd, shown.nLast)},
        options.bReduce, layer);
    return layer;
}

SSceneLayer NamesLayer(const SSceneSurface& surface, const CEvent& event, std::span<const SMapTrack> tracks,
                       const CViewSelection& selection, const SMapOptions& options)
{
    SSceneLayer layer;
    if (tracks.empty() || !surface.transform.IsUsable())
        return layer;
    if (options.bWayPoints) {
        const CGeoRect visible = surface.transform.VisibleWorld();
        for (const CWayPoint* pWayPoint : event.m_waypoints) {
            if (pWayPoint->m_dProximity >= 0.0)
                AddName(surface, visible, *pWayPoint, layer);
        }
        const CPerson* pPerson = selection.GetCurrentPerson();
        for (const SMapTrack& track : tracks) {
            if (pPerson == nullptr || track.nSeries >= pPerson->m_series.GetCount())
                continue;
            for (const CWayPoint* pWayPoint : pPerson->m_series[track.nSeries].m_waypoints)
                AddName(surface, visible, *pWayPoint, layer);
        }
    }
    if (options.bZoom)
        layer.texts.push_back(ZoomText(surface.transform.m_rcDevice, surface.transform.m_dZoomFactor));
    return layer;
}

std::optional<CPosition> FocusPosition(CViewSelection& selection)
{
    if (selection.m_nFocusSeries == -1 || selection.m_dFocusPoint < 0.0)
        return std::nullopt;
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nFocusSeries);
    const int nPoint = static_cast<int>(selection.m_dFocusPoint);
    if (nPoint >= points.GetCount())
        return std::nullopt;
    return points[nPoint].m_position;
}

SSceneLayer FocusLayer(const SSceneSurface& surface, const std::optional<CPosition>& focus)
{
    SSceneLayer layer;
    if (!focus || !surface.transform.IsUsable())
        return layer;
    const SScenePoint centre = surface.transform.WorldToDevice(*focus);
    const double dArm = CrossArm * surface.dScale;
    const CPixelCover cover(surface.transform.m_rcDevice);
    SSceneLines cross = {ScenePen::Focus, {}};
    for (const auto& [dX, dY] : {SScenePoint{dArm, 0.0}, SScenePoint{0.0, dArm}}) {
        SScenePoint from = {centre.dX - dX, centre.dY - dY};
        SScenePoint to = {centre.dX + dX, centre.dY + dY};
        if (cover.Clip(from, to))
            cross.Add({centre.dX - dX, centre.dY - dY}, {centre.dX + dX, centre.dY + dY});
    }
    if (!cross.ends.empty())
        layer.lines.push_back(std::move(cross));
    return layer;
}

} // namespace kestrabel
