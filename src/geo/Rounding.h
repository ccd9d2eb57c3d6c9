#pragma once

namespace kestrabel {

/// Rounds half away from zero at a number of decimal places, -9 to 32; outside that range, and for exactly 0,
/// the value is returned unchanged. Not-a-number stays so. Time differences in seconds are rounded with 3.
///
/// The scaling is done in double precision: a value that the multiplication by 10^places lifts to the next
/// half rounds up, and beyond 2^53 / 10^places the result is the value up to a few units in the last place.
double RoundTo(double dValue, signed char nPlaces);

} // namespace kestrabel
