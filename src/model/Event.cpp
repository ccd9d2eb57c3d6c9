#include "model/Event.h"

#include "platform/Path.h"

namespace kestrabel {

constinit const CClassRecord CEvent::Class = {
    "CEvent", 10, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CEvent>(); }};

CDivision* CEvent::FindDivision(std::string_view strName) const
{
    for (CDivision* pDivision : m_divisions) {
        if (EqualNoCase(pDivision->m_strName, strName))
            return pDivision;
    }
    return nullptr;
}

bool CEvent::IsWithinConstraints(const CTrackPoint* pPrevious, const CTrackPoint& point) const
{
    const CPosition& position = point.m_position;
    if (m_bConstrainRegion != 0 && !(position.m_dLongitude >= m_posNorthWest.m_dLongitude &&
                                     position.m_dLongitude <= m_posSouthEast.m_dLongitude &&
                                     position.m_dLatitude >= m_posSouthEast.m_dLatitude &&
                                     position.m_dLatitude <= m_posNorthWest.m_dLatitude))
        return false;
    if (m_bConstrainDates != 0 &&
        (point.m_time.m_dDays < m_dateStart.m_dDays || point.m_time.m_dDays > m_dateEnd.m_dDays))
        return false;
    return !StartsGap(pPrevious, point, m_nTimeThreshold);
}

} // namespace kestrabel
