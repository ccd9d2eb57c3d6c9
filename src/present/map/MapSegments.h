#pragma once

#include "present/map/MapTracks.h"
#include "present/scene/PixelCover.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kestrabel {

/// The points of a track, and the boxes of its stretches (`SMapTrack::blocks`) or none.
struct SMapPath
{
    std::span<const CPosition> positions;
    std::span<const CGeoRect> blocks;
};

/// Walks over the lines between the points of a track, from its end to its begin, and calls `draw(i, from,
/// to)` for the visible part of each that leads to a point i of the range.
///
/// With `bReduce`, those whose pixels were all reached before, by what is drawn over them, are left out. What
/// is drawn last must therefore be walked over first. A million points on a screen come down to at most as
/// many lines as there are pixels, and none of the pixels changes.
template <class TDraw>
void ForEachVisibleLine(const SMapPath& path, SMapRange range, const CMapTransform& transform,
                        CPixelCover& cover, bool bReduce, TDraw&& draw)
{
    const double dScaleX = 1.0 / transform.m_dUnitsPerPixelX;
    const double dScaleY = 1.0 / transform.m_dUnitsPerPixelY;
    const auto project = [&](int nPoint) {
        const CPosition& position = path.positions[static_cast<std::size_t>(nPoint)];
        return SScenePoint{
            (position.m_dLongitude - transform.m_dWorldAnchorX) * dScaleX + transform.m_dDevAnchorX,
            (position.m_dLatitude - transform.m_dWorldAnchorY) * dScaleY + transform.m_dDevAnchorY};
    };
    const double dLeft = cover.Left();
    const double dTop = cover.Top();
    const double dRight = cover.Right();
    const double dBottom = cover.Bottom();
    const auto isWithin = [&](const SScenePoint& point) {
        return point.dX >= dLeft && point.dX <= dRight && point.dY >= dTop && point.dY <= dBottom;
    };
    // Within, nothing is negative once moved by the margin, and cutting the fraction off rounds.
    const auto pixel = [](double dPlace, int nFirst) {
        return static_cast<int>(dPlace - nFirst + 0.5) + nFirst;
    };
    const CPosition northWest = transform.DeviceToWorld({dLeft, dTop});
    const CPosition southEast = transform.DeviceToWorld({dRight, dBottom});
    const CGeoRect reached = {.m_dWest = northWest.m_dLongitude,
                              .m_dNorth = northWest.m_dLatitude,
                              .m_dEast = southEast.m_dLongitude,
                              .m_dSouth = southEast.m_dLatitude};

    const int nFirst = std::max(range.nFirst, 1);
    const int nLast = std::min(range.nLast, static_cast<int>(path.positions.size()) - 1);
    SScenePoint from;
    int nFrom = -1; // the point that `from` is
    for (int nEnd = nLast; nEnd >= nFirst;) {
        const int nBlock = nEnd / SMapTrack::BlockPoints;
        const int nBegin = std::max(nFirst, nBlock * SMapTrack::BlockPoints);
        const auto nBox = static_cast<std::size_t>(nBlock);
        const bool bSkip = nBox < path.blocks.size() && !path.blocks[nBox].Intersects(reached);
        for (int i = nEnd; i >= nBegin && !bSkip; --i) {
            const SScenePoint to = nFrom == i ? from : project(i);
            from = project(i - 1);
            nFrom = i - 1;
            SScenePoint drawnFrom = from;
            SScenePoint drawnTo = to;
            if (!(isWithin(from) && isWithin(to)) && !cover.Clip(drawnFrom, drawnTo))
                continue;
            if (!bReduce || cover.Claim(pixel(drawnFrom.dX, cover.Left()), pixel(drawnFrom.dY, cover.Top()),
                                        pixel(drawnTo.dX, cover.Left()), pixel(drawnTo.dY, cover.Top())))
                draw(i, drawnFrom, drawnTo);
        }
        nEnd = nBegin - 1;
    }
}

} // namespace kestrabel
