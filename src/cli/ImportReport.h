#pragma once

#include "cli/ExitStatus.h"
#include "cli/Messages.h"
#include "cli/TerminalPrompt.h"
#include "formats/TrackFileDispatcher.h"

#include <string_view>

namespace kestrabel {

/// What the reading of a command's track files has come to: says on standard error how each file ended and
/// keeps the exit status that follows.
class CImportReport
{
public:
    CImportReport(CMessages& messages, bool bStrict) : m_messages(messages), m_prompt(bStrict) {}

    /// Answers for the monitors of the files.
    CTerminalPrompt& Prompt() { return m_prompt; }

    /// A file was read: `end` and the monitor tell how, `nPoints` what it gave.
    void FileEnded(std::string_view strPath, const CImportMonitor& monitor, EImportEnd end, int nPoints);

    /// The closing line on the questions that were answered OK; nothing when there were none.
    void Close();

    /// True when a file gave points.
    bool HasPoints() const { return m_bHasPoints; }
    /// Unreadable when a file failed or was not read to its end, else Failed when no file gave a point.
    EExitStatus Status() const;

private:
    CMessages& m_messages;
    CTerminalPrompt m_prompt;
    bool m_bUnreadable = false;
    bool m_bHasPoints = false;
};

} // namespace kestrabel
