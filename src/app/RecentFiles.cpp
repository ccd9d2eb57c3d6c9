#include "app/RecentFiles.h"

namespace kestrabel {

namespace {

constexpr std::string_view Section = "Recent File List";

std::string EntryName(std::size_t nPlace)
{
    return "File" + std::to_string(nPlace + 1);
}

} // namespace

std::vector<std::string> CRecentFiles::Paths() const
{
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < MaxCount; ++i) {
        if (std::string strPath = m_settings.Read(Section, EntryName(i)); !strPath.empty())
            paths.push_back(std::move(strPath));
    }
    return paths;
}

void CRecentFiles::Add(std::string_view strPath)
{
    std::vector<std::string> paths = Paths();
    std::erase(paths, strPath);
    paths.emplace(paths.begin(), strPath);
    Store(paths);
}

void CRecentFiles::Remove(std::string_view strPath)
{
    std::vector<std::string> paths = Paths();
    std::erase(paths, strPath);
    Store(paths);
}

void CRecentFiles::Store(const std::vector<std::string>& paths)
{
    m_settings.RemoveSection(Section);
    for (std::size_t i = 0; i < paths.size() && i < MaxCount; ++i)
        m_settings.Write(Section, EntryName(i), paths[i]);
}

} // namespace kestrabel
