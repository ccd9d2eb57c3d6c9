#pragma once

#include "model/Event.h"
#include "model/SpeedUnits.h"
#include "present/DialogField.h"

namespace kestrabel {

/// "Delete Slow Points Dialog".
struct SDeleteSlowPointsDialog
{
    static constexpr std::string_view Title = "Delete Slow Points Dialog";
    static constexpr std::string_view Text = "Kestrabel will delete all points less than";
    static constexpr std::string_view Question = "Do you wish to continue?";
    static constexpr std::string_view DopplerLabel = "Use doppler if avalable";

    /// Starts at the speed below which a run ends.
    static SDeleteSlowPointsDialog From(const CEvent& event)
    {
        const SSpeedUnit& unit = SpeedUnitOf(event.m_nSpeedUnits);
        SDeleteSlowPointsDialog dialog;
        dialog.strUnit = unit.strText;
        dialog.speed.SetConverted(event.m_dStopRunSpeed * unit.dDisplayFactor);
        return dialog;
    }
    std::optional<SFieldProblem> Validate() const { return FirstProblem({&speed}); }
    /// km/h
    double SpeedLimit(const CEvent& event) const
    {
        return speed.Value() * SpeedUnitOf(event.m_nSpeedUnits).dEntryFactor;
    }

    SNumberField speed{Text, 0.0, 1000.0}; ///< in the display unit
    std::string strUnit;
    bool bUseDoppler = true;
};

} // namespace kestrabel
