#pragma once

namespace kestrabel {

// The system's own literals, so that every figure is reproduced to the last digit.
inline constexpr double Pi = 3.141592653589793;
inline constexpr double TwoPi = 6.283185307179586;
inline constexpr double HalfPi = 1.5707963267948966;
inline constexpr double ThreeHalvesPi = 4.71238898038469;
inline constexpr double DegreesToRadians = 0.017453292519943295;
inline constexpr double RadiansToDegrees = 57.29577951308232;

/// Degrees of latitude per kilometre: 1/111.12, sixty nautical miles to the degree.
inline constexpr double DegreesPerKilometre = 0.008999280057595392;

} // namespace kestrabel
