#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrabel {

/// Standard output cannot be written; the text is the system's reason.
class COutputError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Collects what a command prints and hands it to an open file, such as standard output, in large pieces.
/// Everything throws COutputError when that file takes no more; what is left unfinished then is dropped.
class COutput
{
public:
    /// Writes to the file descriptor, which stays open.
    explicit COutput(int nHandle) : m_nHandle(nHandle) {}
    COutput(const COutput&) = delete;
    COutput& operator=(const COutput&) = delete;

    void Write(std::string_view strText);
    /// The text and a line feed.
    void WriteLine(std::string_view strText);
    /// Hands over the rest; without it the last piece is never written.
    void Finish();

private:
    int m_nHandle;
    std::string m_strBuffer;
};

} // namespace kestrabel
