#include "app/TrackFileCommands.h"

#include "app/Document.h"
#include "app/FailureText.h"
#include "app/FileFilters.h"
#include "app/ReplaceQuestion.h"
#include "app/TrackFileImport.h"
#include "engine/TrackPointDerivation.h"
#include "platform/Path.h"
#include "present/SelectCompetitorDialog.h"
#include "present/TrackFilePropertiesDialog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

namespace fs = std::filesystem;

/// Renames, but never onto a file that exists.
bool MoveFileTo(const std::string& strFrom, const std::string& strTo)
{
    std::error_code error;
    if (strTo.empty() || fs::exists(FindFile(strTo), error))
        return false;
    fs::rename(FindFile(strFrom), strTo, error);
    if (!error)
        return true;
    // Another disk: a copy, and only then the end of the original.
    return fs::copy_file(FindFile(strFrom), strTo, error) && fs::remove(FindFile(strFrom), error);
}

void DeleteManagedFile(const CSeries& series)
{
    std::error_code ignored;
    if (series.m_bManaged != 0 && !series.m_strFileName.empty())
        fs::remove(FindFile(series.m_strFileName), ignored);
}

/// Nothing of what is about to be removed is referred to any more.
void LetGo(CKestroDoc& document)
{
    document.m_selection.Reset();
    document.m_history.Clear();
}

/// The nameless empty file that a new competitor starts with.
bool IsPlaceholder(const CSeries& series)
{
    return series.m_strName.empty() && series.m_strFileName.empty() && series.m_points.IsEmpty();
}

bool HasSeries(const CKestroDoc& document, int nPerson, int nSeries)
{
    const CObjectArray<CPerson>& persons = document.m_event.m_persons;
    return nPerson >= 0 && nPerson < persons.GetCount() && nSeries >= 0 &&
           nSeries < persons[nPerson].m_series.GetCount();
}

bool ImportOne(CKestroDoc& document, CPerson& person, std::string_view strPath, const SMoveTo* pMoveTo)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    std::string strFile(strPath);
    int nReplaced = -1;
    if (pMoveTo == nullptr) {
        const std::optional<int> answer = AskToReplace(desktop, person, strPath);
        if (!answer.has_value())
            return false;
        nReplaced = *answer;
    } else {
        strFile = UniqueFileName(pMoveTo->strFolder, FileTitle(pMoveTo->strName), ".trk");
        if (!MoveFileTo(std::string(strPath), strFile)) {
            desktop.ShowMessage("Failed to copy data to data folder (most likely the GPS download failed). "
                                "Quote error # 2001");
            return false;
        }
    }

    LetGo(document);
    CImportMonitor monitor(&desktop);
    EImportEnd end = EImportEnd::Complete;
    const CSeries* pSeries =
        AddTrackFile(document.m_event, person, strFile, monitor, end, document.m_surroundings.progress);
    document.m_importLog.Add(strFile, pSeries == nullptr ? 0 : pSeries->m_points.GetCount(), monitor, end);
    if (pSeries == nullptr) {
        std::error_code ignored;
        if (pMoveTo != nullptr)
            fs::remove(strFile, ignored);
        if (const std::string strText = EmptyImportText(monitor, strFile, end); !strText.empty())
            desktop.ShowMessage(strText);
        return true;
    }
    if (nReplaced != -1)
        person.m_series.RemoveAt(nReplaced);
    if (person.m_series.GetCount() == 2 && IsPlaceholder(person.m_series[0]))
        person.m_series.RemoveAt(0);
    DeriveAll(document.m_event, person, document.m_surroundings.progress);
    return true;
}

} // namespace

bool ImportSeries(CKestroDoc& document, CPerson& person, std::string_view strPath, const SMoveTo* pMoveTo)
{
    document.m_importLog.Clear();
    return ImportOne(document, person, strPath, pMoveTo);
}

bool ImportSeveral(CKestroDoc& document, CPerson& person, std::span<const std::string> paths)
{
    document.m_importLog.Clear();
    return std::ranges::all_of(
        paths, [&](const std::string& strPath) { return ImportOne(document, person, strPath, nullptr); });
}

void ImportTrackFiles(CKestroDoc& document)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    const SFileChoice choice = {
        .strTitle = "",
        .strInitialPath = document.PathName(),
        .strFilter = std::string(OpenFilter),
        .strDefaultExtension = "gpx",
    };
    const std::vector<std::string> paths = desktop.ChooseFilesToOpen(choice);
    if (paths.empty())
        return;
    if (document.m_event.m_persons.IsEmpty())
        document.CreateDefaultCompetitor();
    int nPerson = 0;
    if (document.m_event.m_persons.GetCount() > 1) {
        SSelectCompetitorDialog dialog =
            SSelectCompetitorDialog::From(document.m_event, document.m_selection.m_nCompetitor);
        if (!desktop.Run(dialog))
            return;
        nPerson = dialog.nSelected;
    }
    CPerson& person = document.m_event.m_persons[nPerson];
    ImportSeveral(document, person, paths);
    document.ShowNewTree();
    document.m_selection.SelectSeries(person.m_series.GetCount() - 1, true, true);
}

void RemoveSeries(CKestroDoc& document, int nPerson, int nSeries, bool bDeleteFromDisk)
{
    if (!HasSeries(document, nPerson, nSeries))
        return;
    LetGo(document);
    CPerson& person = document.m_event.m_persons[nPerson];
    if (bDeleteFromDisk)
        DeleteManagedFile(person.m_series[nSeries]);
    person.m_series.RemoveAt(nSeries);
    DeriveAll(document.m_event, person, document.m_surroundings.progress);
}

