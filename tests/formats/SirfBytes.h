#pragma once

#include "formats/ByteOrder.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrabel::test {

/// A frame as the protocol has it, with any length field and end sequence.
inline std::string Frame(std::string_view payload, std::size_t nLength, std::string_view strEnd = "\xB0\xB3")
{
    std::string frame = "\xA0\xA2";
    frame += static_cast<char>(nLength >> 8U & 0xffU);
    frame += static_cast<char>(nLength & 0xffU);
    frame += payload;
    frame += "cs"; // the checksum is not looked at
    frame += strEnd;
    return frame;
}

inline std::string Frame(std::string_view payload)
{
    return Frame(payload, payload.size());
}

template <class T>
void PutAt(std::string& payload, std::size_t nOffset, T nValue)
{
    PutBigEndian(std::span<char>(payload), nOffset, nValue);
}

/// A message 41 of 1 June 2024 at 10:00:00 and some milliseconds, at 48.5 N 11.5 E.
inline std::string Navigation(std::uint16_t nMilliseconds, std::size_t nLength = 91)
{
    std::string payload(nLength < 91 ? 91 : nLength, '\0');
    payload[0] = 41;
    PutAt<std::uint16_t>(payload, 11, 2024);
    payload[13] = 6;
    payload[14] = 1;
    payload[15] = 10;
    PutAt<std::uint16_t>(payload, 17, nMilliseconds);
    PutAt<std::int32_t>(payload, 23, 485000000);
    PutAt<std::int32_t>(payload, 27, 115000000);
    return payload.substr(0, nLength);
}

} // namespace kestrabel::test
