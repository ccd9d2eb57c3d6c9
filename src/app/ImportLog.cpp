#include "app/ImportLog.h"

#include "formats/MonitorText.h"
#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

std::string Counted(std::int64_t nCount, std::string_view strOne, std::string_view strMany)
{
    return std::to_string(nCount).append(" ").append(nCount == 1 ? strOne : strMany);
}

std::string FixesRead(std::int64_t nFixes)
{
    return Counted(nFixes, "fix", "fixes") + " read";
}

} // namespace

void CImportLog::Add(std::string_view strPath, int nFixes, const CImportMonitor& monitor, EImportEnd end)
{
    SFile& file = m_files.emplace_back();
    file.strPath = strPath;
    file.nFixes = nFixes;
    const bool bComplete = end == EImportEnd::Complete;
    // The issue that ended the reading is its failure; those before it were skipped.
    file.nSkipped = std::max<std::int64_t>(0, monitor.IssueCount() - (bComplete ? 0 : 1));
    for (const SImportIssue& issue : monitor.Issues())
        file.issues.push_back(IssueText(issue, strPath));
    if (!bComplete)
        file.strOutcome = FailureText(monitor, strPath);
    else if (file.nSkipped > 0)
        file.strOutcome = SkippedText(file.nSkipped, monitor, strPath);
    else if (nFixes == 0)
        file.strOutcome = "fewer than 2 track points";
}

std::string CImportLog::Summary() const
{
    if (m_files.empty())
        return {};
    std::int64_t nFixes = 0;
    std::int64_t nSkipped = 0;
    std::int64_t nEmpty = 0;
    for (const SFile& file : m_files) {
        nFixes += file.nFixes;
        nSkipped += file.nSkipped;
        nEmpty += file.nFixes == 0 ? 1 : 0;
    }
    const SFile& first = m_files.front();
    if (m_files.size() == 1) {
        return FileTitle(first.strPath) + FileExtension(first.strPath) + ": " + FixesRead(nFixes) +
               (first.strOutcome.empty() ? "" : "; " + first.strOutcome);
    }
    std::string strText =
        Counted(static_cast<std::int64_t>(m_files.size()), "file", "files") + ": " + FixesRead(nFixes);
    if (nSkipped > 0)
        strText += "; " + Counted(nSkipped, "line or record", "lines or records") + " skipped";
    if (nEmpty > 0)
        strText += "; nothing from " + Counted(nEmpty, "file", "files");
    return strText;
}

std::string CImportLog::Details() const
{
    std::string strText;
    for (const SFile& file : m_files) {
        strText += file.strPath + ": " + FixesRead(file.nFixes);
        strText += file.strOutcome.empty() ? "\n" : "; " + file.strOutcome + "\n";
        for (const std::string& strIssue : file.issues)
            strText += "  " + strIssue + "\n";
    }
    return strText;
}

} // namespace kestrabel
