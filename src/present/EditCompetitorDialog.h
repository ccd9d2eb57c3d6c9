#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

#include <span>

namespace kestrabel {

/// "Edit Competitor Dialog": who a competitor is, and in which divisions.
struct SEditCompetitorDialog
{
    static constexpr std::string_view Title = "Edit Competitor Dialog";
    static constexpr std::string_view DivisionsLabel = "Divisions:";
    static constexpr std::string_view EditLabel = "Edit...";

    static SEditCompetitorDialog From(const CEvent& event, const CPerson& person);
    std::optional<SFieldProblem> Validate() const
    {
        return FirstTextProblem({&name, &number, &email, &phone});
    }
    void ApplyTo(CPerson& person) const;
    /// Takes rows of the list of divisions out; `selected` ascends.
    void RemoveDivisions(std::span<const int> selected);

    STextField name{"Name:"};
    STextField number{"Number:", 12};
    STextField email{"Email:"};
    STextField phone{"Phone:"};
    std::vector<std::string> divisionNames;
    std::vector<std::string> eventDivisions; ///< what "Edit..." offers
};

} // namespace kestrabel
