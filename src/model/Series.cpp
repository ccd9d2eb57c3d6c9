#include "model/Series.h"

namespace kestrabel {

constinit const CClassRecord CSeries::Class = {
    "CSeries", 11, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CSeries>(); }};

int CSeries::DeleteInvalidPoints()
{
    return m_points.RemoveIf([](const CTrackPoint& point) { return !point.IsValidFor(InvalidMask::Fix); });
}

void CSeries::ClearResults()
{
    for (CSeriesDivision* pRecord : m_divisions)
        pRecord->m_results.RemoveAll();
}

} // namespace kestrabel
