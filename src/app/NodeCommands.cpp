#include "app/NodeCommands.h"

#include "app/CompetitorCommands.h"
#include "app/DivisionCommands.h"
#include "app/Document.h"
#include "app/ExternalCommands.h"
#include "app/ResultsExportCommands.h"
#include "app/SaveQuestion.h"
#include "app/TrackEditing.h"
#include "app/TrackFileCommands.h"
#include "app/TrackPointExport.h"
#include "engine/TrackPointDerivation.h"

namespace kestrabel {

namespace {

constexpr int FirstPerson = 0; // the tree shows the files of no other

void EnsureCompetitor(CKestroDoc& document)
{
    if (document.m_event.m_persons.IsEmpty())
        document.CreateDefaultCompetitor();
}

/// What a command shows of a file beyond the file itself is that of the selection, which may be another.
void Recalculate(CKestroDoc& document, int nSeries)
{
    CPerson& person = document.m_event.m_persons[FirstPerson];
    document.m_selection.ForgetResults();
    RecalculateTrackPoints(document.m_event, person, person.m_series[nSeries],
                           document.m_surroundings.progress);
    document.m_selection.Recalculate(false, false);
}

void Close(CKestroDoc& document, int nSeries)
{
    const CViewSelection& selection = document.m_selection;
    const bool bFocused = selection.m_nFocusSeries == nSeries;
    CloseSeries(document, nSeries, bFocused ? static_cast<int>(selection.m_dFocusPoint) : -1);
}

void ExportPoints(CKestroDoc& document, int nSeries, std::span<const EPointColumn> shownColumns)
{
    CViewSelection& selection = document.m_selection;
    if (selection.m_nCompetitor != FirstPerson || selection.m_nSeries != nSeries)
        selection.SelectSeries(nSeries, false, true);
    ExportTrackPoints(document, shownColumns);
}

bool OnTrackFile(CKestroDoc& document, ECommand command, int nSeries,
                 std::span<const EPointColumn> shownColumns)
{
    const CObjectArray<CPerson>& persons = document.m_event.m_persons;
    if (persons.IsEmpty() || nSeries >= persons[FirstPerson].m_series.GetCount())
        return true;
    switch (command) {
    case ECommand::TrackFileProperties: EditSeriesProperties(document, nSeries); return true;
    case ECommand::Recalculate: Recalculate(document, nSeries); return true;
    case ECommand::DeleteInvalid: DeleteInvalid(document, FirstPerson, nSeries); return true;
    case ECommand::SaveTrackFile:
        SaveSeries(document, persons[FirstPerson].m_series[nSeries]);
        document.ShowNewTree();
        return true;
    case ECommand::Reload: ReloadSeries(document, nSeries); return true;
    case ECommand::ExportResults: ExportCompetitorResults(document, FirstPerson, nSeries); return true;
    case ECommand::ExportResultsOfDivisions: ExportAllDivisions(document, FirstPerson, nSeries); return true;
    case ECommand::ExportTrackPoints: ExportPoints(document, nSeries, shownColumns); return true;
    case ECommand::ViewInNotepad: ViewInNotepad(document, FirstPerson, nSeries); return true;
    case ECommand::CloseTrackFile: Close(document, nSeries); return true;
    default: return false;
    }
}

bool OnTrackFiles(CKestroDoc& document, ECommand command)
{
    const auto ensure = [&] {
        if (!document.m_event.m_persons.IsEmpty())
            return;
        document.CreateDefaultCompetitor();
        document.SetModifiedFlag();
        document.ShowNewTree();
    };
    switch (command) {
    case ECommand::ImportTrackFiles:
        ensure();
        ImportTrackFiles(document);
        return true;
    case ECommand::ExportResults:
        ensure();
        ExportCompetitorResults(document, FirstPerson, -1);
        return true;
    case ECommand::CreateCombinedFile:
        ensure();
        CreateCombinedSeries(document, FirstPerson);
        return true;
    case ECommand::ReadFromGps: ensure(); return true;
    case ECommand::EditCompetitor: EditCompetitor(document, FirstPerson); return true;
    default: return false;
    }
}

bool OnDivision(CKestroDoc& document, ECommand command, int nDivision)
{
    switch (command) {
    case ECommand::EditNode: EditDivision(document, nDivision); return true;
    case ECommand::DeleteDivision: DeleteDivision(document, nDivision); return true;
    case ECommand::MoveUp: MoveDivisionUp(document, nDivision); return true;
    case ECommand::ExportResults:
        if (nDivision < document.m_event.m_divisions.GetCount())
            ExportDivisionResults(document, nDivision);
        return true;
    default: return false;
    }
}

bool OnDivisions(CKestroDoc& document, ECommand command)
{
    switch (command) {
    case ECommand::NewNode: AddDivision(document); return true;
    case ECommand::ExportResults: ExportAllDivisions(document, -1, -1); return true;
    default: return false;
    }
}

} // namespace

void ClickNode(CKestroDoc& document, const STreeNode& node)
{
    CViewSelection& selection = document.m_selection;
    switch (node.nKind) {
    case NodeKind::TrackFile: selection.SelectSeries(node.nIndex, false, true); break;
    case NodeKind::Divisions:
        EnsureCompetitor(document);
        selection.SelectSeries(selection.m_nSeries, false, true);
        break;
    case NodeKind::TrackFiles:
        EnsureCompetitor(document);
        selection.SelectSeries(-1, false, true);
        break;
    case NodeKind::Division: selection.ShowDivisionResults(node.nIndex); break;
    default: break;
    }
}

bool CarryOutOnNode(CKestroDoc& document, ECommand command, const STreeNode& node,
                    std::span<const EPointColumn> shownColumns)
{
    switch (node.nKind) {
    case NodeKind::TrackFile: return OnTrackFile(document, command, node.nIndex, shownColumns);
    case NodeKind::Divisions: return OnDivisions(document, command);
    case NodeKind::TrackFiles: return OnTrackFiles(document, command);
    case NodeKind::Division: return OnDivision(document, command, node.nIndex);
    default: return false;
    }
}

} // namespace kestrabel
