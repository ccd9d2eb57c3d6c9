#include "cli/Messages.h"

#include "cli/DisplayText.h"

namespace kestrabel {

void CMessages::About(std::string_view strSubject, std::string_view strText)
{
    m_error << OneLine(strSubject) + ": " + OneLine(strText) + "\n" << std::flush;
}

} // namespace kestrabel
