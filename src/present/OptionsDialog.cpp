#include "present/OptionsDialog.h"

#include "geo/Rounding.h"
#include "model/EventSettings.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double RadiansToDegrees = 57.29577951308232;
constexpr double DegreesToRadians = 0.017453292519943295;
constexpr double KilometresToMetres = 1000.0;
constexpr double MetresToKilometres = 0.001;
constexpr signed char ShownDecimals = 2;

std::int32_t IndexOfUnit(std::string_view strUnit)
{
    const auto found = std::ranges::find(SOptionsDialog::Units, strUnit);
    return found == SOptionsDialog::Units.end()
               ? SpeedUnit::MetresPerSecond
               : static_cast<std::int32_t>(found - SOptionsDialog::Units.begin());
}

/// Takes an entry over. One that differs from what the event holds by no more than the noise of its
/// conversion, such as 50 knots from 92.6 km/h, is no change.
void Settle(double& dSetting, double dEntered)
{
    constexpr double dNoise = 1e-12;
    if (!(std::abs(dEntered - dSetting) <= dNoise * std::abs(dSetting)))
        dSetting = dEntered;
}

bool SameSettings(const CEvent& one, const CEvent& other)
{
    return std::ranges::all_of(EventSettings(), [&](const SEventSetting& setting) {
        return std::visit([&](auto pField) { return one.*pField == other.*pField; }, setting.field);
    });
}

} // namespace

void SSpeedField::Show(double dKilometresPerHour, const SSpeedUnit& unit)
{
    const bool bAsItIs = &unit == &SpeedUnitOf(SpeedUnit::KilometresPerHour);
    Set(bAsItIs ? dKilometresPerHour : RoundTo(dKilometresPerHour * unit.dDisplayFactor, ShownDecimals));
    dShown = dKilometresPerHour;
    strShown = strText;
}

void SSpeedField::ChangeUnit(const SSpeedUnit& from, const SSpeedUnit& to)
{
    Show(strText == strShown ? dShown : Entered(from), to);
}

SOptionsDialog SOptionsDialog::From(const CEvent& event)
{
    const SSpeedUnit& unit = SpeedUnitOf(event.m_nSpeedUnits);
    SOptionsDialog dialog;
    dialog.showTopRows.Set(event.m_nShowTopRows);
    dialog.smoothing.Set(event.m_nSmoothing);
    dialog.timezone.Set(event.m_dTimezone);
    dialog.zoom.Set(event.m_dZoom);
    dialog.strUnit = unit.strText;
    dialog.speedPrecision.Set(event.m_nSpeedPrecision);
    dialog.timePrecision.Set(event.m_nTimePrecision);
    dialog.distancePrecision.Set(event.m_nDistancePrecision);
    dialog.latLongPrecision.Set(event.m_nLatLongPrecision);
    dialog.timeThreshold.Set(event.m_nTimeThreshold);
    dialog.speedThreshold.Show(event.m_dSpeedThreshold, unit);
    dialog.accThreshold.Show(event.m_dAccThreshold, unit);
    dialog.stopRunSpeed.Show(event.m_dStopRunSpeed, unit);
    dialog.maxHdop.Set(event.m_dMaxHDOP);
    dialog.minSats.Set(event.m_nMinSats);
    dialog.deccThreshold.Show(event.m_dDeccThreshold, unit);
    dialog.stopRunAngle.SetConverted(event.m_dStopRunAngle * RadiansToDegrees);
    dialog.dopplerError.Show(event.m_dDopplerError, unit);
    dialog.trackpointError.SetConverted(event.m_dTrackpointError * KilometresToMetres);
    dialog.captureFocus.bChecked = event.m_bCaptureFocus != 0;
    dialog.properties = SEventProperties::From(event);
    return dialog;
}

