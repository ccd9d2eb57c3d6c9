#pragma once

#include "present/graph/GraphData.h"
#include "present/graph/GraphGrid.h"
#include "present/scene/Scene.h"

#include <optional>
#include <span>

namespace kestrabel {

/// What a picture of the graph is drawn on: its transform maps the plot, x the index in the shown list, y the
/// speed in the display unit.
struct SGraphSurface
{
    const SSceneSurface& scene;
    const SGraphLayout& layout;
    bool bReduce = true; ///< off: every line that meets the view is there, for comparison
};

// The layers of a scene, from the lowest to the highest. Nothing is drawn on a plot without size.

/// The picked run from its first to its last point, over the full height.
SSceneLayer GraphRunLayer(const SGraphSurface& surface, CViewSelection& selection);

/// Where a point is in the shown list; none for one that is not shown.
std::optional<int> ShownIndex(CViewSelection& selection, int nSeries, double dPoint);

/// A line through the point.
SSceneLayer GraphFocusLayer(const SGraphSurface& surface, std::optional<int> focus);

/// The curves of all tracks and their nodes.
SSceneLayer GraphCurveLayer(const SGraphSurface& surface, std::span<const SGraphTrack> tracks, bool bNodes);

} // namespace kestrabel
