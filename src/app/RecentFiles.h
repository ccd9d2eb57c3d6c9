#pragma once

#include "platform/SettingsStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// The paths that were opened and saved last, newest first, at most 12, kept in the settings.
class CRecentFiles
{
public:
    static constexpr std::size_t MaxCount = 12;

    explicit CRecentFiles(CSettingsStore& settings) : m_settings(settings) {}

    std::vector<std::string> Paths() const;
    /// Puts a path on top, wherever it stood before.
    void Add(std::string_view strPath);
    /// Removes a path, such as that of a file that is gone.
    void Remove(std::string_view strPath);

private:
    void Store(const std::vector<std::string>& paths);

    CSettingsStore& m_settings;
};

} // namespace kestrabel
