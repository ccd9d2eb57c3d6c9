#pragma once

#include "formats/ImportMonitor.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrabel {

// What a monitor heard while a file was read or written, in words, without the file's name.

/// "line 7: no position", or "byte 512: ..." of a binary format.
std::string IssueText(const SImportIssue& issue, std::string_view strPath);

/// Why the reading or writing failed or stopped: the last report, and the last issue as its detail. A stop by
/// answer has no report but the line that was asked about.
std::string FailureText(const CImportMonitor& monitor, std::string_view strPath);

/// "3 lines skipped, the first: line 7: ...". `nSkipped` is above 0, and at most the monitor's issues.
std::string SkippedText(std::int64_t nSkipped, const CImportMonitor& monitor, std::string_view strPath);

} // namespace kestrabel
