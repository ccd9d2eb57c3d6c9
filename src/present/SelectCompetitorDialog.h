#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

namespace kestrabel {

/// "Select Competitor Dialog": who a new track file belongs to.
struct SSelectCompetitorDialog
{
    static constexpr std::string_view Title = "Select Competitor Dialog";
    static constexpr std::string_view Question =
        "Which competitor Would you like to assign this new series of track points to?";

    static SSelectCompetitorDialog From(const CEvent& event, int nCurrent)
    {
        SSelectCompetitorDialog dialog;
        for (const CPerson* pPerson : event.m_persons)
            dialog.names.push_back(pPerson->m_strName);
        dialog.nSelected = nCurrent;
        return dialog;
    }
    std::optional<SFieldProblem> Validate() const
    {
        if (nSelected >= 0 && nSelected < static_cast<int>(names.size()))
            return std::nullopt;
        return SFieldProblem{&nSelected, "Invalid competitor selected"};
    }

    std::vector<std::string> names;
    int nSelected = -1;
};

} // namespace kestrabel
