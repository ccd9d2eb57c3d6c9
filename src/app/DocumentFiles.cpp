#include "app/Document.h"
#include "app/FailureText.h"
#include "app/NewProject.h"
#include "app/ProjectSave.h"
#include "app/ReplaceQuestion.h"
#include "app/SaveQuestion.h"
#include "app/TrackFileImport.h"
#include "engine/TrackPointDerivation.h"
#include "formats/TrackFormat.h"
#include "model/ProjectFile.h"
#include "platform/Path.h"

#include <algorithm>
#include <utility>

namespace kestrabel {

namespace {

/// What saving a track file under that path meets; empty: nothing stands against it. Track marks can be
/// exported, but what was saved so could not be opened again.
std::string_view Refusal(std::string_view strPath)
{
    const std::string strExtension = ToLower(FileExtension(strPath));
    const bool bTrackMarks = strExtension == ".gtr" || strExtension == ".gd" || strExtension == ".gdm";
    return bTrackMarks ? UnknownExtensionRefusal : SaveRefusal(strPath);
}

} // namespace

bool CKestroDoc::OnOpenDocument(std::string_view strPath)
{
    if (IsProjectPath(strPath))
        return OpenProject(strPath);
    return OpenTrackFiles(m_openFiles.size() >= 2 ? m_openFiles : std::vector{std::string(strPath)});
}

bool CKestroDoc::OpenProject(std::string_view strPath)
{
    std::string strStoredPath; // where it was saved, perhaps on another machine
    try {
        LoadProject(strPath, m_event, strStoredPath);
    } catch (const CFileException& failure) {
        m_surroundings.desktop.ShowMessage(failure.what());
        return false;
    } catch (const CArchiveException& failure) {
        m_surroundings.desktop.ShowMessage(std::string(strPath) +
                                           ": not a project, or a damaged one: " + failure.what());
        return false;
    }
    m_history.Clear();
    m_selection.Reset();
    SetPathName(strPath);
    SetModifiedFlag(false);
    if (m_event.m_strDataFolder.empty())
        m_event.m_strDataFolder = FolderOf(strPath);
    if (m_event.m_persons.IsEmpty())
        CreateDefaultCompetitor();
    for (CPerson* pPerson : m_event.m_persons)
        DeriveAll(m_event, *pPerson, m_surroundings.progress);
    m_hub.InitialUpdate();
    m_selection.SelectSeries(m_event.m_persons[0].m_series.IsEmpty() ? -1 : 0, true, true, true);
    return true;
}

bool CKestroDoc::OpenTrackFiles(std::vector<std::string> paths)
{
    m_selection.Reset();
    // The competitors of before come back when none of the files can be used.
    CObjectArray<CPerson> before = std::exchange(m_event.m_persons, CObjectArray<CPerson>());
    CPerson& person = AddCompetitor(m_event, "");
    m_importLog.Clear();
    std::string strOpened; // the first one that could be
    for (const std::string& strPath : paths) {
        const std::optional<int> replaced = AskToReplace(m_surroundings.desktop, person, strPath);
        if (!replaced.has_value())
            break;
        CImportMonitor monitor(&m_surroundings.desktop);
        EImportEnd end = EImportEnd::Complete;
        const CSeries* pSeries =
            AddTrackFile(m_event, person, strPath, monitor, end, m_surroundings.progress);
        m_importLog.Add(strPath, pSeries == nullptr ? 0 : pSeries->m_points.GetCount(), monitor, end);
        if (pSeries != nullptr) {
            if (*replaced != -1) {
                person.m_series.RemoveAt(*replaced);
                DeriveAll(m_event, person, m_surroundings.progress);
            }
            if (person.m_series.GetCount() == 1)
                strOpened = strPath;
            continue;
        }
        if (const std::string strText = EmptyImportText(monitor, strPath, end); !strText.empty())
            m_surroundings.desktop.ShowMessage(strText);
    }
    const int nFiles = person.m_series.GetCount();
    if (nFiles == 0) {
        m_event.m_persons = std::move(before);
        ShowNewTree();
        m_selection.SelectSeries(-1, false, true, true);
        return false;
    }
    m_history.Clear();
    SetPathName(strOpened);
    ShowNewTree();
    m_selection.SelectSeries(paths.size() == 1 ? nFiles - 1 : 0, true, true, true);
    return true;
}

bool CKestroDoc::OnSaveDocument(std::string_view strPath)
{
    return IsProjectPath(strPath) ? SaveProject(strPath) : SaveCurrentTrackFile(strPath);
}

bool CKestroDoc::SaveProject(std::string_view strPath)
{
    try {
        SaveProjectUnder(strPath, m_event, m_strProjectPath);
    } catch (const CFileException& failure) {
        m_surroundings.desktop.ShowMessage(failure.what());
        return false;
    }
    m_surroundings.settings.Write("Files", "LastDocument", m_strPathName);
    SetModifiedFlag(false);
    m_history.NoteSaved(nullptr);
    return true;
}

bool CKestroDoc::SaveCurrentTrackFile(std::string_view strPath)
{
    const std::string_view strRefusal = Refusal(strPath);
    CSeries* pSeries = m_selection.GetCurrentSeries();
    if (pSeries == nullptr || !strRefusal.empty()) {
        m_surroundings.desktop.ShowMessage(pSeries == nullptr ? "There is no trackfile to save" : strRefusal);
        return false;
    }
    const std::string strOldName = std::exchange(pSeries->m_strFileName, std::string(strPath));
    if (!SaveSeries(*this, *pSeries)) {
        pSeries->m_strFileName = strOldName;
        return false;
    }
    pSeries->m_strName = FileTitle(strPath);
    SetModifiedFlag(false);
    m_history.NoteSaved(nullptr);
    m_selection.ForgetResults(); // they carry the file's name
    RecalculateTrackPoints(m_event, *m_selection.GetCurrentPerson(), *pSeries, m_surroundings.progress);
    m_selection.RefreshResults(false);
    return true;
}

} // namespace kestrabel
