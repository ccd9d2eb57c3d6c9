#include "cli/ResultTable.h"

#include "cli/DisplayText.h"
#include "cli/TextTable.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

namespace kestrabel {

namespace {

constexpr const char* Nothing = "-";
constexpr double KilometresToMetres = 1000.0;
constexpr std::int32_t MostDecimals = 3; // what the settings offer; more would not leave room for names
constexpr std::int32_t SecondsDecimals = 3;

std::string NumberCell(double dValue, std::int32_t nDecimals)
{
    return std::isfinite(dValue) ? FormatNumber(dValue, std::min(nDecimals, MostDecimals), false) : Nothing;
}

std::string TextCell(std::string_view strText)
{
    return strText.empty() ? Nothing : OneLine(strText);
}

std::string DayOf(const CEvent& event, const CResult& result)
{
    return FormatDay(ShiftToTimezone(result.m_timeStart, event.m_dTimezone));
}

/// One table column: its title and what it shows of a result.
struct SResultColumn
{
    std::string_view strTitle;
    std::string_view strUnit;
    CTextTable::EColumn column;
    std::function<std::string(const CResult&)> cell;
};

/// One group of the table.
struct SGroup
{
    std::string strTitle;
    const CResultList& results;
};

/// True when the results do not all have the same text.
bool Differ(const std::vector<SGroup>& groups, const std::function<std::string(const CResult&)>& text)
{
    const CResult* pFirst = nullptr;
    for (const SGroup& group : groups) {
        for (const CResult* pResult : group.results) {
            if (pResult->m_nStartIndex < 0)
                continue;
            if (pFirst == nullptr)
                pFirst = pResult;
            if (text(*pResult) != text(*pFirst))
                return true;
        }
    }
    return false;
}

bool Any(const std::vector<SGroup>& groups, const std::function<bool(const CResult&)>& isSo)
{
    return std::any_of(groups.begin(), groups.end(), [&](const SGroup& group) {
        return std::any_of(group.results.begin(), group.results.end(),
                           [&](const CResult* pResult) { return isSo(*pResult); });
    });
}

/// The columns that tell something about these results.
std::vector<SResultColumn> ColumnsFor(const CEvent& event, const std::vector<SGroup>& groups)
{
    using EColumn = CTextTable::EColumn;
    const SSpeedUnit& unit = SpeedUnitOf(event.m_nSpeedUnits);
    const auto speed = [&](double dKmh) {
        return NumberCell(dKmh * unit.dDisplayFactor, event.m_nSpeedPrecision);
    };
    const auto day = [&](const CResult& result) { return DayOf(event, result); };

    std::vector<SResultColumn> columns;
    columns.push_back({"Speed", unit.strSuffix, EColumn::Number,
                       [=](const CResult& result) { return speed(result.m_dSpeed); }});
    if (Any(groups, [](const CResult& result) { return result.m_dClaimed != 0.0; }))
        columns.push_back({"Claimed", unit.strSuffix, EColumn::Number,
                           [=](const CResult& result) { return speed(result.m_dClaimed); }});
    if (Differ(groups, day))
        columns.push_back(
            {"Date", "", EColumn::Left, [=](const CResult& result) { return TextCell(day(result)); }});
    columns.push_back({"Start", "", EColumn::Left, [&](const CResult& result) {
                           return TextCell(
                               FormatTimeOfDay(ShiftToTimezone(result.m_timeStart, event.m_dTimezone), 3));
                       }});
    columns.push_back({"Seconds", "", EColumn::Number,
                       [](const CResult& result) { return NumberCell(result.m_dSeconds, SecondsDecimals); }});
    columns.push_back({"Distance", "(m)", EColumn::Number, [&](const CResult& result) {
                           return NumberCell(result.m_dDistance * KilometresToMetres,
                                             event.m_nDistancePrecision);
                       }});
    if (Any(groups, [](const CResult& result) { return !result.m_strWaypoint.empty(); }))
        columns.push_back({"Gates", "", EColumn::Name,
                           [](const CResult& result) { return TextCell(result.m_strWaypoint); }});
    columns.push_back(
        {"Track", "file", EColumn::Name, [](const CResult& result) { return TextCell(result.m_strSeries); }});
    return columns;
}

/// One row; `pResult` is null when there is no result, or nothing found for the competitor.
std::vector<std::string> Row(const CResult* pResult, bool bCompetitors,
                             const std::vector<SResultColumn>& columns)
{
    const bool bFound = pResult != nullptr && pResult->m_nStartIndex >= 0;
    std::vector<std::string> cells = {bFound ? std::to_string(pResult->m_nRank) : Nothing};
    if (bCompetitors)
        cells.push_back(TextCell(pResult != nullptr ? pResult->m_strCompetitor : std::string()));
    for (const SResultColumn& column : columns)
        cells.push_back(bFound ? column.cell(*pResult) : Nothing);
    return cells;
}

void WriteGroups(const CEvent& event, const std::vector<SGroup>& groups, bool bCompetitors, COutput& output)
{
    const std::vector<SResultColumn> columns = ColumnsFor(event, groups);
    CTextTable table;
    table.AddColumn("Rank", "", CTextTable::EColumn::Right);
    if (bCompetitors)
        table.AddColumn("Competitor", "", CTextTable::EColumn::Name);
    for (const SResultColumn& column : columns)
        table.AddColumn(column.strTitle, column.strUnit, column.column);
    for (const SGroup& group : groups) {
        table.AddGroup(group.strTitle);
        for (int i = group.results.GetCount() - 1; i >= 0; --i)
            table.AddRow(Row(&group.results[i], bCompetitors, columns));
        if (group.results.IsEmpty())
            table.AddRow(Row(nullptr, bCompetitors, columns));
    }
    table.Write(output);
}

} // namespace

void WriteResultsTable(const CEvent& event, const std::vector<SCompetitorResults>& competitors,
                       COutput& output)
{
    std::vector<SGroup> groups;
    for (const SCompetitorResults& competitor : competitors) {
        if (competitor.pPerson->m_series.IsEmpty())
            continue;
        const std::string strName = OneLine(competitor.pPerson->m_strName);
        for (const SDivisionResults& division : competitor.divisions) {
            const std::string strDivision = OneLine(division.pDivision->m_strName);
            groups.push_back(
                {strName.empty() ? strDivision : strName + ": " + strDivision, division.results});
        }
    }
    WriteGroups(event, groups, false, output);
}

void WriteLeaderboardTable(const CEvent& event, const std::vector<SDivisionResults>& leaderboards,
                           COutput& output)
{
    std::vector<SGroup> groups;
    for (const SDivisionResults& leaderboard : leaderboards)
        groups.push_back({OneLine(leaderboard.pDivision->m_strName), leaderboard.results});
    WriteGroups(event, groups, true, output);
}

} // namespace kestrabel
