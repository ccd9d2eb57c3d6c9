#include "formats/ReportFormat.h"

#include "model/NumberText.h"

namespace kestrabel {

namespace {

std::string FormatArgument(char cDirective, const CReportArgument& argument)
{
    const auto pInteger = std::get_if<long>(&argument);
    const auto pNumber = std::get_if<double>(&argument);
    const auto pCharacter = std::get_if<char>(&argument);
    const auto pText = std::get_if<std::string_view>(&argument);
    const auto pEntry = std::get_if<EText>(&argument);
    switch (cDirective) {
    case 'B': return pInteger == nullptr ? "" : *pInteger != 0 ? "TRUE" : "FALSE";
    case 'C': return pCharacter == nullptr ? "" : std::string(1, *pCharacter);
    case 'D':
    case 'S': return pText == nullptr ? "" : std::string(*pText);
    case 'I':
    case 'L': return pInteger == nullptr ? "" : std::to_string(*pInteger);
    case 'N': return pNumber == nullptr ? "" : FormatFixed(*pNumber, 6, true);
    case 'T': return pEntry == nullptr ? "" : std::string(StringTableText(*pEntry));
    default: return {};
    }
}

bool IsDirective(char c)
{
    return std::string_view("BCDSILNT").find(c) != std::string_view::npos;
}

} // namespace

std::string FormatReport(std::string_view strFormat, std::initializer_list<CReportArgument> arguments)
{
    std::string strMessage;
    auto next = arguments.begin();
    for (std::size_t i = 0; i < strFormat.size(); ++i) {
        if (strFormat[i] != '%') {
            strMessage += strFormat[i];
            continue;
        }
        if (++i == strFormat.size())
            break;
        if (IsDirective(strFormat[i]) && next != arguments.end())
            strMessage += FormatArgument(strFormat[i], *next++);
    }
    return strMessage;
}

bool ReportFormat(CImportMonitor& monitor, EText format, std::initializer_list<CReportArgument> arguments)
{
    return monitor.Report(FormatReport(StringTableText(format), arguments), true);
}

void ReportOpenFailure(CImportMonitor& monitor, std::string_view strPath, std::string_view strCause)
{
    monitor.Abort();
    ReportFormat(monitor, EText::OpenFailure, {strPath, strCause});
}

void NotePoints(CImportMonitor& monitor, std::ptrdiff_t nPoints, std::string_view strWhat)
{
    if (nPoints > 0)
        monitor.NoteIssue(
            0, std::to_string(nPoints).append(nPoints == 1 ? " point " : " points ").append(strWhat));
}

} // namespace kestrabel
