#include "app/ReplaceQuestion.h"

#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>

namespace kestrabel {

std::optional<int> AskToReplace(CDesktop& desktop, const CPerson& person, std::string_view strPath)
{
    const std::string strName = ToUtf8(FileTitle(strPath));
    const auto found = std::ranges::find_if(
        person.m_series, [&](const CSeries* pSeries) { return pSeries->m_strName == strName; });
    if (found == person.m_series.end())
        return -1;
    switch (desktop.AskYesNoCancel(
        "A series of this name already exists. Do you wish to replace the existing series?"))
    {
    case CUserPrompt::EAnswer::Yes: return static_cast<int>(found - person.m_series.begin());
    case CUserPrompt::EAnswer::No: return -1;
    case CUserPrompt::EAnswer::Cancel: break;
    }
    return std::nullopt;
}

} // namespace kestrabel