void RemovePerson(CKestroDoc& document, int nPerson, bool bDeleteFromDisk)
{
    CObjectArray<CPerson>& persons = document.m_event.m_persons;
    if (nPerson < 0 || nPerson >= persons.GetCount())
        return;
    LetGo(document);
    if (bDeleteFromDisk)
        std::ranges::for_each(persons[nPerson].m_series, [](const CSeries* p) { DeleteManagedFile(*p); });
    persons.RemoveAt(nPerson);
    for (CPerson* pPerson : persons)
        DeriveAll(document.m_event, *pPerson, document.m_surroundings.progress);
}

void DeleteCompetitor(CKestroDoc& document, int nPerson)
{
    if (nPerson < 0 || nPerson >= document.m_event.m_persons.GetCount())
        return;
    bool bDeleteFromDisk = false;
    if (!document.m_surroundings.desktop.AskYesNo(
            "This action will remove this competitors results from all divisions and remove this competitor "
            "from the current project.\n\nAre you sure you wish to continue?",
            "Also delete downloaded and imported series files associated with this competitor (these are "
            "stored in Kestrabel data folders)",
            bDeleteFromDisk))
        return;
    RemovePerson(document, nPerson, bDeleteFromDisk);
    document.SetModifiedFlag();
    document.ShowNewTree();
    document.m_selection.SelectSeries(-1, true, true, true);
}

void CloseSeries(CKestroDoc& document, int nSeries, int nPoint)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    if (!HasSeries(document, 0, nSeries)) {
        desktop.ShowMessage("Please select the file you wish to close");
        return;
    }
    const CPerson& person = document.m_event.m_persons[0];
    if (!desktop.AskOkCancel("Are you sure you wish to close " + person.m_series[nSeries].m_strName + "?"))
        return;
    RemoveSeries(document, 0, nSeries, false);
    document.ShowNewTree();
    const int nLeft = person.m_series.GetCount();
    CViewSelection& selection = document.m_selection;
    selection.SelectSeries(std::clamp(nSeries, -1, nLeft - 1), true, true);
    if (nLeft > 0 && nPoint >= 0) {
        const int nCount = selection.GetSeriesPoints(selection.m_nSeries).GetCount();
        // A shorter file has nothing to do with where the other one was looked at.
        const int nFocus = nPoint < nCount ? nPoint : nPoint == nCount ? nPoint - 1 : 0;
        selection.MoveFocus(nullptr, selection.m_nSeries, nFocus);
    }
}

void CloseAllSeries(CKestroDoc& document)
{
    if (!document.m_surroundings.desktop.AskYesNo("Are you sure you wish to close all trackfiles?"))
        return;
    RemovePerson(document, std::max(0, document.m_selection.m_nCompetitor), false);
    document.ShowNewTree();
    document.m_selection.SelectSeries(-1, true, true, true);
}

void ReloadSeries(CKestroDoc& document, int nSeries)
{
    if (!HasSeries(document, 0, nSeries))
        return;
    CPerson& person = document.m_event.m_persons[0];
    CSeries& series = person.m_series[nSeries];
    LetGo(document);
    CObjectArray<CTrackPoint> before = std::exchange(series.m_points, CObjectArray<CTrackPoint>());
    CImportMonitor monitor(&document.m_surroundings.desktop);
    if (LoadTrackFile(monitor, series, series.m_strFileName) && !series.m_points.IsEmpty()) {
        series.m_bModified = 0;
    } else {
        series.m_points = std::move(before);
        document.m_surroundings.desktop.ShowMessage(FileFailureText(monitor, series.m_strFileName));
    }
    RecalculateTrackPoints(document.m_event, person, series, document.m_surroundings.progress);
    document.ShowNewTree();
    document.m_selection.SelectSeries(nSeries, true, true);
}

bool EditSeriesProperties(CKestroDoc& document, int nSeries)
{
    if (!HasSeries(document, 0, nSeries))
        return false;
    CDesktop& desktop = document.m_surroundings.desktop;
    CPerson& person = document.m_event.m_persons[0];
    CSeries& series = person.m_series[nSeries];
    STrackFilePropertiesDialog dialog = STrackFilePropertiesDialog::From(document.m_event, series);
    if (!desktop.Run(dialog))
        return false;
    const std::string strOldName = series.m_strName;
    if (!dialog.ApplyTo(series))
        return true;
    // What is in no file yet only takes the name.
    if (series.m_strName != strOldName && !series.m_strFileName.empty()) {
        const std::string strPath =
            FolderOf(series.m_strFileName) + series.m_strName + FileExtension(series.m_strFileName);
        std::error_code error;
        // A file that was never written, such as one half of a split, only takes the name.
        const bool bOnDisk = fs::exists(FindFile(series.m_strFileName), error);
        if (bOnDisk ? MoveFileTo(series.m_strFileName, strPath) : !fs::exists(FindFile(strPath), error))
            series.m_strFileName = strPath;
        else
            desktop.ShowMessage("Failed to change the name of the file");
    }
    document.m_selection.ForgetResults();
    DeriveAll(document.m_event, person, document.m_surroundings.progress);
    document.m_selection.RefreshResults(false);
    document.ShowNewTree();
    return true;
}

} // namespace kestrabel
