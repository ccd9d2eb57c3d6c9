#include "formats/Pcx5Writer.h"

#include "formats/FormattedLine.h"
#include "formats/LineFile.h"
#include "formats/ReportFormat.h"
#include "model/DateText.h"
#include "model/NumberText.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>

namespace kestrabel {

namespace {

// Some lines bring a line end of their own, which the readers of this format are used to.
constexpr std::array<std::string_view, 7> HeaderLines = {
    "H  SOFTWARE NAME & VERSION",
    "I  PCX5 2.08  Created by Kestrabel\r\n",
    "H  R DATUM                IDX DA            DF            DX            DY            DZ",
    "M  G WGS 84               100 +0.000000e+00 +0.000000e+00 +0.000000e+00 +0.000000e+00 +0.000000e+00\n",
    "H  COORDINATE SYSTEM",
    "U  LAT LON DEG\r\n",
    "H  LATITUDE    LONGITUDE    DATE      TIME     ALT ;track",
};

constexpr std::int32_t DegreeDecimals = 7;

void AppendTwoDigits(std::string& strText, int nNumber)
{
    strText += static_cast<char>('0' + nNumber / 10);
    strText += static_cast<char>('0' + nNumber % 10);
}

/// "04-May-07".
std::string DayText(const SCalendar& calendar)
{
    std::string strText;
    AppendTwoDigits(strText, calendar.nDay);
    strText.append("-").append(MonthAbbreviation(calendar.nMonth)).append("-");
    AppendTwoDigits(strText, calendar.nYear % 100);
    return strText;
}

/// "12:34:56".
std::string TimeOfDayText(const SCalendar& calendar)
{
    std::string strText;
    AppendTwoDigits(strText, calendar.nHour);
    strText += ':';
    AppendTwoDigits(strText, calendar.nMinute);
    strText += ':';
    AppendTwoDigits(strText, calendar.nSecond);
    return strText;
}

/// The years that the readers of this format take two digits for.
bool IsYearTold(const CTrackPoint* pPoint)
{
    constexpr int nFirst = 1950;
    constexpr int nLast = 2049;
    const std::optional<SCalendar> calendar = pPoint->m_time.ToCalendarSecond();
    return calendar && calendar->nYear >= nFirst && calendar->nYear <= nLast;
}

std::string PointLine(const CTrackPoint& point)
{
    constexpr SCalendar noDay = {.nMonth = 1};
    const SCalendar calendar = point.m_time.ToCalendarSecond().value_or(noDay);
    return FormatLine("%S%S%S%S%S%I", ' ',
                      {"T", FormatSigned(point.m_position.m_dLatitude, DegreeDecimals),
                       FormatSigned(point.m_position.m_dLongitude, DegreeDecimals), DayText(calendar),
                       TimeOfDayText(calendar), long{point.m_nAltitude}});
}

} // namespace

bool WritePcx5(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points)
{
    CLineFile file;
    if (!file.OpenForWriting(strPath, CFile::EMode::Replace)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        if (monitor.Window() != nullptr)
            monitor.Window()->ShowMessage(file.ErrorText());
        return false;
    }
    try {
        for (const std::string_view strLine : HeaderLines)
            file.WriteLine(strLine);
        for (const CTrackPoint* pPoint : points)
            file.WriteLine(PointLine(*pPoint));
        file.Commit();
        NotePoints(monitor, std::count_if(points.begin(), points.end(), std::not_fn(IsYearTold)),
                   "with a time that is not from 1950 to 2049, of whose year two digits are written");
    } catch (const CFileException& exception) {
        monitor.NoteIssue(0, exception.what());
        monitor.Report(StringTableText(EText::WriteFailure), false);
        return false;
    }
    return true;
}

} // namespace kestrabel
