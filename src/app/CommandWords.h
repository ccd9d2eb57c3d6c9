#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A command line as the program and its arguments, by the rules of a Windows command line, the same on every
/// system: blanks and tabs separate; double quotes group and go; a backslash is itself, but before a double
/// quote two stand for one and a single one makes the quote a character; two quotes within a group are one
/// quote. Nothing else has a meaning.
std::vector<std::string> CommandWords(std::string_view strCommandLine);

} // namespace kestrabel
