#include "model/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kestrabel {

namespace {

constexpr std::size_t MaxLength = 30;
constexpr double AlwaysTrimmedBelow = 0.1;

std::string Fixed(double dMagnitude, std::int32_t nDecimals)
{
    std::array<char, 400> buffer; // the largest double has 309 digits before the point
    const auto [pEnd, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), dMagnitude,
                                             std::chars_format::fixed, std::clamp(nDecimals, 0, MaxDecimals));
    return std::string(buffer.data(), pEnd);
}

bool IsZero(const std::string& strDigits)
{
    return strDigits.find_first_of("123456789") == std::string::npos;
}

void Trim(std::string& strDigits)
{
    if (strDigits.find('.') == std::string::npos)
        return;
    strDigits.erase(strDigits.find_last_not_of('0') + 1);
    if (strDigits.back() == '.')
        strDigits.pop_back();
}

} // namespace

std::string FormatNumber(double dValue, std::int32_t nDecimals, bool bTrim)
{
    if (dValue == 0.0 || std::isnan(dValue))
        return "0";
    const bool bNegative = dValue < 0.0;
    const double dMagnitude = std::abs(dValue);
    if (std::isinf(dValue))
        return bNegative ? "-inf" : "inf";

    std::string strDigits = Fixed(dMagnitude, nDecimals);
    if (IsZero(strDigits))
        return "0";
    if (bTrim || dMagnitude < AlwaysTrimmedBelow)
        Trim(strDigits);
    if (strDigits.starts_with("0."))
        strDigits.erase(0, 1);
    if (bNegative)
        strDigits.insert(strDigits.begin(), '-');
    if (strDigits.size() > MaxLength)
        strDigits.resize(MaxLength);
    return strDigits;
}

std::string FormatSigned(double dValue, std::int32_t nDecimals)
{
    std::string strText = FormatFixed(std::abs(dValue), nDecimals, false);
    strText.insert(strText.begin(), dValue < 0.0 && strText != "0" ? '-' : '+');
    return strText;
}

std::string FormatPadded(double dValue, std::int32_t nWidth, std::int32_t nDecimals)
{
    if (!std::isfinite(dValue))
        return "0";
    std::string strDigits = Fixed(std::abs(dValue), nDecimals);
    const std::string strSign = dValue < 0.0 && !IsZero(strDigits) ? "-" : "";
    const std::size_t nLength = strSign.size() + strDigits.size();
    const auto nWanted = static_cast<std::size_t>(std::clamp(nWidth, 0, 2 * MaxDecimals));
    if (nLength < nWanted)
        strDigits.insert(0, nWanted - nLength, '0');
    return strSign + strDigits;
}

} // namespace kestrabel
