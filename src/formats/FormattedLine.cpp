#include "formats/FormattedLine.h"

#include "model/DateText.h"
#include "model/NumberText.h"
#include "platform/NumberInput.h"

namespace kestrabel {

namespace {

constexpr std::int32_t DefaultDecimals = 3;

std::string Quoted(std::string_view strText)
{
    return std::string("\"").append(strText).append("\"");
}

std::string QuotedIfNeeded(std::string_view strText, char cSeparator)
{
    const bool bNeeded =
        strText.find(' ') != std::string_view::npos || strText.find(cSeparator) != std::string_view::npos;
    return bNeeded ? Quoted(strText) : std::string(strText);
}

std::string CharacterItem(char c, char cSeparator)
{
    const std::string_view strCharacter(&c, 1);
    return c == '"' ? Quoted(strCharacter) : QuotedIfNeeded(strCharacter, cSeparator);
}

std::string FormatItem(char cDirective, std::int32_t nDecimals, char cSeparator, const CLineItem& item)
{
    const auto pInteger = std::get_if<long>(&item);
    const auto pNumber = std::get_if<double>(&item);
    const auto pCharacter = std::get_if<char>(&item);
    const auto pText = std::get_if<std::string_view>(&item);
    const auto pDate = std::get_if<DATE>(&item);
    switch (cDirective) {
    case 'S':
    case 'D': return pText == nullptr ? "" : QuotedIfNeeded(*pText, cSeparator);
    case 'C': return pCharacter == nullptr ? "" : CharacterItem(*pCharacter, cSeparator);
    case 'N': return pNumber == nullptr ? "" : FormatFixed(*pNumber, nDecimals, true);
    case 'I':
    case 'L': return pInteger == nullptr ? "" : std::to_string(*pInteger);
    case 'B': return pInteger == nullptr ? "" : *pInteger != 0 ? "TRUE" : "FALSE";
    case 'T': return pDate == nullptr ? "" : QuotedIfNeeded(FormatDateText(*pDate), cSeparator);
    default: return {};
    }
}

} // namespace

std::string FormatLine(std::string_view strFormat, char cSeparator, std::initializer_list<CLineItem> items)
{
    constexpr std::string_view strDirectives = "SDCNILBT";
    std::string strLine;
    bool bFirst = true;
    auto next = items.begin();
    for (std::size_t nPercent = strFormat.find('%'); nPercent + 1 < strFormat.size();
         nPercent = strFormat.find('%'))
    {
        const char cDirective = strFormat[nPercent + 1];
        strFormat.remove_prefix(nPercent + 2);
        if (strDirectives.find(cDirective) == std::string_view::npos)
            continue;
        std::int32_t nDecimals = DefaultDecimals;
        if (!strFormat.empty() && strFormat.front() >= '0' && strFormat.front() <= '9')
            TakeInteger(strFormat, nDecimals);
        if (!bFirst)
            strLine += cSeparator;
        bFirst = false;
        if (next != items.end())
            strLine += FormatItem(cDirective, nDecimals, cSeparator, *next++);
    }
    return strLine;
}

} // namespace kestrabel
