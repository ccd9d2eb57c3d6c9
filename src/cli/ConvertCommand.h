#pragma once

#include "cli/ImportReport.h"

#include <string_view>

namespace kestrabel {

/// `convert`: reads a track file and writes its points in the format of the other name, decided by that
/// name's extension without regard to case. Nothing is written when the input gave no points or the format
/// cannot be written; the old file then stands. What was read before a stop is written.
EExitStatus ConvertTrackFile(std::string_view strInput, std::string_view strOutput, CImportReport& report,
                             CMessages& messages);

} // namespace kestrabel
