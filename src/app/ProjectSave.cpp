#include "app/ProjectSave.h"

#include "model/ProjectFile.h"
#include "platform/Path.h"

namespace kestrabel {

namespace {

/// "data" beside the file, ended by the separator that the path has, else by the system's.
std::string DataFolderBeside(std::string_view strPath)
{
    const std::string strFolder = FolderOf(strPath);
    return strFolder + "data" + (strFolder.ends_with('\\') ? '\\' : '/');
}

} // namespace

void SaveProjectUnder(std::string_view strPath, CEvent& event, std::string& strProjectPath)
{
    // The folder stands in the file, so the event has it before it is known whether saving succeeds.
    const bool bNewFolder = event.m_strDataFolder.empty();
    if (bNewFolder)
        event.m_strDataFolder = DataFolderBeside(strPath);
    try {
        SaveProject(strPath, event, strPath);
    } catch (...) {
        if (bNewFolder)
            event.m_strDataFolder.clear();
        throw;
    }
    strProjectPath = strPath;
}

} // namespace kestrabel
