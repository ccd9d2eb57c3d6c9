#pragma once

#include "platform/UserPrompt.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// Answers in the user's place: OK to every question, or Cancel when strict. Nothing is printed here: a
/// message is kept until somebody who knows the file takes it.
class CTerminalPrompt final : public CUserPrompt
{
public:
    explicit CTerminalPrompt(bool bStrict) : m_bStrict(bStrict) {}

    void ShowMessage(std::string_view strText) override { m_strShown = strText; }
    bool AskOkCancel(std::string_view strText) override;
    EAnswer AskYesNoCancel(std::string_view strText) override;

    /// The last message shown since it was taken last; empty when there was none.
    std::string TakeShown();
    /// The number of questions answered OK or Yes.
    std::int64_t AnsweredOk() const { return m_nAnsweredOk; }

private:
    bool m_bStrict;
    std::int64_t m_nAnsweredOk = 0;
    std::string m_strShown;
};

} // namespace kestrabel
