#include "present/graph/GraphLayers.h"

#include "present/graph/CurveLines.h"
#include "present/scene/SceneParts.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr SSceneColor RunColor = {255, 180, 255};
constexpr double NodeDistance = 4.0; // pixels of the screen from point to point for nodes to be told apart
constexpr double FarAway = 1e6;      // pixels; keeps what is no number of pixels finite

bool IsUsable(const SGraphSurface& surface)
{
    return surface.scene.transform.IsUsable() && surface.layout.dSpeedPerLine > 0.0;
}

/// A place for each point of a curve, computed from its packed value by one multiplication in each direction.
class CCurvePlaces
{
public:
    CCurvePlaces(const SGraphSurface& surface, const SGraphTrack& track, const SGraphCurve& curve)
        : m_track(track), m_values(curve.values)
    {
        const CMapTransform& transform = surface.scene.transform;
        const SGraphSeries& series = *curve.pSeries;
        m_dPerEntry = 1.0 / transform.m_dUnitsPerPixelX;
        m_dX = transform.Project({series.dShift, 0.0}).dX;
        const double dZero = surface.layout.ToAxis(series.field, 0.0);
        const double dOne = surface.layout.ToAxis(series.field, 1.0);
        m_dPerValue = (dOne - dZero) / transform.m_dUnitsPerPixelY;
        m_dY = transform.Project({0.0, dZero}).dY;
    }
    SScenePoint At(std::int32_t i) const
    {
        const auto dValue = static_cast<double>(m_values[static_cast<std::size_t>(i)]);
        return {std::clamp(m_track.EntryOf(i) * m_dPerEntry + m_dX, -FarAway, FarAway),
                std::clamp(dValue * m_dPerValue + m_dY, -FarAway, FarAway)};
    }

private:
    const SGraphTrack& m_track;
    const CLargeVector<float>& m_values;
    double m_dPerEntry = 0.0;
    double m_dX = 0.0;
    double m_dPerValue = 0.0;
    double m_dY = 0.0;
};

/// The points of a track within the plot, and those next to it, from which and to which lines lead.
SShownPoints PointsOf(const SGraphTrack& track, const CMapTransform& transform)
{
    const CGeoRect visible = transform.VisibleWorld();
    const double dFirst = std::floor(visible.m_dWest);
    const double dLast = std::ceil(visible.m_dEast + 0.25); // shifted points come in from the right
    if (track.entries.empty())
        return {.nFirst = static_cast<int>(std::clamp(dFirst, 0.0, track.Count() + 0.0)),
                .nLast = static_cast<int>(std::clamp(dLast, -1.0, track.Count() - 1.0))};
    const auto begin = track.entries.begin();
    const auto first = std::upper_bound(begin, track.entries.end(), visible.m_dWest);
    const auto last = std::lower_bound(begin, track.entries.end(), visible.m_dEast + 0.25);
    return {.nFirst = std::max(static_cast<int>(first - begin) - 1, 0),
            .nLast = std::min(static_cast<int>(last - begin), track.Count() - 1)};
}

void AddNode(const SGraphSurface& surface, const SScenePoint& at, const SScenePen& pen, SSceneLayer& layer)
{
    const SSceneArea& plot = surface.layout.plot;
    if (at.dX < plot.nLeft || at.dX > plot.nRight)
        return;
    const double dRadius = NodeRadius * surface.scene.dScale;
    layer.circles.push_back({pen, {std::round(at.dX), std::round(at.dY)}, dRadius, dRadius});
}

