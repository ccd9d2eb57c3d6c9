// Writes small files of every format for the fuzzers to start from:
//
//     make-seeds FOLDER      FOLDER/nmea/... FOLDER/gpx/... and so on, a folder for each target

#include "app/NewProject.h"
#include "formats/SirfBytes.h"
#include "formats/TrackFileDispatcher.h"
#include "model/OldForms.h"
#include "model/ProjectFile.h"
#include "simulator/SessionSimulator.h"
#include "simulator/SessionWriter.h"

#include <filesystem>
#include <fstream>
#include <iostream>

using namespace kestrabel;

namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A short session whose course crosses its own start, with fixes that have no position.
void WriteSessions(const fs::path& folder)
{
    for (const auto& [nFixes, pName] : {std::pair(3, "short"), std::pair(60, "long")}) {
        SSessionOptions options;
        options.dRate = 1.0;
        options.nFixes = nFixes;
        options.receiver.nColdStartFixes = 1;
        CSeries series;
        SimulateSession(options, series);
        CImportMonitor monitor;
        for (const std::string strFormat : {"nmea", "gpx", "sbn", "sbp", "trk", "gtr"}) {
            const fs::path path = folder / strFormat / (std::string(pName) + "." + strFormat);
            if (!WriteSession(monitor, path.string(), series, {}))
                throw std::runtime_error(monitor.Message());
        }
    }
}

/// Lengths around every limit that a reader of frames has.
void WriteFrames(const fs::path& folder)
{
    for (const std::size_t nLength : {0U, 1U, 2U, 90U, 91U, 95U, 512U, 513U, 1023U, 1024U, 1025U, 65535U}) {
        const std::string strPayload(std::min<std::size_t>(nLength, 2000), '\x29');
        Write(folder / ("frame-" + std::to_string(nLength)), test::Frame(strPayload, nLength) +
                                                                 test::Frame(test::Navigation(0)) +
                                                                 test::Frame(test::Navigation(1000)));
    }
}

void WriteTextTracks(const fs::path& folder)
{
    const char* const lines[] = {
        "T N33 2.1234 W096 12.1234 Fri Jan 12 10:12:0", "T N33 2.1234 W096 12.1234 Jan 12 10:12:0",
        "T N33.5 W96.2 Fri Jan 12 10:12:0", "T a, b, -33.5, 151.25, 2007/05/04, 12:34:5"};
    int nLayout = 0;
    for (const std::string strLine : lines) {
        std::string strBytes;
        for (const char* pEnd : {"1", "2", "3", "4"})
            strBytes += strLine + pEnd + (strLine.find(',') == std::string::npos ? " 2001" : "") + "\r\n";
        Write(folder / ("layout-" + std::to_string(++nLayout)), strBytes);
    }
}

void WriteProjects(const fs::path& folder)
{
    CEvent event(DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1}));
    FillNewProject(event, event.m_dateStart);
    SaveProject((folder / "new").string(), event, "e.rsp");
    for (std::uint8_t nKind = DivisionKind::AlphaRacing; nKind <= DivisionKind::CheckPoints; ++nKind) {
        CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
        division.m_strName = std::string(300, static_cast<char>('a' + nKind)); // a long form of a text
        division.m_nKind = nKind;
        division.m_waypoints.Add(std::make_unique<CWayPoint>());
        event.m_waypoints.Add(std::make_unique<CWayPoint>());
    }
    SaveProject((folder / "every-kind").string(), event, "e.rsp");
    for (int nVersion = 3; nVersion <= 10; ++nVersion) {
        CEvent stored(DATE(1.0));
        Write(folder / ("version-" + std::to_string(nVersion)), test::EventOf(nVersion, stored));
    }
    test::CArchiveBytes longName;
    Write(folder / "class-name-64",
          longName.Raw(std::string(70, '\0')).NewClass(std::string(64, 'C'), 1).Get());
    Write(folder / "count", std::string(90, '\xFF'));
}

} // namespace

int main(int nArguments, char** pArguments)
{
    if (nArguments != 2) {
        std::cerr << "usage: make-seeds FOLDER\n";
        return 2;
    }
    const fs::path folder = pArguments[1];
    for (const char* pTarget : {"nmea", "gpx", "sbn", "sbp", "trk", "gtr", "rsp"})
        fs::create_directories(folder / pTarget);
    WriteSessions(folder);
    WriteFrames(folder / "sbn");
    WriteTextTracks(folder / "gtr");
    WriteProjects(folder / "rsp");
    return 0;
}
