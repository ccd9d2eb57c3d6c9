#include "cli/TerminalPrompt.h"

#include <utility>

namespace kestrabel {

bool CTerminalPrompt::AskOkCancel(std::string_view /*strText*/)
{
    if (m_bStrict)
        return false;
    ++m_nAnsweredOk;
    return true;
}

CUserPrompt::EAnswer CTerminalPrompt::AskYesNoCancel(std::string_view strText)
{
    return AskOkCancel(strText) ? EAnswer::Yes : EAnswer::Cancel;
}

std::string CTerminalPrompt::TakeShown()
{
    return std::exchange(m_strShown, {});
}

} // namespace kestrabel
