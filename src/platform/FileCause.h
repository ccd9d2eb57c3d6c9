#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace kestrabel {

/// Why a file operation failed. The numbers are fixed: messages are looked up by them.
enum class EFileCause : int
{
    None = 0,
    Unspecified = 1,
    NotFound = 2,
    BadPath = 3,
    TooManyOpenFiles = 4,
    AccessDenied = 5,
    InvalidHandle = 6,
    RemoveCurrentFolder = 7,
    FolderFull = 8,
    BadSeek = 9,
    HardwareError = 10,
    SharingViolation = 11,
    LockViolation = 12,
    DiskFull = 13,
    EndOfFile = 14,
};

/// The text shown for a cause, such as "The file could not be located"; empty outside 0 to 14.
std::string_view FileCauseText(EFileCause cause);

/// The cause that an `errno` value of an open, read, write or rename stands for.
EFileCause FileCauseFromErrno(int nError);

/// Thrown by file operations after a successful open. Readers and writers let it pass to the
/// dispatcher, which ends the read or write and keeps what was done so far.
class CFileException : public std::exception
{
public:
    CFileException(EFileCause cause, std::string_view strPath);

    EFileCause Cause() const { return m_cause; }
    /// "PATH: cause text".
    const char* what() const noexcept override { return m_strMessage.c_str(); }

private:
    EFileCause m_cause;
    std::string m_strMessage;
};

} // namespace kestrabel
