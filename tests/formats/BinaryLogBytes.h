#pragma once

#include "formats/ByteOrder.h"

#include <cstdint>
#include <span>
#include <string>

namespace kestrabel::test {

/// A packed date and time.
inline std::uint32_t Packed(std::uint32_t nYearMonth, std::uint32_t nDay, std::uint32_t nHour,
                            std::uint32_t nMinute, std::uint32_t nSecond)
{
    return nYearMonth << 22U | nDay << 17U | nHour << 12U | nMinute << 6U | nSecond;
}

/// A record at 48.5 N 11.5 E with 5 satellites.
inline std::string Record(std::uint32_t nPacked, std::uint16_t nSecondField = 0)
{
    std::string record(32, '\0');
    const std::span<char> bytes(record);
    record[1] = 5;
    PutLittleEndian(bytes, 2, nSecondField);
    PutLittleEndian(bytes, 4, nPacked);
    PutLittleEndian<std::int32_t>(bytes, 12, 485000000);
    PutLittleEndian<std::int32_t>(bytes, 16, 115000000);
    return record;
}

/// A record of 1 June 2024, so many seconds after 10:00.
inline std::string RecordAt(std::uint32_t nSecond)
{
    return Record(Packed(24 * 12 + 6, 1, 10, nSecond / 60, nSecond % 60),
                  static_cast<std::uint16_t>(nSecond % 60 * 1000));
}

} // namespace kestrabel::test
