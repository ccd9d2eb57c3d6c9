#include "formats/MonitorText.h"

#include "formats/TrackFormat.h"
#include "platform/Path.h"

namespace kestrabel {

namespace {

/// Binary formats tell where something was skipped as a byte offset.
bool IsBinary(std::string_view strPath)
{
    const STrackFormat* pFormat = FormatForImport(strPath);
    return pFormat != nullptr &&
           (pFormat->nSourceKind == SourceKind::SirfStream || pFormat->nSourceKind == SourceKind::BinaryLog);
}

/// The text without "PATH: " before it, which the line begins with anyway.
std::string WithoutPath(std::string_view strText, std::string_view strPath)
{
    for (const std::string& strName : {std::string(strPath), StoredFileName(strPath)}) {
        if (strText.starts_with(strName + ": "))
            return std::string(strText.substr(strName.size() + 2));
    }
    return std::string(strText);
}

} // namespace

std::string IssueText(const SImportIssue& issue, std::string_view strPath)
{
    const std::string strReason = WithoutPath(issue.strReason, strPath);
    if (issue.nLine == 0)
        return strReason;
    return (IsBinary(strPath) ? "byte " : "line ") + std::to_string(issue.nLine) + ": " + strReason;
}

std::string FailureText(const CImportMonitor& monitor, std::string_view strPath)
{
    std::string strText = WithoutPath(monitor.Message(), strPath);
    strText.erase(0, strText.find_first_not_of(' '));
    const bool bHasDetail =
        monitor.IssueCount() > 0 && monitor.IssueCount() <= std::int64_t{CImportMonitor::MaxKeptIssues};
    if (!bHasDetail)
        return strText.empty() ? "reading was stopped" : strText;
    const std::string strDetail = IssueText(monitor.Issues().back(), strPath);
    return strText.empty() ? "stopped at " + strDetail : strText + " (" + strDetail + ")";
}

std::string SkippedText(std::int64_t nSkipped, const CImportMonitor& monitor, std::string_view strPath)
{
    const std::string strWhat = IsBinary(strPath) ? "record" : "line";
    const std::string strFirst = IssueText(monitor.Issues().front(), strPath);
    if (nSkipped == 1)
        return "1 " + strWhat + " skipped: " + strFirst;
    return std::to_string(nSkipped) + " " + strWhat + "s skipped, the first: " + strFirst;
}

} // namespace kestrabel
