#pragma once

#include "formats/TrackFileDispatcher.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// What the last command that read track files has read and skipped, file by file.
class CImportLog
{
public:
    void Clear() { m_files.clear(); }
    void Add(std::string_view strPath, int nFixes, const CImportMonitor& monitor, EImportEnd end);

    bool IsEmpty() const { return m_files.empty(); }

    /// One line for the status bar: what was read from how many files, and what was skipped. Empty when no
    /// file was read.
    std::string Summary() const;
    /// Every file with every issue that was kept, line by line.
    std::string Details() const;

private:
    struct SFile
    {
        std::string strPath;
        int nFixes = 0;
        std::int64_t nSkipped = 0;       ///< lines or records
        std::string strOutcome;          ///< what was skipped or why nothing was read; empty: all is well
        std::vector<std::string> issues; ///< the first of them
    };

    std::vector<SFile> m_files;
};

} // namespace kestrabel