void AddCurve(const SGraphSurface& surface, const SGraphTrack& track, const SGraphCurve& curve, bool bNodes,
              SSceneLayer& layer)
{
    const CCurvePlaces places(surface, track, curve);
    const SScenePen valid = curve.pSeries->Pen();
    const SScenePen invalid = ScenePen::Invalid;
    const std::uint8_t nMask = curve.pSeries->nInvalidMask;
    const SShownPoints shown = PointsOf(track, surface.scene.transform);
    CCurveLines lines(surface.layout.plot, surface.layout.area, surface.bReduce, layer);
    bool bFrom = false; // there is a point to draw from
    for (std::int32_t i = shown.nFirst; i <= shown.nLast; ++i) {
        const SScenePoint at = places.At(i);
        if (std::isnan(at.dY)) {
            bFrom = false;
            continue;
        }
        const std::uint8_t nFlags = track.invalid[static_cast<std::size_t>(i)];
        const SScenePen& pen = (nFlags & nMask) != 0 ? invalid : valid;
        if (bFrom && (nFlags & SGraphTrack::StartsGapMark) == 0)
            lines.LineTo(at, pen);
        else
            lines.MoveTo(at);
        bFrom = true;
        if (bNodes)
            AddNode(surface, at, pen, layer);
    }
}

} // namespace

SSceneLayer GraphRunLayer(const SGraphSurface& surface, CViewSelection& selection)
{
    SSceneLayer layer;
    if (!IsUsable(surface) || selection.m_nRunStart < 0 || selection.m_nRunSeries < 0 ||
        selection.m_nRunCompetitor != selection.m_nCompetitor)
        return layer;
    const std::optional<int> first = ShownIndex(selection, selection.m_nRunSeries, selection.m_nRunStart);
    const std::optional<int> last = ShownIndex(selection, selection.m_nRunSeries, selection.m_nRunEnd);
    if (!first || !last)
        return layer;
    const SSceneArea& plot = surface.layout.plot;
    const auto edge = [&](int nEntry) {
        const double dX = surface.scene.transform.WorldToDevice({static_cast<double>(nEntry), 0.0}).dX;
        return std::clamp(dX, plot.nLeft + 0.0, plot.nRight + 0.0);
    };
    // However short it is, it is seen.
    const double dFrom = edge(*first);
    const double dTo = edge(*last) + 1.0;
    const CGeoRect visible = surface.scene.transform.VisibleWorld();
    if (*last >= visible.m_dWest && *first <= visible.m_dEast)
        layer.bands.push_back(
            {ESceneRole::Run, RunColor, {dFrom, plot.nTop + 0.0}, {dTo, plot.nBottom + 0.0}});
    return layer;
}

std::optional<int> ShownIndex(CViewSelection& selection, int nSeries, double dPoint)
{
    if (nSeries < 0 || dPoint < 0.0)
        return std::nullopt;
    const int nCount = selection.GetSeriesPoints(selection.m_nSeries).GetCount();
    int nIndex = static_cast<int>(dPoint);
    if (selection.GetCurrentSeries() == nullptr)
        nIndex = selection.FindMergedPoint(nSeries, nIndex);
    else if (nSeries != selection.m_nSeries)
        return std::nullopt;
    return nIndex >= 0 && nIndex < nCount ? std::optional(nIndex) : std::nullopt;
}

SSceneLayer GraphFocusLayer(const SGraphSurface& surface, std::optional<int> focus)
{
    SSceneLayer layer;
    if (!IsUsable(surface) || !focus)
        return layer;
    const SSceneArea& plot = surface.layout.plot;
    const double dX = surface.scene.transform.WorldToDevice({static_cast<double>(*focus), 0.0}).dX;
    if (dX >= plot.nLeft && dX <= plot.nRight)
        layer.lines.push_back({ScenePen::Focus, {{dX, plot.nTop + 0.0}, {dX, plot.nBottom + 0.0}}});
    return layer;
}

SSceneLayer GraphCurveLayer(const SGraphSurface& surface, std::span<const SGraphTrack> tracks, bool bNodes)
{
    SSceneLayer layer;
    if (!IsUsable(surface))
        return layer;
    const double dEntry = 1.0 / surface.scene.transform.m_dUnitsPerPixelX;
    const bool bApart = dEntry >= NodeDistance * surface.scene.dScale;
    for (const SGraphTrack& track : tracks) {
        for (const SGraphCurve& curve : track.curves)
            AddCurve(surface, track, curve, bNodes && bApart, layer);
    }
    return layer;
}

} // namespace kestrabel
