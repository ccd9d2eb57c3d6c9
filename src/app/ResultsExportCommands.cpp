#include "app/ResultsExportCommands.h"

#include "app/Document.h"
#include "engine/ResultsExportFile.h"

namespace kestrabel {

namespace {

/// Asks for a file and has it written by `write(path)`, which returns what to tell the user.
template <class TWrite>
void Export(CKestroDoc& document, TWrite&& write)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    const std::string strPath = desktop.ChooseFileToSave({
        .strTitle = "",
        .strInitialPath = "*.csv",
        .strFilter = "CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt|All Files (*.*)|*.*||",
        .strDefaultExtension = "csv",
    });
    if (strPath.empty())
        return;
    if (const std::string strFailure = write(strPath); !strFailure.empty())
        desktop.ShowMessage(strFailure);
}

} // namespace

void ExportResults(CKestroDoc& document)
{
    const CViewSelection& selection = document.m_selection;
    // The index stays behind when a track file is selected after a division, and when the division is gone:
    // deleted, its addition undone, or another project opened.
    if (selection.m_nNodeKind == NodeKind::Division && selection.m_nDivision >= 0 &&
        selection.m_nDivision < document.m_event.m_divisions.GetCount())
        ExportDivisionResults(document, selection.m_nDivision);
    else if (selection.m_nCompetitor != -1)
        ExportCompetitorResults(document, selection.m_nCompetitor, selection.m_nSeries);
    else
        document.m_surroundings.desktop.ShowMessage("Nothing is selected for export");
}

void ExportCompetitorResults(CKestroDoc& document, int nPerson, int nSeries)
{
    Export(document, [&](const std::string& strPath) {
        return ExportCompetitorResults(document.m_event, nPerson, nSeries, strPath,
                                       document.m_surroundings.progress);
    });
}

void ExportDivisionResults(CKestroDoc& document, int nDivision)
{
    Export(document, [&](const std::string& strPath) {
        return ExportDivisionResults(document.m_event, nDivision, strPath, document.m_surroundings.progress);
    });
}

void ExportAllDivisions(CKestroDoc& document, int nPerson, int nSeries)
{
    Export(document, [&](const std::string& strPath) {
        return ExportAllDivisions(document.m_event, nPerson, nSeries, strPath,
                                  document.m_surroundings.progress);
    });
}

} // namespace kestrabel
