#pragma once

#include "formats/ImportMonitor.h"
#include "formats/StringTable.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace kestrabel {

/// An argument of `ReportFormat`; each directive takes the next one.
using CReportArgument = std::variant<long, double, char, std::string_view, EText>;

/// Builds a message from a format text of the string table.
///
///     %B  integer          "TRUE" when non-zero, else "FALSE"
///     %C  character        the character
///     %D  %S  text         the text
///     %I  %L  integer      in decimal
///     %N  number           six decimals, trailing zeros and a trailing point removed
///     %T  string number    the text of that string-table entry
///
/// Any other character after "%" is dropped; text outside directives is copied. A missing argument, or one of
/// another kind, gives nothing.
std::string FormatReport(std::string_view strFormat, std::initializer_list<CReportArgument> arguments);

/// Reports the message to the monitor with continue on; returns what `Report` returns.
bool ReportFormat(CImportMonitor& monitor, EText format, std::initializer_list<CReportArgument> arguments);

/// The report of a file that could not be opened: aborts the monitor and reports the name and the cause text.
void ReportOpenFailure(CImportMonitor& monitor, std::string_view strPath, std::string_view strCause);

/// Notes what a format cannot keep of so many points: "3 points " and the text; nothing for none.
void NotePoints(CImportMonitor& monitor, std::ptrdiff_t nPoints, std::string_view strWhat);

} // namespace kestrabel
