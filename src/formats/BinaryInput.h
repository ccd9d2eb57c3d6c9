#pragma once

#include "platform/File.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A window on a binary file that looks ahead before it moves on: a reader that gives up a record halfway has
/// nothing to go back over. Bytes are fetched in large blocks; memory does not depend on what the file says.
class CBinaryInput
{
public:
    /// The most bytes that can be looked at in one piece.
    static constexpr std::size_t MaxPeek = 65536;

    /// Opens the file; throws nothing.
    EFileCause Open(std::string_view strPath);

    /// The next `nCount` bytes (at most `MaxPeek`), or as many as are left in the file. The view stands until
    /// the next call. Throws CFileException.
    std::string_view Peek(std::size_t nCount)
    {
        if (m_nEnd - m_nBegin < nCount)
            Refill();
        const std::size_t nAvailable = m_nEnd - m_nBegin;
        return {m_buffer.data() + m_nBegin, nAvailable < nCount ? nAvailable : nCount};
    }

    /// Moves on by a number of bytes that were looked at.
    void Skip(std::size_t nCount);

    /// Offset in bytes of what comes next.
    std::uint64_t Position() const { return m_nPosition; }

private:
    void Refill();

    CFile m_file;
    std::vector<char> m_buffer; ///< bytes of the file from m_nBegin to m_nEnd are still to be read
    std::size_t m_nBegin = 0;
    std::size_t m_nEnd = 0;
    std::uint64_t m_nPosition = 0;
};

} // namespace kestrabel
