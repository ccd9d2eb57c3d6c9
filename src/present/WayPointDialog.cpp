#include "present/WayPointDialog.h"

namespace kestrabel {

SWayPointDialog SWayPointDialog::From(const CWayPoint& wayPoint, bool bCheckPoint)
{
    SWayPointDialog dialog;
    dialog.bCheckPoint = bCheckPoint;
    dialog.strName = wayPoint.m_strName;
    dialog.latitude.Set(wayPoint.m_position.m_dLatitude);
    dialog.longitude.Set(wayPoint.m_position.m_dLongitude);
    dialog.proximity.SetConverted(wayPoint.m_dProximity * 1000.0);
    return dialog;
}

void SWayPointDialog::ApplyTo(CWayPoint& wayPoint) const
{
    wayPoint.m_strName = strName;
    wayPoint.m_position = MakePosition(latitude.Value(), longitude.Value());
    wayPoint.m_dProximity = proximity.Value() * 0.001;
    wayPoint.m_rcExtent = {}; // as a box of another place it would mislead; it is computed when needed
}

} // namespace kestrabel
