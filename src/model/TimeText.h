#pragma once

#include "model/Date.h"

#include <cstdint>
#include <string>

namespace kestrabel {

// Times as text. All calendar fields come from the time rounded to whole milliseconds, so that x.500 s is
// always written x.500 and never as a second more. A time that is not valid gives an empty text.

/// "HH:MM:SS.mmm" (precision 3 and any other value), "HH:MM:SS.cc" (2), "HH:MM:SS.d" (1) or "HH:MM:SS" (0);
/// digits beyond the precision are cut, not rounded.
std::string FormatTimeOfDay(const DATE& time, std::int32_t nPrecision);

/// "YYYY-MM-DD".
std::string FormatDay(const DATE& time);

/// "YYYY-MM-DDTHH:MM:SS" to the nearest second, as GPX track files have it.
std::string FormatIsoSecond(const DATE& time);

/// "YYYY-MM-DDTHH:MM:SS.mmm".
std::string FormatIsoMillisecond(const DATE& time);

/// "YYYY-MM-DDTHH:MM:SS", followed by ".mmm" unless the milliseconds are 0.
std::string FormatIsoShortest(const DATE& time);

/// The time in the displayed timezone: `dTimezone` hours are rounded to whole milliseconds and added.
DATE ShiftToTimezone(const DATE& time, double dTimezone);

} // namespace kestrabel
