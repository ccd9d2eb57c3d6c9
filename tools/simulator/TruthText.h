#pragma once

#include "simulator/SessionOptions.h"
#include "simulator/SessionTruth.h"

#include <string>
#include <string_view>

namespace kestrabel {

/// The truth as a JSON object on several lines, without a line end behind it. Speeds are in knots, distances
/// in metres, times as in a GPX file; "plantedRun" is null when there is none.
std::string TruthAsJson(const SSessionOptions& options, std::string_view strName, const STruth& truth);

} // namespace kestrabel
