#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kestrabel::test {

/// A folder of the test's own, removed with all that is in it.
class CTemporaryFolder
{
public:
    CTemporaryFolder()
    {
        static std::atomic<int> nNext = 0;
        m_path = std::filesystem::temp_directory_path() /
                 ("kestrabel-test-" + std::to_string(::getpid()) + "-" + std::to_string(nNext++));
        std::filesystem::create_directories(m_path);
    }
    ~CTemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    std::string Path(std::string_view strName) const { return (m_path / strName).string(); }

    /// Writes the bytes to a file of that name and returns its path.
    std::string Write(std::string_view strName, std::string_view bytes) const
    {
        const std::string strPath = Path(strName);
        std::ofstream(strPath, std::ios::binary) << bytes;
        return strPath;
    }

    static std::string Read(const std::string& strPath)
    {
        std::ifstream file(strPath, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};

} // namespace kestrabel::test
