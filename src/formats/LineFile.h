#pragma once

#include "platform/File.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A text file read or written line by line; lines end at CR LF.
///
/// A CR without LF and an LF without CR are data, with one exception: a file that has no CR LF at all is read
/// with LF as the line end, so that a log that passed through another system still loads. A UTF-8 byte-order
/// mark at the start is not part of the first line. The last line needs no terminator.
class CLineFile
{
public:
    /// The longest line that is read, bytes; the rest of a longer one is dropped.
    static constexpr std::size_t MaxLineLength = 8192;

    /// Opens for reading. On failure `ErrorText` tells why.
    bool OpenForReading(std::string_view strPath);

    /// Opens for writing in place (`CFile::EMode::Create`) or so that the old file stands until `Commit`
    /// (`CFile::EMode::Replace`). On failure `ErrorText` tells why.
    bool OpenForWriting(std::string_view strPath, CFile::EMode mode);

    /// The cause text of the last failed open; empty after a successful one.
    const std::string& ErrorText() const { return m_strErrorText; }
    const std::string& Path() const { return m_file.Path(); }

    /// Reads the next line, without its terminator, up to the first NUL byte. The view stands until the next
    /// call. False at the end of the file. Throws CFileException.
    bool ReadLine(std::string_view& strLine);

    /// Offsets in bytes of the start of the last line read and of the next one.
    std::uint64_t PreviousPosition() const { return m_nPreviousPosition; }
    std::uint64_t CurrentPosition() const { return m_nCurrentPosition; }
    /// Number of the last line read, from 1.
    std::int64_t LineNumber() const { return m_nLine; }

    /// Writes the text, and CR LF unless `bTerminate` is off. Throws CFileException.
    void WriteLine(std::string_view strText, bool bTerminate = true);

    /// Ends writing, see `CFile::Commit`. Throws CFileException.
    void Commit() { m_file.Commit(); }
    void Close() { m_file.Close(); }

private:
    void DetectLineEnd();
    bool Refill();
    std::size_t FindLineEnd(std::size_t nFrom) const;

    CFile m_file;
    std::string m_strErrorText;
    bool m_bLineFeedOnly = false;
    std::vector<char> m_buffer; ///< bytes of the file from m_nBegin to m_nEnd are still to be read
    std::size_t m_nBegin = 0;
    std::size_t m_nEnd = 0;
    std::string m_strLongLine; ///< the start of a line that did not fit the buffer
    std::uint64_t m_nPreviousPosition = 0;
    std::uint64_t m_nCurrentPosition = 0;
    std::int64_t m_nLine = 0;
};

} // namespace kestrabel
