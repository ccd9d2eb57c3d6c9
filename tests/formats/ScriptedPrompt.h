#pragma once

#include "platform/UserPrompt.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel::test {

/// Answers OK-or-Cancel questions from a script (OK when it has run out) and keeps every text that was shown.
class CScriptedPrompt : public CUserPrompt
{
public:
    explicit CScriptedPrompt(std::deque<bool> okAnswers = {}) : m_okAnswers(std::move(okAnswers)) {}

    void ShowMessage(std::string_view strText) override { m_shown.emplace_back(strText); }
    bool AskOkCancel(std::string_view strText) override
    {
        m_asked.emplace_back(strText);
        if (m_okAnswers.empty())
            return true;
        const bool bOk = m_okAnswers.front();
        m_okAnswers.pop_front();
        return bOk;
    }
    EAnswer AskYesNoCancel(std::string_view strText) override
    {
        m_asked.emplace_back(strText);
        return EAnswer::Cancel;
    }

    std::vector<std::string> m_shown;
    std::vector<std::string> m_asked;

private:
    std::deque<bool> m_okAnswers;
};

} // namespace kestrabel::test
