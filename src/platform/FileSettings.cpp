#include "platform/FileSettings.h"

#include "platform/File.h"

#include <algorithm>

namespace kestrabel {

namespace {

bool IsWithin(std::string_view strSection, std::string_view strOuter)
{
    return strSection == strOuter ||
           (strSection.starts_with(strOuter) && strSection.substr(strOuter.size()).starts_with('/'));
}

} // namespace

std::string CMemorySettings::Read(std::string_view strSection, std::string_view strEntry,
                                  std::string_view strDefault) const
{
    const auto section = m_sections.find(strSection);
    if (section == m_sections.end())
        return std::string(strDefault);
    const auto entry = section->second.find(strEntry);
    return entry == section->second.end() ? std::string(strDefault) : entry->second;
}

void CMemorySettings::Write(std::string_view strSection, std::string_view strEntry, std::string_view strValue)
{
    std::string& strStored = m_sections[std::string(strSection)][std::string(strEntry)];
    m_bChanged = m_bChanged || strStored != strValue || strValue.empty();
    strStored = strValue;
}

bool CMemorySettings::HasSection(std::string_view strSection) const
{
    return std::ranges::any_of(m_sections, [&](const auto& section) {
        return !section.second.empty() && IsWithin(section.first, strSection);
    });
}

void CMemorySettings::RemoveSection(std::string_view strSection)
{
    std::erase_if(m_sections, [&](const auto& section) { return IsWithin(section.first, strSection); });
    m_bChanged = true;
}

CFileSettings::CFileSettings(std::string_view strPath) : m_strPath(strPath)
{
    CFile file;
    const EFileCause cause = file.Open(m_strPath, CFile::EMode::Read);
    if (cause == EFileCause::NotFound || cause == EFileCause::BadPath)
        return; // the first start
    try {
        if (cause != EFileCause::None)
            throw CFileException(cause, m_strPath);
        std::string strText(file.Size(), '\0');
        strText.resize(file.Read(strText));
        bool bDamaged = false;
        m_sections = ParseIni(strText, true, bDamaged);
        if (bDamaged || strText.find('\0') != std::string::npos) {
            m_sections.clear();
            m_strProblem = m_strPath + ": these are no settings; the program starts with its defaults";
        }
    } catch (const CFileException& failure) {
        m_strProblem = failure.what();
    }
    m_bMayWrite = m_strProblem.empty();
}

void CFileSettings::Flush()
{
    if (!m_bChanged || !m_bMayWrite)
        return;
    m_bChanged = false;
    try {
        CFile file;
        const EFileCause cause = file.Open(m_strPath, CFile::EMode::Replace);
        if (cause != EFileCause::None)
            throw CFileException(cause, m_strPath);
        file.Write(FormatIni(m_sections));
        file.Commit();
    } catch (const CFileException& failure) {
        m_bMayWrite = false;
        m_strProblem = failure.what();
    }
}

} // namespace kestrabel
