#include "app/Application.h"

#include "app/DroppedFiles.h"
#include "app/FileFilters.h"
#include "app/RecentFiles.h"
#include "platform/IniText.h"
#include "platform/Path.h"
#include "present/AboutDialog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view DefaultProject = "Default.rsp";
constexpr std::size_t MaxVersionLength = 49;
constexpr std::string_view BuiltInVersion = "Version 1.917";

} // namespace

bool CApplication::InitInstance(std::span<const std::string> files)
{
    if (files.empty())
        return OpenDefaultProject() || m_document.OnNewDocument();
    const auto project = std::ranges::find_if(files, IsProjectPath);
    if (project == files.end() || files.size() == 1)
        return OpenFiles({files.begin(), files.end()});
    if (!OpenFiles({*project}))
        return false;
    std::vector<std::string> others(files.begin(), project);
    others.insert(others.end(), std::next(project), files.end());
    DropFiles(*this, others);
    return true;
}

bool CApplication::OpenDefaultProject()
{
    const std::string strPath = m_document.m_surroundings.strProgramFolder + std::string(DefaultProject);
    std::error_code ignored;
    if (!fs::exists(strPath, ignored))
        return false;
    if (m_document.OnOpenDocument(strPath)) {
        m_document.SetPathName(DefaultProject, false);
        return true;
    }
    // The new default project takes its place; what could not be read may still be mended by hand.
    fs::rename(strPath, UniqueFileName(FolderOf(strPath), "Default_BAK", ".rsp"), ignored);
    return false;
}

void CApplication::OnFileOpen()
{
    if (!m_document.CanCloseFrame())
        return;
    std::vector<std::string> paths = m_document.m_surroundings.desktop.ChooseFilesToOpen({
        .strTitle = "",
        .strInitialPath = m_document.PathName(),
        .strFilter = std::string(OpenFilter),
        .strDefaultExtension = "",
    });
    if (!paths.empty())
        OpenFiles(std::move(paths));
}

bool CApplication::OpenFiles(std::vector<std::string> paths)
{
    if (paths.empty())
        return false;
    m_document.m_openFiles = std::move(paths);
    const std::string strFirst = m_document.m_openFiles.front();
    const bool bOpened = m_document.OnOpenDocument(strFirst);
    m_document.m_openFiles.clear();
    return bOpened;
}

void CApplication::OpenRecentFile(const std::string& strPath)
{
    if (!m_document.CanCloseFrame())
        return;
    std::error_code ignored;
    if (!OpenFiles({strPath}) && !fs::exists(FindFile(strPath), ignored))
        CRecentFiles(m_document.m_surroundings.settings).Remove(strPath);
}

bool CApplication::OnClose()
{
    m_document.m_surroundings.settings.Write("Files", "LastDocument", m_document.PathName());
    return m_document.CanCloseFrame();
}

void CApplication::OnAppAbout()
{
    SAboutDialog dialog = SAboutDialog::From(VersionText());
    m_document.m_surroundings.desktop.Run(dialog);
}

std::string CApplication::VersionText() const
{
    const std::string strPath = m_document.m_surroundings.strProgramFolder + "version.txt";
    const std::string strVersion = ReadIniEntry(strPath, "Version", "BinaryVersion", MaxVersionLength);
    return strVersion.empty() ? std::string(BuiltInVersion) : strVersion;
}

} // namespace kestrabel
