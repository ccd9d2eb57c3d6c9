#pragma once

#include "model/NumberText.h"
#include "model/ObjectArray.h"
#include "model/TimeText.h"
#include "model/TrackPoint.h"

#include <string>
#include <utility>
#include <vector>

namespace kestrabel::test {

/// What a reader put into a point, such as "2024-06-01T12:00:01 48.5 11.5 dop=18.52 alt=5"; what is 0 is left
/// out behind the position.
inline std::string PointText(const CTrackPoint& point)
{
    std::string strText = point.m_time.IsValid() ? FormatIsoShortest(point.m_time) : "invalid";
    strText += " " + FormatFixed(point.m_position.m_dLatitude, 7, true);
    strText += " " + FormatFixed(point.m_position.m_dLongitude, 7, true);
    const std::vector<std::pair<std::string, double>> values = {
        {"dop", point.m_dDoppler},  {"dir", point.m_dDirection}, {"alt", point.m_nAltitude},
        {"hdop", point.m_dHDOP},    {"sats", point.m_nSats},     {"fix", point.m_nRxStatus},
        {"dt", point.m_dDeltaTime}, {"run", point.m_nRun},
    };
    for (const auto& [strName, dValue] : values) {
        if (dValue != 0.0)
            strText += " " + strName + "=" + FormatFixed(dValue, 4, true);
    }
    return strText;
}

inline std::vector<std::string> PointTexts(const CObjectArray<CTrackPoint>& points)
{
    std::vector<std::string> texts;
    for (const CTrackPoint* pPoint : points)
        texts.push_back(PointText(*pPoint));
    return texts;
}

} // namespace kestrabel::test
