#include "app/CommandRouter.h"

#include "app/CompetitorCommands.h"
#include "app/DivisionCommands.h"
#include "app/ExternalCommands.h"
#include "app/InquiryCommands.h"
#include "app/NodeCommands.h"
#include "app/OptionsCommands.h"
#include "app/RecentFiles.h"
#include "app/ResultsExportCommands.h"
#include "app/TrackEditing.h"
#include "app/TrackFileCommands.h"
#include "app/TrackPointExport.h"
#include "app/WayPointCommands.h"

#include <algorithm>
#include <array>

namespace kestrabel {

namespace {

/// What is for others to carry out.
constexpr std::array ForOthers = {
    ECommand::Exit,   ECommand::Print,   ECommand::PrintPreview, ECommand::PrintSetup,
    ECommand::Copy,   ECommand::Paste,   ECommand::Fields,       ECommand::ShowTrackPoints,
    ECommand::ZoomIn, ECommand::ZoomOut, ECommand::ZoomAll,      ECommand::ShowDivisionResults,
};

/// The number of an external command; 0 for any other.
int ExternalCommandNumber(ECommand command)
{
    const int nNumber = static_cast<int>(command) - static_cast<int>(ECommand::ExternalCommand1) + 1;
    return nNumber >= 1 && nNumber <= ExternalCommandCount ? nNumber : 0;
}

bool SFrameState::*ShownPart(ECommand command)
{
    switch (command) {
    case ECommand::ShowToolbar: return &SFrameState::bToolbar;
    case ECommand::ShowStatusBar: return &SFrameState::bStatusBar;
    case ECommand::ShowTree: return &SFrameState::bTree;
    case ECommand::ShowNeighborhood: return &SFrameState::bNeighborhood;
    default: return nullptr;
    }
}

/// "Edit" of the competitor's node is a command of its own.
ECommand Meant(ECommand command, const SCommandPlace& place)
{
    const bool bCompetitor = place.pane == EPane::Tree && place.node.nKind == NodeKind::TrackFiles;
    return bCompetitor && command == ECommand::EditNode ? ECommand::EditCompetitor : command;
}

/// The menu text with a name behind its label.
std::string WithName(const SMenuItem& item, std::string_view strName)
{
    std::string strText(item.strText);
    if (!strName.empty())
        strText.insert(std::min(strText.find('\t'), strText.size()), " " + std::string(strName));
    return strText;
}

} // namespace

CCommandRouter::CCommandRouter(CApplication& application)
    : m_application(application), m_document(application.m_document)
{
    const std::span<const SGridColumn> columns = TrackPointColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].bShown)
            m_shownColumns.push_back(static_cast<EPointColumn>(i));
    }
}

SCommandState CCommandRouter::State(ECommand command, const SCommandPlace& place) const
{
    command = Meant(command, place);
    switch (command) {
    case ECommand::Undo: return {.bEnabled = !m_document.m_history.UndoName().empty()};
    case ECommand::Redo: return {.bEnabled = !m_document.m_history.RedoName().empty()};
    case ECommand::NewNode: return {.bEnabled = place.node.nKind == NodeKind::Divisions};
    case ECommand::EditNode: return {.bEnabled = place.node.nKind == NodeKind::Division};
    case ECommand::RecentFiles:
        return {.bEnabled = !CRecentFiles(m_document.m_surroundings.settings).Paths().empty()};
    default: break;
    }
    const bool bForOthers = std::ranges::find(ForOthers, command) != ForOthers.end();
    const auto pShown = ShownPart(command);
    return {.bEnabled = !bForOthers || m_actions.contains(command),
            .bChecked = pShown != nullptr && m_frame.*pShown};
}

std::string CCommandRouter::TextOf(const SMenuItem& item) const
{
    if (const int nNumber = ExternalCommandNumber(item.command))
        return ExternalCommandLabel(m_document.m_surroundings.settings, nNumber);
    if (item.command == ECommand::Undo)
        return WithName(item, m_document.m_history.UndoName());
    if (item.command == ECommand::Redo)
        return WithName(item, m_document.m_history.RedoName());
    return std::string(item.strText);
}

bool CCommandRouter::CarryOut(ECommand command, const SCommandPlace& place)
{
    command = Meant(command, place);
    if (!State(command, place).bEnabled)
        return false;
    const auto pShown = ShownPart(command);
    if (pShown != nullptr)
        m_frame.*pShown = !(m_frame.*pShown);
    if (const auto found = m_actions.find(command); found != m_actions.end()) {
        found->second(place);
        return true;
    }
    if (pShown != nullptr)
        return true;
    if (place.pane == EPane::Tree)
        return CarryOutOnNode(m_document, command, place.node, m_shownColumns);
    return OnPoints(command, place) || OnFrame(command, place);
}

