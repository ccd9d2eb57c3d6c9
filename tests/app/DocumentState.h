#pragma once

#include "app/Document.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace kestrabel::test {

using CState = std::vector<std::string>;

/// All that a step may change, a line for each object, so that a difference can be read.
inline CState StateOf(const CKestroDoc& document)
{
    CState state;
    std::ostringstream line;
    line.precision(17);
    const auto endLine = [&] {
        state.push_back(line.str());
        line.str("");
    };
    const auto addWayPoints = [&](const CObjectArray<CWayPoint>& wayPoints) {
        for (const CWayPoint* p : wayPoints)
            line << p->m_strName << ";";
        endLine();
    };
    const CEvent& event = document.m_event;
    line << "modified " << document.IsModified() << " settings " << event.m_nSpeedUnits << " "
         << event.m_nTimeThreshold << " " << event.m_dSpeedThreshold << " " << event.m_dAccThreshold;
    endLine();
    for (const CDivision* p : document.m_event.m_divisions)
        line << p->m_strName << " " << p->m_dMetres << ";";
    endLine();
    addWayPoints(document.m_event.m_waypoints);
    for (const CPerson* pPerson : document.m_event.m_persons) {
        line << pPerson->m_strName << ";";
        for (const std::string& strName : pPerson->m_divisionNames)
            line << strName << ";";
        endLine();
        for (const CSeries* p : pPerson->m_series) {
            line << p->m_strName << " " << p->m_strFileName << " " << p->m_bModified << p->m_bManaged << " "
                 << p->m_dTotalDistance << " " << p->m_dTravelTime << " " << p->m_dMaxSpeed << " "
                 << p->m_dMaxDoppler << " " << p->m_dMaxAltitude << " " << p->m_rcBounds.m_dWest;
            endLine();
            addWayPoints(p->m_waypoints);
            for (const CTrackPoint* pPoint : p->m_points) {
                line << p->m_strName << " " << pPoint << " time " << pPoint->m_time.m_dDays << " flags "
                     << pPoint->m_nInvalidFlags << " index " << pPoint->m_nTrack << " of "
                     << int{pPoint->m_nSeriesIndex} << " runs " << pPoint->m_nRun << " "
                     << pPoint->m_nDopplerRun << " altitude " << pPoint->m_nAltitude << " at "
                     << pPoint->m_position.m_dLatitude << " speed " << pPoint->m_dSpeed << " "
                     << pPoint->m_dDoppler << " totals " << pPoint->m_dTotalDistance << " "
                     << pPoint->m_dTotalDopplerDistance << " " << pPoint->m_dSumStepSquares << " step "
                     << pPoint->m_dDeltaTime << " " << pPoint->m_dDistance << " " << pPoint->m_dDopplerStep
                     << " course " << pPoint->m_dDirection << " " << pPoint->m_dWindAngle;
                endLine();
            }
        }
    }
    return state;
}

/// The first line that differs, in both forms; empty when there is none.
inline std::string Difference(const CState& actual, const CState& expected)
{
    const auto [pActual, pExpected] = std::ranges::mismatch(actual, expected);
    if (pActual == actual.end() && pExpected == expected.end())
        return {};
    return "is  " + (pActual == actual.end() ? "" : *pActual) + "\nwas " +
           (pExpected == expected.end() ? "" : *pExpected);
}

} // namespace kestrabel::test
