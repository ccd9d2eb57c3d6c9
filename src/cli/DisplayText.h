#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrabel {

// Texts for a terminal. Widths are in characters (code points).

/// Any text as one line of UTF-8 that a terminal only shows: control characters, which would end the line or
/// steer the terminal, become "?".
std::string OneLine(std::string_view bytes);

/// A UTF-8 text of at most `nWidth` characters (1 or more), the last of them "…" when something was cut off.
std::string CutEnd(std::string_view strUtf8, std::size_t nWidth);

/// The same, cut at the start: the end of a long path tells more.
std::string CutStart(std::string_view strUtf8, std::size_t nWidth);

} // namespace kestrabel
