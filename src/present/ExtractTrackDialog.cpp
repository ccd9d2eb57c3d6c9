#include "present/ExtractTrackDialog.h"

#include "model/SpeedUnits.h"

namespace kestrabel {

SExtractTrackDialog SExtractTrackDialog::From(const CSeries& series)
{
    SExtractTrackDialog dialog;
    dialog.every.Set(2.0);
    dialog.startPoint.Set(1.0);
    dialog.everySeconds.Set(2.0);
    dialog.timeStartPoint.Set(1.0);
    dialog.fasterThan.Set(10.0);
    dialog.strTrackName = series.m_strFileName + " extract";
    dialog.SetMode(EExtractBy::TrackPoint);
    return dialog;
}

void SExtractTrackDialog::SetMode(EExtractBy newMode)
{
    mode = newMode;
    every.bEnabled = startPoint.bEnabled = mode == EExtractBy::TrackPoint;
    everySeconds.bEnabled = timeStartPoint.bEnabled = mode == EExtractBy::Time;
    fasterThan.bEnabled = mode == EExtractBy::MinimumSpeed;
}

std::optional<SFieldProblem> SExtractTrackDialog::Validate() const
{
    return FirstProblem({&every, &startPoint, &everySeconds, &timeStartPoint, &fasterThan});
}

double SExtractTrackDialog::UnitFactor() const
{
    if (strUnit == "knots")
        return SpeedUnitOf(SpeedUnit::Knots).dDisplayFactor;
    return SpeedUnitOf(strUnit == "kmh" ? SpeedUnit::KilometresPerHour : SpeedUnit::MetresPerSecond)
        .dDisplayFactor;
}

} // namespace kestrabel
