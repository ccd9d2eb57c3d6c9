#include "app/NewFileName.h"

#include "platform/Path.h"

#include <filesystem>
#include <system_error>

namespace kestrabel {

std::string LowerCasedName(std::string_view strPath)
{
    const std::string strLower = ToLower(strPath);
    const bool bSameFolder = FindFile(FolderOf(strLower)) == FindFile(FolderOf(strPath));
    std::error_code ignored;
    const bool bOther = std::filesystem::exists(FindFile(strLower), ignored) && FindFile(strLower) != strPath;
    return bSameFolder && !bOther ? strLower : std::string(strPath);
}

std::string NewFileName(std::string_view strFolder, std::string_view strName, std::string_view strExtension)
{
    return LowerCasedName(UniqueFileName(strFolder, strName, strExtension));
}

} // namespace kestrabel
