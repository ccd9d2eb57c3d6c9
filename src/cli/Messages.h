#pragma once

#include <ostream>
#include <string_view>

namespace kestrabel {

/// The messages on standard error, one line each.
class CMessages
{
public:
    explicit CMessages(std::ostream& error) : m_error(error) {}

    /// "SUBJECT: text"; the subject is the file that the message is about.
    void About(std::string_view strSubject, std::string_view strText);
    /// A message about no file starts with the tool's name.
    void AboutTool(std::string_view strText) { About("kestrabel-cli", strText); }

private:
    std::ostream& m_error;
};

} // namespace kestrabel
