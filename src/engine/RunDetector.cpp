#include "engine/RunDetector.h"

#include "engine/Direction.h"

namespace kestrabel {

namespace {

constexpr double Hysteresis = 0.5; // km/h
constexpr int StopDistance = 5;    // points from the last boundary within which a stop starts no new run
constexpr int LongTurn = 9;        // points over which the whole turn is taken
constexpr int ShortTurn = 5;       // points over which half of it is taken

} // namespace

void CRunDetector::Examine(int nIndex, double dSpeed)
{
    if (dSpeed < m_dStopSpeed - Hysteresis) {
        if (m_bInRun) {
            m_bInRun = false;
            if (nIndex > m_nLastBoundary + StopDistance)
                m_bNewRunPending = true;
        }
        m_nRunStart = nIndex;
    } else {
        if (dSpeed > m_dStopSpeed + Hysteresis && !m_bInRun) {
            m_bInRun = true;
            m_nRunStart = nIndex;
        }
        if (m_bInRun && Turns(nIndex)) {
            StartRun(nIndex);
            return;
        }
    }
    if (m_bNewRunPending)
        StartRun(nIndex);
}

bool CRunDetector::Turns(int nIndex) const
{
    if (nIndex < m_nRunStart + LongTurn || m_points[nIndex - LongTurn].*m_pRun != m_nRun)
        return false;
    const double dDirection = m_points[nIndex].m_dDirection;
    return HeadingChanged(m_points[nIndex - LongTurn].m_dDirection, dDirection, m_dStopAngle) &&
           HeadingChanged(m_points[nIndex - ShortTurn].m_dDirection, dDirection, m_dStopAngle * 0.5);
}

void CRunDetector::StartRun(int nIndex)
{
    m_nLastBoundary = nIndex;
    ++m_nRun;
    m_bNewRunPending = false;
}

} // namespace kestrabel
