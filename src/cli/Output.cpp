#include "cli/Output.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace kestrabel {

namespace {

constexpr std::size_t BufferSize = 64 * 1024;

} // namespace

void COutput::Write(std::string_view strText)
{
    m_strBuffer += strText;
    if (m_strBuffer.size() >= BufferSize)
        Finish();
}

void COutput::WriteLine(std::string_view strText)
{
    Write(strText);
    Write("\n");
}

void COutput::Finish()
{
    std::string_view rest = m_strBuffer;
    while (!rest.empty()) {
        const ssize_t nWritten = ::write(m_nHandle, rest.data(), rest.size());
        if (nWritten >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(nWritten));
        } else if (errno != EINTR) {
            const int nError = errno;
            m_strBuffer.clear();
            throw COutputError(std::generic_category().message(nError));
        }
    }
    m_strBuffer.clear();
}

} // namespace kestrabel
