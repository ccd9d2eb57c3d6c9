// Checks that two track files hold the same track: as many fixes, the same times to the millisecond, and the
// same positions within a tolerance in degrees (formats differ in the decimals that they write).
//
//     compare-tracks FILE OTHER-FILE TOLERANCE

#include "formats/TrackFileDispatcher.h"
#include "platform/NumberInput.h"

#include <algorithm>
#include <cmath>
#include <iostream>

using namespace kestrabel;

namespace {

bool Load(CSeries& series, const char* pPath)
{
    series.m_strFileName = pPath;
    CImportMonitor monitor;
    EImportEnd end = EImportEnd::Failed;
    ImportTrackFile(monitor, series, end);
    if (end != EImportEnd::Complete)
        std::cerr << pPath << ": " << monitor.Message() << '\n';
    return end == EImportEnd::Complete;
}

} // namespace

int main(int nArguments, char** pArguments)
{
    double dTolerance = 0.0;
    if (nArguments != 4 || !IsDecimal(pArguments[3], dTolerance)) {
        std::cerr << "usage: compare-tracks FILE OTHER-FILE TOLERANCE\n";
        return 2;
    }
    CSeries one;
    CSeries other;
    if (!Load(one, pArguments[1]) || !Load(other, pArguments[2]))
        return 3;
    double dDegrees = 0.0;
    double dSeconds = 0.0;
    const int nCount = std::min(one.m_points.GetCount(), other.m_points.GetCount());
    for (int i = 0; i < nCount; ++i) {
        const CTrackPoint& a = one.m_points[i];
        const CTrackPoint& b = other.m_points[i];
        dDegrees = std::max({dDegrees, std::abs(a.m_position.m_dLatitude - b.m_position.m_dLatitude),
                             std::abs(a.m_position.m_dLongitude - b.m_position.m_dLongitude)});
        dSeconds = std::max(dSeconds, std::abs(SecondsBetween(a.m_time, b.m_time)));
    }
    const bool bSame =
        one.m_points.GetCount() == other.m_points.GetCount() && dSeconds == 0.0 && dDegrees <= dTolerance;
    std::cout << (bSame ? "same: " : "DIFFERENT: ") << one.m_points.GetCount() << " and "
              << other.m_points.GetCount() << " fixes, at most " << dDegrees << " degrees and " << dSeconds
              << " s apart\n";
    return bSame ? 0 : 1;
}
