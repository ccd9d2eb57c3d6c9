#include "present/map/MapColors.h"
#include "present/map/MapGrid.h"
#include "present/map/MapLayers.h"
#include "present/map/MapSegments.h"

namespace kestrabel {

namespace {

/// Degrees of longitude in view for each kilometre between two points, at most, for the points to be told
/// from each other.
constexpr double DensestNodes = 1.5;
constexpr double NodeRadius = 1.0; // pixels of the screen: a node is three wide

const SMapPen& PenOf(const SMapTrack& track, std::uint16_t nPen)
{
    return nPen == SMapTrack::InvalidPen ? MapPen::Invalid : track.palette[nPen];
}

/// The lines of one track, by pen: slow before fast, invalid stretches last so that they are never hidden by
/// their own track. What is drawn later was walked over before and is in the cover.
std::vector<SMapLines> TrackLines(const SMapTrack& track, SMapRange range, const CMapTransform& transform,
                                  CMapCover& cover, bool bReduce)
{
    std::vector<SMapLines> valid(track.palette.size());
    SMapLines invalid = {MapPen::Invalid, {}};
    const SMapPath path = {track.positions, track.blocks};
    const std::uint16_t* pPens = track.pens.data();
    if (track.bHasInvalid) {
        ForEachVisibleLine(
            path, range, transform, cover, bReduce, [&](int i) { return pPens[i] == SMapTrack::InvalidPen; },
            [&](int, const SMapPoint& from, const SMapPoint& to) { invalid.Add(from, to); });
    }
    ForEachVisibleLine(
        path, range, transform, cover, bReduce, [&](int i) { return pPens[i] != SMapTrack::InvalidPen; },
        [&](int i, const SMapPoint& from, const SMapPoint& to) { valid[pPens[i]].Add(from, to); });

    std::vector<SMapLines> lines;
    for (std::size_t i = 0; i < valid.size(); ++i) {
        if (valid[i].ends.empty())
            continue;
        valid[i].pen = track.palette[i];
        lines.push_back(std::move(valid[i]));
    }
    if (!invalid.ends.empty())
        lines.push_back(std::move(invalid));
    return lines;
}

bool ShowsNodes(const SMapTrack& track, double dVisibleWidth)
{
    return dVisibleWidth * track.Count() / track.dDistance <= DensestNodes;
}

/// One circle per pixel, whatever number of points rest there; of several the first has it.
void AddNodes(const SMapSurface& surface, const SMapTrack& track, SMapRange range, CMapCover& cover,
              SMapLayer& layer)
{
    const int nLast = std::min(range.nLast, track.Count() - 1);
    for (int i = std::max(range.nFirst, 0); i <= nLast; ++i) {
        SMapPoint at = surface.transform.Project(track.positions[static_cast<std::size_t>(i)]);
        SMapPoint end = at;
        if (!cover.Clip(at, end))
            continue;
        const SMapPoint pixel = surface.transform.WorldToDevice(track.positions[static_cast<std::size_t>(i)]);
        const int nX = static_cast<int>(pixel.dX);
        const int nY = static_cast<int>(pixel.dY);
        if (cover.Claim(nX, nY, nX, nY))
            layer.circles.push_back({PenOf(track, track.pens[static_cast<std::size_t>(i)]), pixel,
                                     NodeRadius * surface.dScale, NodeRadius * surface.dScale});
    }
}

} // namespace

SMapLayer GroundLayer(const SMapSurface& surface, std::span<const SMapTrack> tracks,
                      const CViewSelection& selection, const SMapOptions& options)
{
    SMapLayer layer;
    if (tracks.empty() || !surface.transform.IsUsable())
        return layer;
    if (options.bGrid)
        AddDegreeGrid(surface, layer);
    if (options.bScaleGrid)
        AddDistanceGrid(surface, layer);

    CMapCover cover(surface.transform.m_rcDevice);
    std::vector<std::vector<SMapLines>> lines(tracks.size());
    for (std::size_t i = tracks.size(); i-- > 0;) {
        const SMapRange range = ShownRange(selection, tracks[i].nSeries, options.bNeighborhood);
        lines[i] = TrackLines(tracks[i], range, surface.transform, cover, options.bReduce);
    }
    for (std::vector<SMapLines>& ofTrack : lines)
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
