#pragma once

#include "present/map/MapCover.h"
#include "present/map/MapTracks.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kestrabel {

/// Walks over the lines between the points of a track, from its end to its begin, and calls `draw(i, from,
/// to)` for the visible part of each that leads to a point i of the range and for which `wanted(i)` holds.
///
/// With `bReduce`, those whose pixels were all reached before, by what is drawn over them, are left out. What
/// is drawn last must therefore be walked over first. A million points on a screen come down to at most as
/// many lines as there are pixels, and none of the pixels changes.
template <class TWanted, class TDraw>
void ForEachVisibleLine(std::span<const CPosition> positions, SMapRange range, const CMapTransform& transform,
                        CMapCover& cover, bool bReduce, TWanted&& wanted, TDraw&& draw)
{
    const double dScaleX = 1.0 / transform.m_dUnitsPerPixelX;
    const double dScaleY = 1.0 / transform.m_dUnitsPerPixelY;
    const auto project = [&](int nPoint) {
        const CPosition& position = positions[static_cast<std::size_t>(nPoint)];
        return SMapPoint{
            (position.m_dLongitude - transform.m_dWorldAnchorX) * dScaleX + transform.m_dDevAnchorX,
            (position.m_dLatitude - transform.m_dWorldAnchorY) * dScaleY + transform.m_dDevAnchorY};
    };
    const double dLeft = cover.Left();
    const double dTop = cover.Top();
    const double dRight = cover.Right();
    const double dBottom = cover.Bottom();
    const auto isWithin = [&](const SMapPoint& point) {
        return point.dX >= dLeft && point.dX <= dRight && point.dY >= dTop && point.dY <= dBottom;
    };
    // Within, nothing is negative once moved by the margin, and cutting the fraction off rounds.
    const auto pixel = [](double dPlace, int nFirst) {
        return static_cast<int>(dPlace - nFirst + 0.5) + nFirst;
    };

    const int nFirst = std::max(range.nFirst, 1);
    const int nLast = std::min(range.nLast, static_cast<int>(positions.size()) - 1);
    if (nFirst > nLast)
        return;
    SMapPoint to = project(nLast);
    bool bToWithin = isWithin(to);
    for (int i = nLast; i >= nFirst; --i) {
        const SMapPoint from = project(i - 1);
        const bool bFromWithin = isWithin(from);
        if (wanted(i)) {
            SMapPoint drawnFrom = from;
            SMapPoint drawnTo = to;
            const bool bVisible = (bFromWithin && bToWithin) || cover.Clip(drawnFrom, drawnTo);
            if (bVisible &&
                (!bReduce || cover.Claim(pixel(drawnFrom.dX, cover.Left()), pixel(drawnFrom.dY, cover.Top()),
                                         pixel(drawnTo.dX, cover.Left()), pixel(drawnTo.dY, cover.Top()))))
                draw(i, drawnFrom, drawnTo);
        }
        to = from;
        bToWithin = bFromWithin;
    }
}

} // namespace kestrabel
