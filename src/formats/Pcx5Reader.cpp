#include "formats/Pcx5Reader.h"

#include "formats/LineFile.h"
#include "formats/ReportFormat.h"
#include "formats/TokenScanner.h"
#include "model/DateText.h"
#include "platform/NumberInput.h"

#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace kestrabel {

namespace {

constexpr double MinutesToDegrees = 0.016666666666666666;
constexpr double MaxDegrees = 100.0; ///< a latitude beyond it has its minutes behind the degrees
constexpr std::size_t TimeLength = 8;
constexpr int FractionEnd = 100;

struct STrackItems
{
    std::string_view strLatitude;
    std::string_view strLongitude;
    std::string_view strDate;
    std::string_view strTime;
    double dAltitude = 0.0;
};

bool TakeItems(std::string_view strRest, STrackItems& items)
{
    return TakeWord(strRest, items.strLatitude) && TakeWord(strRest, items.strLongitude) &&
           TakeWord(strRest, items.strDate) && TakeWord(strRest, items.strTime) &&
           TakeDecimal(strRest, items.dAltitude);
}

bool IsLetter(std::string_view strText, char cUpper)
{
    return strText.front() == cUpper || strText.front() == cUpper - 'A' + 'a';
}

double AfterHemisphere(std::string_view strText, char cNegative)
{
    const double dValue = ReadDecimal(strText.substr(1));
    return IsLetter(strText, cNegative) ? -dValue : dValue;
}

/// "3302.12345", degrees and minutes run together, as degrees.
double FromDegreesMinutes(double dValue)
{
    const double dDegrees = std::trunc(dValue * 0.01);
    return (dValue - dDegrees * 100.0) * MinutesToDegrees + dDegrees;
}

CPosition ParsePosition(const STrackItems& items)
{
    const bool bHemispheres = IsLetter(items.strLatitude, 'N') || IsLetter(items.strLatitude, 'S');
    double dLatitude =
        bHemispheres ? AfterHemisphere(items.strLatitude, 'S') : ReadDecimal(items.strLatitude);
    double dLongitude =
        bHemispheres ? AfterHemisphere(items.strLongitude, 'W') : ReadDecimal(items.strLongitude);
    if (std::abs(dLatitude) > MaxDegrees) {
        dLatitude = FromDegreesMinutes(dLatitude);
        dLongitude = FromDegreesMinutes(dLongitude);
    }
    return MakePosition(dLatitude, dLongitude);
}

/// What stands behind "hh:mm:ss" and one character has at most two digits.
bool HasShortFraction(std::string_view strTime)
{
    return strTime.size() <= TimeLength + 1 || ReadInteger(strTime.substr(TimeLength + 1)) < FractionEnd;
}

} // namespace

EPcx5Line ParsePcx5Line(CImportMonitor& monitor, std::string_view strLine, std::int64_t nLine,
                        CTrackPoint& point)
{
    STrackItems items;
    if (!TakeItems(strLine.substr(1), items))
        return monitor.AskToContinue(nLine, "a track line without its five items") ? EPcx5Line::Skipped
                                                                                   : EPcx5Line::Bad;
    if (!HasShortFraction(items.strTime)) {
        monitor.NoteIssue(nLine, "a time of more than two decimals");
        return EPcx5Line::Bad;
    }
    point.m_position = ParsePosition(items);
    point.m_time =
        ParseDateText(std::string(items.strDate).append(" ").append(items.strTime.substr(0, TimeLength)));
    point.m_nAltitude = TruncateToInt(items.dAltitude);
    return EPcx5Line::Point;
}

EReadEnd ReadPcx5(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points)
{
    CLineFile file;
    if (!file.OpenForReading(strPath)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        return EReadEnd::Failed;
    }
    try {
        std::string_view strLine;
        while (file.ReadLine(strLine)) {
            if (monitor.IsAborted())
                return EReadEnd::Stopped;
            if (!strLine.starts_with('T'))
                continue;
            auto pPoint = std::make_unique<CTrackPoint>();
            const EPcx5Line line = ParsePcx5Line(monitor, strLine, file.LineNumber(), *pPoint);
            if (line == EPcx5Line::Bad) {
                monitor.Report(StringTableText(EText::BadPcx5Line), true);
                return EReadEnd::Stopped;
            }
            if (line == EPcx5Line::Point)
                points.Add(std::move(pPoint));
        }
    } catch (const CFileException& exception) {
        monitor.NoteIssue(file.LineNumber(), exception.what());
        monitor.Report(StringTableText(EText::ReadFailure), false);
        return EReadEnd::Stopped;
    }
    return EReadEnd::Complete;
}

} // namespace kestrabel
