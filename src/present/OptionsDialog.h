#pragma once

#include "model/SpeedUnits.h"
#include "present/EventProperties.h"

#include <array>

namespace kestrabel {

/// A speed, or an acceleration, that the event holds in km/h and the user enters in the speed unit. In km/h
/// it is shown as it is, in other units with 2 decimals.
struct SSpeedField : SNumberField
{
    void Show(double dKilometresPerHour, const SSpeedUnit& unit);
    /// The unit changes: what the user has not touched is shown from the exact value, not from its rounding.
    void ChangeUnit(const SSpeedUnit& from, const SSpeedUnit& to);
    double Entered(const SSpeedUnit& unit) const { return Value() * unit.dEntryFactor; } ///< km/h

    double dShown = 0.0; ///< km/h, what the text that was shown stands for
    std::string strShown = {};
};

/// "Kestrabel Properties": the settings of calculation and display.
struct SOptionsDialog
{
    static constexpr std::string_view Title = "Kestrabel Properties";
    static constexpr std::string_view DisplayGroup = "Display";
    static constexpr std::string_view CalculationGroup = "Calculation:";
    static constexpr std::string_view UnitsLabel = "Speed Units:";
    static constexpr std::array<std::string_view, 4> Units = {"nm", "kmh", "ms", "mph"};
    // The lists of decimals begin with 0; other numbers may be typed.
    static constexpr int LastListedPrecision = 3;
    static constexpr int LastListedLatLongPrecision = 10;

    static SOptionsDialog From(const CEvent& event);
    /// Another unit was chosen: the speeds are shown in it.
    void SetUnit(std::string_view strNewUnit);
    std::optional<SFieldProblem> Validate() const;
    void ApplyTo(CEvent& event) const;

    SNumberField showTopRows{"Show top \"n\" Rows:", 1.0, 65535.0, true};
    SNumberField smoothing{"Smoothing Count", 1.0, 20.0, true};
    SNumberField timezone{"Timezone Adjust:", -24.0, 24.0}; ///< hours
    SNumberField zoom{"Zoom (1-3):", 0.2, 3.0};
    std::string strUnit; ///< of `Units`; any other counts as "ms"
    SNumberField speedPrecision{"Speed Precision:", -2147483648.0, 2147483647.0, true};
    SNumberField timePrecision{"Time Precision:", -2147483648.0, 2147483647.0, true};
    SNumberField distancePrecision{"Distance Precision:", -2147483648.0, 2147483647.0, true};
    SNumberField latLongPrecision{"Lat/long Precision:", -2147483648.0, 2147483647.0, true};
    SNumberField timeThreshold{"Time Threshold:", 10.0, 65535.0, true}; ///< seconds
    SSpeedField speedThreshold{{"Speed Threshold:", 0.0, 1000.0}};
    SSpeedField accThreshold{{"Acc Threshold:", 0.0, 1000.0}}; ///< per second
    SSpeedField stopRunSpeed{{"Stop Run Speed:"}};
    SNumberField maxHdop{"Max HDOP:", 0.0, 1000.0};
    SNumberField minSats{"Min Sats:", 0.0, 1000.0, true};
    SSpeedField deccThreshold{{"Decc Threshold:", 0.0, 1000.0}}; ///< per second
    SNumberField stopRunAngle{"Stop Run Angle:", 1.0, 180.0};    ///< degrees
    SSpeedField dopplerError{{"Doppler Error:"}};
    SNumberField trackpointError{"Trackpoint Error:"}; ///< metres
    SCheckField captureFocus{"Capture focus on mouse move"};

    /// Laid out, but hidden; then they pass through unchanged.
    SEventProperties properties;
    bool bPropertiesShown = false;
};

/// How far a change of settings reaches.
enum class EOptionsEffect
{
    Nothing,
    Views,   ///< what is shown is shown anew
    Results, ///< results are found anew in the points as they are: they hold more rows or other errors
    Points   ///< every point and result is calculated anew
};

/// Compares the settings, in internal units, from before and after the dialog.
EOptionsEffect EffectOfOptions(const CEvent& before, const CEvent& after);

} // namespace kestrabel
