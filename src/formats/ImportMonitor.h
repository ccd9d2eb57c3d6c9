#pragma once

#include "platform/UserPrompt.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// Something in a file that could not be used: a line or record that was skipped, with why.
struct SImportIssue
{
    std::int64_t nLine = 0; ///< line number from 1, or byte offset in a binary file
    std::string strReason;
};

/// Receives the reports of one read or write and carries the user's wish to stop. Readers and writers look at
/// the abort flag after every line or record.
class CImportMonitor
{
public:
    /// The number of issues that are kept; further ones are only counted.
    static constexpr std::size_t MaxKeptIssues = 100;

    /// `pWindow` asks and shows for the monitor; without one every question counts as answered OK.
    explicit CImportMonitor(CUserPrompt* pWindow = nullptr, std::int32_t nContext = 0);
    virtual ~CImportMonitor() = default;

    /// Stores both and clears the abort flag.
    virtual void Init(CUserPrompt* pWindow, std::int32_t nContext);
    virtual void Abort() { m_bAborted = true; }
    virtual bool IsAborted() const { return m_bAborted; }

    /// Stores the message; aborts when `bContinue` is off. True when not aborted.
    virtual bool Report(std::string_view strMessage, bool bContinue);

    /// Shows the last message in a box on the window.
    virtual void ShowMessage();

    /// Asks whether to go on after a line that cannot be read; true for OK. The line becomes an issue either
    /// way: one that was skipped, or the one at which reading stopped.
    virtual bool AskToContinue(std::int64_t nLine, std::string_view strReason);

    /// Records what was skipped, or the detail behind a report.
    void NoteIssue(std::int64_t nLine, std::string_view strReason);

    std::int32_t Context() const { return m_nContext; }
    CUserPrompt* Window() const { return m_pWindow; }
    /// The text of the last report; empty when there was none.
    const std::string& Message() const { return m_strMessage; }
    const std::vector<SImportIssue>& Issues() const { return m_issues; }
    std::int64_t IssueCount() const { return m_nIssues; }

private:
    CUserPrompt* m_pWindow;
    std::int32_t m_nContext;
    bool m_bAborted = false;
    std::string m_strMessage;
    std::vector<SImportIssue> m_issues;
    std::int64_t m_nIssues = 0;
};

} // namespace kestrabel
