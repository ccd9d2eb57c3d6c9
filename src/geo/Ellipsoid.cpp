#include "geo/Ellipsoid.h"

#include "platform/Path.h"

namespace kestrabel {

void CEllipsoid::SetEllipsoid(std::int32_t nIndex, double dRadius, double dInvFlattening)
{
    const bool bKnown = nIndex >= 0 && nIndex < static_cast<std::int32_t>(EllipsoidTable.size());
    m_nEllipsoid = bKnown ? nIndex : Wgs84;
    if (m_nEllipsoid == User) {
        m_dRadius = dRadius;
        m_dInvFlattening = dInvFlattening;
    } else {
        const SEllipsoidRow& row = EllipsoidTable[static_cast<std::size_t>(m_nEllipsoid)];
        m_dRadius = row.dRadius;
        m_dInvFlattening = row.dInvFlattening;
    }
    m_dFlattening = 1.0 / m_dInvFlattening;
}

std::int32_t FindEllipsoid(std::string_view strName)
{
    for (std::size_t i = 0; i < EllipsoidTable.size(); ++i) {
        if (EqualNoCase(EllipsoidTable[i].strName, strName))
            return static_cast<std::int32_t>(i);
    }
    return -1;
}

} // namespace kestrabel
