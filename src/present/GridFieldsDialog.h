#pragma once

#include "present/GridField.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrabel {

/// "Select Grid Fields": a list with a check box for every field.
struct SGridFieldsDialog
{
    static constexpr std::string_view Title = "Select Grid Fields";
    static constexpr SGridColumn DisplayColumn = {"Display", EAlign::Left, 50, true};
    static constexpr SGridColumn NameColumn = {"Field Name", EAlign::Left, 150, true};

    static SGridFieldsDialog From(const CGridFields& fields)
    {
        SGridFieldsDialog dialog;
        for (const CGridField& field : fields)
            dialog.rows.emplace_back(field.m_strTitle, field.m_bDisplay);
        return dialog;
    }
    void ApplyTo(CGridFields& fields) const
    {
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i].m_bDisplay = rows[i].second;
    }
    /// A click or a double-click on a row.
    void Toggle(std::size_t nRow) { rows[nRow].second = !rows[nRow].second; }

    std::vector<std::pair<std::string_view, bool>> rows; ///< title, and whether it is shown
};

} // namespace kestrabel
