#include "platform/Path.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace kestrabel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Separators = "\\/";
constexpr int UniqueNameTries = 200;

/// Offset of the first character of the file's own name.
std::size_t NameStart(std::string_view strPath)
{
    const std::size_t nSeparator = strPath.find_last_of(Separators);
    return nSeparator == std::string_view::npos ? 0 : nSeparator + 1;
}

char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char ToUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool Exists(const fs::path& path)
{
    std::error_code error;
    return fs::exists(path, error);
}

/// The entry of `folder` that is called `strName` but for case; empty when there is none.
std::string MatchEntry(const fs::path& folder, std::string_view strName)
{
    std::string strBest;
    std::error_code error;
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, error), end; !error && it != end;
         it.increment(error))
    {
        const std::string strEntry = it->path().filename().string();
        if (EqualNoCase(strEntry, strName) && (strBest.empty() || strEntry < strBest))
            strBest = strEntry;
    }
    return strBest;
}

} // namespace

std::string FileTitle(std::string_view strPath)
{
    const std::string_view strName = strPath.substr(NameStart(strPath));
    return std::string(strName.substr(0, strName.find('.')));
}

std::string FileExtension(std::string_view strPath)
{
    const std::string_view strName = strPath.substr(NameStart(strPath));
    const std::size_t nDot = strName.rfind('.');
    return nDot == std::string_view::npos ? std::string() : std::string(strName.substr(nDot));
}

std::string FolderOf(std::string_view strPath)
{
    return std::string(strPath.substr(0, NameStart(strPath)));
}

std::string UniqueFileName(std::string_view strFolder, std::string_view strName,
                           std::string_view strExtension)
{
    for (int nTry = 0; nTry < UniqueNameTries; ++nTry) {
        std::string strPath = std::string(strFolder).append(strName);
        if (nTry > 0)
            strPath.append(" ").append(std::to_string(nTry));
        strPath.append(strExtension);
        if (!Exists(FindFile(strPath)))
            return strPath;
    }
    return {};
}

std::string ToLower(std::string_view strText)
{
    std::string strLower(strText);
    std::transform(strLower.begin(), strLower.end(), strLower.begin(), [](char c) { return ToLower(c); });
    return strLower;
}

std::string ToUpper(std::string_view strText)
{
    std::string strUpper(strText);
    std::transform(strUpper.begin(), strUpper.end(), strUpper.begin(), [](char c) { return ToUpper(c); });
    return strUpper;
}

bool EqualNoCase(std::string_view strOne, std::string_view strOther)
{
    return std::equal(strOne.begin(), strOne.end(), strOther.begin(), strOther.end(),
                      [](char a, char b) { return ToLower(a) == ToLower(b); });
}

std::string FindFile(std::string_view strPath)
{
    const std::string strAsGiven(strPath);
    if (strPath.empty() || Exists(strAsGiven))
        return strAsGiven;
    std::string strSlashed = strAsGiven;
    std::replace(strSlashed.begin(), strSlashed.end(), '\\', '/');
    const fs::path wanted(strSlashed);
    fs::path found;
    for (const fs::path& element : wanted) {
        fs::path next = found / element;
        if (!Exists(next)) {
            const std::string strEntry = MatchEntry(found, element.string());
            if (strEntry.empty())
                return strAsGiven;
            next = found / strEntry;
        }
        found = next;
    }
    return found.string();
}

std::string StoredFileName(std::string_view strPath)
{
    const std::string strChosen(strPath);
    std::string strLower = ToLower(strPath);
    if (strLower == strChosen)
        return strChosen;
    std::error_code error;
    const bool bSameFile = fs::equivalent(FindFile(strLower), FindFile(strChosen), error);
    return bSameFile && !error ? strLower : strChosen;
}

} // namespace kestrabel
