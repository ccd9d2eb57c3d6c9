#pragma once

#include "platform/IniText.h"
#include "platform/SettingsStore.h"

#include <string>
#include <string_view>

namespace kestrabel {

/// Settings that last as long as the object.
class CMemorySettings : public CSettingsStore
{
public:
    std::string Read(std::string_view strSection, std::string_view strEntry,
                     std::string_view strDefault = {}) const override;
    void Write(std::string_view strSection, std::string_view strEntry, std::string_view strValue) override;
    bool HasSection(std::string_view strSection) const override;
    void RemoveSection(std::string_view strSection) override;

protected:
    CIniSections m_sections;
    bool m_bChanged = false;
};

/// Settings in an initialisation file, which is read at once and written by `Flush` and at the end, whole or
/// not at all. A file that cannot be read or understood is never written over: its settings start from their
/// defaults, and last as long as the object.
class CFileSettings : public CMemorySettings
{
public:
    explicit CFileSettings(std::string_view strPath);
    ~CFileSettings() override { Flush(); }

    /// Brings what was written since to the file. Its first failure becomes the problem.
    void Flush();

    /// What is wrong with the file, naming it and the reason, for a message at the start; empty: nothing.
    const std::string& Problem() const { return m_strProblem; }

private:
    std::string m_strPath;
    std::string m_strProblem;
    bool m_bMayWrite = true;
};

} // namespace kestrabel
