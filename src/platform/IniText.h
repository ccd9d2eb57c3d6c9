#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kestrabel {

/// The entries of an initialisation file by section: "[section]" lines with "entry=value" lines below. Blank
/// lines and lines that begin with ";" or "#" mean nothing; blanks around names and values go.
using CIniSections = std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>>;

/// Reads such a text. In a value "\n", "\r", "\s" and "\\" stand for a line feed, a carriage return, a blank
/// and a backslash when `bEscapes` is set. A line that is neither of the two forms sets `bDamaged`.
CIniSections ParseIni(std::string_view strText, bool bEscapes, bool& bDamaged);

/// The text of which `ParseIni`, with escapes, makes the same entries.
std::string FormatIni(const CIniSections& sections);

/// One entry of an initialisation file, at most `nMaxLength` bytes of it; empty when there is no such file or
/// entry. Names are compared without regard to case.
std::string ReadIniEntry(std::string_view strPath, std::string_view strSection, std::string_view strEntry,
                         std::size_t nMaxLength);

} // namespace kestrabel
