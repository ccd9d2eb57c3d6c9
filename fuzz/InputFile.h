#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace kestrabel::fuzz {

/// A folder of its own in memory for the files of one fuzzing process; removed when the process ends well.
class CInputFolder
{
public:
    CInputFolder() : m_path("/dev/shm/kestrabel-fuzz-" + std::to_string(::getpid()))
    {
        std::filesystem::create_directory(m_path);
    }
    ~CInputFolder() { std::filesystem::remove_all(m_path); }

    std::string Path(const std::string& strName) const { return m_path / strName; }

    /// Writes a file of these bytes; returns its path.
    std::string Write(const std::string& strName, const std::uint8_t* pData, std::size_t nSize) const
    {
        std::ofstream file(Path(strName), std::ios::binary);
        file.write(reinterpret_cast<const char*>(pData), static_cast<std::streamsize>(nSize));
        return Path(strName);
    }

private:
    std::filesystem::path m_path;
};

} // namespace kestrabel::fuzz
