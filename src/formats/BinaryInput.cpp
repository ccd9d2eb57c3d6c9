#include "formats/BinaryInput.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace kestrabel {

namespace {

constexpr std::size_t BufferSize = 4 * CBinaryInput::MaxPeek;

} // namespace

EFileCause CBinaryInput::Open(std::string_view strPath)
{
    m_nBegin = m_nEnd = 0;
    m_nPosition = 0;
    m_buffer.resize(BufferSize);
    return m_file.Open(strPath, CFile::EMode::Read);
}

void CBinaryInput::Skip(std::size_t nCount)
{
    assert(nCount <= m_nEnd - m_nBegin);
    m_nBegin += nCount;
    m_nPosition += nCount;
}

/// Moves the rest of the buffer to its front and fills it up.
void CBinaryInput::Refill()
{
    std::copy(m_buffer.begin() + static_cast<std::ptrdiff_t>(m_nBegin),
              m_buffer.begin() + static_cast<std::ptrdiff_t>(m_nEnd), m_buffer.begin());
    m_nEnd -= m_nBegin;
    m_nBegin = 0;
    m_nEnd += m_file.Read(std::span(m_buffer).subspan(m_nEnd));
}

} // namespace kestrabel
