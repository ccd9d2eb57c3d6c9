#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrabel {

/// The bytes of an archive break its format, or end too early.
class CArchiveException : public std::runtime_error
{
public:
    CArchiveException(std::size_t nOffset, std::string_view strReason)
        : std::runtime_error("byte " + std::to_string(nOffset) + ": " + std::string(strReason)),
          m_nOffset(nOffset)
    {
    }

    /// Where the value that is wrong begins, in bytes from the start.
    std::size_t Offset() const { return m_nOffset; }

private:
    std::size_t m_nOffset;
};

} // namespace kestrabel
