#include "app/PointPlace.h"

#include <algorithm>

namespace kestrabel {

SPointPlace FindPoint(const CPerson& person, const CTrackPoint& point)
{
    for (CSeries* pSeries : person.m_series) {
        if (point.m_nTrack < pSeries->m_points.GetCount() && pSeries->m_points.At(point.m_nTrack) == &point)
            return {pSeries, point.m_nTrack};
    }
    for (CSeries* pSeries : person.m_series) {
        const auto found = std::ranges::find(pSeries->m_points, &point);
        if (found != pSeries->m_points.end())
            return {pSeries, static_cast<int>(found - pSeries->m_points.begin())};
    }
    return {};
}

} // namespace kestrabel
