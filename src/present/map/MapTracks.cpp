#include "present/map/MapTracks.h"

#include "model/SpeedUnits.h"
#include "present/map/MapColors.h"
#include "present/scene/SceneParts.h"

#include <span>

namespace kestrabel {

namespace {

SMapTrack Pack(const CSeries& series, int nSeries)
{
    SMapTrack track;
    track.nSeries = nSeries;
    track.dDistance =
        series.m_dTotalDopplerDistance > 0.0 ? series.m_dTotalDopplerDistance : series.m_dTotalDistance;
    const auto nPoints = static_cast<std::size_t>(series.m_points.GetCount());
    track.positions.reserve(nPoints);
    track.pens.reserve(nPoints);
    return track;
}

std::vector<CGeoRect> BlocksOf(std::span<const CPosition> positions)
{
    std::vector<CGeoRect> blocks;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (i % SMapTrack::BlockPoints == 0) {
            blocks.push_back(CGeoRect::Empty());
            if (i > 0)
                blocks.back().Extend(positions[i - 1]);
        }
        blocks.back().Extend(positions[i]);
    }
    return blocks;
}

} // namespace

std::vector<SMapTrack> MakeMapTracks(const CEvent& event, const CViewSelection& selection, bool bSpeedColor)
{
    std::vector<SMapTrack> tracks;
    const CPerson* pPerson = selection.GetCurrentPerson();
    if (pPerson == nullptr)
        return tracks;
    const double dFactor = SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor;
    const double dMaxSpeed = selection.m_dViewMaxSpeed;
    const bool bOneFile = selection.GetCurrentSeries() != nullptr;
    for (int nSeries = 0; nSeries < pPerson->m_series.GetCount(); ++nSeries) {
        const CSeries& series = pPerson->m_series[nSeries];
        if (series.m_points.IsEmpty() || (bOneFile && nSeries != selection.m_nSeries))
            continue;
        const int nColors = bOneFile ? 0 : nSeries;
        SMapTrack track = Pack(series, nSeries);
        track.palette.assign(bSpeedColor ? LastSpeedStep + 1 : 1, ScenePen::Track);
        for (const CTrackPoint* pPoint : series.m_points) {
            track.positions.push_back(pPoint->m_position);
            std::uint16_t nPen = 0;
            if (!pPoint->IsValidFor(InvalidMask::Any)) {
                nPen = SMapTrack::InvalidPen;
            } else if (bSpeedColor) {
                const double dFraction = SpeedFraction(pPoint->m_dSpeed * dFactor, dMaxSpeed);
                nPen = static_cast<std::uint16_t>(SpeedStep(nColors, dFraction));
                SScenePen& pen = track.palette[nPen];
                if (pen.role == ESceneRole::Track)
                    pen = SpeedPen(nColors, dFraction);
            }
            track.pens.push_back(nPen);
        }
        track.blocks = BlocksOf(track.positions);
        tracks.push_back(std::move(track));
    }
    return tracks;
}

CGeoRect MapExtent(const CViewSelection& selection)
{
    CGeoRect extent = CGeoRect::Empty();
    const CSeries* pOnly = selection.GetCurrentSeries();
    if (const CPerson* pPerson = selection.GetCurrentPerson()) {
        for (const CSeries* pSeries : pPerson->m_series) {
            if ((pOnly == nullptr || pSeries == pOnly) && !pSeries->m_points.IsEmpty())
                extent.Extend(pSeries->m_rcBounds);
        }
    }
    if (extent.m_dWest > extent.m_dEast)
        extent = {.m_dWest = 0.0, .m_dNorth = 200.0, .m_dEast = 200.0, .m_dSouth = 0.0};
    extent.Scale(1.05);
    return extent;
}

SMapRange ShownRange(const CViewSelection& selection, int nSeries, bool bNeighborhood)
{
    if (!bNeighborhood || selection.m_dFocusPoint < 0.0)
        return {};
    if (nSeries != selection.m_nFocusSeries)
        return {.nFirst = 0, .nLast = -1};
    const int nFocus = static_cast<int>(selection.m_dFocusPoint);
    return {.nFirst = nFocus - NeighborPoints, .nLast = nFocus + NeighborPoints};
}

} // namespace kestrabel
