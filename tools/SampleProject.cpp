// Writes the project of the sample event: one division of every kind, and the two buoys the riders sail
// between.
//
//   kestrabel-sample-project FILE.rsp

#include "app/NewProject.h"
#include "model/ProjectFile.h"
#include "platform/File.h"

#include <iostream>

namespace kestrabel {

namespace {

// The samples' day, so that the file has the same bytes whenever it is made.
constexpr double DayOfTheEvent = 45521.0; // 2024-08-17

void AddBuoy(CObjectArray<CWayPoint>& waypoints, std::string_view strName, double dLatitude,
             double dLongitude)
{
    auto pBuoy = std::make_unique<CWayPoint>();
    pBuoy->m_strName = strName;
    pBuoy->m_position = MakePosition(dLatitude, dLongitude);
    pBuoy->m_dProximity = 0.05;
    waypoints.Add(std::move(pBuoy));
}

void AddBuoys(CObjectArray<CWayPoint>& waypoints)
{
    AddBuoy(waypoints, "North", 52.80171, 5.26896);
    AddBuoy(waypoints, "South", 52.79903, 5.2717);
}

CDivision& AddDivision(CEvent& event, std::string_view strName, std::uint8_t nKind, double dMetres)
{
    CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
    division.m_strName = strName;
    division.m_nKind = nKind;
    division.m_dMetres = dMetres;
    // These kinds do not ask whether a fix is valid; Doppler speeds keep a position that jumps out of the
    // sum.
    division.m_nCalcUsing = CalcUsing::DopplerIfAvailable;
    return division;
}

void FillSampleProject(CEvent& event)
{
    FillNewProject(event, DATE(DayOfTheEvent));
    event.m_strDescription = "Sample event";
    event.m_strLocation = "Simulated";
    AddBuoys(event.m_waypoints);
    AddDivision(event, "Alpha 500", DivisionKind::AlphaRacing, 500.0).m_bOneResultPerRun = 0;
    AddBuoys(AddDivision(event, "Laps", DivisionKind::LapRacing, 0.0).m_waypoints);
    AddDivision(event, "Kilometres", DivisionKind::Splits, 1000.0);
    AddDivision(event, "CheckPoints", DivisionKind::CheckPoints, 0.0);
}

} // namespace

} // namespace kestrabel

int main(int nArguments, char** ppArguments)
{
    if (nArguments != 2) {
        std::cerr << "usage: kestrabel-sample-project FILE.rsp\n";
        return 2;
    }
    try {
        kestrabel::CEvent event(kestrabel::DATE(0.0));
        kestrabel::FillSampleProject(event);
        kestrabel::SaveProject(ppArguments[1], event, "");
        return 0;
    } catch (const kestrabel::CFileException& failure) {
        std::cerr << ppArguments[1] << ": " << failure.what() << '\n';
        return 1;
    }
}
