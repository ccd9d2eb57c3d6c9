#include "formats/LineFile.h"

#include <algorithm>
#include <cstring>

namespace kestrabel {

namespace {

constexpr std::size_t BufferSize = 64 * 1024;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t NotFound = std::string::npos;

} // namespace

bool CLineFile::OpenForReading(std::string_view strPath)
{
    m_nBegin = m_nEnd = 0;
    m_nPreviousPosition = m_nCurrentPosition = 0;
    m_nLine = 0;
    const EFileCause cause = m_file.Open(strPath, CFile::EMode::Read);
    m_strErrorText = cause == EFileCause::None ? std::string_view() : FileCauseText(cause);
    if (cause != EFileCause::None)
        return false;
    m_buffer.resize(BufferSize);
    try {
        DetectLineEnd();
    } catch (const CFileException& exception) {
        m_strErrorText = FileCauseText(exception.Cause());
        m_file.Close();
        return false;
    }
    return true;
}

bool CLineFile::OpenForWriting(std::string_view strPath, CFile::EMode mode)
{
    const EFileCause cause = m_file.Open(strPath, mode);
    m_strErrorText = cause == EFileCause::None ? std::string_view() : FileCauseText(cause);
    return cause == EFileCause::None;
}

/// Looks for the first CR LF; reads on through the file only while there is none. Leaves the reading position
/// behind a byte-order mark.
void CLineFile::DetectLineEnd()
{
    m_bLineFeedOnly = true;
    bool bEndsInCr = false;
    bool bFirst = true;
    while (m_bLineFeedOnly) {
        const std::size_t nRead = m_file.Read(m_buffer);
        const std::string_view chunk(m_buffer.data(), nRead);
        if (bFirst && chunk.starts_with(ByteOrderMark))
            m_nCurrentPosition = ByteOrderMark.size();
        bFirst = false;
        m_bLineFeedOnly = !(bEndsInCr && chunk.starts_with('\n')) && chunk.find("\r\n") == NotFound;
        bEndsInCr = chunk.ends_with('\r');
        if (nRead < m_buffer.size())
            break;
    }
    m_file.Seek(m_nCurrentPosition);
}

/// Moves the rest of the buffer to its front and fills it up. False when nothing was added.
bool CLineFile::Refill()
{
    std::copy(m_buffer.begin() + static_cast<std::ptrdiff_t>(m_nBegin),
              m_buffer.begin() + static_cast<std::ptrdiff_t>(m_nEnd), m_buffer.begin());
    m_nEnd -= m_nBegin;
    m_nBegin = 0;
    const std::size_t nRead = m_file.Read(std::span(m_buffer).subspan(m_nEnd));
    m_nEnd += nRead;
    return nRead > 0;
}

/// Offset in the buffer of the LF that ends the line, looked for from `nFrom` on.
std::size_t CLineFile::FindLineEnd(std::size_t nFrom) const
{
    while (nFrom < m_nEnd) {
        const void* pFound = std::memchr(m_buffer.data() + nFrom, '\n', m_nEnd - nFrom);
        if (pFound == nullptr)
            return NotFound;
        const auto nFound = static_cast<std::size_t>(static_cast<const char*>(pFound) - m_buffer.data());
        if (m_bLineFeedOnly || (nFound > m_nBegin && m_buffer[nFound - 1] == '\r'))
            return nFound;
        nFrom = nFound + 1;
    }
    return NotFound;
}

bool CLineFile::ReadLine(std::string_view& strLine)
{
    std::uint64_t nDropped = 0; // bytes of an overlong line that left the buffer
    std::size_t nLineEnd = FindLineEnd(m_nBegin);
    while (nLineEnd == NotFound) {
        if (m_nBegin == 0 && m_nEnd == m_buffer.size()) {
            // A full buffer without a line end: keep the start of the line, and a CR that may belong to it.
            if (nDropped == 0)
                m_strLongLine.assign(m_buffer.data(), MaxLineLength);
            m_nBegin = m_nEnd - 1;
            nDropped += m_nBegin;
        }
        const std::size_t nSearched = m_nEnd - m_nBegin;
        if (!Refill())
            break;
        nLineEnd = FindLineEnd(nSearched);
    }
    if (nLineEnd == NotFound && m_nBegin == m_nEnd)
        return false;

    const std::size_t nNext = nLineEnd == NotFound ? m_nEnd : nLineEnd + 1;
    const std::size_t nTerminator = nLineEnd == NotFound ? 0 : m_bLineFeedOnly ? 1 : 2;
    if (nDropped > 0)
        strLine = m_strLongLine;
    else
        strLine = std::string_view(m_buffer.data() + m_nBegin, nNext - m_nBegin - nTerminator)
                      .substr(0, MaxLineLength);
    strLine = strLine.substr(0, strLine.find('\0'));

    m_nPreviousPosition = m_nCurrentPosition;
    m_nCurrentPosition += nDropped + (nNext - m_nBegin);
    m_nBegin = nNext;
    ++m_nLine;
    return true;
}

void CLineFile::WriteLine(std::string_view strText, bool bTerminate)
{
    m_file.Write(strText);
    if (bTerminate)
        m_file.Write("\r\n");
}

} // namespace kestrabel
