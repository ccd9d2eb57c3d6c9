#include "present/map/MapScroll.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

int PageOf(const CMapTransform& transform)
{
    return static_cast<int>(std::clamp(std::round(transform.m_dZoomFactor * MapScrollRange), 1.0,
                                       static_cast<double>(MapScrollRange)));
}

} // namespace

SScrollBar ScrollOf(const CMapTransform& transform, const CGeoRect& extent, EScrollBar bar)
{
    const CGeoRect visible = transform.VisibleWorld();
    const double dPosition = bar == EScrollBar::Horizontal
                                 ? (visible.m_dWest - extent.m_dWest) * MapScrollRange / extent.Width()
                                 : (extent.m_dNorth - visible.m_dNorth) * MapScrollRange / extent.Height();
    const int nPage = PageOf(transform);
    const double dLast = MapScrollRange - nPage;
    // An extent that is a line has no position along its other direction.
    const double dShown = std::isfinite(dPosition) ? std::clamp(std::round(dPosition), 0.0, dLast) : 0.0;
    return {.bShown = transform.IsZoomed(),
            .nRange = MapScrollRange,
            .nPage = nPage,
            .nPosition = static_cast<int>(dShown)};
}

void ScrollMap(CMapTransform& transform, const CGeoRect& extent, EScrollBar bar, EScroll scroll, int nThumb)
{
    const int nPosition = PositionAfter(ScrollOf(transform, extent, bar), scroll, nThumb);
    const double dFraction = static_cast<double>(nPosition) / MapScrollRange;
    const CGeoRect visible = transform.VisibleWorld();
    CPosition anchor{.m_dLongitude = transform.m_dWorldAnchorX, .m_dLatitude = transform.m_dWorldAnchorY};
    if (bar == EScrollBar::Horizontal)
        anchor.m_dLongitude += extent.m_dWest + extent.Width() * dFraction - visible.m_dWest;
    else
        anchor.m_dLatitude += extent.m_dNorth - extent.Height() * dFraction - visible.m_dNorth;
    transform.SetWorldAnchor(anchor);
}

} // namespace kestrabel
