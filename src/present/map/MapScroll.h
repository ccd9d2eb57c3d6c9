#pragma once

#include "present/scene/MapTransform.h"
#include "present/scene/ScrollBar.h"

namespace kestrabel {

/// The scroll bars of the map have this range, which is the whole extent.
inline constexpr int MapScrollRange = 1000;

/// Where the visible part of the extent is; a view panned beyond the extent is at its end.
SScrollBar ScrollOf(const CMapTransform& transform, const CGeoRect& extent, EScrollBar bar);

/// Moves the visible left or upper edge, keeping the scale. `nThumb` is the position of a dragged thumb.
void ScrollMap(CMapTransform& transform, const CGeoRect& extent, EScrollBar bar, EScroll scroll,
               int nThumb = 0);

} // namespace kestrabel
