#pragma once

#include "model/Date.h"

#include <string_view>

namespace kestrabel {

/// Reads a GPX time text "YYYY-MM-DDTHH:MM:SS.sssZ". Reading stops at the first mismatch and what was not
/// reached stays 0, so "2007-05-01T10:20Z" is 10:20:00 and "2007-05-01" midnight. Seconds are rounded to
/// milliseconds; 59.9996 and a leap second carry into the next minute. The zone is not interpreted: times are
/// taken as written. A text that does not begin with a number gives the time 0.0; fields that name no date
/// give an invalid time.
DATE ParseGpxTime(std::string_view strText);

} // namespace kestrabel
