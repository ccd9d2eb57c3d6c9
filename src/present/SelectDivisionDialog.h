#pragma once

#include "present/EditCompetitorDialog.h"

#include <algorithm>

namespace kestrabel {

/// "Select Division Dialog": the event's divisions, those checked in which a competitor is entered.
struct SSelectDivisionDialog
{
    static constexpr std::string_view Title = "Select Division Dialog";

    struct SRow
    {
        std::string strName;
        bool bChecked = false;
    };

    static SSelectDivisionDialog From(const SEditCompetitorDialog& competitor)
    {
        SSelectDivisionDialog dialog;
        for (const std::string& strName : competitor.eventDivisions)
            dialog.rows.push_back({strName, std::ranges::count(competitor.divisionNames, strName) > 0});
        return dialog;
    }
    /// A click or a double-click on a row.
    void Toggle(std::size_t nRow) { rows[nRow].bChecked = !rows[nRow].bChecked; }
    /// In list order.
    std::vector<std::string> CheckedNames() const
    {
        std::vector<std::string> names;
        for (const SRow& row : rows) {
            if (row.bChecked)
                names.push_back(row.strName);
        }
        return names;
    }

    std::vector<SRow> rows;
};

} // namespace kestrabel
