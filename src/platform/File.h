#pragma once

#include "platform/FileCause.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// One open file. Opening reports a cause and never throws; everything after a successful open throws
/// `CFileException`. The destructor closes without reporting.
///
/// Three ways to open:
///
///   Read      read only; a folder or device is refused with "The file could not be accessed".
///   Create    write, creating or truncating the file in place (exports).
///   Replace   write to a new file beside the target; `Commit` brings it to the disk and renames it over
///             the target, keeping the target's permissions. Until then, and after any failure, the old
///             file stands untouched, so a full disk or a crash can never cost a track.
class CFile
{
public:
    enum class EMode
    {
        Read,
        Create,
        Replace
    };

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// Opens `strPath`, closing what was open before. A file to read is looked for without regard to case
    /// when the name does not exist (see `FindFile`); of a file to write only the folder is. Returns
    /// EFileCause::None on success.
    EFileCause Open(std::string_view strPath, EMode mode);

    bool IsOpen() const { return m_nHandle >= 0; }
    /// The path given to the last `Open`.
    const std::string& Path() const { return m_strPath; }

    /// Reads up to `buffer.size()` bytes; fewer only at the end of the file. Returns the number read.
    std::size_t Read(std::span<char> buffer);
    /// Appends bytes to the write buffer, which goes to the file as it fills.
    void Write(std::string_view bytes);

    /// Moves to an offset in bytes from the start of the file (files opened for reading).
    void Seek(std::uint64_t nOffset);
    std::uint64_t Position() const { return m_nPosition; }
    /// Size in bytes of a file opened for reading; 0 for what has no size, such as a pipe.
    std::uint64_t Size() const;

    /// Ends writing. Create: hands the last bytes to the system. Replace: additionally flushes them to the
    /// disk and renames the new file over the target. Throws on any failure, having removed the new file.
    void Commit();
    /// Closes; what was written in Replace mode and not committed is removed.
    void Close();

private:
    void Flush();
    [[noreturn]] void Fail(EFileCause cause);
    EFileCause OpenReplacement();

    std::string m_strPath;
    std::string m_strTarget;    ///< Replace: the file that the new one takes the place of
    std::string m_strTemporary; ///< Replace: the new file; empty when there is none
    std::vector<char> m_writeBuffer;
    std::uint64_t m_nPosition = 0;
    int m_nHandle = -1;
};

} // namespace kestrabel
