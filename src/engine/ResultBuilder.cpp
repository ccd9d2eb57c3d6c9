#include "engine/ResultBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrabel {

std::unique_ptr<CResult> MakeResult(const CPerson& person, const CSeries& series, const CDivision& division,
                                    const CSpeedSource& source, int nStart, int nEnd)
{
    const CTrackPoint& start = series.m_points[nStart];
    const CTrackPoint& end = series.m_points[nEnd];
    auto pResult = std::make_unique<CResult>();
    pResult->m_nStartIndex = nStart;
    pResult->m_nEndIndex = nEnd;
    pResult->m_nSeriesIndex = series.m_nSeriesIndex;
    pResult->m_nPersonIndex = series.m_nPersonIndex;
    pResult->m_strCompetitor = person.m_strName;
    pResult->m_strDivision = division.m_strName;
    pResult->m_strSeries = series.m_strName;
    pResult->m_posStart = start.m_position;
    pResult->m_timeStart = start.m_time;
    pResult->m_posEnd = end.m_position;
    pResult->m_timeEnd = end.m_time;
    pResult->m_dAltitude = start.m_nAltitude;
    pResult->m_dAltChange = static_cast<double>(end.m_nAltitude) - static_cast<double>(start.m_nAltitude);
    pResult->m_nRun = source.Run(start);
    return pResult;
}

std::unique_ptr<CResult> MakePathResult(const CPerson& person, const CSeries& series,
                                        const CDivision& division, const CSpeedSource& source, int nStart,
                                        int nEnd)
{
    const CTrackPoint& start = series.m_points[nStart];
    const CTrackPoint& end = series.m_points[nEnd];
    std::unique_ptr<CResult> pResult = MakeResult(person, series, division, source, nStart, nEnd);
    pResult->m_dSeconds = SecondsBetween(start.m_time, end.m_time);
    pResult->m_dDistance = source.Path(end) - source.Path(start);
    pResult->m_dSpeed = PathSpeed(pResult->m_dDistance, pResult->m_dSeconds);
    return pResult;
}

void MeasureExtremes(CResult& result, const CSeries& series, double CTrackPoint::*pSpeed, int nFirst,
                     int nLast)
{
    constexpr std::int32_t nMostSatellites = 100;
    result.m_dMinSpeed = std::numeric_limits<double>::max();
    result.m_dMaxSpeed = 0.0;
    result.m_dHDOPMax = 0.0;
    result.m_nSatsMin = nMostSatellites;
    for (int i = nFirst; i <= nLast; ++i) {
        const CTrackPoint& point = series.m_points[i];
        result.m_dMinSpeed = std::min(result.m_dMinSpeed, point.*pSpeed);
        result.m_dMaxSpeed = std::max(result.m_dMaxSpeed, point.*pSpeed);
        result.m_dHDOPMax = std::max(result.m_dHDOPMax, point.m_dHDOP);
        result.m_nSatsMin = std::min(result.m_nSatsMin, point.m_nSats);
    }
}

void EstimatePathError(CResult& result, const CSpeedSource& source, double dError, int nValues)
{
    constexpr double dConfidence = 1.29;
    if (!(dError > 0.0))
        return;
    const double dUncertainty = dConfidence * dError / std::sqrt(static_cast<double>(nValues));
    if (source.UsesDoppler()) {
        result.m_dDopplerError = dUncertainty;
        result.m_dClaimed = result.m_dSpeed - dUncertainty;
    } else {
        result.m_dPosError = dUncertainty;
        result.m_dClaimed = PathSpeed(result.m_dDistance - dUncertainty, result.m_dSeconds);
    }
}

} // namespace kestrabel
