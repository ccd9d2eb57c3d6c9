#include "platform/FileCause.h"

#include <array>
#include <cerrno>

namespace kestrabel {

std::string_view FileCauseText(EFileCause cause)
{
    static constexpr std::array<std::string_view, 15> texts = {
        "No error occurred",
        "An unspecified error occurred",
        "The file could not be located",
        "All or part of the path is invalid",
        "The permitted number of open files was exceeded",
        "The file could not be accessed",
        "There was an attempt to use an invalid file handle",
        "The current working directory cannot be removed",
        "There are no more directory entries",
        "There was an error trying to set the file pointer",
        "There was a hardware error",
        "SHARE.EXE was not loaded, or a shared region was locked",
        "There was an attempt to lock a region that was already locked",
        "The disk is full",
        "The end of file was reached",
    };
    const int nCause = static_cast<int>(cause);
    if (nCause < 0 || nCause >= static_cast<int>(texts.size()))
        return {};
    return texts[static_cast<std::size_t>(nCause)];
}

EFileCause FileCauseFromErrno(int nError)
{
    switch (nError) {
    case 0: return EFileCause::None;
    case ENOENT: return EFileCause::NotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL: return EFileCause::BadPath;
    case EMFILE:
    case ENFILE: return EFileCause::TooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
    case ETXTBSY: return EFileCause::AccessDenied;
    case EBADF: return EFileCause::InvalidHandle;
    case ESPIPE: return EFileCause::BadSeek;
    case EIO: return EFileCause::HardwareError;
    case EAGAIN: return EFileCause::LockViolation;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return EFileCause::DiskFull;
    default: return EFileCause::Unspecified;
    }
}

CFileException::CFileException(EFileCause cause, std::string_view strPath)
    : m_cause(cause), m_strMessage(std::string(strPath) + ": " + std::string(FileCauseText(cause)))
{
}

} // namespace kestrabel
