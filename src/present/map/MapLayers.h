#pragma once

#include "model/Event.h"
#include "present/map/MapFields.h"
#include "present/map/MapTracks.h"
#include "present/scene/Scene.h"
#include "present/ViewSelection.h"

#include <optional>
#include <span>

namespace kestrabel {

/// What the user wants to see.
struct SMapOptions
{
    bool bGrid = false;
    bool bZoom = false;
    bool bSpeedColor = false; ///< counts where the tracks are made
    bool bNodes = false;
    bool bWayPoints = false;
    bool bScaleGrid = false;
    bool bNeighborhood = false; ///< only what lies around the focus point
    /// Off: every line that meets the view is there, for comparison.
    bool bReduce = true;
};

SMapOptions MapOptions(const CGridFields& fields, bool bNeighborhood);

// The layers of a scene, from the lowest to the highest. Nothing is drawn on a surface without size, and none
// but the focus without a point.

/// The grids, the tracks by speed, their invalid stretches over them, and their nodes.
SSceneLayer GroundLayer(const SSceneSurface& surface, std::span<const SMapTrack> tracks,
                        const CViewSelection& selection, const SMapOptions& options);

/// The picked run, with the circle around its start or its gates.
SSceneLayer RunLayer(const SSceneSurface& surface, const CEvent& event, std::span<const SMapTrack> tracks,
                     const CViewSelection& selection, const SMapOptions& options);

/// The names of the waypoints, and how much the map is zoomed.
SSceneLayer NamesLayer(const SSceneSurface& surface, const CEvent& event, std::span<const SMapTrack> tracks,
                       const CViewSelection& selection, const SMapOptions& options);

/// Where the focus point is; none when there is none.
std::optional<CPosition> FocusPosition(CViewSelection& selection);

/// A cross on it.
SSceneLayer FocusLayer(const SSceneSurface& surface, const std::optional<CPosition>& focus);

} // namespace kestrabel
