#pragma once

#include <string_view>
#include <vector>

namespace kestrabel {

/// Splits a line at commas. `fields` is emptied first; its elements are views into `strText`.
///
///  - An empty line gives no field; a line of n commas gives n + 1, the last one empty after a final comma.
///  - A field that begins with a double quote runs to the next double quote that is followed by a comma or
///    the end of the line, or to the end of the line when there is none. The quotes are not part of the
///    field; there is no escape for quotes inside.
///  - A field is cut at 2048 characters.
///
///     a,b,,c,          a | b |  | c |
///     "x,y",z          x,y | z
void SplitFields(std::string_view strText, std::vector<std::string_view>& fields);

} // namespace kestrabel
