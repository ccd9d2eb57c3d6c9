#include "app/ExternalCommands.h"

#include "app/CommandPlaceholders.h"
#include "app/CommandWords.h"
#include "app/Document.h"
#include "app/TrackFileCommands.h"
#include "model/DateText.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "present/CommandDialog.h"

#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t BackupTail = 4; // characters: ".sbp"

std::string SectionOf(int nCommand)
{
    return "Command" + std::to_string(nCommand);
}

std::string StoredName(const CSettingsStore& settings, int nCommand)
{
    return settings.Read(SectionOf(nCommand), "Name", "Command " + std::to_string(nCommand));
}

/// What is selected, with the names that the disk has: a stored one may differ in case.
SCommandValues CurrentValues(const CKestroDoc& document)
{
    SCommandValues values = {.strDataFolder = document.m_event.m_strDataFolder,
                             .strDate = FormatDateText(DATE::Now())};
    if (const CSeries* pSeries = document.m_selection.GetCurrentSeries();
        pSeries != nullptr && !pSeries->m_strFileName.empty())
        values.fileOut = FindFile(pSeries->m_strFileName);
    if (const CPerson* pPerson = document.m_selection.GetCurrentPerson())
        values.competitor = pPerson->m_strName;
    return values;
}

/// What lies there from an earlier run must not pass for what the program is about to write.
void SetAside(const std::string& strFileIn)
{
    std::error_code ignored;
    if (const std::string strPath = FindFile(strFileIn); fs::is_regular_file(strPath, ignored))
        fs::rename(strPath, BackupName(strPath), ignored);
}

bool ImportResult(CKestroDoc& document, const std::string& strFileIn)
{
    CPerson* pPerson = document.m_selection.GetCurrentPerson();
    std::error_code ignored;
    if (pPerson == nullptr || !fs::is_regular_file(FindFile(strFileIn), ignored) ||
        !ImportSeries(document, *pPerson, strFileIn))
        return false;
    document.ShowNewTree();
    document.m_selection.SelectSeries(pPerson->m_series.GetCount() - 1, true, true);
    return true;
}

} // namespace

std::string ExternalCommandLabel(const CSettingsStore& settings, int nCommand)
{
    return StoredName(settings, nCommand) + "\t(+Ctrl)";
}

void InvokeExternalCommand(CKestroDoc& document, int nCommand, bool bCtrlHeld)
{
    CSettingsStore& settings = document.m_surroundings.settings;
    const std::string strSection = SectionOf(nCommand);
    SCommandDialog dialog;
    dialog.strName = StoredName(settings, nCommand);
    dialog.strCommand = settings.Read(strSection, "Command");
    dialog.strFileIn = settings.Read(strSection, "FileIn");
    bool bRun = !dialog.strCommand.empty() && !bCtrlHeld;
    if (!bRun) {
        bRun = document.m_surroundings.desktop.Run(dialog);
        settings.Write(strSection, "Name", dialog.strName);
        settings.Write(strSection, "Command", dialog.strCommand);
        settings.Write(strSection, "FileIn", dialog.strFileIn);
    }
    if (bRun)
        RunExternalCommand(document, dialog.strCommand, dialog.strFileIn);
}

void RunExternalCommand(CKestroDoc& document, std::string_view strCommandLine, std::string_view strFileIn)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    CProcessStarter& processes = document.m_surroundings.processes;
    const SExpandedCommand command = ExpandCommand(strCommandLine, strFileIn, CurrentValues(document));
    if (!command.strProblem.empty()) {
        desktop.ShowMessage(command.strProblem);
        return;
    }
    const bool bImports = !command.strFileIn.empty();
    if (bImports)
        SetAside(command.strFileIn);
    switch (processes.Start(command.arguments)) {
    case EStart::Started: break;
    case EStart::Failed:
        desktop.ShowMessage("The command failed to run. Please check your command line string.");
        return;
    case EStart::Impossible: desktop.ShowMessage("The command failed"); return;
    }
    if (!bImports || !processes.WaitUntilReady())
        return;
    if (!ImportResult(document, command.strFileIn))
        desktop.ShowMessage("Failed to import the target file");
}

std::string BackupName(std::string_view strPath)
{
    const std::string strFolder = FolderOf(strPath);
    const std::string_view strName = strPath.substr(strFolder.size());
    const std::size_t nCount = CountCharacters(strName);
    const std::string_view strHead = FirstCharacters(strName, nCount < BackupTail ? 0 : nCount - BackupTail);
    return strFolder + std::string(strHead) + "_BAK" + std::string(strName.substr(strHead.size()));
}

void ViewInNotepad(CKestroDoc& document, int nPerson, int nSeries)
{
    const CObjectArray<CPerson>& persons = document.m_event.m_persons;
    if (nPerson < 0 || nPerson >= persons.GetCount())
        return;
    const CObjectArray<CSeries>& files = persons[nPerson].m_series;
    if (nSeries == -1 && files.GetCount() == 1)
        nSeries = 0;
    if (nSeries < 0 || nSeries >= files.GetCount())
        return;
    document.m_selection.m_nNodeKind = NodeKind::Notepad;
    const std::string strFile = FindFile(files[nSeries].m_strFileName);

    // The first editor that there is.
    std::vector<std::string> userEditor = CommandWords(document.m_surroundings.strTextEditor);
    for (std::vector<std::string> words :
         {std::vector<std::string>{"c:\\windows\\notepad.exe"}, std::move(userEditor), {"xdg-open"}})
    {
        if (words.empty())
            continue;
        words.push_back(strFile);
        if (document.m_surroundings.processes.Start(words) == EStart::Started)
            return;
    }
}

} // namespace kestrabel
