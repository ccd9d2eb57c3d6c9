#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

#include <utility>

namespace kestrabel {

/// "Track File Properties": what is known about a track file, its name and its calculation parameters.
struct STrackFilePropertiesDialog
{
    static constexpr std::string_view Title = "Track File Properties";

    static STrackFilePropertiesDialog From(const CEvent& event, const CSeries& series);
    std::optional<SFieldProblem> Validate() const;
    /// Takes name and parameters over. False when nothing differs.
    bool ApplyTo(CSeries& series) const;

    using CLines = std::vector<std::pair<std::string_view, std::string>>; ///< label and text

    std::string strFileName; ///< full path, shown only
    std::string strName;
    CLines gpsInformation;
    CLines statistics;
    SNumberField windDirection{"&Wind Direction:", -360.0, 360.0};
    SNumberField dopplerError{"&Doppler Error:", 0.0, 100000.0}; ///< km/h
};

} // namespace kestrabel