void SOptionsDialog::SetUnit(std::string_view strNewUnit)
{
    const SSpeedUnit& from = SpeedUnitOf(IndexOfUnit(strUnit));
    const SSpeedUnit& to = SpeedUnitOf(IndexOfUnit(strNewUnit));
    for (SSpeedField* pField : {&speedThreshold, &accThreshold, &stopRunSpeed, &deccThreshold, &dopplerError})
        pField->ChangeUnit(from, to);
    strUnit = strNewUnit;
}

std::optional<SFieldProblem> SOptionsDialog::Validate() const
{
    if (auto problem = FirstProblem({&showTopRows, &smoothing, &timezone, &zoom, &speedPrecision,
                                     &timePrecision, &distancePrecision, &latLongPrecision, &timeThreshold,
                                     &speedThreshold, &accThreshold, &stopRunSpeed, &maxHdop, &minSats,
                                     &deccThreshold, &stopRunAngle, &dopplerError, &trackpointError}))
        return problem;
    return bPropertiesShown ? properties.Validate() : std::nullopt;
}

void SOptionsDialog::ApplyTo(CEvent& event) const
{
    event.m_nSpeedUnits = IndexOfUnit(strUnit);
    const SSpeedUnit& unit = SpeedUnitOf(event.m_nSpeedUnits);
    event.m_nShowTopRows = showTopRows.Whole();
    event.m_nSmoothing = smoothing.Whole();
    event.m_dTimezone = timezone.Value();
    event.m_dZoom = zoom.Value();
    event.m_nSpeedPrecision = speedPrecision.Whole();
    event.m_nTimePrecision = timePrecision.Whole();
    event.m_nDistancePrecision = distancePrecision.Whole();
    event.m_nLatLongPrecision = latLongPrecision.Whole();
    event.m_nTimeThreshold = timeThreshold.Whole();
    Settle(event.m_dSpeedThreshold, speedThreshold.Entered(unit));
    Settle(event.m_dAccThreshold, accThreshold.Entered(unit));
    Settle(event.m_dStopRunSpeed, stopRunSpeed.Entered(unit));
    event.m_dMaxHDOP = maxHdop.Value();
    event.m_nMinSats = minSats.Whole();
    Settle(event.m_dDeccThreshold, deccThreshold.Entered(unit));
    Settle(event.m_dStopRunAngle, stopRunAngle.Value() * DegreesToRadians);
    Settle(event.m_dDopplerError, dopplerError.Entered(unit));
    Settle(event.m_dTrackpointError, trackpointError.Value() * MetresToKilometres);
    event.m_bCaptureFocus = captureFocus.bChecked;
    if (bPropertiesShown)
        properties.ApplyTo(event);
}

EOptionsEffect EffectOfOptions(const CEvent& before, const CEvent& after)
{
    const auto differ = [&](auto... pFields) { return (... || (before.*pFields != after.*pFields)); };
    // Dates and corners count only while they constrain something.
    const bool bOtherDays = after.m_bConstrainDates != 0 && differ(&CEvent::m_dateStart, &CEvent::m_dateEnd);
    const bool bOtherRegion =
        after.m_bConstrainRegion != 0 && differ(&CEvent::m_posNorthWest, &CEvent::m_posSouthEast);
    if (bOtherDays || bOtherRegion ||
        differ(&CEvent::m_ellipsoid, &CEvent::m_bConstrainDates, &CEvent::m_bConstrainRegion,
               &CEvent::m_dAccThreshold, &CEvent::m_dDeccThreshold, &CEvent::m_dSpeedThreshold,
               &CEvent::m_dMaxHDOP, &CEvent::m_nMinSats, &CEvent::m_nTimeThreshold, &CEvent::m_dStopRunAngle,
               &CEvent::m_dStopRunSpeed))
        return EOptionsEffect::Points;
    if (differ(&CEvent::m_nShowTopRows, &CEvent::m_dDopplerError, &CEvent::m_dTrackpointError))
        return EOptionsEffect::Results;
    return SameSettings(before, after) ? EOptionsEffect::Nothing : EOptionsEffect::Views;
}

} // namespace kestrabel
