#pragma once

#include "present/graph/GraphLayout.h"

#include <span>

namespace kestrabel {

/// The lines of the speed axis with the labels of all scales.
void AddSpeedGrid(const SSceneSurface& surface, const SGraphLayout& layout, SSceneLayer& layer);

/// A tick and the time of day at the first point of another minute than the last one's for whose text there
/// is room. `bZoom`: the corner of
/// the zoom text is left free. False when there is none.
bool AddTimeTicks(const SSceneSurface& surface, const SGraphLayout& layout,
                  const CObjectArray<CTrackPoint>& points, double dTimezone, bool bZoom, SSceneLayer& layer);

/// What stands for the ticks when there are none: the time at a point of the list.
void AddTimeOfPoint(const SSceneSurface& surface, const SGraphLayout& layout,
                    const CObjectArray<CTrackPoint>& points, int nPoint, double dTimezone,
                    SSceneLayer& layer);

/// The points of a list that are within the plot; the last is before the first when there is none.
struct SShownPoints
{
    int nFirst = 0;
    int nLast = -1;
};
SShownPoints ShownPoints(const CMapTransform& transform, int nCount);

} // namespace kestrabel
