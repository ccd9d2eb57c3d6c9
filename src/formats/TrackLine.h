#pragma once

#include "model/TrackPoint.h"

#include <optional>
#include <string_view>

namespace kestrabel {

/// The ways in which download programs of the Gardown family lay out a track line behind its "T". The value
/// is the number of items; they are separated by blanks, in the last layout by commas.
///
///     9  N33 2.1234 W096 12.1234 Fri Jan 12 10:12:00 2001    degrees, minutes; weekday month day time year
///     8  N33 2.1234 W096 12.1234 Jan 12 10:12:00 2001        degrees, minutes; month day time year
///     7  N33.5 W96.2 Fri Jan 12 10:12:00 2001                degrees; weekday month day time year
///     6  a, b, -33.5, 151.25, 2007/05/04, 12:34:56           two unknown items; degrees; date, time
enum class ETrackLayout : int
{
    WeekdayAndMinutes = 9,
    Minutes = 8,
    Weekday = 7,
    Commas = 6
};

/// The first layout, in the order 9, 8, 7, 6, whose items can all be read from the line; nothing when there
/// is none. Further text behind the items does not matter. The line begins with "T".
std::optional<ETrackLayout> FindTrackLayout(std::string_view strLine);

/// Fills position and time, to the second, from a line that begins with "T", and sets the altitude to 0.
/// False when its items cannot all be read. N, S, E, W (upper case) or a sign may stand before a degree
/// number; a date or time that is none gives an invalid time.
bool ParseTrackLine(std::string_view strLine, ETrackLayout layout, CTrackPoint& point);

} // namespace kestrabel
