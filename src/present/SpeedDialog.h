#pragma once

#include "model/Event.h"
#include "present/DialogField.h"
#include "present/EllipsoidFields.h"

#include <array>

namespace kestrabel {

/// A position and a time that the user enters.
struct SSpeedEnd
{
    static constexpr std::string_view TimeLabel = "Time:";

    SNumberField latitude{"Latitude:", -90.0, 90.0};
    SNumberField longitude{"Longitude:", -180.0, 180.0};
    DATE time;
};

/// "Speed Dialog": distance, speed and direction between two positions and times, to check a claimed run by
/// hand. Nothing in it changes the event.
struct SSpeedDialog
{
    static constexpr std::string_view Title = "Speed Dialog";
    static constexpr std::string_view StartGroup = "Start Point";
    static constexpr std::string_view EndGroup = "End Point";
    static constexpr std::string_view UnitsLabel = "Units:";
    static constexpr std::array<std::string_view, 3> Units = {"n", "k", "m"};
    static constexpr std::string_view ResultsGroup = "Results";
    static constexpr std::string_view CalculateLabel = "Calculate Now";
    static constexpr std::string_view CloseLabel = "Close";

    struct SResult
    {
        double dDistance = 0.0;  ///< in the unit
        double dSpeed = 0.0;     ///< in the unit per hour
        double dDirection = 0.0; ///< degrees from north
        double dReverse = 0.0;   ///< the direction from the end to the start
    };

    /// Two positions to begin with, both at `now`, and the event's ellipsoid.
    static SSpeedDialog From(const CEvent& event, const DATE& now);
    /// Begins with the ends of a run instead, at the times that the panes show.
    void SetRun(const CEvent& event, const CTrackPoint& first, const CTrackPoint& last);
    /// "Calculate Now": fills the result from what is entered, with equal times at speed 0. Tells the first
    /// value out of its range, which counts as it is.
    std::optional<SFieldProblem> Calculate();
    CDialogLines ResultLines() const;

    SSpeedEnd start;
    SSpeedEnd end;
    std::string strUnit = "k"; ///< its first letter: nautical miles, kilometres, statute miles
    SEllipsoidFields ellipsoid;
    SResult result;
};

} // namespace kestrabel
