#include "app/TouchedSeries.h"

#include "engine/TrackPointDerivation.h"

#include <algorithm>

namespace kestrabel {

CTouchedSeries::CTouchedSeries(const CEvent& event, CPerson& person, CSeries& series, bool bModifies)
    : m_mark{bModifies, series.m_bModified != 0, bModifies || series.m_bModified != 0},
      m_pPerson(&person),
      m_pSeries(&series)
{
    const CObjectArray<CTrackPoint>& points = series.m_points;
    const int nLast = points.GetCount() - 1;
    for (int i = 0; i <= nLast; ++i) {
        const CTrackPoint* pPrevious = i > 0 ? points.At(i - 1) : nullptr;
        const bool bOldDoppler = series.m_bHasDoppler == 0 && points[i].m_dTotalDopplerDistance != 0.0;
        if (i == 0 || i == nLast || bOldDoppler || StartsGap(pPrevious, points[i], event.m_nTimeThreshold))
            m_held.emplace_back(points.At(i), points[i]);
        else if (points[i].m_dDirection == 0.0)
            m_courses.emplace_back(points.At(i), 0.0); // 0 stands for "none told"
    }
}

void CTouchedSeries::KeepCourses()
{
    const CObjectArray<CTrackPoint>& points = m_pSeries->m_points;
    const auto hasDoppler = [](const CTrackPoint* pPoint) { return pPoint->m_dDoppler > 0.0; };
    if (std::any_of(points.begin(), points.end(), hasDoppler))
        return;
    for (CTrackPoint* pPoint : points)
        m_courses.emplace_back(pPoint, pPoint->m_dDirection);
}

void CTouchedSeries::Restore()
{
    for (const auto& [pPoint, dCourse] : m_courses)
        pPoint->m_dDirection = dCourse;
    for (const auto& [pPoint, values] : m_held)
        *pPoint = values;
}

void CTouchedSeries::Derive(const CEvent& event, CProgressDisplay& progress)
{
    const auto& files = m_pPerson->m_series;
    ForgetResults();
    if (std::find(files.begin(), files.end(), m_pSeries) == files.end())
        return;
    RecalculateTrackPoints(event, *m_pPerson, *m_pSeries, progress);
    // A single point is not derived, but it is the first of its file.
    if (m_pSeries->m_points.GetCount() == 1) {
        m_pSeries->m_points[0].m_nTrack = 0;
        m_pSeries->m_points[0].m_nSeriesIndex = static_cast<std::uint16_t>(m_pSeries->m_nSeriesIndex);
    }
}

void CTouchedSeries::ForgetResults()
{
    m_pPerson->m_results.RemoveAll();
    m_pPerson->m_combined.m_divisions.RemoveAll();
    m_pSeries->m_divisions.RemoveAll();
}

} // namespace kestrabel
