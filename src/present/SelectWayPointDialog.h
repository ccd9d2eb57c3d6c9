#pragma once

#include "present/EditDivisionDialog.h"

namespace kestrabel {

/// "Select Way Point Dialog": the waypoints of a division, to which they go back on OK only.
struct SSelectWayPointDialog
{
    static constexpr std::string_view Title = "Select Way Point Dialog";
    static constexpr std::string_view AddLabel = "Add...";
    static constexpr std::string_view EditLabel = "Edit...";
    static constexpr std::string_view DeleteLabel = "Delete";

    static SSelectWayPointDialog From(const SEditDivisionDialog& division);
    void ApplyTo(SEditDivisionDialog& division) const;

    bool HasSelection() const { return nSelected >= 0 && nSelected < wayPoints.GetCount(); }
    /// A click or a double-click on a row selects it and turns its check mark.
    void Toggle(int nRow);
    void Add(std::unique_ptr<CWayPoint> pWayPoint);
    /// Removes the selected row; the one that comes to its place is selected then.
    void Delete();

    CObjectArray<CWayPoint> wayPoints; ///< the dialog's copies
    std::vector<bool> checked;         ///< one for each
    int nSelected = -1;
};

} // namespace kestrabel
