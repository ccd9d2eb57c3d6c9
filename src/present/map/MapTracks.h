#pragma once

#include "model/Event.h"
#include "platform/LargeVector.h"
#include "present/scene/Scene.h"
#include "present/ViewSelection.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace kestrabel {

/// What the map needs to know of the points of one track file, packed: a point takes 18 bytes here and 200 in
/// the file, and every frame of a pan looks at all of them.
struct SMapTrack
{
    static constexpr std::uint16_t InvalidPen = std::numeric_limits<std::uint16_t>::max();

    int nSeries = -1;                  ///< index of the file in its competitor
    double dDistance = 0.0;            ///< km, by Doppler speed; from the positions where there is none
    CLargeVector<CPosition> positions; ///< degrees
    CLargeVector<std::uint16_t> pens;  ///< of the line to the point: index in the palette, or InvalidPen
    std::vector<SScenePen> palette;    ///< a speed that no point has leaves its pen plain
    /// The boxes of stretches of the track: of the points at k * BlockPoints - 1 to (k + 1) * BlockPoints -
    /// 1, so that each holds all lines that lead to its points.
    std::vector<CGeoRect> blocks;
    static constexpr int BlockPoints = 128;

    int Count() const { return static_cast<int>(positions.size()); }
};

/// The shown track files that have points, in their order. A copy: it stays as it was when the points change,
/// and must be made anew then.
std::vector<SMapTrack> MakeMapTracks(const CEvent& event, const CViewSelection& selection, bool bSpeedColor);

/// What all of the shown track files span, and a twentieth more. Without a file that has valid points, the
/// rectangle from (0, 0) to (200, 200).
CGeoRect MapExtent(const CViewSelection& selection);

/// Points of which the lines to them are drawn: all, or the neighbours of the focus point.
struct SMapRange
{
    int nFirst = 0;
    int nLast = std::numeric_limits<int>::max();
};

/// Points on either side of the focus that its neighbourhood reaches.
inline constexpr int NeighborPoints = 100;

/// A file's points in the neighbourhood of the focus: none when that is in another file. With the
/// neighbourhood off, or without a focus, all.
SMapRange ShownRange(const CViewSelection& selection, int nSeries, bool bNeighborhood);

} // namespace kestrabel
