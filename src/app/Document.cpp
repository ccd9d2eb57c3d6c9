#include "app/Document.h"

#include "app/FileFilters.h"
#include "app/NewProject.h"
#include "app/ProjectSave.h"
#include "app/RecentFiles.h"
#include "app/SaveQuestion.h"
#include "platform/FileCause.h"
#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

constexpr std::string_view DefaultProject = "Default.rsp";

/// "Data" in a folder, ended by the separator that the folder's path has.
std::string DataFolderIn(const std::string& strFolder)
{
    return strFolder + "Data" + (strFolder.ends_with('\\') ? '\\' : '/');
}

} // namespace

bool IsProjectPath(std::string_view strPath)
{
    return ToLower(strPath).ends_with("rsp");
}

CKestroDoc::CKestroDoc(SSurroundings surroundings)
    : m_surroundings(std::move(surroundings)), m_selection(m_event, m_hub, m_surroundings.progress)
{
}

bool CKestroDoc::OnNewDocument()
{
    m_history.Clear();
    m_selection.Reset();
    FillNewProject(m_event, DATE::Now());
    m_event.m_strDataFolder = DataFolderIn(m_surroundings.strProgramFolder);
    m_strPathName.clear();
    m_strProjectPath = m_surroundings.strProgramFolder + std::string(DefaultProject);
    try {
        SaveProjectUnder(m_strProjectPath, m_event, m_strProjectPath);
    } catch (const CFileException& failure) {
        // A program that cannot write beside itself still judges an event.
        m_surroundings.desktop.ShowMessage(failure.what());
    }
    CreateDefaultCompetitor();
    SetModifiedFlag(false);
    m_hub.InitialUpdate();
    m_selection.SelectSeries(0, false, true, true);
    return true;
}

void CKestroDoc::CreateDefaultCompetitor()
{
    m_history.Clear();
    m_selection.Reset();
    m_event.m_persons.RemoveAll();
    AddCompetitor(m_event, "").m_series.Add(std::make_unique<CSeries>()).m_ellipsoid = m_event.m_ellipsoid;
}

void CKestroDoc::SetPathName(std::string_view strPath, bool bAddToRecentFiles)
{
    (IsProjectPath(strPath) ? m_strProjectPath : m_strPathName) = strPath;
    if (bAddToRecentFiles)
        CRecentFiles(m_surroundings.settings).Add(strPath);
}

std::string CKestroDoc::Title() const
{
    const std::string strTitle = FileTitle(m_strPathName.empty() ? m_strProjectPath : m_strPathName);
    const bool bFileModified = std::ranges::any_of(m_event.m_persons, [](const CPerson* pPerson) {
        return std::ranges::any_of(pPerson->m_series, [](const CSeries* p) { return p->m_bModified != 0; });
    });
    return strTitle + (m_bModified || bFileModified ? "*" : "");
}

bool CKestroDoc::OnFileSave()
{
    // The path is that of the file last opened or saved. The one that is shown may be another: it goes to its
    // own file, and where it has none yet to one that is asked for.
    std::string strPath = m_strPathName;
    if (const CSeries* pSeries = m_selection.GetCurrentSeries();
        pSeries != nullptr && FindFile(pSeries->m_strFileName) != FindFile(m_strPathName))
        strPath = FindFile(pSeries->m_strFileName);
    if (strPath.empty())
        return OnFileSaveAs();
    return SaveUnder(strPath, false);
}

bool CKestroDoc::OnFileSaveAs()
{
    const SFileChoice choice = {
        .strTitle = "",
        .strInitialPath = "*.gpx",
        .strFilter = std::string(SaveFilter),
        .strDefaultExtension = "gpx",
    };
    const std::string strPath = m_surroundings.desktop.ChooseFileToSave(choice);
    return !strPath.empty() && SaveUnder(strPath, true);
}

/// A project that has no file yet.
bool CKestroDoc::SaveFirstProject()
{
    std::string strPath = m_surroundings.desktop.ChooseFileToSave({
        .strTitle = "",
        .strInitialPath = "*.rsp",
        .strFilter = std::string(ProjectFilter),
        .strDefaultExtension = "rsp",
    });
    if (strPath.empty())
        return false;
    if (!IsProjectPath(strPath))
        strPath += ".rsp"; // any other name would save the track file
    return SaveUnder(strPath, true);
}

/// What was saved has another name and no "*" any more, in the title and in the tree.
bool CKestroDoc::SaveUnder(const std::string& strPath, bool bAddToRecentFiles)
{
    if (!OnSaveDocument(strPath))
        return false;
    SetPathName(strPath, bAddToRecentFiles);
    ShowNewTree();
    return true;
}

bool CKestroDoc::CanCloseFrame()
{
    CDesktop& desktop = m_surroundings.desktop;
    for (const CPerson* pPerson : m_event.m_persons) {
        for (CSeries* pSeries : pPerson->m_series) {
            if (!AskToSaveTrackFile(*this, *pSeries))
                return false;
        }
    }
    if (!m_bModified)
        return true;
    const bool bNamed = !m_strProjectPath.empty(); // not before a project was opened: the start was a track
    std::string strPath = m_strProjectPath;
    if (bNamed && FolderOf(strPath).empty())
        strPath = m_surroundings.strProgramFolder + strPath;
    const std::string strName = bNamed ? strPath + ' ' : std::string();
    switch (desktop.AskYesNoCancel("The project " + strName + "has changed. Do you wish to save it?")) {
    case CUserPrompt::EAnswer::Yes: return bNamed ? SaveUnder(strPath, false) : SaveFirstProject();
    case CUserPrompt::EAnswer::No: return true;
    case CUserPrompt::EAnswer::Cancel: break;
    }
    return false;
}

} // namespace kestrabel
