#pragma once

#include "model/Event.h"
#include "present/DialogField.h"
#include "present/EllipsoidFields.h"

namespace kestrabel {

/// What the options dialog has of the event besides calculation and display: its name and place, its
/// ellipsoid, and the days and the region that fixes must lie in.
struct SEventProperties
{
    static constexpr std::string_view DataFolderLabel = "Data Folder...";
    static constexpr std::string_view StartDateLabel = "Start Date:";
    static constexpr std::string_view EndDateLabel = "End Date:";

    static SEventProperties From(const CEvent& event);
    std::optional<SFieldProblem> Validate() const;
    /// The start counts from its midnight, the end to its last second. An edge is read as far as it is a
    /// number; one that does not begin with a number is 0.
    void ApplyTo(CEvent& event) const;

    STextField description{"Description:", 15};
    STextField location{"Location Name:", 30};
    std::string strDataFolder;
    SEllipsoidFields ellipsoid;
    SCheckField constrainDates{"Constrain to dates"};
    DATE startDate;
    DATE endDate;
    SCheckField constrainRegion{"Constrain to region"};
    STextField north{"North:"}; ///< degrees: sign and 6 decimals
    STextField west{"West:"};
    STextField south{"South:"};
    STextField east{"East:"};
};

} // namespace kestrabel
