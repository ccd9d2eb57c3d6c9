#include "present/SelectWayPointDialog.h"

#include <algorithm>

namespace kestrabel {

SSelectWayPointDialog SSelectWayPointDialog::From(const SEditDivisionDialog& division)
{
    SSelectWayPointDialog dialog;
    dialog.wayPoints = CopyOf(division.wayPoints);
    dialog.checked = division.wayPointsChecked;
    dialog.checked.resize(static_cast<std::size_t>(dialog.wayPoints.GetCount()));
    return dialog;
}

void SSelectWayPointDialog::ApplyTo(SEditDivisionDialog& division) const
{
    division.wayPoints = CopyOf(wayPoints);
    division.wayPointsChecked = checked;
}

void SSelectWayPointDialog::Toggle(int nRow)
{
    nSelected = nRow;
    if (HasSelection())
        checked[static_cast<std::size_t>(nRow)].flip();
}

void SSelectWayPointDialog::Add(std::unique_ptr<CWayPoint> pWayPoint)
{
    wayPoints.Add(std::move(pWayPoint));
    checked.push_back(false);
    nSelected = wayPoints.GetCount() - 1;
}

void SSelectWayPointDialog::Delete()
{
    if (!HasSelection())
        return;
    wayPoints.RemoveAt(nSelected);
    checked.erase(checked.begin() + nSelected);
    nSelected = std::min(nSelected, wayPoints.GetCount() - 1);
}

} // namespace kestrabel
