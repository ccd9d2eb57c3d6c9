#include "present/TrackFilePropertiesDialog.h"

#include "model/NumberText.h"
#include "model/SpeedUnits.h"

#include <cmath>
#include <limits>

namespace kestrabel {

STrackFilePropertiesDialog STrackFilePropertiesDialog::From(const CEvent& event, const CSeries& series)
{
    constexpr double dMinutesPerSecond = 0.016666666666666666;
    // Whatever the label says, the unit is that of the speeds: nautical miles go with knots.
    const double dInUnit = series.m_dTotalDistance * SpeedUnitOf(event.m_nSpeedUnits).dDisplayFactor;
    // The derivation starts the altitudes at the far ends; what no point told is not shown.
    const auto altitude = [&](double d) {
        const bool bTold = !series.m_points.IsEmpty() && std::abs(d) < std::numeric_limits<double>::max();
        return bTold ? FormatNumber(d, 0, true) : std::string();
    };
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
        {"Travel Time (Mins):", FormatNumber(series.m_dTravelTime * dMinutesPerSecond, 2, true)},
        {"Total Distance (Kms):", FormatNumber(series.m_dTotalDistance, 2, true)},
        {"Total Distance (Nms):", FormatNumber(dInUnit, 2, true)},
        {"Maximum Altitude (m):", altitude(series.m_dMaxAltitude)},
        {"Minimum Altitude (m):", altitude(series.m_dMinAltitude)},
        {"Max Result HDOP:", FormatNumber(series.m_dMaxResultHDOP, 1, true)},
        {"Min Result Sats:", FormatNumber(series.m_dMinResultSats, 0, true)}};
    dialog.windDirection.Set(series.m_dWindDirection);
    dialog.dopplerError.Set(series.m_dDopplerError);
    return dialog;
}

std::optional<SFieldProblem> STrackFilePropertiesDialog::Validate() const
{
    if (strName.empty() && !strFileName.empty())
        return SFieldProblem{&strName, "Please enter a name for the track file."};
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
