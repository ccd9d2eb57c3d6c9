#pragma once

#include <cstddef>
#include <cstdint>

/// The encodings of the object archive. All numbers are little-endian, floating point is IEEE 754 binary64.
///
///     text       length in a byte; 0xFF and a word; or 0xFF, 0xFFFF and a double word; then that many bytes
///                0xFF 0xFFFE before a length: two bytes a character (UTF-16) follow (read only)
///     count      word, or 0xFFFF and a double word
///     date text  a date as text
///     date       double word status (0 valid, 1 invalid, 2 null), double days
///     position   latitude, longitude
///     ellipsoid  double word index, radius, inverse flattening
///     rectangle  west, north, east, south
///     objects    count, then each as an object
///
/// An object is a tag, perhaps a class, and the body that belongs to its class:
///
///     0x0000        no object
///     0xFFFF        a class that is new in this file: word schema, word length of its name, name; a body
///     0x8000 | i    class number i; a body
///     i             the object number i once more
///     0x7FFF        the number is too large for a tag: double word 0x80000000 | i or i, for the two above
///
/// Classes and objects are numbered together, from 1, in the order in which they begin: in a file with two
/// objects of one class that class is 1 and the objects are 2 and 3.
namespace kestrabel::ArchiveFormat {

inline constexpr std::uint8_t LongText = 0xFF;
inline constexpr std::uint16_t WideText = 0xFFFE;
inline constexpr std::uint16_t LongerText = 0xFFFF;
inline constexpr std::uint16_t LongCount = 0xFFFF;

inline constexpr std::uint16_t NoObject = 0x0000;
inline constexpr std::uint16_t LargeIndex = 0x7FFF;
inline constexpr std::uint16_t ClassBit = 0x8000;
inline constexpr std::uint16_t NewClass = 0xFFFF;
inline constexpr std::uint32_t LargeClassBit = 0x80000000;

inline constexpr std::size_t MaxClassName = 63; ///< characters

} // namespace kestrabel::ArchiveFormat
