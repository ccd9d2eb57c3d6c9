#pragma once

#include <string>
#include <string_view>

namespace kestrabel {

/// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);

/// The text in UTF-8: as it is when it already is, otherwise taken as Windows-1252, the encoding of the
/// loggers and download programs that do not write UTF-8.
std::string ToUtf8(std::string_view bytes);

/// UTF-16 text in UTF-8; half a surrogate pair becomes U+FFFD.
std::string Utf16ToUtf8(std::u16string_view strText);

/// The Unicode code point of a Windows-1252 byte; U+FFFD for the five bytes that stand for nothing.
char32_t Windows1252CodePoint(unsigned char c);

/// The number of characters (code points) of a UTF-8 text, for aligning columns.
std::size_t CountCharacters(std::string_view strUtf8);

/// The first `nCount` characters of a UTF-8 text; the whole text when it has no more. No character is cut.
std::string_view FirstCharacters(std::string_view strUtf8, std::size_t nCount);

} // namespace kestrabel
