#include "engine/ResultsExport.h"

#include "engine/Ranking.h"
#include "geo/Rounding.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"

#include <initializer_list>

namespace kestrabel {

namespace {

constexpr std::string_view Separator = ", ";
constexpr double KilometresToMetres = 1000.0;

void AppendField(std::string& strLine, std::string_view strField)
{
    const bool bQuoted = strField.find_first_of(" ,") != std::string_view::npos;
    if (bQuoted)
        strLine += '"';
    strLine += strField;
    if (bQuoted)
        strLine += '"';
}

std::string Join(std::initializer_list<std::string_view> fields)
{
    std::string strLine;
    for (const std::string_view& strField : fields) {
        if (&strField != fields.begin())
            strLine += Separator;
        AppendField(strLine, strField);
    }
    return strLine;
}

std::string Number(double dValue)
{
    return FormatFixed(dValue, 1, true);
}

/// The time of day in the displayed timezone. The two roundings keep the offset a whole number of
/// milliseconds.
std::string TimeOfDay(const CEvent& event, const DATE& time)
{
    constexpr double dDaysPerHour = 0.041666666666666664;
    const double dOffset = RoundTo(event.m_dTimezone * dDaysPerHour * SecondsPerDay, 3);
    const double dRounded = RoundTo(dOffset * DaysPerSecond * SecondsPerDay, 3);
    return FormatTimeOfDay(time.Plus(dRounded * DaysPerSecond), 3);
}

/// The lines of a list in result order, from the fastest to the slowest.
void WriteLines(const CEvent& event, const CResultList& results, std::string_view strDivision,
                const CLineSink& writeLine)
{
    for (int i = results.GetCount() - 1; i >= 0; --i)
        writeLine(ResultLine(event, results[i], results[i].m_strCompetitor, strDivision));
}

} // namespace

std::string ResultsHeader(const CEvent& event)
{
    const std::string strUnit(SpeedUnitOf(event.m_nSpeedUnits).strSuffix);
    return Join({"Competitor", "Division", "WayPoint", "Series", "Start Time", "End Time", "Seconds",
                 "Distance (m)", "Speed" + strUnit, "Claimed" + strUnit});
}

std::string ResultLine(const CEvent& event, const CResult& result, std::string_view strCompetitor,
                       std::string_view strDivision)
{
    const double dFactor = SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor;
    return Join({strCompetitor, strDivision, result.m_strWaypoint, result.m_strSeries,
                 TimeOfDay(event, result.m_timeStart), TimeOfDay(event, result.m_timeEnd),
                 Number(result.m_dSeconds), Number(result.m_dDistance * KilometresToMetres),
                 Number(result.m_dSpeed * dFactor), Number(result.m_dClaimed * dFactor)});
}

void WriteCompetitorResults(const CEvent& event, int nPerson, int nSeries,
                            std::span<const CDivision* const> divisions, const CLineSink& writeLine,
                            CProgressDisplay& progress)
{
    writeLine(ResultsHeader(event));
    for (int i = 0; i < event.m_persons.GetCount(); ++i) {
        const CPerson& person = event.m_persons[i];
        if ((nPerson != -1 && nPerson != i) || person.m_series.IsEmpty())
            continue;
        for (const CDivision* pDivision : divisions) {
            CResultList results;
            if (!CompetitorDivisionResults(event, person, nSeries, *pDivision, results, progress))
                continue;
            for (int j = results.GetCount() - 1; j >= 0; --j)
                writeLine(ResultLine(event, results[j], person.m_strName, pDivision->m_strName));
            writeLine({});
        }
    }
}

void WriteDivisionResults(const CEvent& event, std::span<const CDivision* const> divisions,
                          const CLineSink& writeLine, CProgressDisplay& progress)
{
    CProgress shown(progress, "Exporting divisions", static_cast<std::int64_t>(divisions.size()));
    writeLine(ResultsHeader(event));
    for (const CDivision* pDivision : divisions) {
        CResultList results;
        DivisionLeaderboard(event, event.m_persons, *pDivision, results, progress);
        WriteLines(event, results, pDivision->m_strName, writeLine);
        if (event.m_persons.GetCount() > 1)
            writeLine({});
        shown.Step();
    }
}

void WriteAllDivisions(const CEvent& event, int nPerson, int nSeries, const CLineSink& writeLine,
                       CProgressDisplay& progress)
{
    CProgress shown(progress, "Exporting all divisions", event.m_divisions.GetCount());
    writeLine(ResultsHeader(event));
    for (const CDivision* pDivision : event.m_divisions) {
        CResultList results;
        if (nPerson != -1)
            CompetitorBestResult(event, event.m_persons[nPerson], *pDivision, nSeries, results, progress);
        else
            DivisionLeaderboard(event, event.m_persons, *pDivision, results, progress);
        WriteLines(event, results, pDivision->m_strName, writeLine);
        shown.Step();
    }
}

} // namespace kestrabel
