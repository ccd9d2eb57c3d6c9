#pragma once

#include "model/Date.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace kestrabel {

/// An item of `FormatLine`; each directive takes the next one.
using CLineItem = std::variant<long, double, char, std::string_view, DATE>;

/// Builds a line of items that a separator joins, as text track formats have it.
///
///     %S  %D  text         inside double quotes when it holds a blank or the separator
///     %C      character    inside double quotes when it is a blank, the separator or a double quote
///     %N      number       three decimals, or as many as the digits behind the N tell, trimmed
///     %I  %L  integer      in decimal
///     %B      integer      "TRUE" when non-zero, else "FALSE"
///     %T      date, time   `FormatDateText`, quoted as a text
///
/// Text outside the directives is not copied, other directives are dropped. A missing item, or one of another
/// kind, gives an empty one.
///
///     FormatLine("%S%N2%I", ',', {"a b", 1.5, 7L})    "a b",1.5,7
std::string FormatLine(std::string_view strFormat, char cSeparator, std::initializer_list<CLineItem> items);

} // namespace kestrabel
