#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

#include <array>
#include <optional>
#include <string>

namespace kestrabel {

/// Copies of waypoints, in order.
CObjectArray<CWayPoint> CopyOf(const CObjectArray<CWayPoint>& wayPoints);
/// A copy of a division with its waypoints.
std::unique_ptr<CDivision> CopyOf(const CDivision& division);

/// "Edit Division Dialog", for a new division (one without a name) or an existing one.
struct SEditDivisionDialog
{
    static constexpr std::string_view Title = "Edit Division Dialog";
    static constexpr std::array<std::string_view, 6> KindLabels = {"Distance",   "Time",   "Alpha Racing",
                                                                   "Lap Racing", "Splits", "CheckPoints"};
    static constexpr std::array<std::string_view, 3> CalcUsingLabels = {"Trackpoints", "Doppler",
                                                                        "Doppler if Available"};
    static constexpr std::string_view NameLabel = "Division Name:";
    static constexpr std::string_view KindGroup = "Calculation of Results";
    static constexpr std::string_view RunsLabel = "runs"; ///< behind their number
    static constexpr std::string_view CalcUsingGroup = "Calc using:";
    static constexpr std::string_view AddToAllLabel = "Add to all competitors";
    static constexpr std::string_view AddWayPointsLabel = "Add Waypoints...";

    static SEditDivisionDialog From(const CEvent& event, const CDivision& division);
    /// Takes the values over into a division. They are valid.
    void ApplyTo(CDivision& division) const;

    /// Another kind was chosen, 1 to 6: enables and checks what that allows.
    void SetKind(std::uint8_t nNewKind);
    /// The first value that cannot be accepted. A name must be given, and by no other division of the event,
    /// whatever the case: results are kept by it.
    std::optional<SFieldProblem> Validate() const;

    std::string strName;
    std::uint8_t nKind = DivisionKind::Distance;
    SNumberField metres{"Metres:", 0.0, 4294967295.0, true};
    SNumberField seconds{"Seconds:", 0.0, 50000.0, true};
    SNumberField proximity{"Proximity:", 0.0, 1000.0}; ///< metres
    SNumberField averageRuns{"Average", 1.0, 99.0, true};
    SCheckField useAltitude{"Use Altitude"};
    SCheckField accumulation{"Accumulation Method"};
    SCheckField oneResultPerRun{"One result per run"};
    SCheckField strict{"Strict (no invalids)"};
    bool bAddToAllCompetitors = false; ///< shown, never enabled
    std::uint8_t nCalcUsing = CalcUsing::Trackpoints;
    bool bWayPointsEnabled = false;
    CObjectArray<CWayPoint> wayPoints;   ///< the dialog's copy, for "Add Waypoints..."
    std::vector<bool> wayPointsChecked;  ///< in that dialog; means nothing beyond
    std::vector<std::string> otherNames; ///< of the event's other divisions
};

} // namespace kestrabel
