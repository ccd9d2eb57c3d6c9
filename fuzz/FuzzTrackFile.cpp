// Feeds a reader (KESTRABEL_FORMAT is the extension) with arbitrary bytes, and what it makes of them to all
// that follows on a race day: derivation, every kind of division, ranking, both exports, every writer, and
// the reading of what was written.

#include "InputFile.h"

#include "app/CheckPoints.h"
#include "app/NewProject.h"
#include "app/TrackFileImport.h"
#include "engine/Ranking.h"
#include "engine/ResultsExport.h"
#include "present/TrackPointGrid.h"

#include <cstdlib>
#include <vector>

using namespace kestrabel;

namespace {

CDivision& AddDivision(CEvent& event, const char* pName, std::uint8_t nKind)
{
    CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
    division.m_strName = pName;
    division.m_nKind = nKind;
    division.m_nCalcUsing = CalcUsing::DopplerIfAvailable;
    division.m_bStrict = 0;
    return division;
}

/// An event that judges short tracks in every kind of division. Gates lie at the track's own fixes, so that
/// whatever was read can pass them.
void FillEvent(CEvent& event)
{
    FillNewProject(event, DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1}));
    event.m_divisions.RemoveAll();
    AddDivision(event, "distance", DivisionKind::Distance).m_dMetres = 50.0;
    CDivision& time = AddDivision(event, "time", DivisionKind::Time);
    time.m_nSeconds = 3;
    time.m_nAverageRuns = 3;
    time.m_bAccumulation = 1;
    time.m_bStrict = 1;
    AddDivision(event, "alpha", DivisionKind::AlphaRacing).m_dMetres = 200.0;
    AddDivision(event, "lap", DivisionKind::LapRacing).m_dProximity = 0.02;
    AddDivision(event, "splits", DivisionKind::Splits).m_dMetres = 20.0;
    AddDivision(event, "checkpoints", DivisionKind::CheckPoints);
}

void PlaceGates(CEvent& event, CSeries& series)
{
    const int nCount = series.m_points.GetCount();
    for (const int nPoint : {0, nCount / 3, nCount / 2}) {
        auto pGate = std::make_unique<CWayPoint>();
        pGate->m_position = series.m_points[nPoint].m_position;
        AddCheckPoint(event, series, "gate", pGate->m_position, 0.03);
        event.FindDivision("lap")->m_waypoints.Add(std::move(pGate));
    }
}

void Judge(CEvent& event, CPerson& person)
{
    std::size_t nBytes = 0;
    const auto take = [&](std::string_view strLine) { nBytes += strLine.size(); };
    CResultList all;
    AllResults(event, -1, -1, all, NoProgress());
    const std::vector<const CDivision*> divisions(event.m_divisions.begin(), event.m_divisions.end());
    WriteCompetitorResults(event, -1, -1, divisions, take, NoProgress());
    WriteDivisionResults(event, divisions, take, NoProgress());
    WriteAllDivisions(event, 0, 0, take, NoProgress());
    std::vector<EPointColumn> columns;
    for (std::size_t i = 0; i < TrackPointColumns().size(); ++i)
        columns.push_back(static_cast<EPointColumn>(i));
    WriteGrid(event, person.m_series[0].m_points, columns, take);
}

/// What a writer makes of any points must be a file that its reader reads to its end.
void WriteAndReadBack(const fuzz::CInputFolder& folder, const CSeries& series)
{
    for (const char* pName : {"out.gpx", "out.sbp", "out.trk", "out.gtr"}) {
        CImportMonitor monitor;
        CSeries copy;
        copy.m_strFileName = folder.Path(pName);
        if (!SavePoints(monitor, copy.m_strFileName, series, series.m_points))
            std::abort();
        EImportEnd end = EImportEnd::Complete;
        ImportTrackFile(monitor, copy, end);
        if (end != EImportEnd::Complete)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    static const fuzz::CInputFolder folder;
    static const auto pKeepsThePool = std::make_unique<CTrackPoint>(); // which is costly to make anew
    const std::string strPath = folder.Write("in." KESTRABEL_FORMAT, pData, nSize);
    CEvent event;
    FillEvent(event);
    CPerson& person = AddCompetitor(event, "Anna");
    CImportMonitor monitor;
    EImportEnd end = EImportEnd::Complete;
    if (CSeries* pSeries = AddTrackFile(event, person, strPath, monitor, end, NoProgress())) {
        PlaceGates(event, *pSeries);
        Judge(event, person);
        WriteAndReadBack(folder, *pSeries);
    }
    return 0;
}
