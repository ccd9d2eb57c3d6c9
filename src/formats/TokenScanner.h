#pragma once

#include <string_view>

namespace kestrabel {

// The steps in which a line of blank- or comma-separated items is read. Each takes an item from the front of
// `strRest`; false, with nothing taken, when there is none.

inline constexpr std::string_view BlankCharacters = " \t\n\v\f\r";

inline void SkipBlanks(std::string_view& strRest)
{
    const auto nFirst = strRest.find_first_not_of(BlankCharacters);
    strRest.remove_prefix(nFirst == std::string_view::npos ? strRest.size() : nFirst);
}

/// The next characters up to a blank, after any blanks.
inline bool TakeWord(std::string_view& strRest, std::string_view& strWord)
{
    std::string_view strFound = strRest;
    SkipBlanks(strFound);
    if (strFound.empty())
        return false;
    strWord = strFound.substr(0, strFound.find_first_of(BlankCharacters));
    strRest = strFound.substr(strWord.size());
    return true;
}

/// The next characters up to a comma, blanks included; at least one.
inline bool TakeUntilComma(std::string_view& strRest, std::string_view& strItem)
{
    strItem = strRest.substr(0, strRest.find(','));
    strRest.remove_prefix(strItem.size());
    return !strItem.empty();
}

} // namespace kestrabel
