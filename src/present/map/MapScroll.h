#pragma once

#include "present/map/MapTransform.h"

namespace kestrabel {

enum class EScrollBar
{
    Horizontal,
    Vertical,
};

enum class EScroll
{
    LineBack, ///< left or up
    LineOn,   ///< right or down
    PageBack,
    PageOn,
    First,
    Last,
    Thumb, ///< dragged to a position
};

/// A scroll bar as it is to be shown. Its range is the whole extent.
struct SMapScroll
{
    static constexpr int Range = 1000;

    bool bShown = false;
    int nPage = Range;
    int nPosition = 0; ///< 0 to Range - nPage

    bool operator==(const SMapScroll&) const = default;
};

/// Where the visible part of the extent is; a view panned beyond the extent is at its end.
SMapScroll ScrollOf(const CMapTransform& transform, const CGeoRect& extent, EScrollBar bar);

/// Moves the visible left or upper edge, keeping the scale. `nThumb` is the position of a dragged thumb.
void ScrollMap(CMapTransform& transform, const CGeoRect& extent, EScrollBar bar, EScroll scroll,
               int nThumb = 0);

} // namespace kestrabel
