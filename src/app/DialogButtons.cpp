#include "app/DialogButtons.h"

#include "app/Desktop.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/WayPointDialog.h"

namespace kestrabel {

void ChooseDivisions(CDesktop& desktop, SEditCompetitorDialog& dialog)
{
    SSelectDivisionDialog choice = SSelectDivisionDialog::From(dialog);
    if (desktop.Run(choice))
        dialog.divisionNames = choice.CheckedNames();
}

void ChooseWayPoints(CDesktop& desktop, SEditDivisionDialog& dialog)
{
    SSelectWayPointDialog choice = SSelectWayPointDialog::From(dialog);
    if (desktop.Run(choice))
        choice.ApplyTo(dialog);
}

void AddWayPoint(CDesktop& desktop, SSelectWayPointDialog& dialog)
{
    auto pWayPoint = std::make_unique<CWayPoint>();
    SWayPointDialog values = SWayPointDialog::From(*pWayPoint, false);
    if (!desktop.Run(values))
        return;
    values.ApplyTo(*pWayPoint);
    dialog.Add(std::move(pWayPoint));
}

void EditWayPoint(CDesktop& desktop, SSelectWayPointDialog& dialog)
{
    if (!dialog.HasSelection())
        return;
    CWayPoint& wayPoint = dialog.wayPoints[dialog.nSelected];
    SWayPointDialog values = SWayPointDialog::From(wayPoint, false);
    if (desktop.Run(values))
        values.ApplyTo(wayPoint);
}

} // namespace kestrabel
