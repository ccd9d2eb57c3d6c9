#pragma once

#include "model/TrackPoint.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace kestrabel {

// The binary log (".sbp", ".bin") of SiRF-based loggers: a header of 64 bytes and records of 32.
//
// Header                                      Record, little-endian
//      0  2E 00, not checked                       0 U1 HDOP x 5            16 I4 longitude, 1e-7 degree
//      2  a SiRF frame with message 253            1 U1 satellites used     20 I4 sea-level altitude, cm
//     ..  FF up to byte 63                         2 U2 UTC second x 1000   24 U2 speed over ground, cm/s
//                                                  4 U4 packed date, time   26 U2 course, 0.01 degree
//                                                  8 U4 satellite IDs       28 I2 climb rate, cm/s
//                                                 12 I4 latitude, 1e-7 deg  30 U2 0
//
// Packed date and time, from the least significant bit: 6 bits second (rounded to the nearest, halves up),
// 6 minute, 5 hour, 5 day, 10 (year − 2000) × 12 + month. The second is rounded, so a fraction of 0.5 or more
// in the field at byte 2 belongs to the second before the packed one.

inline constexpr std::size_t BinaryLogHeaderSize = 64;
inline constexpr std::size_t BinaryLogRecordSize = 32;
inline constexpr std::size_t BinaryLogFrameOffset = 2;

using CBinaryLogRecord = std::array<char, BinaryLogRecordSize>;

/// Sets the values that a record of `BinaryLogRecordSize` bytes tells in a new point. False for a record that
/// holds no fix: the latitude's bits all set, no satellites, a second of 60 or more, a day above 31 or an
/// hour above 23. Fields that otherwise name no date give an invalid time.
bool ParseBinaryLogRecord(std::string_view bytes, CTrackPoint& point);

/// The record of a point. Values that a field cannot hold become the nearest that it can, not-a-number 0. A
/// time that is not valid or outside January 2000 to March 2085 is written as zero, which reads back as an
/// invalid time; `bTimeFits` is then false.
CBinaryLogRecord MakeBinaryLogRecord(const CTrackPoint& point, bool& bTimeFits);

} // namespace kestrabel
