#pragma once

namespace kestrabel {

class CDesktop;
struct SEditCompetitorDialog;
struct SEditDivisionDialog;
struct SSelectWayPointDialog;

// The buttons of dialogs that open another dialog. They change the dialog's copies, never the event.

/// "Edit..." beside a competitor's divisions.
void ChooseDivisions(CDesktop& desktop, SEditCompetitorDialog& dialog);
/// "Add Waypoints..." of a division.
void ChooseWayPoints(CDesktop& desktop, SEditDivisionDialog& dialog);
/// "Add..." and "Edit..." in the list of a division's waypoints.
void AddWayPoint(CDesktop& desktop, SSelectWayPointDialog& dialog);
void EditWayPoint(CDesktop& desktop, SSelectWayPointDialog& dialog);

} // namespace kestrabel
