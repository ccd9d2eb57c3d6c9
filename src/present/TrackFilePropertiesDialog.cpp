#include "present/TrackFilePropertiesDialog.h"

#include "model/NumberText.h"
#include "model/SpeedUnits.h"

namespace kestrabel {

STrackFilePropertiesDialog STrackFilePropertiesDialog::From(const CEvent& event, const CSeries& series)
{
    constexpr double dSecondsPerMinute = 60.0;
    const double dNauticalMiles = series.m_dTotalDistance * SpeedUnitOf(SpeedUnit::Knots).dDisplayFactor;
    const auto distance = [&](double d) { return FormatNumber(d, event.m_nDistancePrecision, true); };
    const bool bTold = series.m_dMaxAltitude >= series.m_dMinAltitude; // by some point
    STrackFilePropertiesDialog dialog;
    dialog.strFileName = series.m_strFileName;
    dialog.strName = series.m_strName;
    dialog.gpsInformation = {
        {"Identifier:", series.m_strIdentifier},
        {"Firmware:", series.m_strFirmware},
        {"Serial No.:", series.m_strSerialNo},
        {"Log Rate:", series.m_nLogRate < 1 ? std::string() : std::to_string(series.m_nLogRate)}};
    dialog.statistics = {
        {"Number of Points:", std::to_string(series.m_points.GetCount())},
        {"Travel Time (Mins):", FormatNumber(series.m_dTravelTime / dSecondsPerMinute, 2, true)},
        {"Total Distance (Kms):", distance(series.m_dTotalDistance)},
        {"Total Distance (Nms):", distance(dNauticalMiles)},
        {"Maximum Altitude (m):", bTold ? distance(series.m_dMaxAltitude) : std::string()},
        {"Minimum Altitude (m):", bTold ? distance(series.m_dMinAltitude) : std::string()},
        {"Max Result HDOP:", FormatNumber(series.m_dMaxResultHDOP, 2, true)},
        {"Min Result Sats:", FormatNumber(series.m_dMinResultSats, 0, true)}};
    dialog.windDirection.Set(series.m_dWindDirection);
    dialog.dopplerError.Set(series.m_dDopplerError);
    return dialog;
}

std::optional<SFieldProblem> STrackFilePropertiesDialog::Validate() const
{
    if (strName.find_first_of("/\\") != std::string::npos)
        return SFieldProblem{&strName, "The name of a file has no slash or backslash."};
    return FirstProblem({&windDirection, &dopplerError});
}

bool STrackFilePropertiesDialog::ApplyTo(CSeries& series) const
{
    if (series.m_strName == strName && series.m_dWindDirection == windDirection.Value() &&
        series.m_dDopplerError == dopplerError.Value())
        return false;
    series.m_strName = strName;
    series.m_dWindDirection = windDirection.Value();
    series.m_dDopplerError = dopplerError.Value();
    return true;
}

} // namespace kestrabel
