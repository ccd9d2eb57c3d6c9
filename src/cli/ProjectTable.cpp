#include "cli/ProjectTable.h"

#include "cli/DisplayText.h"
#include "cli/TextTable.h"
#include "model/DateText.h"
#include "model/EventSettings.h"
#include "model/NumberText.h"

#include <array>
#include <string>

namespace kestrabel {

namespace {

constexpr double KilometresToMetres = 1000.0;
constexpr std::int32_t ShownDecimals = 7;
constexpr std::size_t LabelWidth = 20;
constexpr std::size_t ValueWidth = CTextTable::Width - LabelWidth;

std::string Shown(double dValue)
{
    return FormatNumber(dValue, ShownDecimals, true);
}

/// The value of a setting as `--set` would take it, but dates and ellipsoids as people say them.
struct SSettingText
{
    std::string operator()(const std::string& strValue) const { return OneLine(strValue); }
    std::string operator()(std::int32_t nValue) const { return std::to_string(nValue); }
    std::string operator()(double dValue) const { return Shown(dValue); }
    std::string operator()(const DATE& date) const { return FormatDateText(date); }
    std::string operator()(const CPosition& position) const
    {
        return Shown(position.m_dLatitude) + "," + Shown(position.m_dLongitude);
    }
    std::string operator()(const CEllipsoid& ellipsoid) const
    {
        std::string strText(EllipsoidTable[static_cast<std::size_t>(ellipsoid.m_nEllipsoid)].strName);
        if (ellipsoid.m_nEllipsoid == CEllipsoid::User)
            strText += "," + Shown(ellipsoid.m_dRadius) + "," + Shown(ellipsoid.m_dInvFlattening);
        return strText;
    }
};

void WriteFact(COutput& output, std::string_view strLabel, const std::string& strValue)
{
    std::string strLine(strLabel);
    if (!strValue.empty())
        strLine.append(LabelWidth - strLabel.size(), ' ').append(CutEnd(strValue, ValueWidth));
    output.WriteLine(strLine);
}

std::string KindName(std::uint8_t nKind)
{
    constexpr std::array names = {"Distance", "Time", "Alpha Racing", "Lap Racing", "Splits", "CheckPoints"};
    return nKind >= 1 && nKind <= names.size() ? names[nKind - 1U] : std::to_string(nKind);
}

std::string SpeedName(std::uint8_t nCalcUsing)
{
    constexpr std::array names = {"Trackpoints", "Doppler", "Doppler if Avail."};
    return nCalcUsing < names.size() ? names[nCalcUsing] : std::to_string(nCalcUsing);
}

std::string YesNo(std::int32_t bValue)
{
    return bValue != 0 ? "yes" : "no";
}

void WriteDivisions(const CEvent& event, COutput& output)
{
    using EColumn = CTextTable::EColumn;
    CTextTable table;
    table.AddColumn("Division", "", EColumn::Name);
    table.AddColumn("Kind", "", EColumn::Left);
    table.AddColumn("Metres", "", EColumn::Right);
    table.AddColumn("Secs", "", EColumn::Right);
    table.AddColumn("Runs", "", EColumn::Right);
    table.AddColumn("Accum", "", EColumn::Left);
    table.AddColumn("One a", "run", EColumn::Left);
    table.AddColumn("Alti-", "tude", EColumn::Left);
    table.AddColumn("Strict", "", EColumn::Left);
    table.AddColumn("Prox", "(m)", EColumn::Right);
    table.AddColumn("Using", "", EColumn::Left);
    for (const CDivision* pDivision : event.m_divisions) {
        table.AddRow({OneLine(pDivision->m_strName), KindName(pDivision->m_nKind),
                      Shown(pDivision->m_dMetres), std::to_string(pDivision->m_nSeconds),
                      std::to_string(pDivision->m_nAverageRuns), YesNo(pDivision->m_bAccumulation),
                      YesNo(pDivision->m_bOneResultPerRun), YesNo(pDivision->m_bUseAltitude),
                      YesNo(pDivision->m_bStrict),
                      FormatNumber(pDivision->m_dProximity * KilometresToMetres, 2, true),
                      SpeedName(pDivision->m_nCalcUsing)});
    }
    table.Write(output);
}

void AddWayPoints(CTextTable& table, std::string_view strOwner, const CObjectArray<CWayPoint>& waypoints)
{
    if (waypoints.IsEmpty())
        return;
    table.AddGroup(strOwner);
    for (const CWayPoint* pWayPoint : waypoints)
        table.AddRow({OneLine(pWayPoint->m_strName), Shown(pWayPoint->m_position.m_dLatitude),
                      Shown(pWayPoint->m_position.m_dLongitude),
                      FormatNumber(pWayPoint->m_dProximity * KilometresToMetres, 2, true)});
}

void WriteWayPoints(const CEvent& event, COutput& output)
{
    using EColumn = CTextTable::EColumn;
    CTextTable table;
    table.AddColumn("Waypoint", "", EColumn::Name);
    table.AddColumn("Latitude", "", EColumn::Number);
    table.AddColumn("Longitude", "", EColumn::Number);
    table.AddColumn("Prox (m)", "", EColumn::Number);
    AddWayPoints(table, "The event", event.m_waypoints);
    bool bAny = !event.m_waypoints.IsEmpty();
    for (const CDivision* pDivision : event.m_divisions) {
        AddWayPoints(table, OneLine(pDivision->m_strName), pDivision->m_waypoints);
        bAny = bAny || !pDivision->m_waypoints.IsEmpty();
    }
    if (!bAny)
        return;
    output.WriteLine("");
    table.Write(output);
}

} // namespace

void WriteProjectTable(const CEvent& event, std::string_view strProjectPath, COutput& output)
{
    WriteFact(output, "Path", CutStart(OneLine(strProjectPath), ValueWidth));
    for (const SEventSetting& setting : EventSettings())
        WriteFact(output, setting.strName,
                  std::visit([&](auto pField) { return SSettingText()(event.*pField); }, setting.field));
    output.WriteLine("");
    if (event.m_divisions.IsEmpty())
        output.WriteLine("No divisions");
    else
        WriteDivisions(event, output);
    WriteWayPoints(event, output);
}

} // namespace kestrabel
