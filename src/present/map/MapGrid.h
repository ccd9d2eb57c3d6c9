#pragma once

#include "present/scene/Scene.h"

namespace kestrabel {

/// Lines of longitude and latitude at round degrees, labelled along the upper and the left edge.
void AddDegreeGrid(const SSceneSurface& surface, SSceneLayer& layer);

/// Lines at equal distances. Their labels, along the lower and the right edge, count the nautical miles from
/// the first line that is seen: sixty to a degree of latitude, and to one of longitude what the middle
/// latitude leaves of them.
void AddDistanceGrid(const SSceneSurface& surface, SSceneLayer& layer);

} // namespace kestrabel
