#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrabel::test {

/// Puts archives together byte by byte, without the code under test.
class CArchiveBytes
{
public:
    const std::string& Get() const { return m_strBytes; }
    operator std::string_view() const { return m_strBytes; }

    CArchiveBytes& Raw(std::string_view bytes)
    {
        m_strBytes += bytes;
        return *this;
    }
    CArchiveBytes& Byte(std::uint64_t nValue) { return Number(nValue, 1); }
    CArchiveBytes& Word(std::uint64_t nValue) { return Number(nValue, 2); }
    CArchiveBytes& Dword(std::uint64_t nValue) { return Number(nValue, 4); }
    CArchiveBytes& Double(double dValue) { return Number(std::bit_cast<std::uint64_t>(dValue), 8); }
    /// Of less than 255 bytes.
    CArchiveBytes& Text(std::string_view strText) { return Byte(strText.size()).Raw(strText); }
    CArchiveBytes& Position(double dLatitude, double dLongitude)
    {
        return Double(dLatitude).Double(dLongitude);
    }
    /// The tag and the class of an object whose class is new; its body follows.
    CArchiveBytes& NewClass(std::string_view strName, int nSchema)
    {
        return Word(0xFFFF).Word(static_cast<std::uint64_t>(nSchema)).Word(strName.size()).Raw(strName);
    }

private:
    CArchiveBytes& Number(std::uint64_t nValue, int nBytes)
    {
        for (int i = 0; i < nBytes; ++i)
            m_strBytes += static_cast<char>(nValue >> (8 * i) & 0xFFU);
        return *this;
    }

    std::string m_strBytes;
};

} // namespace kestrabel::test
