#include "platform/IniText.h"

#include "platform/File.h"
#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

std::string_view Trimmed(std::string_view strText)
{
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t nFirst = strText.find_first_not_of(Blanks);
    if (nFirst == std::string_view::npos)
        return {};
    return strText.substr(nFirst, strText.find_last_not_of(Blanks) - nFirst + 1);
}

std::string Unescaped(std::string_view strText)
{
    std::string strPlain;
    for (std::size_t i = 0; i < strText.size(); ++i) {
        if (strText[i] != '\\' || i + 1 == strText.size()) {
            strPlain += strText[i];
            continue;
        }
        const char c = strText[++i];
        strPlain += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 's' ? ' ' : c;
    }
    return strPlain;
}

/// Blanks at either end would be trimmed away when read.
std::string Escaped(std::string_view strText)
{
    std::string strEscaped;
    for (std::size_t i = 0; i < strText.size(); ++i) {
        const char c = strText[i];
        const bool bEnd = i == 0 || i + 1 == strText.size();
        if (c == '\n' || c == '\r')
            strEscaped += c == '\n' ? "\\n" : "\\r";
        else if (c == '\\' || (bEnd && c == '\t'))
            strEscaped += {'\\', c};
        else if (bEnd && c == ' ')
            strEscaped += "\\s";
        else
            strEscaped += c;
    }
    return strEscaped;
}

std::string ReadWhole(CFile& file)
{
    std::string strText(file.Size(), '\0');
    strText.resize(file.Read(strText));
    return strText;
}

} // namespace

CIniSections ParseIni(std::string_view strText, bool bEscapes, bool& bDamaged)
{
    CIniSections sections;
    std::string strSection;
    bDamaged = false;
    while (!strText.empty()) {
        const std::size_t nEnd = std::min(strText.find('\n'), strText.size());
        const std::string_view strLine = Trimmed(strText.substr(0, nEnd));
        strText.remove_prefix(std::min(nEnd + 1, strText.size()));
        if (strLine.empty() || strLine.front() == ';' || strLine.front() == '#')
            continue;
        const std::size_t nEquals = strLine.find('=');
        if (strLine.front() == '[' && strLine.back() == ']') {
            strSection = strLine.substr(1, strLine.size() - 2);
        } else if (nEquals != std::string_view::npos) {
            const std::string_view strValue = Trimmed(strLine.substr(nEquals + 1));
            sections[strSection][std::string(Trimmed(strLine.substr(0, nEquals)))] =
                bEscapes ? Unescaped(strValue) : std::string(strValue);
        } else {
            bDamaged = true;
        }
    }
    return sections;
}

std::string FormatIni(const CIniSections& sections)
{
    std::string strText;
    for (const auto& [strSection, entries] : sections) {
        strText += "[" + strSection + "]\n";
        for (const auto& [strEntry, strValue] : entries)
            strText += strEntry + "=" + Escaped(strValue) + "\n";
        strText += "\n";
    }
    return strText;
}

std::string ReadIniEntry(std::string_view strPath, std::string_view strSection, std::string_view strEntry,
                         std::size_t nMaxLength)
{
    CFile file;
    if (file.Open(strPath, CFile::EMode::Read) != EFileCause::None)
        return {};
    bool bDamaged = false;
    CIniSections sections;
    try {
        sections = ParseIni(ReadWhole(file), false, bDamaged);
    } catch (const CFileException&) {
        return {};
    }
    for (const auto& [strName, entries] : sections) {
        for (const auto& [strKey, strValue] : entries) {
            if (EqualNoCase(strName, strSection) && EqualNoCase(strKey, strEntry))
                return strValue.substr(0, nMaxLength);
        }
    }
    return {};
}

} // namespace kestrabel
