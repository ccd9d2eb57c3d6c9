#pragma once

#include "formats/BinaryInput.h"
#include "model/TrackPoint.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestrabel {

// The frames of the SiRF binary protocol ("SiRF Binary Protocol Reference Manual", SiRF Technology, 2005):
//
//     A0 A2 | length N, 2 bytes | payload, N bytes, the first the message's ID | checksum, 2 bytes | B0 B3
//
// The length is big-endian by the protocol. Some loggers write theirs little-endian, so a length whose second
// byte is 0 is taken so: 36 00 is 54, and 00 5B is 91. (01 00 is then 1 and not 256; no frame of a log is
// that long.) The checksum is not verified.

namespace SirfId {
inline constexpr std::uint8_t GeodeticNavigation = 41;
inline constexpr std::uint8_t DeviceInformation = 253;
} // namespace SirfId

inline constexpr std::size_t SirfFrameOverhead = 8; ///< bytes of a frame around its payload

enum class ESirfFrame
{
    Message,   ///< a whole frame
    NoStart,   ///< the bytes do not begin with A0 A2
    NoEnd,     ///< no B0 B3 where the length says, or the file ends in the last four bytes
    BadLength, ///< shorter than 2 or longer than allowed
    CutOff     ///< the file ends within the payload or before it
};

/// Looks at the frame at the start of `bytes`, which hold at least `nMaxLength` + `SirfFrameOverhead` bytes
/// unless the file ends earlier. `payload`, of 2 to `nMaxLength` bytes, is set for a whole frame only.
ESirfFrame ParseSirfFrame(std::string_view bytes, std::size_t nMaxLength, std::string_view& payload);

/// Finds the next message of a stream, from the file's present position on, and moves behind it.
///
/// Bytes that begin no frame are passed over: after a byte A0 the next one is read, A2 makes a start, any
/// other is dropped with it (so A0 A0 A2 makes none). A frame without its end sequence is no frame, and the
/// search goes on within its payload. A bad length or the end of the file ends the stream: the result tells
/// which, and the position is where that frame begins. The payload stands until the next read. Throws
/// CFileException.
ESirfFrame ReadSirfMessage(CBinaryInput& input, std::size_t nMaxLength, std::string_view& payload);

/// Sets the values that message 41 (Geodetic Navigation Data) tells, and clears what the derivation fills.
/// False, with nothing changed, when the payload is shorter than 91 bytes. A payload of exactly 95 bytes also
/// tells a second speed and course, which otherwise stay as they were.
bool ParseGeodeticNavigation(std::string_view payload, CTrackPoint& point);

} // namespace kestrabel
