#include "app/ProgramFolder.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace kestrabel {

std::string ProgramFolder(const std::string& strExecutableFolder, const std::string& strUserFolder)
{
    if (::access(strExecutableFolder.c_str(), W_OK) == 0)
        return strExecutableFolder;
    std::error_code ignored; // what fails here is told when the first file is written
    std::filesystem::create_directories(strUserFolder, ignored);
    return strUserFolder;
}

} // namespace kestrabel
