#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kestrabel {

/// A row of the table of reference ellipsoids.
struct SEllipsoidRow
{
    std::string_view strName; ///< as shown in every list of projections
    double dRadius;           ///< equatorial radius a, metres
    double dInvFlattening;    ///< 1/f
};

/// The ellipsoids in the order in which they are shown; the position is the index. The last, "User", holds
/// the values that the user's own start from.
inline constexpr std::array<SEllipsoidRow, 7> EllipsoidTable = {{
    {"GRS80", 6378137.0, 298.2572221},
    {"WGS84", 6378137.0, 298.2572236},
    {"ANS", 6378160.0, 298.25},
    {"WGS72", 6378135.0, 298.26},
    {"Clarke 1858", 6378293.645, 294.26},
    {"Sphere", 6371000.0, 9999999999999990.0},
    {"User", 6378160.0, 298.25},
}};

/// The reference ellipsoid of distances and azimuths. A new one is WGS84.
class CEllipsoid
{
public:
    static constexpr std::int32_t Wgs84 = 1;
    static constexpr std::int32_t User = 6;

    CEllipsoid() { SetEllipsoid(Wgs84, 0.0, 0.0); }

    /// Chooses a row of the table; an index that has none becomes WGS84. Only "User" takes the radius
    /// (metres) and the inverse flattening, whatever they are; the other rows ignore them. Cannot fail.
    void SetEllipsoid(std::int32_t nIndex, double dRadius, double dInvFlattening);

    std::int32_t m_nEllipsoid = Wgs84;
    double m_dRadius = 0.0;        ///< equatorial radius a, metres
    double m_dInvFlattening = 0.0; ///< 1/f
    double m_dFlattening = 0.0;    ///< f, always 1 / m_dInvFlattening

    bool operator==(const CEllipsoid&) const = default;
};

/// The index of the ellipsoid of that name, without regard to case; -1 when there is none.
std::int32_t FindEllipsoid(std::string_view strName);

} // namespace kestrabel
