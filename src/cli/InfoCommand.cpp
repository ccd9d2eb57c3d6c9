#include "cli/InfoCommand.h"

#include "cli/DisplayText.h"
#include "cli/JsonMembers.h"
#include "cli/TextTable.h"
#include "model/NumberText.h"
#include "model/SpeedUnits.h"
#include "model/TimeText.h"
#include "platform/Text.h"

#include <array>
#include <limits>
#include <string>

namespace kestrabel {

namespace {

constexpr const char* Nothing = "-";
constexpr double SecondsToMinutes = 0.016666666666666666;
constexpr std::size_t LabelWidth = 24;
constexpr std::size_t ValueWidth = CTextTable::Width - LabelWidth;

void WriteFact(COutput& output, std::string_view strLabel, std::string_view strValue)
{
    std::string strLine(strLabel);
    strLine.append(LabelWidth - strLabel.size(), ' ');
    output.WriteLine(strLine + CutEnd(strValue, ValueWidth));
}

std::string DayAndTime(const DATE& time)
{
    return time.IsValid() ? FormatDay(time) + " " + FormatTimeOfDay(time, 3) : Nothing;
}

/// From the first fix to the last, the second date only when it is another.
std::string Period(const CSeries& series)
{
    const DATE first = series.m_points[0].m_time;
    const DATE last = series.m_points.Last()->m_time;
    const bool bSameDay = FormatDay(first) == FormatDay(last) && last.IsValid();
    return DayAndTime(first) + " to " + (bSameDay ? FormatTimeOfDay(last, 3) : DayAndTime(last));
}

/// "12 (S 3, T 9)": the invalid points, and how many of them for each reason.
std::string InvalidPoints(const CSeries& series)
{
    const std::string strLetters = InvalidLetters(InvalidMask::Any);
    std::array<int, std::numeric_limits<unsigned char>::max() + 1> counts = {};
    int nInvalid = 0;
    for (const CTrackPoint* pPoint : series.m_points) {
        const std::string strReasons = InvalidLetters(pPoint->m_nInvalidFlags);
        nInvalid += strReasons.empty() ? 0 : 1;
        for (const char c : strReasons)
            ++counts[static_cast<unsigned char>(c)];
    }
    std::string strReasons;
    for (const char c : strLetters) {
        const int nCount = counts[static_cast<unsigned char>(c)];
        if (nCount > 0)
            strReasons.append(strReasons.empty() ? " (" : ", ")
                .append(1, c)
                .append(" ")
                .append(std::to_string(nCount));
    }
    return std::to_string(nInvalid) + (strReasons.empty() ? "" : strReasons + ")");
}

/// The statistics with the labels of the window's properties of a track file.
void WriteFacts(const CEvent& event, const CSeries& series, COutput& output)
{
    const double dFactor = SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor;
    const bool bHasHighest = series.m_dMaxAltitude != std::numeric_limits<double>::lowest();
    const bool bHasLowest = series.m_dMinAltitude < std::numeric_limits<double>::max();
    WriteFact(output, "Name:", OneLine(series.m_strName));
    WriteFact(output, "File:", CutStart(OneLine(series.m_strFileName), ValueWidth));
    WriteFact(output, "Period (UTC):", Period(series));
    WriteFact(output, "Number of Points:", std::to_string(series.m_points.GetCount()));
    WriteFact(output, "Invalid Points:", InvalidPoints(series));
    WriteFact(output, "Doppler:", series.m_bHasDoppler != 0 ? "yes" : "no");
    WriteFact(output, "Travel Time (Mins):", FormatNumber(series.m_dTravelTime * SecondsToMinutes, 2, false));
    WriteFact(output, "Total Distance (Kms):", FormatNumber(series.m_dTotalDistance, 2, false));
    WriteFact(output, "Total Distance (Nms):", FormatNumber(series.m_dTotalDistance * dFactor, 2, false));
    WriteFact(output,
              "Maximum Altitude (m):", bHasHighest ? FormatNumber(series.m_dMaxAltitude, 0, false) : Nothing);
    WriteFact(output,
              "Minimum Altitude (m):", bHasLowest ? FormatNumber(series.m_dMinAltitude, 0, false) : Nothing);
    WriteFact(output, "Max Result HDOP:", FormatNumber(series.m_dMaxResultHDOP, 1, false));
    WriteFact(output, "Min Result Sats:", FormatNumber(series.m_dMinResultSats, 0, false));
    WriteFact(output, "Log Rate:", series.m_nLogRate < 1 ? Nothing : std::to_string(series.m_nLogRate));
}

void WriteJson(const CEvent& event, COutput& output)
{
    CJsonWriter json(output);
    json.BeginObject();
    json.BeginArray("trackFiles");
    for (const CPerson* pPerson : event.m_persons) {
        for (const CSeries* pSeries : pPerson->m_series) {
            json.BeginObject();
            WriteTrackFileMembers(json, *pSeries);
            json.EndObject();
        }
    }
    json.EndArray();
    json.EndObject();
}

} // namespace

void PrintInfo(const CEvent& event, EFormat format, COutput& output)
{
    if (format == EFormat::Json) {
        WriteJson(event, output);
        return;
    }
    bool bFirst = true;
    for (const CPerson* pPerson : event.m_persons) {
        for (const CSeries* pSeries : pPerson->m_series) {
            if (!bFirst)
                output.WriteLine("");
            WriteFacts(event, *pSeries, output);
            bFirst = false;
        }
    }
}

} // namespace kestrabel
