#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kestrabel {

// Integers of binary formats, whatever the machine's own byte order. The offset and the size of the integer
// lie within the bytes.

/// The integer whose most significant byte stands first.
template <class T>
T ReadBigEndian(std::string_view bytes, std::size_t nOffset)
{
    assert(nOffset + sizeof(T) <= bytes.size());
    std::uint64_t nValue = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        nValue = nValue << 8U | static_cast<unsigned char>(bytes[nOffset + i]);
    return static_cast<T>(nValue);
}

/// The integer whose least significant byte stands first.
template <class T>
T ReadLittleEndian(std::string_view bytes, std::size_t nOffset)
{
    assert(nOffset + sizeof(T) <= bytes.size());
    std::uint64_t nValue = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        nValue = nValue << 8U | static_cast<unsigned char>(bytes[nOffset + i]);
    return static_cast<T>(nValue);
}

template <class T>
void PutBigEndian(std::span<char> bytes, std::size_t nOffset, T nValue)
{
    assert(nOffset + sizeof(T) <= bytes.size());
    auto nRest = static_cast<std::uint64_t>(nValue);
    for (std::size_t i = sizeof(T); i-- > 0; nRest >>= 8U)
        bytes[nOffset + i] = static_cast<char>(nRest & 0xffU);
}

template <class T>
void PutLittleEndian(std::span<char> bytes, std::size_t nOffset, T nValue)
{
    assert(nOffset + sizeof(T) <= bytes.size());
    auto nRest = static_cast<std::uint64_t>(nValue);
    for (std::size_t i = 0; i < sizeof(T); ++i, nRest >>= 8U)
        bytes[nOffset + i] = static_cast<char>(nRest & 0xffU);
}

} // namespace kestrabel
