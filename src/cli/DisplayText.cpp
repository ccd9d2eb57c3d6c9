#include "cli/DisplayText.h"

#include "platform/Text.h"

namespace kestrabel {

namespace {

constexpr std::string_view Ellipsis = "…";

/// The byte offset of the character with that index.
std::size_t OffsetOf(std::string_view strUtf8, std::size_t nCharacter)
{
    std::size_t nOffset = 0;
    while (nOffset < strUtf8.size()) {
        const bool bContinuation = (static_cast<unsigned char>(strUtf8[nOffset]) & 0xC0U) == 0x80U;
        if (!bContinuation && nCharacter-- == 0)
            break;
        ++nOffset;
    }
    return nOffset;
}

} // namespace

std::string OneLine(std::string_view bytes)
{
    const std::string strUtf8 = ToUtf8(bytes);
    std::string strLine;
    for (std::size_t i = 0; i < strUtf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(strUtf8[i]);
        // U+0080 to U+009F are control characters too, C2 80 to C2 9F in UTF-8.
        const bool bHighControl =
            c == 0xC2 && i + 1 < strUtf8.size() && static_cast<unsigned char>(strUtf8[i + 1]) < 0xA0;
        if (bHighControl)
            ++i;
        if (bHighControl || c < 0x20 || c == 0x7F)
            strLine += '?';
        else
            strLine += strUtf8[i];
    }
    return strLine;
}

std::string CutEnd(std::string_view strUtf8, std::size_t nWidth)
{
    if (CountCharacters(strUtf8) <= nWidth)
        return std::string(strUtf8);
    return std::string(strUtf8.substr(0, OffsetOf(strUtf8, nWidth - 1))).append(Ellipsis);
}

std::string CutStart(std::string_view strUtf8, std::size_t nWidth)
{
    const std::size_t nLength = CountCharacters(strUtf8);
    if (nLength <= nWidth)
        return std::string(strUtf8);
    return std::string(Ellipsis).append(strUtf8.substr(OffsetOf(strUtf8, nLength - nWidth + 1)));
}

} // namespace kestrabel
