#pragma once

namespace kestrabel {

/// The units of integers that SiRF receivers send, in those of a track point: integer × factor.
namespace SirfScale {
inline constexpr double Degrees = 1e-07;                  ///< of 1e-7 degree
inline constexpr double Kmh = 0.036;                      ///< of cm/s
inline constexpr double Radians = 0.00017453292519943296; ///< of 0.01 degree
inline constexpr double Kilometres = 1e-05;               ///< of cm
inline constexpr double MetresPerSecond = 0.01;           ///< of cm/s
inline constexpr double Hdop = 0.2;                       ///< of fifths
inline constexpr int CentimetresPerMetre = 100;
} // namespace SirfScale

} // namespace kestrabel
