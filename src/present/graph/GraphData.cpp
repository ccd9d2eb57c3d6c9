#include "present/graph/GraphData.h"

#include "model/SpeedUnits.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr int PrefetchDistance = 16;

/// As the curves show it; speeds by the factor from km/h.
double ValueOf(EGraphField field, const CTrackPoint& point, double dFactor)
{
    switch (field) {
    case EGraphField::Speed: return point.m_dSpeed * dFactor;
    case EGraphField::Vmg: return point.m_dVertSpeed * dFactor;
    case EGraphField::Doppler:
    case EGraphField::MergedDoppler: return point.m_dDoppler * dFactor;
    case EGraphField::UnfilteredDoppler: return point.m_dUSOG * dFactor;
    case EGraphField::Sats: return point.m_nSats;
    case EGraphField::Altitude: return point.m_nAltitude;
    case EGraphField::Hdop: return point.m_dHDOP;
    default: return 0.0;
    }
}

/// Takes the points of its track one by one.
class CTrackBuilder
{
public:
    /// `bAllEntries`: the track is the shown list itself.
    CTrackBuilder(const CEvent& event, bool bAllEntries, std::size_t nPoints)
        : m_nTimeThreshold(event.m_nTimeThreshold),
          m_dFactor(SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor),
          m_bAllEntries(bAllEntries),
          m_nPoints(nPoints)
    {
        m_track.invalid.reserve(nPoints);
        if (!bAllEntries)
            m_track.entries.reserve(nPoints);
    }
    void Show(const SGraphSeries& series)
    {
        m_track.curves.push_back({&series, {}});
        m_track.curves.back().values.reserve(m_nPoints);
    }
    void Add(int nEntry, const CTrackPoint& point, const CLargeVector<double>& smoothed)
    {
        if (!m_bAllEntries)
            m_track.entries.push_back(nEntry);
        const bool bGap = StartsGap(m_pPrevious, point, m_nTimeThreshold);
        const std::uint8_t nFlags = point.m_nInvalidFlags & InvalidMask::Any;
        m_track.invalid.push_back(
            static_cast<std::uint8_t>(nFlags | (bGap ? SGraphTrack::StartsGapMark : 0)));
        m_pPrevious = &point;
        for (SGraphCurve& curve : m_track.curves) {
            const double dValue = curve.pSeries->field == EGraphField::SmoothedSpeed
                                      ? smoothed[static_cast<std::size_t>(nEntry)] * m_dFactor
                                      : ValueOf(curve.pSeries->field, point, m_dFactor);
            curve.values.push_back(static_cast<float>(dValue));
        }
    }
    SGraphTrack Take() { return std::move(m_track); }

private:
    SGraphTrack m_track;
    const CTrackPoint* m_pPrevious = nullptr;
    std::int32_t m_nTimeThreshold;
    double m_dFactor;
    bool m_bAllEntries;
    std::size_t m_nPoints;
};

} // namespace

CLargeVector<double> SmoothedSpeeds(const CObjectArray<CTrackPoint>& points, std::int32_t nCount)
{
    const int nPoints = points.GetCount();
    CLargeVector<double> means;
    means.reserve(static_cast<std::size_t>(nPoints));
    if (nCount < 2) {
        for (const CTrackPoint* pPoint : points)
            means.push_back(pPoint->m_dSpeed);
        return means;
    }
    // A running sum; what is no number must not stay in it.
    double dSum = 0.0;
    int nValid = 0;
    const auto take = [&](int i, int nSign) {
        const CTrackPoint& point = points[i];
        if (!point.IsValidFor(InvalidMask::Fix) || !std::isfinite(point.m_dSpeed))
            return;
        dSum += nSign * point.m_dSpeed;
        nValid += nSign;
    };
    const int nBefore = nCount / 2;
    const int nBehind = nCount - nBefore;
    for (int i = 0; i < std::min(nBehind, nPoints); ++i)
        take(i, 1);
    for (int i = 0; i < nPoints; ++i) {
        means.push_back(nValid > 0 ? dSum / nValid : 0.0);
        if (nPoints - i > nBehind)
            take(i + nBehind, 1);
        if (i >= nBefore)
            take(i - nBefore, -1);
        if (nValid == 0)
            dSum = 0.0; // and no rests of roundings
    }
    return means;
}

std::vector<SGraphTrack> MakeGraphTracks(const CEvent& event, CViewSelection& selection,
                                         const CGridFields& fields)
{
    std::vector<SGraphTrack> tracks;
    const CPerson* pPerson = selection.GetCurrentPerson();
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(selection.m_nSeries);
    if (pPerson == nullptr || points.IsEmpty())
        return tracks;
    const CSeries* pOnly = selection.GetCurrentSeries();
    const bool bMerged = IsShown(fields, EGraphField::MergedDoppler);

    std::vector<CTrackBuilder> files;
    for (const CSeries* pSeries : pPerson->m_series) {
        if (pOnly != nullptr && pSeries != pOnly)
            continue;
        CTrackBuilder& file = files.emplace_back(event, pOnly != nullptr,
                                                 static_cast<std::size_t>(pSeries->m_points.GetCount()));
        for (const SGraphSeries& series : GraphSeriesTable) {
            const bool bHas = series.field != EGraphField::Doppler || pSeries->m_bHasDoppler != 0;
            if (IsShown(fields, series.field) && bHas && series.field != EGraphField::MergedDoppler)
                file.Show(series);
        }
    }
    CTrackBuilder merged(event, true, bMerged ? static_cast<std::size_t>(points.GetCount()) : 0);
    if (bMerged)
        merged.Show(SeriesOf(EGraphField::MergedDoppler));

    CLargeVector<double> smoothed;
    if (IsShown(fields, EGraphField::SmoothedSpeed))
        smoothed = SmoothedSpeeds(points, event.m_nSmoothing);
    for (int i = 0; i < points.GetCount(); ++i) {
        points.Prefetch(i + PrefetchDistance);
        const std::size_t nFile = pOnly != nullptr ? 0 : points[i].m_nSeriesIndex;
        if (nFile < files.size())
            files[nFile].Add(i, points[i], smoothed);
        if (bMerged)
            merged.Add(i, points[i], smoothed);
    }
    for (CTrackBuilder& file : files)
        tracks.push_back(file.Take());
    if (bMerged)
        tracks.push_back(merged.Take());
    return tracks;
}

} // namespace kestrabel