bool CCommandRouter::OnFrame(ECommand command, const SCommandPlace& place)
{
    CViewSelection& selection = m_document.m_selection;
    if (const int nNumber = ExternalCommandNumber(command)) {
        InvokeExternalCommand(m_document, nNumber, place.bCtrlHeld);
        return true;
    }
    switch (command) {
    case ECommand::New: OpenNew(); break;
    case ECommand::Open: m_application.OnFileOpen(); break;
    case ECommand::Save: m_document.OnFileSave(); break;
    case ECommand::SaveAs: m_document.OnFileSaveAs(); break;
    case ECommand::ImportTrackFiles: ImportTrackFiles(m_document); break;
    case ECommand::ExportTrackPoints: ExportTrackPoints(m_document, m_shownColumns); break;
    case ECommand::ExportResults: ExportResults(m_document); break;
    case ECommand::TrackFileProperties: EditSeriesProperties(m_document, 0); break;
    case ECommand::CloseAllTrackFiles: CloseAllSeries(m_document); break;
    case ECommand::ViewInNotepad:
        ViewInNotepad(m_document, selection.m_nCompetitor, selection.m_nSeries);
        break;
    case ECommand::Undo: m_document.m_history.Undo(m_document); break;
    case ECommand::Redo: m_document.m_history.Redo(m_document); break;
    case ECommand::DeleteInvalid:
        DeleteInvalid(m_document, selection.m_nCompetitor, selection.m_nSeries);
        break;
    case ECommand::DeleteSlowPoints: DeleteSlowPoints(m_document); break;
    case ECommand::SortTrackPoints: SortTrackPoints(m_document); break;
    case ECommand::ExtractTrack: ExtractTrack(m_document); break;
    case ECommand::AddDivision: AddDivision(m_document); break;
    case ECommand::AddCompetitor: AddCompetitor(m_document); break;
    case ECommand::EditCompetitor: EditCompetitor(m_document, std::max(0, selection.m_nCompetitor)); break;
    case ECommand::DeleteCompetitor:
        if (selection.GetCurrentPerson() != nullptr)
            DeleteCompetitor(m_document, selection.m_nCompetitor);
        break;
    case ECommand::ShowCalculatedResults: selection.Recalculate(false, false); break;
    case ECommand::Recalculate: selection.Recalculate(true, true); break;
    case ECommand::CalculateSpeed: CalculateSpeed(m_document); break;
    case ECommand::Options: EditOptions(m_document); break;
    case ECommand::About: m_application.OnAppAbout(); break;
    default: return false;
    }
    return true;
}

/// What acts on points: those selected in the grid, or the focus point of the map, the graph and the menu.
bool CCommandRouter::OnPoints(ECommand command, const SCommandPlace& place)
{
    if (place.pane != EPane::PointGrid)
        return OnFocus(command, place);
    switch (command) {
    case ECommand::MarkValid: MarkPoints(m_document, place.points, false); return true;
    case ECommand::MarkInvalid: MarkPoints(m_document, place.points, true); return true;
    case ECommand::DeleteTrackPoints: DeletePoints(m_document, place.points); return true;
    case ECommand::SelectedProperties: ShowSelectedProperties(m_document, place.points); return true;
    case ECommand::ExportSelectedPoints: {
        CObjectArray<CTrackPoint> points(CObjectArray<CTrackPoint>::EOwnership::Borrows);
        std::ranges::for_each(place.points, [&](CTrackPoint* pPoint) { points.Borrow(*pPoint); });
        ExportSelectedTrackPoints(m_document, points, m_shownColumns);
        return true;
    }
    case ECommand::SplitFile:
    case ECommand::AddWaypoint:
    case ECommand::AddCheckPoint:
        // The first row is the point that is meant, wherever the focus was.
        if (!place.points.empty())
            m_document.m_selection.SetFocusPoint(place.points[0]->m_nSeriesIndex, place.points[0]->m_nTrack);
        return OnFocus(command, place);
    default: return false;
    }
}

bool CCommandRouter::OnFocus(ECommand command, const SCommandPlace& place)
{
    const bool bNewPoint = command == ECommand::AddWaypoint || command == ECommand::AddCheckPoint;
    if (bNewPoint && place.placeForNewPoint) {
        if (const std::optional<CPosition> position = place.placeForNewPoint()) {
            command == ECommand::AddWaypoint ? AddWaypointAtPosition(m_document, *position)
                                             : AddCheckPointAtPosition(m_document, *position);
            return true;
        }
    }
    const auto focus = [&] {
        ShowFocusFile();
        return static_cast<int>(m_document.m_selection.m_dFocusPoint);
    };
    switch (command) {
    case ECommand::MarkValid: MarkFocusPoint(m_document, false); return true;
    case ECommand::MarkInvalid: MarkFocusPoint(m_document, true); return true;
    case ECommand::DeleteTrackPoints: DeletePoint(m_document, focus()); return true;
    case ECommand::AddWaypoint: AddWaypointAtPoint(m_document, focus()); return true;
    case ECommand::AddCheckPoint: AddCheckPointAtPoint(m_document, focus()); return true;
    case ECommand::SplitFile:
        focus();
        SplitSeries(m_document);
        return true;
    default: return false;
    }
}

void CCommandRouter::DeletePointBeforeFocus()
{
    ShowFocusFile();
    DeletePoint(m_document, static_cast<int>(m_document.m_selection.m_dFocusPoint) - 1);
}

/// Division results list runs of all files: the run picked last, and with it the focus, may be in another
/// file than the selected one, on which the commands act by index.
void CCommandRouter::ShowFocusFile()
{
    CViewSelection& selection = m_document.m_selection;
    const int nSeries = selection.m_nFocusSeries;
    if (nSeries == -1 || selection.m_nSeries == -1 || nSeries == selection.m_nSeries)
        return;
    selection.m_nSeries = nSeries;
    if (const CSeries* pSeries = selection.GetCurrentSeries())
        selection.m_strCaption = pSeries->m_strName;
    selection.Recalculate(false, false);
}

void CCommandRouter::OpenNew()
{
    if (m_document.CanCloseFrame())
        m_document.OnNewDocument();
}

} // namespace kestrabel
