#pragma once

#include "model/Date.h"

#include <string>
#include <string_view>

namespace kestrabel {

// Dates and times as people and download programs write them. The readers of text tracks and of the project
// file share these two, so that what one machine wrote loads on every other.

/// Reads a date, a time, or both in either order. Blanks or one of / - . , stand between the parts of a date.
///
///     year first         2007-05-04   2007/5/4   99-05-04 (a first number above 31 is a year)
///     day first          4/5/2007   04-05-07   4.5.2007
///     month first        5/24/2007 (only where day first is impossible)
///     with a month name  4 May 2007   04-MAY-07   May 4, 2007   2007-May-04   (English, 3 letters or more)
///     time               12:34   12:34:56   12:34:56.78 (the fraction is dropped)   3:04:05 PM   3 p.m.
///                        12.34   12.34.56 (only behind a date)
///
/// Two-digit years below 50 are of this century, others of the last. A date alone is its midnight, a time
/// alone is on day 0 (30 December 1899). Any other text, and fields that name no date or time, give an
/// invalid value, which keeps the time of day where that is one.
DATE ParseDateText(std::string_view strText);

/// "YYYY-MM-DD HH:MM:SS" to the nearest second. The date is left out on day 0, the time at exactly midnight;
/// midnight of day 0 keeps its time, or it would read back as no time at all. A value that is not valid or
/// outside the calendar gives an empty text.
std::string FormatDateText(const DATE& date);

/// "Jan" to "Dec" for 1 to 12.
std::string_view MonthAbbreviation(int nMonth);

} // namespace kestrabel
