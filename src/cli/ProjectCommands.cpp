#include "cli/ProjectCommands.h"

#include "app/NewProject.h"
#include "app/ProjectSave.h"
#include "cli/ProjectJson.h"
#include "cli/ProjectTable.h"
#include "model/ProjectFile.h"

#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

/// The path that the project keeps: the same file from whatever folder it is opened.
std::string FullPath(const std::string& strFile)
{
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(strFile, error);
    const std::filesystem::path folder = std::filesystem::canonical(full.parent_path(), error);
    return error ? strFile : (folder / full.filename()).string(); // saving says what is wrong with the folder
}

} // namespace

bool OpenProject(const std::string& strPath, CEvent& event, std::string& strProjectPath, CMessages& messages)
{
    try {
        LoadProject(strPath, event, strProjectPath);
        return true;
    } catch (const CFileException& exception) {
        messages.About(strPath, FileCauseText(exception.Cause()));
    } catch (const CArchiveException& exception) {
        messages.About(strPath, std::string("not a project, or a damaged one: ") + exception.what());
    }
    return false;
}

EExitStatus ShowProject(const SArguments& arguments, CMessages& messages, COutput& output)
{
    CEvent event;
    FillNewProject(event, DATE::Now());
    std::string strProjectPath;
    if (!OpenProject(arguments.files.front(), event, strProjectPath, messages))
        return EExitStatus::Unreadable;
    if (arguments.format == EFormat::Json)
        WriteProjectJson(event, strProjectPath, output);
    else
        WriteProjectTable(event, strProjectPath, output);
    return EExitStatus::Done;
}

EExitStatus MakeProject(const SArguments& arguments, CMessages& messages)
{
    const std::string& strFile = arguments.files.front();
    std::error_code error;
    if (!arguments.bForce && std::filesystem::exists(strFile, error)) {
        messages.About(strFile, "the file exists; --force replaces it");
        return EExitStatus::Failed;
    }
    CEvent event;
    FillNewProject(event, DATE::Now());
    std::string strProjectPath;
    try {
        SaveProjectUnder(FullPath(strFile), event, strProjectPath);
    } catch (const CFileException& exception) {
        messages.About(strFile, FileCauseText(exception.Cause()));
        return EExitStatus::Failed;
    }
    return EExitStatus::Done;
}

} // namespace kestrabel
