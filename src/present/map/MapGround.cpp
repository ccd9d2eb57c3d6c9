#include "present/map/MapColors.h"
#include "present/map/MapGrid.h"
#include "present/map/MapLayers.h"
#include "present/map/MapSegments.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <iterator>

namespace kestrabel {

namespace {

/// Degrees of longitude in view for each kilometre between two points, at most, for the points to be told
/// from each other.
constexpr double DensestNodes = 1.5;

const SScenePen& PenOf(const SMapTrack& track, std::uint16_t nPen)
{
    return nPen == SMapTrack::InvalidPen ? ScenePen::Invalid : track.palette[nPen];
}

/// The lines of one track in the order of its points, neighbours of one pen together. The last are walked
/// over first, so that what is drawn later is in the cover before.
std::vector<SSceneLines> TrackLines(const SMapTrack& track, SMapRange range, const CMapTransform& transform,
                                    CPixelCover& cover, bool bReduce)
{
    std::vector<SSceneLines> lines;
    std::uint16_t nLastPen = 0;
    const std::uint16_t* pPens = track.pens.data();
    ForEachVisibleLine({track.positions, track.blocks}, range, transform, cover, bReduce,
                       [&](int i, const SScenePoint& from, const SScenePoint& to) {
                           if (lines.empty() || pPens[i] != nLastPen)
                               lines.push_back({PenOf(track, pPens[i]), {}});
                           nLastPen = pPens[i];
                           lines.back().Add(from, to);
                       });
    std::ranges::reverse(lines);
    return lines;
}

bool ShowsNodes(const SMapTrack& track, double dVisibleWidth)
{
    return dVisibleWidth * track.Count() / track.dDistance <= DensestNodes;
}

/// One circle per pixel, whatever number of points rest there; of several the first has it.
void AddNodes(const SSceneSurface& surface, const SMapTrack& track, SMapRange range, CPixelCover& cover,
              SSceneLayer& layer)
{
    const int nLast = std::min(range.nLast, track.Count() - 1);
    for (int i = std::max(range.nFirst, 0); i <= nLast; ++i) {
        SScenePoint at = surface.transform.Project(track.positions[static_cast<std::size_t>(i)]);
        SScenePoint end = at;
        if (!cover.Clip(at, end))
            continue;
        const SScenePoint pixel =
            surface.transform.WorldToDevice(track.positions[static_cast<std::size_t>(i)]);
        const int nX = static_cast<int>(pixel.dX);
        const int nY = static_cast<int>(pixel.dY);
        if (cover.Claim(nX, nY, nX, nY))
            layer.circles.push_back({PenOf(track, track.pens[static_cast<std::size_t>(i)]), pixel,
                                     NodeRadius * surface.dScale, NodeRadius * surface.dScale});
    }
}

} // namespace

SSceneLayer GroundLayer(const SSceneSurface& surface, std::span<const SMapTrack> tracks,
                        const CViewSelection& selection, const SMapOptions& options)
{
    SSceneLayer layer;
    if (tracks.empty() || !surface.transform.IsUsable())
        return layer;
    if (options.bGrid)
        AddDegreeGrid(surface, layer);
    if (options.bScaleGrid)
        AddDistanceGrid(surface, layer);

    CPixelCover cover(surface.transform.m_rcDevice);
    std::vector<std::vector<SSceneLines>> lines(tracks.size());
    for (std::size_t i = tracks.size(); i-- > 0;) {
        const SMapRange range = ShownRange(selection, tracks[i].nSeries, options.bNeighborhood);
        lines[i] = TrackLines(tracks[i], range, surface.transform, cover, options.bReduce);
    }
    for (std::vector<SSceneLines>& ofTrack : lines)
        std::move(ofTrack.begin(), ofTrack.end(), std::back_inserter(layer.lines));

    if (options.bNodes) {
        cover.Clear();
        const double dVisibleWidth = surface.transform.VisibleWorld().Width();
        for (const SMapTrack& track : tracks) {
            const SMapRange range = ShownRange(selection, track.nSeries, options.bNeighborhood);
            if (ShowsNodes(track, dVisibleWidth))
                AddNodes(surface, track, range, cover, layer);
        }
    }
    return layer;
}

} // namespace kestrabel
