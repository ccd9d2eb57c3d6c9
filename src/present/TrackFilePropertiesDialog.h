#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

namespace kestrabel {

/// "Track File Properties": what is known about a track file, its name and its calculation parameters.
struct STrackFilePropertiesDialog
{
    static constexpr std::string_view Title = "Track File Properties";
    static constexpr std::string_view FileNameLabel = "File Name:";
    static constexpr std::string_view NameLabel = "&Name:";
    static constexpr std::string_view GpsGroup = "GPS Information";
    static constexpr std::string_view StatisticsGroup = "Statistics";
    static constexpr std::string_view ParametersGroup = "Calculation Parameters";

    static STrackFilePropertiesDialog From(const CEvent& event, const CSeries& series);
    std::optional<SFieldProblem> Validate() const;
    /// Takes name and parameters over. False when nothing differs.
    bool ApplyTo(CSeries& series) const;

    std::string strFileName; ///< full path, shown only
    std::string strName;
    CDialogLines gpsInformation;
    CDialogLines statistics;
    SNumberField windDirection{"&Wind Direction:"}; ///< degrees
    SNumberField dopplerError{"&Doppler Error:"};   ///< km/h
};

} // namespace kestrabel
