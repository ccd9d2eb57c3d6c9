#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace kestrabel {

namespace {

constexpr char32_t Replacement = 0xFFFD;

/// Bytes 0x80 to 0x9F of Windows-1252; all others equal their Unicode code point.
constexpr std::array<char32_t, 32> HighControls = {
    0x20AC,      Replacement, 0x201A, 0x0192, 0x201E, 0x2026,      0x2020, 0x2021,
    0x02C6,      0x2030,      0x0160, 0x2039, 0x0152, Replacement, 0x017D, Replacement,
    Replacement, 0x2018,      0x2019, 0x201C, 0x201D, 0x2022,      0x2013, 0x2014,
    0x02DC,      0x2122,      0x0161, 0x203A, 0x0153, Replacement, 0x017E, 0x0178,
};

void AppendUtf8(std::string& strText, char32_t c)
{
    if (c < 0x80) {
        strText += static_cast<char>(c);
    } else if (c < 0x800) {
        strText += static_cast<char>(0xC0 | (c >> 6));
        strText += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        strText += static_cast<char>(0xE0 | (c >> 12));
        strText += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        strText += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        strText += static_cast<char>(0xF0 | (c >> 18));
        strText += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        strText += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        strText += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool IsContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The length of the well-formed sequence at the start of `bytes`, 0 when there is none (RFC 3629).
std::size_t SequenceLength(std::string_view bytes)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char c = byte(0);
    if (c < 0x80)
        return 1;
    const std::size_t nLength = c >= 0xC2 && c <= 0xDF   ? 2
                                : c >= 0xE0 && c <= 0xEF ? 3
                                : c >= 0xF0 && c <= 0xF4 ? 4
                                                         : 0;
    if (nLength == 0 || bytes.size() < nLength)
        return 0;
    if (!std::all_of(bytes.begin() + 1, bytes.begin() + static_cast<std::ptrdiff_t>(nLength), IsContinuation))
        return 0;
    const bool bOverlong = (c == 0xE0 && byte(1) < 0xA0) || (c == 0xF0 && byte(1) < 0x90);
    const bool bSurrogateOrTooLarge = (c == 0xED && byte(1) > 0x9F) || (c == 0xF4 && byte(1) > 0x8F);
    return bOverlong || bSurrogateOrTooLarge ? 0 : nLength;
}

} // namespace

bool IsUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t nLength = SequenceLength(bytes);
        if (nLength == 0)
            return false;
        bytes.remove_prefix(nLength);
    }
    return true;
}

char32_t Windows1252CodePoint(unsigned char c)
{
    return c >= 0x80 && c <= 0x9F ? HighControls[c - 0x80U] : c;
}

std::string ToUtf8(std::string_view bytes)
{
    if (IsUtf8(bytes))
        return std::string(bytes);
    std::string strText;
    strText.reserve(bytes.size() * 2);
    for (const char c : bytes)
        AppendUtf8(strText, Windows1252CodePoint(static_cast<unsigned char>(c)));
    return strText;
}

std::string Utf16ToUtf8(std::u16string_view strText)
{
    const auto isHalf = [&](std::size_t i, char32_t cFirst) {
        return i < strText.size() && (strText[i] & 0xFC00U) == cFirst;
    };
    constexpr char32_t cHigh = 0xD800;
    constexpr char32_t cLow = 0xDC00;
    std::string strUtf8;
    for (std::size_t i = 0; i < strText.size(); ++i) {
        if (isHalf(i, cHigh) && isHalf(i + 1, cLow)) {
            const char32_t c = 0x10000 + ((strText[i] & 0x3FFU) << 10) + (strText[i + 1] & 0x3FFU);
            AppendUtf8(strUtf8, c);
            ++i;
        } else {
            AppendUtf8(strUtf8, isHalf(i, cHigh) || isHalf(i, cLow) ? Replacement : strText[i]);
        }
    }
    return strUtf8;
}

std::size_t CountCharacters(std::string_view strUtf8)
{
    return static_cast<std::size_t>(
        std::count_if(strUtf8.begin(), strUtf8.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view FirstCharacters(std::string_view strUtf8, std::size_t nCount)
{
    std::size_t nCharacters = 0;
    const auto BeginsOneTooMany = [&](char c) { return !IsContinuation(c) && ++nCharacters > nCount; };
    const auto end = std::find_if(strUtf8.begin(), strUtf8.end(), BeginsOneTooMany);
    return strUtf8.substr(0, static_cast<std::size_t>(end - strUtf8.begin()));
}

} // namespace kestrabel
