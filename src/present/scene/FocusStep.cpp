#include "present/scene/FocusStep.h"

#include <algorithm>

namespace kestrabel {

bool StepFocus(CViewSelection& selection, const CPane* pSender, bool bOn, bool bToEnd)
{
    const int nSeries = selection.m_nFocusSeries != -1 ? selection.m_nFocusSeries : selection.m_nSeries;
    const CObjectArray<CTrackPoint>& points = selection.GetSeriesPoints(nSeries);
    if (points.IsEmpty())
        return false;
    const int nLast = points.GetCount() - 1;
    int nPoint = static_cast<int>(selection.m_dFocusPoint) + (bOn ? 1 : -1);
    if (bToEnd)
        nPoint = bOn ? nLast : 0;
    nPoint = std::clamp(nPoint, 0, nLast);
    if (nSeries >= 0)
        selection.MoveFocus(pSender, nSeries, nPoint);
    else
        selection.MoveFocus(pSender, points[nPoint].m_nSeriesIndex, points[nPoint].m_nTrack);
    return true;
}

} // namespace kestrabel
