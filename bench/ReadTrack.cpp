// Reads one track file into points and does nothing else, for comparison with other programs' readers. A file
// without points is a failure: reading nothing is fast.

#include "formats/TrackFileDispatcher.h"

#include <iostream>

int main(int nArguments, char** pArguments)
{
    if (nArguments != 2) {
        std::cerr << "usage: kestrabel-read FILE\n";
        return 2;
    }
    kestrabel::CSeries series;
    series.m_strFileName = pArguments[1];
    kestrabel::CImportMonitor monitor;
    kestrabel::EImportEnd end = kestrabel::EImportEnd::Failed;
    const auto nPoints = kestrabel::ImportTrackFile(monitor, series, end);
    std::cout << nPoints << " points\n";
    return end == kestrabel::EImportEnd::Complete && nPoints > 0 ? 0 : 3;
}
