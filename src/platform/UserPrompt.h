#pragma once

#include <string_view>

namespace kestrabel {

/// How the system speaks with the user in the middle of an operation. The window implements it with message
/// boxes, the tool with the terminal, tests with a script of answers.
class CUserPrompt
{
public:
    enum class EAnswer
    {
        Yes,
        No,
        Cancel
    };

    virtual ~CUserPrompt() = default;

    /// A message with an OK button.
    virtual void ShowMessage(std::string_view strText) = 0;
    /// A question with OK and Cancel; true for OK.
    virtual bool AskOkCancel(std::string_view strText) = 0;
    /// A question with Yes, No and Cancel.
    virtual EAnswer AskYesNoCancel(std::string_view strText) = 0;
};

} // namespace kestrabel
