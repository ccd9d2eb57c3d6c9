#include "formats/ImportMonitor.h"

#include "formats/StringTable.h"

namespace kestrabel {

CImportMonitor::CImportMonitor(CUserPrompt* pWindow, std::int32_t nContext)
    : m_pWindow(pWindow), m_nContext(nContext)
{
}

void CImportMonitor::Init(CUserPrompt* pWindow, std::int32_t nContext)
{
    m_pWindow = pWindow;
    m_nContext = nContext;
    m_bAborted = false;
}

bool CImportMonitor::Report(std::string_view strMessage, bool bContinue)
{
    m_strMessage = strMessage;
    if (!bContinue)
        Abort();
    return !IsAborted();
}

void CImportMonitor::ShowMessage()
{
    if (m_pWindow != nullptr)
        m_pWindow->ShowMessage(m_strMessage);
}

bool CImportMonitor::AskToContinue(std::int64_t nLine, std::string_view strReason)
{
    NoteIssue(nLine, strReason);
    return m_pWindow == nullptr || m_pWindow->AskOkCancel(StringTableText(EText::UnknownLine));
}

void CImportMonitor::NoteIssue(std::int64_t nLine, std::string_view strReason)
{
    ++m_nIssues;
    if (m_issues.size() < MaxKeptIssues)
        m_issues.push_back({nLine, std::string(strReason)});
}

} // namespace kestrabel
