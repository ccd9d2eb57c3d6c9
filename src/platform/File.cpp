#include "platform/File.h"

#include "platform/Path.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestrabel {

namespace {

constexpr std::size_t WriteBufferSize = 64 * 1024;
constexpr mode_t NewFileMode = 0666; // less the user's umask

mode_t CurrentUmask()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

/// The rename is on the disk only when the folder is: without this a power cut can bring back the old file.
void SyncFolder(const std::string& strFile)
{
    const std::filesystem::path folder = std::filesystem::path(strFile).parent_path();
    const int nFolder = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (nFolder < 0)
        return;
    ::fsync(nFolder);
    ::close(nFolder);
}

bool Exists(const std::string& strPath)
{
    std::error_code error;
    return std::filesystem::exists(strPath, error);
}

/// The path to open for writing: exactly that name, since another one, if only by its case, was not chosen;
/// in the folder as `FindFile` finds it. Without that "Data\\new.gpx" would become a file of that very name
/// beside the folder.
std::string TargetOf(const std::string& strPath)
{
    if (Exists(strPath))
        return strPath;
    const std::string strFolder = FolderOf(strPath);
    std::string strFoundFolder = FindFile(strFolder);
    if (!Exists(strFoundFolder))
        std::replace(strFoundFolder.begin(), strFoundFolder.end(), '\\', '/');
    return strFoundFolder + strPath.substr(strFolder.size());
}

/// The system has one code for a missing file and a missing folder; the causes tell them apart.
EFileCause CauseOfOpen(int nError, const std::string& strPath)
{
    const std::string strFolder = FolderOf(strPath);
    if (nError == ENOENT && !strFolder.empty() && !Exists(FindFile(strFolder)))
        return EFileCause::BadPath;
    return FileCauseFromErrno(nError);
}

} // namespace

CFile::~CFile()
{
    Close();
}

EFileCause CFile::Open(std::string_view strPath, EMode mode)
{
    Close();
    m_strPath = strPath;
    m_nPosition = 0;
    if (m_strPath.empty() || m_strPath.find('\0') != std::string::npos)
        return EFileCause::BadPath;
    m_strTarget = mode == EMode::Read ? FindFile(m_strPath) : TargetOf(m_strPath);
    if (mode == EMode::Replace)
        return OpenReplacement();

    const int nFlags = mode == EMode::Read ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    m_nHandle = ::open(m_strTarget.c_str(), nFlags | O_CLOEXEC, NewFileMode);
    if (m_nHandle < 0)
        return CauseOfOpen(errno, m_strPath);

    struct stat status = {};
    const bool bKnown = ::fstat(m_nHandle, &status) == 0;
    const bool bEndless = mode == EMode::Read && S_ISCHR(status.st_mode); // such as /dev/zero
    if (bKnown && (bEndless || S_ISDIR(status.st_mode))) {
        Close();
        return EFileCause::AccessDenied;
    }
    return EFileCause::None;
}

EFileCause CFile::OpenReplacement()
{
    struct stat status = {};
    const bool bExists = ::stat(m_strTarget.c_str(), &status) == 0;
    if (bExists) {
        if (!S_ISREG(status.st_mode))
            return EFileCause::AccessDenied;
        // A read-only file is refused although renaming over it would work: the user protected it.
        if (::faccessat(AT_FDCWD, m_strTarget.c_str(), W_OK, AT_EACCESS) != 0)
            return FileCauseFromErrno(errno);
        // Behind a link the file itself is replaced, not the link.
        std::error_code error;
        const std::filesystem::path real = std::filesystem::canonical(m_strTarget, error);
        if (!error)
            m_strTarget = real.string();
    } else if (errno != ENOENT) {
        return FileCauseFromErrno(errno); // a name too long, a folder that may not be entered
    }
    // The name does not grow with the target's, which may already be as long as the system allows.
    const std::filesystem::path folder = std::filesystem::path(m_strTarget).parent_path();
    m_strTemporary = (folder / ".kestrabel-save-XXXXXX").string();
    m_nHandle = ::mkostemp(m_strTemporary.data(), O_CLOEXEC);
    if (m_nHandle < 0) {
        m_strTemporary.clear();
        return CauseOfOpen(errno, m_strPath);
    }
    // A file shared by a group stays so where the user may give it to the group.
    if (bExists && ::fchown(m_nHandle, static_cast<uid_t>(-1), status.st_gid) != 0)
        status.st_mode &= ~static_cast<mode_t>(S_ISGID);
    ::fchmod(m_nHandle, bExists ? status.st_mode & 07777U : NewFileMode & ~CurrentUmask());
    return EFileCause::None;
}

std::size_t CFile::Read(std::span<char> buffer)
{
    std::size_t nRead = 0;
    while (nRead < buffer.size()) {
        const ssize_t nBytes = ::read(m_nHandle, buffer.data() + nRead, buffer.size() - nRead);
        if (nBytes < 0) {
            if (errno == EINTR)
                continue;
            throw CFileException(FileCauseFromErrno(errno), m_strPath);
        }
        if (nBytes == 0)
            break;
        nRead += static_cast<std::size_t>(nBytes);
    }
    m_nPosition += nRead;
    return nRead;
}

void CFile::Write(std::string_view bytes)
{
    m_writeBuffer.insert(m_writeBuffer.end(), bytes.begin(), bytes.end());
    m_nPosition += bytes.size();
    if (m_writeBuffer.size() >= WriteBufferSize)
        Flush();
}

void CFile::Flush()
{
    std::size_t nWritten = 0;
    while (nWritten < m_writeBuffer.size()) {
        const ssize_t nBytes =
            ::write(m_nHandle, m_writeBuffer.data() + nWritten, m_writeBuffer.size() - nWritten);
        if (nBytes < 0 && errno == EINTR)
            continue;
        if (nBytes <= 0) {
            Fail(nBytes < 0 ? FileCauseFromErrno(errno) : EFileCause::DiskFull);
        }
        nWritten += static_cast<std::size_t>(nBytes);
    }
    m_writeBuffer.clear();
}

void CFile::Seek(std::uint64_t nOffset)
{
    if (::lseek(m_nHandle, static_cast<off_t>(nOffset), SEEK_SET) < 0)
        throw CFileException(EFileCause::BadSeek, m_strPath);
    m_nPosition = nOffset;
}

std::uint64_t CFile::Size() const
{
    struct stat status = {};
    if (::fstat(m_nHandle, &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

void CFile::Commit()
{
    Flush();
    if (!m_strTemporary.empty() && ::fsync(m_nHandle) != 0)
        Fail(FileCauseFromErrno(errno));
    // Network file systems report a full disk only here.
    const int nHandle = std::exchange(m_nHandle, -1);
    if (::close(nHandle) != 0)
        Fail(FileCauseFromErrno(errno));
    if (m_strTemporary.empty())
        return;
    if (::rename(m_strTemporary.c_str(), m_strTarget.c_str()) != 0)
        Fail(FileCauseFromErrno(errno));
    m_strTemporary.clear();
    SyncFolder(m_strTarget);
}

/// Once bytes are lost no later write or commit may succeed: a cut file must never take the old one's place.
void CFile::Fail(EFileCause cause)
{
    Close();
    throw CFileException(cause, m_strPath);
}

void CFile::Close()
{
    if (m_nHandle >= 0)
        ::close(std::exchange(m_nHandle, -1));
    if (!m_strTemporary.empty())
        ::unlink(m_strTemporary.c_str());
    m_strTemporary.clear();
    m_writeBuffer.clear();
}

} // namespace kestrabel
