#include "cli/ImportReport.h"

#include "formats/MonitorText.h"

#include <string>

namespace kestrabel {

void CImportReport::FileEnded(std::string_view strPath, const CImportMonitor& monitor, EImportEnd end,
                              int nPoints)
{
    const std::string strShown = m_prompt.TakeShown();
    const bool bComplete = end == EImportEnd::Complete;
    // The issue that ended the reading is told with the failure; those before it were skipped.
    const std::int64_t nSkipped = monitor.IssueCount() - (bComplete ? 0 : 1);
    if (nSkipped > 0)
        m_messages.About(strPath, SkippedText(nSkipped, monitor, strPath));

    if (!strShown.empty() && strShown != monitor.Message())
        m_messages.About(strPath, strShown);
    if (!bComplete) {
        m_messages.About(strPath, FailureText(monitor, strPath));
        m_bUnreadable = true;
    } else if (nPoints == 0) {
        m_messages.About(strPath, "fewer than 2 track points");
    }
    m_bHasPoints = m_bHasPoints || nPoints > 0;
}

void CImportReport::Close()
{
    const std::int64_t nAnswers = m_prompt.AnsweredOk();
    if (nAnswers == 0)
        return;
    m_messages.AboutTool(std::to_string(nAnswers) + (nAnswers == 1 ? " question" : " questions") +
                         " whether to continue answered OK; --strict answers Cancel");
}

EExitStatus CImportReport::Status() const
{
    if (m_bUnreadable)
        return EExitStatus::Unreadable;
    return m_bHasPoints ? EExitStatus::Done : EExitStatus::Failed;
}

} // namespace kestrabel
