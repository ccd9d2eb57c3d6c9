#include "platform/NumberInput.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view SkipBlanks(std::string_view strText)
{
    while (!strText.empty() && IsBlank(strText.front()))
        strText.remove_prefix(1);
    return strText;
}

bool TakeSign(std::string_view& strText)
{
    const bool bNegative = !strText.empty() && strText.front() == '-';
    if (!strText.empty() && (strText.front() == '-' || strText.front() == '+'))
        strText.remove_prefix(1);
    return bNegative;
}

/// What `from_chars` would read is a decimal number and not "nan", "inf" or a second sign.
bool BeginsNumber(std::string_view strText)
{
    if (strText.empty())
        return false;
    if (strText.front() == '.')
        return strText.size() > 1 && IsDigit(strText[1]);
    return IsDigit(strText.front());
}

} // namespace

bool TakeDecimal(std::string_view& strText, double& dValue)
{
    std::string_view strRest = SkipBlanks(strText);
    const bool bNegative = TakeSign(strRest);
    if (!BeginsNumber(strRest))
        return false;
    double dMagnitude = 0.0;
    const auto [pEnd, error] = std::from_chars(strRest.data(), strRest.data() + strRest.size(), dMagnitude);
    if (error != std::errc())
        dMagnitude = 0.0; // too large or too small for a double
    dValue = bNegative ? -dMagnitude : dMagnitude;
    strText = strRest.substr(static_cast<std::size_t>(pEnd - strRest.data()));
    return true;
}

bool TakeInteger(std::string_view& strText, std::int32_t& nValue)
{
    std::string_view strRest = SkipBlanks(strText);
    const bool bNegative = TakeSign(strRest);
    if (strRest.empty() || !IsDigit(strRest.front()))
        return false;
    std::int64_t nMagnitude = 0;
    const auto [pEnd, error] = std::from_chars(strRest.data(), strRest.data() + strRest.size(), nMagnitude);
    constexpr std::int64_t nLimit = std::numeric_limits<std::int32_t>::max();
    if (error != std::errc() || nMagnitude > nLimit)
        nMagnitude = nLimit;
    nValue = static_cast<std::int32_t>(bNegative ? -nMagnitude : nMagnitude);
    strText = strRest.substr(static_cast<std::size_t>(pEnd - strRest.data()));
    return true;
}

double ReadDecimal(std::string_view strText)
{
    double dValue = 0.0;
    TakeDecimal(strText, dValue);
    return dValue;
}

std::int32_t ReadInteger(std::string_view strText)
{
    std::int32_t nValue = 0;
    TakeInteger(strText, nValue);
    return nValue;
}

bool IsDecimal(std::string_view strText, double& dValue)
{
    return TakeDecimal(strText, dValue) && SkipBlanks(strText).empty();
}

std::int32_t TruncateToInt(double dValue)
{
    if (std::isnan(dValue))
        return 0;
    if (dValue >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::max();
    if (dValue <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(dValue);
}

} // namespace kestrabel
