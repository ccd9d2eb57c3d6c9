#pragma once

namespace kestrabel {

/// One geographic position in decimal degrees. Latitude is positive north, longitude positive east; nothing
/// normalises or limits the values that a file gave.
struct CPosition
{
    double m_dLongitude = 0.0;
    double m_dLatitude = 0.0;

    bool operator==(const CPosition&) const = default;
};

/// A position from latitude and longitude, in the order in which people say them.
constexpr CPosition MakePosition(double dLatitude, double dLongitude)
{
    return {.m_dLongitude = dLongitude, .m_dLatitude = dLatitude};
}

} // namespace kestrabel
