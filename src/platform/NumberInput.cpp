#include "platform/NumberInput.h"

#include <algorithm>
#include <array>
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

/// What loggers write: up to 15 digits with a point and no exponent, at the start of `strText`. Digits and
/// power of ten are then both exact as doubles, and one division rounds correctly (W. D. Clinger, "How to
/// read floating point numbers accurately", PLDI 1990). Returns the characters taken, 0 for any other form.
std::size_t TakeShortDecimal(std::string_view strText, double& dMagnitude)
{
    constexpr std::size_t nMaxDigits = 15;
    static constexpr std::array<double, nMaxDigits + 1> powersOfTen = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::int64_t nDigits = 0;
    std::size_t nTaken = 0;
    std::size_t nBeforePoint = std::string_view::npos;
    for (; nTaken < strText.size(); ++nTaken) {
        const char c = strText[nTaken];
        if (IsDigit(c))
            nDigits = nDigits * 10 + (c - '0');
        else if (c == '.' && nBeforePoint == std::string_view::npos)
            nBeforePoint = nTaken;
        else
            break;
        if (nTaken > nMaxDigits)
            return 0;
    }
    if (nTaken < strText.size() && (strText[nTaken] == 'e' || strText[nTaken] == 'E'))
        return 0;
    const std::size_t nDecimals = nBeforePoint == std::string_view::npos ? 0 : nTaken - nBeforePoint - 1;
    if (nTaken - (nBeforePoint == std::string_view::npos ? 0 : 1) > nMaxDigits)
        return 0;
    dMagnitude = static_cast<double>(nDigits) / powersOfTen[nDecimals];
    return nTaken;
}

enum class ETaken
{
    Nothing,
    Number,
    DoesNotFit ///< a number, but too large or too small for a double
};

ETaken Take(std::string_view& strText, double& dValue)
{
    std::string_view strRest = SkipBlanks(strText);
    const bool bNegative = TakeSign(strRest);
    if (!BeginsNumber(strRest))
        return ETaken::Nothing;
    double dMagnitude = 0.0;
    std::size_t nTaken = TakeShortDecimal(strRest, dMagnitude);
    ETaken taken = ETaken::Number;
    if (nTaken == 0) {
        const auto [pEnd, error] =
            std::from_chars(strRest.data(), strRest.data() + strRest.size(), dMagnitude);
        nTaken = static_cast<std::size_t>(pEnd - strRest.data());
        if (error != std::errc()) {
            dMagnitude = 0.0;
            taken = ETaken::DoesNotFit;
        }
    }
    dValue = bNegative ? -dMagnitude : dMagnitude;
    strText = strRest.substr(nTaken);
    return taken;
}

} // namespace

bool TakeDecimal(std::string_view& strText, double& dValue)
{
    return Take(strText, dValue) != ETaken::Nothing;
}

bool TakeInteger(std::string_view& strText, std::int32_t& nValue)
{
    std::string_view strRest = SkipBlanks(strText);
    const bool bNegative = TakeSign(strRest);
    if (strRest.empty() || !IsDigit(strRest.front()))
        return false;
    constexpr std::int64_t nLargest = std::numeric_limits<std::int32_t>::max();
    const std::int64_t nLimit = bNegative ? nLargest + 1 : nLargest;
    std::int64_t nMagnitude = 0;
    while (!strRest.empty() && IsDigit(strRest.front())) {
        nMagnitude = std::min(nMagnitude * 10 + (strRest.front() - '0'), nLimit);
        strRest.remove_prefix(1);
    }
    nValue = static_cast<std::int32_t>(bNegative ? -nMagnitude : nMagnitude);
    strText = strRest;
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
    return Take(strText, dValue) == ETaken::Number && SkipBlanks(strText).empty();
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
