#pragma once

#include "model/Series.h"
#include "present/DialogField.h"

#include <array>

namespace kestrabel {

enum class EExtractBy : std::int32_t
{
    TrackPoint = 0,
    Time = 1,
    Day = 2,
    MinimumSpeed = 3
};

/// "Extract Track Dialog". Points are counted from 0.
struct SExtractTrackDialog
{
    static constexpr std::string_view Title = "Extract Track Dialog";
    static constexpr std::array<std::string_view, 4> ModeLabels = {
        "Track Point:", "Time:", "By Day:", "By Minimum Speed"};
    static constexpr std::array<std::string_view, 3> Units = {"knots", "kmh", "ms"};
    static constexpr std::string_view ModeGroup = "Extract Track By:";
    static constexpr std::string_view NameLabel = "&Track Name:";
    static constexpr std::size_t MaxNameLength = 40; ///< of what is typed; the name proposed may be longer

    static SExtractTrackDialog From(const CSeries& series);
    /// Another row was chosen; only its fields are enabled.
    void SetMode(EExtractBy newMode);
    std::optional<SFieldProblem> Validate() const;
    /// From km/h to the unit chosen beside the speed.
    double UnitFactor() const;

    EExtractBy mode = EExtractBy::TrackPoint;
    SNumberField every{"Every", 0.0, 4294967295.0, true};
    SNumberField startPoint{"trackpoints, starting at point", -2147483648.0, 2147483647.0, true};
    SNumberField everySeconds{"Every", 0.0, 4294967295.0, true};
    SNumberField timeStartPoint{" seconds,    starting at point", 0.0, 4294967295.0, true};
    SNumberField fasterThan{"Faster than:", 0.0, 100000.0};
    std::string strUnit = "knots";
    std::string strTrackName;
};

} // namespace kestrabel
