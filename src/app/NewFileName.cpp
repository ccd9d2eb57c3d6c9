#include "app/NewFileName.h"

#include "platform/Path.h"

#include <filesystem>
#include <system_error>

namespace kestrabel {

std::string NewFileName(std::string_view strFolder, std::string_view strName, std::string_view strExtension)
{
    const std::string strPath = UniqueFileName(strFolder, strName, strExtension);
    const std::string strLower = ToLower(strPath);
    std::error_code ignored;
    const bool bSameFolder = FindFile(FolderOf(strLower)) == FindFile(FolderOf(strPath));
    return bSameFolder && !std::filesystem::exists(FindFile(strLower), ignored) ? strLower : strPath;
}

} // namespace kestrabel
